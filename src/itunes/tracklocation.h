#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// Where the folders of another machine are here. Libraries and playlists keep full paths, which
/// lead nowhere once the music was moved.
class MovedFolders {
public:
    /// `from` is a folder there, as a file URL or as a path of Mac, Windows or here; `to` an
    /// absolute path here, else nothing is added.
    void add(const QString &from, const QString &to);

    /// The path here of an absolute path that may be of another machine. The longest folder that
    /// was added and holds it counts. Letters compare composed, and for paths of Windows in any
    /// case. Pure: no file is looked for.
    [[nodiscard]] QString pathHere(const QString &path) const;

private:
    struct Move {
        QStringList from; ///< names of folders from the root on, composed
        QString to;
    };
    [[nodiscard]] const Move *moveOf(const QStringList &names) const;

    std::vector<Move> mMoves;
};

/// With the characters that the percent escapes stand for. A "%" that begins none, and "+", stand
/// for themselves. Bytes that are not UTF-8 are Latin-1: some programs write them.
[[nodiscard]] QString withoutPercentEscapes(QStringView escaped);

/// The path here of the "Location" of a track; nothing for streams and whatever is no file URL.
/// The letters stay as they are, decomposed on a Mac: base/unicodeforms finds the file. Pure.
[[nodiscard]] std::optional<QString> pathOfLocation(const QString &location,
                                                    const MovedFolders &moved = {});
