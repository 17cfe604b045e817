#include "tags/tagfactory.h"

#include "base/log.h"
#include "tags/filetype.h"
#include "tags/mp3infotag.h"

#include <QFile>

namespace {

enum class TagClass { None, MP3, AAC };

/// By the contents; where they do not say, by the name.
TagClass classOf(const SongBytes &song)
{
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

std::unique_ptr<AudioInfoTag> tagOfClass(TagClass tagClass, const SongBytes &song,
                                         const ReadOptions &options)
{
    if (tagClass == TagClass::MP3)
        return MP3InfoTag::tagWithBytes(song, options);
    if (tagClass == TagClass::AAC)
        qCWarning(logTags).noquote()
            << QStringLiteral("** no tag is read from AAC at %1").arg(song.path());
    return {};
}

} // namespace

std::unique_ptr<AudioInfoTag> tagWithBytes(const SongBytes &song, const ReadOptions &options)
{
    auto tag = tagOfClass(classOf(song), song, options);
    if (tag)
        tag->gatherTagsFromPathname(song.path());
    return tag;
}

std::unique_ptr<AudioInfoTag> tagWithPath(const QString &path, const ReadOptions &options)
{
    if (const auto song = SongBytes::open(path))
        return tagWithBytes(*song, options);
    if (FileType::claimsToBeMP3(path))
        qCWarning(logTags).noquote() << QStringLiteral("MP3 nil filehandle for %1").arg(path);
    return {};
}

QString whyNoTag(const QString &path)
{
    const auto song = SongBytes::open(path);
    if (song && classOf(*song) == TagClass::AAC)
        return qtTrId("ErrorMP4NotYet");
    QFile file(path);
    if (!song && !file.open(QIODevice::ReadOnly))
        return file.errorString();
    return qtTrId("ErrorNoSong");
}
