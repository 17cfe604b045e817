#pragma once

#include "sources/lyricssource.h"

/// Lyrics from a site whose search may list the right song on a further page only.
class LeosLyricsInterface : public LyricsSource {
    Q_OBJECT

public:
    using LyricsSource::LyricsSource;

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("LeosLyricsInterface");
    }

protected:
    void startSearch() override;

private:
    void leoAlbumListCompleted(const FetchResult &result);
    bool followRow(const QStringList &row, const QUrl &page);
    void followNextPage(const QString &page, const QUrl &url);
    [[nodiscard]] std::optional<QString> addressOf(const std::optional<QString> &link) const;
    void leoLyricsReceived(const FetchResult &result);

    int mResultPages = 0;
};
