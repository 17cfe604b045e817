#pragma once

#include "gathering/webdbinterface.h"

/// What the sources share that know pictures of albums and nothing else.
class CoverSource : public WebDBInterface {
    Q_OBJECT

public:
    static constexpr Assets resourcesPossiblyAvailable = AssetArtwork;

    using WebDBInterface::WebDBInterface;

protected:
    /// Queues the site's index page of a letter: the definition's "baseURL", and behind it its
    /// "query" with the letter put in.
    void addIndexSearch(const QString &letter, Handler returnMethod);

    /// Adds the searched album with the picture that the path behind the prefix leads to. A path
    /// that would leave the prefix's site is passed over.
    void addAlbumWithPicture(const QString &prefix, const QString &path);
};
