#pragma once

#include "sources/lyricssource.h"

/// Lyrics from a site whose search lists artists and titles in one table.
class LyricsAndSongsInterface : public LyricsSource {
    Q_OBJECT

public:
    using LyricsSource::LyricsSource;

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("LyricsAndSongsInterface");
    }

protected:
    void startSearch() override;

private:
    void lasAlbumListCompleted(const FetchResult &result);
    bool followRow(const QStringList &row, const QUrl &page);
    [[nodiscard]] bool isOfSong(const QString &artistCell, const QString &titleCell) const;
    void lasLyricsReceived(const FetchResult &result);
};
