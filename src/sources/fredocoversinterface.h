#pragma once

#include "sources/digestsource.h"

/// The digest of a site whose pictures are asked for with something behind their path.
class FredoCoversInterface : public DigestSource {
    Q_OBJECT

public:
    static constexpr const char *digest = "fredodigest.bplist";

    using DigestSource::DigestSource;

    [[nodiscard]] QString className() const override
    {
        return QStringLiteral("FredoCoversInterface");
    }

protected:
    [[nodiscard]] QString pathEnd() const override;
};
