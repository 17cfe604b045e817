#pragma once

#include "gathering/webdbinterface.h"
#include "sources/artistmatch.h"

/// What the sources of lyrics share: a search by artist and song title, the choice among listed
/// songs, and how lyrics are reported.
class LyricsSource : public WebDBInterface {
    Q_OBJECT

public:
    static constexpr Assets resourcesPossiblyAvailable = AssetLyrics;

    using WebDBInterface::WebDBInterface;

protected:
    /// Whether artist and title are known; else no listed song is the right one. Asked before the
    /// tests of what a list says.
    [[nodiscard]] bool knowsSong();
    /// Queues the address below `queryKey`, with artist and title put in as far as it asks for
    /// them. Nothing where one of them is not known.
    void searchBy(const QString &queryKey, Handler returnMethod);

    // Whether what a list says is what is searched; both take simplified strings.
    [[nodiscard]] bool isSongTitle(const QString &listed) const;
    [[nodiscard]] bool isListedArtist(const QString &listed) const;
    /// The same name in one of its two forms, and not just part of it.
    [[nodiscard]] bool isSameArtist(const QString &listed) const;

    /// The link behind the marker below `key`.
    [[nodiscard]] std::optional<QString> linkOn(const QString &page, const QString &key) const
    {
        return textUpToOn(page, key, QStringLiteral("\""));
    }
    /// Queues what a page links to. False where that is no address of the web, or was fetched
    /// before.
    bool follow(const std::optional<QString> &link, const QUrl &ofPage, Handler returnMethod);

    /// As usablePage(), in the characters of a page with lyrics.
    [[nodiscard]] std::optional<QString> lyricsPage(const FetchResult &result);
    /// Adds an album that holds nothing but the song's words. False where they are none.
    bool addLyrics(const QString &lyrics);
    /// Adds an album that says that the song has no words.
    void addInstrumental();

private:
    // Simplified.
    QString mWantedTitle;
    SearchedArtist mWantedArtist{{}, {}};
};
