#pragma once

#include <QByteArrayView>

#include <optional>

/// The ten bytes in front of an ID3v2 tag.
struct ID3v2Header {
    static constexpr qsizetype length = 10;

    // Flags.
    static constexpr int unsynchronised = 0x80;
    static constexpr int extended = 0x40;
    static constexpr int footer = 0x10; ///< of v2.4: the header stands behind the tag as well

    int major = 0;
    int revision = 0; ///< as the signed byte it has always been shown as
    int flags = 0;
    qint64 size = 0; ///< of what follows the header

    /// Nothing when `bytes` do not begin with a header.
    static std::optional<ID3v2Header> headerIn(QByteArrayView bytes);

    /// Tags of this size or less are none.
    static constexpr qint64 largestRefusedSize = 6;
};
