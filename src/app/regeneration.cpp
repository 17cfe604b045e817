#include "app/regeneration.h"

#include "itunes/itunesinterface.h"
#include "songs/playbackpause.h"
#include "tags/mp3infotag.h"
#include "tags/songbytes.h"
#include "tags/tagfactory.h"

#include <algorithm>
#include <array>

namespace {

struct Field {
    const char *textID;
    std::optional<QString> (AudioInfoTag::*value)() const;
};

constexpr std::array fields{
    Field{QT_TRID_NOOP("SongTitle"), &AudioInfoTag::title},
    Field{QT_TRID_NOOP("Artist"), &AudioInfoTag::artist},
    Field{QT_TRID_NOOP("AlbumName"), &AudioInfoTag::album},
    Field{QT_TRID_NOOP("Year"), &AudioInfoTag::year},
    Field{QT_TRID_NOOP("Track"), &AudioInfoTag::track},
    Field{QT_TRID_NOOP("Genre"), &AudioInfoTag::genres},
    Field{QT_TRID_NOOP("Lyrics"), &AudioInfoTag::lyrics},
};

QStringList fieldsOf(const AudioInfoTag &tag)
{
    QStringList names;
    for (const Field &field : fields) {
        const bool isInFile = field.value != &AudioInfoTag::title || !tag.hasTitleOfPathname();
        if (isInFile && !(tag.*field.value)().value_or(QString()).isEmpty())
            names << qtTrId(field.textID);
    }
    return names;
}

/// Those of the frames of one tag that the other does not have, each ID once.
QStringList framesMissing(const FrameStore &frames, const FrameStore &in)
{
    QStringList missing;
    for (const FrameStore::Entry &entry : frames.entries()) {
        const auto &kept = in.entries();
        if (!missing.contains(entry.id) && std::find(kept.begin(), kept.end(), entry) == kept.end())
            missing << entry.id;
    }
    return missing;
}

} // namespace

ReadOptions Regeneration::readOptions(ReadOptions options)
{
    options.malformed = MalformedInfo::Discard;
    options.unrecognized = UnrecognizedInfo::Discard;
    return options;
}

InPlaceFile::Outcome Regeneration::regenerate(SongFile &song, const WriteOptions &options,
                                              iTunesInterface &itunes)
{
    // The tag stands marked as damaged; writing what is sound in it is what was asked for.
    const PlaybackPause pause(itunes, song.path());
    return song.infotag()->modifySongFileAtPath(song.path(), options);
}

Regeneration::Plan Regeneration::planOf(const QString &path, const ReadOptions &options)
{
    Plan plan;
    const auto bytes = openForTag(path);
    const TagOrReason now =
        bytes ? readTag(*bytes, options) : TagOrReason{nullptr, qtTrId("ErrorCannotOpenForRead")};
    const TagOrReason then = bytes ? readTag(*bytes, readOptions(options)) : TagOrReason{};
    if (!then.tag) {
        plan.reason = now.tag ? then.reason : now.reason;
        return plan;
    }
    plan.kept = fieldsOf(*then.tag);
    plan.pictures = then.tag->numberOfImages();
    const auto *read = dynamic_cast<const MP3InfoTag *>(now.tag.get());
    const auto *kept = dynamic_cast<const MP3InfoTag *>(then.tag.get());
    if (read && kept) {
        plan.problem = read->problem();
        plan.dropped = framesMissing(read->frames(), kept->frames());
    }
    return plan;
}
