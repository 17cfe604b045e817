#pragma once

#include "gathering/webdbinterface.h"
#include "support/httpserver.h"

#include <memory>

/// What a source is asked for.
struct SearchedSong {
    std::optional<QString> artist{QStringLiteral("Nila Oster")};
    std::optional<QString> alternateArtist{};
    std::optional<QString> album{QStringLiteral("Salt & Iron")};
    std::optional<QString> title{QStringLiteral("First Light")};
    Substrings substrings = Substrings::Refuse;
    bool isCompilation = false;
    float minImageWidth = 0; ///< pixels
    std::optional<qint64> duration{}; ///< milliseconds
    ReleaseIdentifiers identifiers{};
    float maxImageWidth = 450; ///< pixels
    int track = 0;
    int tracks = 0;
};

/// The definition of a source in the built-in set.
[[nodiscard]] QVariantMap builtInDefinition(const QString &className);

/// "artist|name|year|genre|track,track|picture's address"; what is absent is "-".
[[nodiscard]] QString shown(const AlbumInfo &album);
[[nodiscard]] QStringList shown(const AlbumList &albums);
[[nodiscard]] QStringList namesOf(const AlbumList &albums);

/// A server with a site's pages, and the queue that fetches them.
class SampleSiteScene {
public:
    HttpServer server;
    HVHTTPQueue queue{QString()};

    /// The built-in definition with addresses of the server put in: for each key what stands
    /// below the server's own address. One fetch at a time, so that albums come in the order of
    /// the rows. `changes`: other values, invalid ones for keys that are missing.
    [[nodiscard]] QVariantMap definition(const QString &className,
                                         const QMap<QString, QString> &addresses,
                                         const QVariantMap &changes = {}) const;

    /// The same with this server in place of the hosts, asked without a pause.
    [[nodiscard]] QVariantMap definitionAtHome(const QString &className,
                                               const QStringList &hosts) const;

    /// Serves JSON by path, written with ' for " and # for this server's address.
    void serveJson(const QMap<QString, QString> &pages);
    /// The albums as shown(), with # for this server's address.
    [[nodiscard]] QStringList shownHere(const AlbumList &albums) const;

    /// One whole search; an album that says so when it did not complete exactly once. `more`: what
    /// else the source is made with.
    template<typename Source, typename... More>
    [[nodiscard]] AlbumList search(const SearchedSong &song, const QVariantMap &definition,
                                   More... more)
    {
        return run(std::make_unique<Source>(SiteDefinition(definition), queue, more...), song);
    }

    /// What the last search left, as "name|year|tracks|fate" with the fate's number.
    QStringList passedOver;
    /// Whether the last search was told that the site could not be asked.
    bool wasUnanswered = false;

private:
    [[nodiscard]] AlbumList run(std::unique_ptr<WebDBInterface> source, const SearchedSong &song);
};

Q_DECLARE_METATYPE(SearchedSong)
