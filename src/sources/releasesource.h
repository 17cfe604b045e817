#pragma once

#include "gathering/webdbinterface.h"
#include "sources/releaserecord.h"
#include "sources/releaseshelf.h"

/// What the sources share that find a release and then look it up.
class ReleaseSource : public WebDBInterface {
    Q_OBJECT

public:
    /// `shelf` is shared by all searches of a run that ask the same service.
    ReleaseSource(SiteDefinition resources, HVHTTPQueue &queue,
                  std::shared_ptr<ReleaseShelf> shelf);

protected:
    [[nodiscard]] ReleaseWish wish() const;
    [[nodiscard]] SoughtTrack soughtTrack() const;
    [[nodiscard]] ReleaseShelf &shelf() const { return *mShelf; }
    /// A release goes by its own name, but a compilation by many: the song on it tells it apart.
    [[nodiscard]] bool isKnownByAlbum() const
    {
        return albumTitle() && !(isCompilation() && songTitle());
    }

private:
    std::shared_ptr<ReleaseShelf> mShelf;
};
