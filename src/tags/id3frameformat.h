#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/// How the body of a v2.3 or v2.4 frame is stored, by its two flag bytes.
struct ID3FrameFormat {
    bool isCompressed = false;
    bool isEncrypted = false;
    bool isGrouped = false;
    bool isUnsynchronised = false;
    bool hasDataLength = false;

    static ID3FrameFormat format(int major, quint16 flags);

    [[nodiscard]] bool isPlain() const
    {
        return !isCompressed && !isEncrypted && !isGrouped && !isUnsynchronised && !hasDataLength;
    }
};

/// Undoes what `format` says of a body, as far as we can: unsynchronisation and compression.
/// Nothing when the frame is encrypted, belongs to a group, or does not hold what it claims.
/// `inflationLeft`, in bytes, is how much all frames of a tag may still grow; what this one
/// takes is subtracted.
std::optional<QByteArray> plainFrameBody(QByteArrayView body, const ID3FrameFormat &format,
                                         int major, qsizetype &inflationLeft);
