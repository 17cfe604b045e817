#include "itunes/localrunner.h"

#include "base/log.h"
#include "itunes/scripttext.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString lineEnd = u"\r"_s;
const QString fieldSeparator = u"|@"_s;

struct TextField {
    QStringView name; ///< as scripts name it
    QString LibraryTrack::*value;
};
constexpr TextField textFields[] = {{u"name", &LibraryTrack::name},
                                    {u"artist", &LibraryTrack::artist},
                                    {u"album", &LibraryTrack::album},
                                    {u"genre", &LibraryTrack::genre},
                                    {u"kind", &LibraryTrack::kind}};

struct NumberField {
    QStringView name;
    int LibraryTrack::*value;
};
constexpr NumberField numberFields[] = {{u"database ID", &LibraryTrack::id},
                                        {u"year", &LibraryTrack::year},
                                        {u"track number", &LibraryTrack::trackNumber},
                                        {u"track count", &LibraryTrack::trackCount}};

/// Texts of AppleScript compare in any case.
bool isSameText(const QString &text, const QString &inScript)
{
    return ScriptText::withoutControls(text).compare(inScript, Qt::CaseInsensitive) == 0;
}

bool isTrack(const LibraryTrack &track, const QString &title, const QString &artist)
{
    return isSameText(track.name, title) && isSameText(track.artist, artist);
}

/// 0 for a file that no library numbers.
QString databaseID(const CatalogTrack &track)
{
    return QString::number(track.info ? track.info->id : 0);
}

/// The lines of a result are parted by carriage returns, which names may hold.
QString inLine(QString name)
{
    return name.replace(u'\r', u' ');
}

} // namespace

/// A script by its text, or else by the key of its resource, and what answers it.
struct LocalRunner::Answer {
    QStringView text;
    Result (LocalRunner::*answer)(const Arguments &);
    enum class Of { Text, Resource } of = Of::Text;
};

LocalRunner::LocalRunner(MusicPlaces places)
    : mCatalog(std::move(places))
{
}

std::optional<QString> LocalRunner::run(const QString &script)
{
    using enum Answer::Of;
    static constexpr Answer answers[] = {
        {u"iTunes_play_currently_playing", &LocalRunner::playingTrack, Resource},
        {ScriptText::pause, &LocalRunner::pause},
        {ScriptText::resume, &LocalRunner::resume},
        {u"iTunes_refresh_dbid", &LocalRunner::refreshID, Resource},
        {u"iTunes_refresh_title_artist", &LocalRunner::refreshTitleArtist, Resource},
        {ScriptText::version, &LocalRunner::version},
        {ScriptText::displayPlaylist, &LocalRunner::displayPlaylist},
        {ScriptText::indexOfPlaylist, &LocalRunner::indexOfPlaylist},
        {ScriptText::numberOfTracks, &LocalRunner::numberOfTracks},
        {ScriptText::identifiersOfTrack, &LocalRunner::identifiersOfTrack},
        {ScriptText::fieldOfTrack, &LocalRunner::fieldOfTrack},
        {ScriptText::fieldOfTrackNamed, &LocalRunner::fieldOfTrackNamed},
        {u"iTunes_Playlist_Names", &LocalRunner::playlistNames, Resource},
        {u"iTunes_Playlist_Info", &LocalRunner::playlistInfo, Resource},
        {u"iTunes_Playlist_Contents", &LocalRunner::playlistContents, Resource},
        {u"iTunes_play_playlist", &LocalRunner::playPlaylist, Resource},
        {u"iTunes_play_title_artist", &LocalRunner::playTitleArtist, Resource},
    };
    for (const Answer &answer : answers) {
        const QString text = answer.text.toString();
        const auto from = answer.of == Text ? text : ScriptText::ofResource(text);
        if (const auto arguments = from ? ScriptText::argumentsOf(script, *from) : std::nullopt)
            return (this->*answer.answer)(*arguments);
    }
    qCWarning(logItunes, "a script is none of those known here");
    return std::nullopt;
}

/// Of the program that plays the part of iTunes: this one.
LocalRunner::Result LocalRunner::version(const Arguments &)
{
    return QStringLiteral(TAGWRIGHT_VERSION);
}

LocalRunner::Result LocalRunner::playingTrack(const Arguments &)
{
    return mPlayer.pathOfPlayingTrack();
}

LocalRunner::Result LocalRunner::pause(const Arguments &)
{
    mPlayer.pause();
    return std::nullopt;
}

LocalRunner::Result LocalRunner::resume(const Arguments &)
{
    mPlayer.resume();
    return std::nullopt;
}

/// There is no window to show it in.
LocalRunner::Result LocalRunner::displayPlaylist(const Arguments &)
{
    return std::nullopt;
}

LocalRunner::Result LocalRunner::playlistNames(const Arguments &)
{
    mCatalog.refresh();
    QStringList names;
    for (const CatalogPlaylist &playlist : mCatalog.playlists())
        names << inLine(playlist.name);
    return names.join(lineEnd);
}

/// The library itself is no playlist of a menu.
LocalRunner::Result LocalRunner::playlistInfo(const Arguments &)
{
    mCatalog.refresh();
    QStringList lines;
    for (const CatalogPlaylist &playlist : mCatalog.playlists()) {
        const QString isSmart = playlist.isSmart ? u"true"_s : u"false"_s;
        if (!playlist.isLibrary)
            lines << QStringList{inLine(playlist.name), playlist.specialKind, isSmart}.join(
                fieldSeparator);
    }
    return lines.join(lineEnd);
}

/// Tracks without a file are left out, and so is a path that the lines could not hold.
LocalRunner::Result LocalRunner::playlistContents(const Arguments &arguments)
{
    const auto *const tracks = mCatalog.tracksOf(arguments[0].toInt());
    if (!tracks)
        return std::nullopt;
    QStringList lines;
    for (const CatalogTrack &track : *tracks) {
        const auto path = mCatalog.pathOf(track);
        if (path && !path->contains(u'\r'))
            lines << *path << databaseID(track);
    }
    return lines.join(lineEnd);
}

LocalRunner::Result LocalRunner::indexOfPlaylist(const Arguments &arguments)
{
    mCatalog.forgetTracks(); // whoever asks for a playlist by name wants it as it is now
    const int index = mCatalog.indexOf(arguments[0]);
    return index > 0 ? std::optional(QString::number(index)) : std::nullopt;
}

LocalRunner::Result LocalRunner::numberOfTracks(const Arguments &arguments)
{
    const auto *const tracks = mCatalog.tracksOf(arguments[0].toInt());
    return tracks ? std::optional(QString::number(tracks->size())) : std::nullopt;
}

LocalRunner::Result LocalRunner::identifiersOfTrack(const Arguments &arguments)
{
    const auto track = trackOf(arguments[1].toInt(), arguments[0].toInt());
    const auto path = track ? mCatalog.pathOf(*track) : std::nullopt;
    return path ? std::optional(*path + fieldSeparator + databaseID(*track)) : std::nullopt;
}

LocalRunner::Result LocalRunner::fieldOfTrack(const Arguments &arguments)
{
    const auto track = trackOf(mCatalog.indexOf(arguments[2]), arguments[1].toInt());
    return track ? fieldOf(*track, arguments[0]) : std::nullopt;
}

LocalRunner::Result LocalRunner::fieldOfTrackNamed(const Arguments &arguments)
{
    const auto tracks = mCatalog.tracksTitled(arguments[1]);
    return tracks.empty() ? std::nullopt : fieldOf({tracks.front(), {}}, arguments[0]);
}

/// Files that playlist files name have no title that could be compared: their place counts.
LocalRunner::Result LocalRunner::playPlaylist(const Arguments &arguments)
{
    const int index = mCatalog.indexOf(arguments[0]);
    const auto isWanted = [&](const CatalogTrack &track) {
        return !track.info || isTrack(*track.info, arguments[1], arguments[2]);
    };
    if (const auto track = trackOf(index, arguments[3].toInt()); track && isWanted(*track))
        return QString::number(play(*track) ? 1 : 0);
    const auto *const tracks = mCatalog.tracksOf(index);
    if (!tracks)
        return std::nullopt;
    const auto found = std::find_if(tracks->begin(), tracks->end(), [&](const CatalogTrack &track) {
        return track.info && isWanted(track);
    });
    return QString::number(found != tracks->end() && play(*found) ? 1 : 0);
}

LocalRunner::Result LocalRunner::playTitleArtist(const Arguments &arguments)
{
    for (const LibraryTrack *track : mCatalog.tracksTitled(arguments[0]))
        if (isSameText(track->artist, arguments[1]) && play({track, {}}))
            return u"1"_s;
    return u"0"_s;
}

/// No player can be made to read a file's tags again: they see by themselves that it changed. The
/// playlist is not looked through, since the number stands for the same track in all of them.
LocalRunner::Result LocalRunner::refreshID(const Arguments &arguments)
{
    const LibraryTrack *track = mCatalog.trackWithID(arguments[1].toInt());
    return track ? pathOf({track, {}}) : std::nullopt;
}

LocalRunner::Result LocalRunner::refreshTitleArtist(const Arguments &arguments)
{
    for (const LibraryTrack *track : mCatalog.tracksTitled(arguments[0]))
        if (isSameText(track->artist, arguments[1]))
            if (auto path = pathOf({track, {}}))
                return path;
    return std::nullopt;
}

std::optional<CatalogTrack> LocalRunner::trackOf(int index, int position)
{
    const auto *const tracks = mCatalog.tracksOf(index);
    if (!tracks || position < 1 || static_cast<size_t>(position) > tracks->size())
        return std::nullopt;
    return (*tracks)[static_cast<size_t>(position) - 1];
}

LocalRunner::Result LocalRunner::fieldOf(const CatalogTrack &track, const QString &field) const
{
    if (field == u"location")
        return mCatalog.pathOf(track);
    if (!track.info)
        return std::nullopt;
    for (const TextField &known : textFields)
        if (known.name == field)
            return track.info->*known.value;
    for (const NumberField &known : numberFields)
        if (known.name == field)
            return QString::number(track.info->*known.value);
    return std::nullopt;
}

/// Of a file that is there.
LocalRunner::Result LocalRunner::pathOf(const CatalogTrack &track) const
{
    const auto path = mCatalog.pathOf(track);
    return path && QFileInfo(*path).isFile() ? path : std::nullopt;
}

bool LocalRunner::play(const CatalogTrack &track)
{
    const auto path = pathOf(track);
    return path && mPlayer.play(*path);
}
