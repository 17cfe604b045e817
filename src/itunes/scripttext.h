#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

/// One value put into a script. A text can only come in through here, so none of them, whoever
/// wrote it, can become a command.
class ScriptArgument {
public:
    ScriptArgument(int number); // NOLINT(google-explicit-constructor): lists of them are written
    ScriptArgument(const QString &text); // NOLINT(google-explicit-constructor)

    /// A playlist by name, in quotes of its own, or the first one, which is the library.
    static ScriptArgument playlist(const std::optional<QString> &name);
    /// A property of a track such as "database ID", which stands without quotes; nothing when it
    /// is more than letters, digits and blanks.
    static std::optional<ScriptArgument> field(const QString &name);

    [[nodiscard]] const QString &inScript() const { return mInScript; }
    [[nodiscard]] char16_t placeholder() const { return mPlaceholder; }

private:
    ScriptArgument(QString inScript, char16_t placeholder);

    QString mInScript;
    char16_t mPlaceholder;
};

namespace ScriptText {

/// A text as it stands between the quotes of a script. Quotes, backslashes and line ends are
/// escaped; other control characters have no escape there and are left out.
[[nodiscard]] QString escaped(const QString &text);

/// What a script made of escaped() holds: the text without those control characters.
[[nodiscard]] QString withoutControls(const QString &text);

/// The script, with each "%@" and "%d" replaced by an argument, in order; nothing when they do
/// not match in number and kind.
[[nodiscard]] std::optional<QString> filled(QStringView script,
                                            const QList<ScriptArgument> &arguments);

/// The reverse: the arguments that `script` was filled with, unescaped; nothing when it was not
/// made from `from`. A playlist by name comes with a quote before it.
[[nodiscard]] std::optional<QList<QString>> argumentsOf(QStringView script, QStringView from);

/// The script of a resource such as "iTunes_Playlist_Names".
[[nodiscard]] std::optional<QString> ofResource(const QString &key);

// The scripts that are no resources.
inline constexpr QStringView version = u"tell app \"iTunes\"\rreturn version as string\rend tell";
// These two name the application in single quotes, which is no AppleScript: where real iTunes
// listens they have never done anything. They are the texts that stand-ins of it know.
inline constexpr QStringView pause = u"tell app 'iTunes'\rpause\rend tell";
inline constexpr QStringView resume = u"tell app 'iTunes'\rresume\rend tell";
inline constexpr QStringView displayPlaylist =
    u"tell app \"iTunes\"\rset view of item 1 of browser windows to playlist \"%@\"\rend tell";
inline constexpr QStringView indexOfPlaylist =
    u"tell app \"iTunes\"\rreturn index of playlist \"%@\"\rend tell";
inline constexpr QStringView numberOfTracks =
    u"tell app \"iTunes\"\rreturn count of tracks in playlist %d\rend tell";
inline constexpr QStringView identifiersOfTrack =
    u"tell app \"iTunes\"\rset theTrack to track %d of playlist %d\r"
    u"set asAlias to location of theTrack\r"
    u"return POSIX path of asAlias & \"|@\" & database ID of theTrack\rend tell";
inline constexpr QStringView fieldOfTrack =
    u"tell app \"iTunes\"\rreturn %@ of track %d of playlist \"%@\"\rend tell";
inline constexpr QStringView fieldOfTrackNamed =
    u"tell app \"iTunes\"\rreturn %@ of track \"%@\" of playlist \"Library\"\rend tell";

} // namespace ScriptText
