#pragma once

#include "tags/id3image.h"
#include "tags/tagoptions.h"
#include "tags/tagtext.h"

#include <QList>
#include <QString>

#include <limits>
#include <memory>
#include <optional>

class QImage;

enum class TagType { MP3, AAC, Cached };

/// The metadata of one song, whatever the format of its file. A field that the file does not
/// hold is absent, not empty.
class AudioInfoTag {
public:
    /// The position of a song that is in no playlist, and of a genre that is in no table.
    static constexpr int notFound = std::numeric_limits<int>::max();

    AudioInfoTag() = default;
    AudioInfoTag(const AudioInfoTag &) = delete;
    AudioInfoTag &operator=(const AudioInfoTag &) = delete;
    virtual ~AudioInfoTag() = default;

    [[nodiscard]] virtual TagType type() const = 0;

    [[nodiscard]] std::optional<QString> title() const { return text(TagText::Title); }
    [[nodiscard]] std::optional<QString> artist() const { return text(TagText::Artist); }
    [[nodiscard]] std::optional<QString> album() const { return text(TagText::Album); }
    [[nodiscard]] std::optional<QString> year() const { return text(TagText::Year); }
    /// "N" or "N/M": number on the album, tracks on the album.
    [[nodiscard]] std::optional<QString> track() const { return text(TagText::Track); }
    /// Several genres are separated by "/".
    [[nodiscard]] std::optional<QString> genres() const { return text(TagText::Genres); }
    [[nodiscard]] std::optional<QString> lyrics() const { return text(TagText::Lyrics); }
    [[nodiscard]] std::optional<QString> bpm() const { return text(TagText::BPM); }
    [[nodiscard]] virtual bool isPartOfCompilation() const { return false; }
    [[nodiscard]] virtual QList<ID3Image> images() const { return {}; }
    [[nodiscard]] virtual int numberOfImages() const;

    /// Whether there is a title, be it one that we cannot read.
    [[nodiscard]] virtual bool hasTitle() const { return title().has_value(); }
    /// Whether fields that are shown as absent may hold in the file what is no value to us, which
    /// goes when they are set to nothing.
    [[nodiscard]] virtual bool hasHiddenValues() const { return false; }

    // An empty text removes the field. Every setter of a concrete tag marks it as modified.
    void setTitle(const QString &title)
    {
        mHasTitleOfPathname = false;
        setText(TagText::Title, title);
    }
    void setArtist(const QString &artist) { setText(TagText::Artist, artist); }
    void setAlbum(const QString &album) { setText(TagText::Album, album); }
    void setYear(const QString &year) { setText(TagText::Year, year); }
    void setTrack(const QString &track) { setText(TagText::Track, track); }
    void setGenres(const QString &genres) { setText(TagText::Genres, genres); }
    void setLyrics(const QString &lyrics) { setText(TagText::Lyrics, lyrics); }
    void setBPM(const QString &bpm) { setText(TagText::BPM, bpm); }
    virtual void setIsPartOfCompilation(bool) { }
    virtual bool addImage(const ID3Image &) { return false; }
    /// False when the tag has no images; an index beyond them is a mistake of the caller.
    virtual bool removeImageAtIndex(int index);
    void removeAllImages();

    /// The version of the tag that was read, such as "2.3.0".
    [[nodiscard]] virtual std::optional<QString> readVersion() const { return {}; }
    /// The version that a write will produce.
    [[nodiscard]] virtual std::optional<QString> writeVersion() const { return {}; }

    /// Writes the tag into the file at `path`. The tag itself stays as it is, but for the
    /// modified flag, which is cleared by success.
    [[nodiscard]] virtual InPlaceFile::Outcome modifySongFileAtPath(const QString &path,
                                                                    const WriteOptions &options);

    // Where the song came from, and how far its tag can be trusted.
    [[nodiscard]] bool isLazy() const { return mLazy; }
    /// A lazy tag was made from summary data; it counts as unmodified.
    void setIsLazy(bool isLazy);
    [[nodiscard]] bool tagHasBeenModified() const { return mTagModified; }
    void setTagHasBeenModified(bool modified) { mTagModified = modified; }
    [[nodiscard]] bool encounteredProblemDecoding() const { return mEncounteredProblemDecoding; }
    void setPlayList(const std::optional<QString> &playlist, int andIndex);
    [[nodiscard]] const std::optional<QString> &playlist() const { return mPlaylist; }
    /// `notFound` without a playlist.
    [[nodiscard]] int playlistIndex() const;

    // Values derived from the fields.
    [[nodiscard]] int trackNumber() const;
    /// The number after the "/"; without one, the track number itself (kept: files and lists
    /// made so far count on it).
    [[nodiscard]] int numberOfTracksOnAlbum() const;
    /// "Lanterns, The" as "The Lanterns".
    [[nodiscard]] std::optional<QString> normalizedArtist() const;
    /// "The Lanterns" as "Lanterns, The".
    [[nodiscard]] std::optional<QString> reversedArtist() const;
    /// Whether title, artist, album, genres or year contain `text`, whatever the case.
    [[nodiscard]] bool matchString(const QString &text) const;
    /// Takes the title from the file name when there is none; the tag does not count as
    /// modified by that.
    void gatherTagsFromPathname(const QString &path);
    /// Whether the title is taken from there, and none stands in the file.
    [[nodiscard]] bool hasTitleOfPathname() const { return mHasTitleOfPathname; }

    /// The first picture, scaled into the given box and framed; a null image without pictures.
    /// A tag made from summary data gives the icon that it has, whatever its size. Stands in
    /// artworkicon.cpp.
    [[nodiscard]] QImage imageIconNoLargerThan(double maxWidth, double maxHeight) const;

protected:
    [[nodiscard]] virtual std::optional<QString> text(TagText) const { return {}; }
    /// An empty text removes the field.
    virtual void setText(TagText, const QString &) { }

    void setEncounteredProblemDecoding() { mEncounteredProblemDecoding = true; }
    /// The icon of a tag that has no pictures to make one from.
    [[nodiscard]] virtual std::shared_ptr<const QImage> storedIcon() const { return {}; }

private:
    /// Behind a pointer so that reading tags does not load a GUI library.
    mutable std::shared_ptr<const QImage> mCachedIcon;
    bool mTagModified = false;
    bool mEncounteredProblemDecoding = false;
    bool mLazy = false;
    bool mHasTitleOfPathname = false;
    std::optional<QString> mPlaylist;
    int mPlaylistIndex = notFound;
};
