#pragma once

#include <QStringView>

/// The two frame IDs that hold one field: of ID3v2.3 and 2.4, and of ID3v2.2.
struct FieldFrames {
    QStringView v24;
    QStringView v22;
};

namespace Fields {

inline constexpr FieldFrames title{u"TIT2", u"TT2"};
inline constexpr FieldFrames artist{u"TPE1", u"TP1"};
inline constexpr FieldFrames album{u"TALB", u"TAL"};
inline constexpr FieldFrames track{u"TRCK", u"TRK"};
/// In ID3v2.3 the year stands in "TYER"; reader and writer translate.
inline constexpr FieldFrames year{u"TDRC", u"TYE"};
inline constexpr FieldFrames genres{u"TCON", u"TCO"};
inline constexpr FieldFrames bpm{u"TBPM", u"TBP"};
inline constexpr FieldFrames lyrics{u"USLT", u"ULT"};
inline constexpr FieldFrames compilation{u"TCMP", u"TCP"};

} // namespace Fields
