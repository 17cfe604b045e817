#include "tags/tagfactory.h"

#include "base/log.h"
#include "tags/aacinfotag.h"
#include "tags/filetype.h"
#include "tags/mp3infotag.h"

#include <utility>

namespace {

enum class TagClass { None, MP3, AAC };

/// By its name and its first atom, so that its sound need not be looked through.
bool isPlainlyMP4(const SongBytes &song)
{
    constexpr qint64 sizeLength = 4;
    return FileType::claimsToBeAAC(song.path()) && song.view(sizeLength, 4) == "ftyp";
}

/// By the contents; where they do not say, by the name.
TagClass classOf(const SongBytes &song)
{
    if (isPlainlyMP4(song))
        return TagClass::AAC;
    switch (FileType::songDataType(song)) {
    case FileType::SongDataType::MPEGAudio:
        return TagClass::MP3;
    case FileType::SongDataType::MP4:
        return TagClass::AAC;
    case FileType::SongDataType::Unknown:
        break;
    }
    if (FileType::claimsToBeMP3(song.path()))
        return TagClass::MP3;
    return FileType::claimsToBeAAC(song.path()) ? TagClass::AAC : TagClass::None;
}

TagOrReason noTag(const QString &reason)
{
    return {nullptr, reason};
}

TagOrReason tagOfClass(TagClass tagClass, const SongBytes &song, const ReadOptions &options)
{
    switch (tagClass) {
    case TagClass::MP3:
        if (auto tag = MP3InfoTag::tagWithBytes(song, options))
            return {std::move(tag), {}};
        return noTag(qtTrId("ErrorTagUnreadable"));
    case TagClass::AAC: {
        auto [tag, reason] = AACInfoTag::tagWithBytes(song);
        return {std::move(tag), reason};
    }
    case TagClass::None:
        break;
    }
    return noTag(qtTrId("ErrorNoSong"));
}

} // namespace

std::unique_ptr<SongBytes> openForTag(const QString &path)
{
    auto song = SongBytes::open(path);
    if (!song && FileType::claimsToBeMP3(path))
        qCWarning(logTags).noquote() << QStringLiteral("MP3 nil filehandle for %1").arg(path);
    return song;
}

TagOrReason readTag(const SongBytes &song, const ReadOptions &options)
{
    TagOrReason read = tagOfClass(classOf(song), song, options);
    if (read.tag)
        read.tag->gatherTagsFromPathname(song.path());
    return read;
}

std::unique_ptr<AudioInfoTag> tagWithPath(const QString &path, const ReadOptions &options)
{
    const auto song = openForTag(path);
    return song ? readTag(*song, options).tag : nullptr;
}
