#pragma once

#include "gathering/webdbinterface.h"
#include "sources/thumbnailconsensus.h"

/// Covers from a general image search. Most of what it finds is something else, so all thumbnails
/// of the first page of results are compared: the one that the most others look like is the
/// cover, and the picture behind the widest of these is taken.
class GoogleImageInterface : public WebDBInterface {
    Q_OBJECT

public:
    static constexpr Assets resourcesPossiblyAvailable = AssetArtwork;

    using WebDBInterface::WebDBInterface;

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("GoogleImageInterface");
    }

protected:
    void startSearch() override;

private:
    [[nodiscard]] QString queryText() const;
    void subSearchComplete(const FetchResult &result);
    [[nodiscard]] QStringList thumbnailAddresses(const QString &page) const;
    [[nodiscard]] QString addressInScript(const QString &cell) const;
    [[nodiscard]] QString addressInHTML(const QString &cell) const;
    [[nodiscard]] QString withoutScriptTrim(const QString &text) const;
    void thumbnailFinishedLoading(const FetchResult &result);
    void pickBestThumbnail();
    void gotRealImage(const FetchResult &result);
    void gotWidthOfRealImage(const QUrl &url, int width);
    void takeRealImage(const QUrl &url);
    void rejectRealImage(const QString &reason);

    Thumbnails mImages;
    /// Of the thumbnail whose full-size picture is looked at.
    QString mGoogleCachedImageURL;
};
