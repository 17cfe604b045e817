#pragma once

#include "sources/coverdigest.h"
#include "sources/coversource.h"

#include <memory>

/// Covers that a digest knows: the album is looked up, and no site is asked during the search.
class DigestSource : public CoverSource {
    Q_OBJECT

public:
    /// The digest is shared by all searches of the source.
    DigestSource(SiteDefinition resources, HVHTTPQueue &queue, std::shared_ptr<CoverDigest> digest);

protected:
    void startSearch() override;

    /// What follows the digest's path in the address of a picture.
    [[nodiscard]] virtual QString pathEnd() const { return {}; }

private:
    std::shared_ptr<CoverDigest> mDigest;
};
