#pragma once

#include "sources/digestsource.h"

/// The digest of a site of covers in CD size.
class CKDigestInterface : public DigestSource {
    Q_OBJECT

public:
    static constexpr const char *digest = "ckdigest.bplist";

    using DigestSource::DigestSource;

    [[nodiscard]] QString className() const override { return QStringLiteral("CKDigestInterface"); }
};
