#include "tags/id3frameids.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<QStringView, 21> internalRecognizedFrameIDs{
    u"PIC",  u"TCP",  u"TT2",  u"TP1",  u"TAL",  u"TCO",  u"TRK",
    u"TBP",  u"ULT",  u"TYE",  u"APIC", u"TCMP", u"TIT2", u"TPE1",
    u"TALB", u"TCON", u"TRCK", u"TBPM", u"USLT", u"TYER", u"TDRC"};

constexpr std::array<QStringView, 10> alsoITunesRecognizedFrameIDs{
    u"TCM", u"TT1", u"TPA", u"RVA", u"CM1", u"TCOM", u"TIT1", u"TPOS", u"RVAD", u"COMM"};

constexpr std::array<QStringView, 0> dangerousFrameIDs{};

bool contains(const auto &ids, QStringView id)
{
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

} // namespace

ID3FrameIDs::Kind ID3FrameIDs::internalRecognizedKind(QStringView id)
{
    if (!contains(internalRecognizedFrameIDs, id))
        return Kind::Unrecognized;
    if (id.front() == u'T')
        return Kind::Text;
    return id == u"USLT" || id == u"ULT" ? Kind::Lyrics : Kind::Picture;
}

bool ID3FrameIDs::isITunesRecognized(QStringView id)
{
    return contains(internalRecognizedFrameIDs, id) || contains(alsoITunesRecognizedFrameIDs, id);
}

bool ID3FrameIDs::isDangerous(QStringView id)
{
    return contains(dangerousFrameIDs, id);
}

QString ID3FrameIDs::currentID(const QString &paddedID)
{
    struct Successor {
        QStringView oldID, newID;
    };
    static constexpr std::array<Successor, 9> successors{{{u"TT2", u"TIT2"},
                                                          {u"TP1", u"TPE1"},
                                                          {u"TAL", u"TALB"},
                                                          {u"TCO", u"TCON"},
                                                          {u"TRK", u"TRCK"},
                                                          {u"TYE", u"TYER"},
                                                          {u"TBP", u"TBPM"},
                                                          {u"TCP", u"TCMP"},
                                                          {u"ULT", u"USLT"}}};
    const QStringView oldID = QStringView(paddedID).chopped(1);
    const auto found = std::find_if(successors.begin(), successors.end(),
                                    [oldID](const Successor &s) { return s.oldID == oldID; });
    const bool isPadded = paddedID.back() == u' ' || paddedID.back() == QChar::Null;
    return isPadded && found != successors.end() ? found->newID.toString() : paddedID;
}
