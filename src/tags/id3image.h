#pragma once

#include "tags/tagoptions.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// One piece of artwork, wherever it came from: an attached-picture frame, an MP4 item, the web
/// or the user.
struct ID3Image {
    int textEncoding = 0; ///< the ID3 encoding byte of the frame it came from
    int pictureType = 0; ///< the ID3 picture type: 0 other, 3 front cover, and so on
    std::optional<QString> storedMimeFormat; ///< such as "image/jpeg"
    std::optional<QString> description;
    QByteArray data; ///< the image file itself; empty when the frame held none

    bool operator==(const ID3Image &) const = default;

    static ID3Image imageWithData(const QByteArray &data, std::optional<QString> mimeType);

    /// The picture in the body of an "APIC" frame (ID3v2.3 and 2.4, after the 10-byte frame
    /// header). Nothing for bodies of fewer than 4 bytes.
    static std::optional<ID3Image> imageWithID3v23Frame(QByteArrayView body,
                                                        const ID3Dialect &dialect);

    /// The picture in the body of a "PIC" frame (ID3v2.2, after the 6-byte frame header).
    /// Nothing, with a log line, for bodies of 6 bytes or fewer.
    static std::optional<ID3Image> imageWithID3v22Frame(QByteArrayView body,
                                                        const ID3Dialect &dialect);

    /// The MIME type guessed from the data.
    [[nodiscard]] std::optional<QString> autodetectMIMEFormat(const ID3Dialect &dialect) const;

    /// The stored MIME type, else the guessed one.
    [[nodiscard]] std::optional<QString> mimeFormat(const ID3Dialect &dialect) const;

    /// Upper case, such as "JPG"; nothing when the MIME type is unknown.
    [[nodiscard]] std::optional<QString> filenameSuffix(const ID3Dialect &dialect) const;

    /// The whole "APIC" frame, header included, with the size plain or sync-safe.
    [[nodiscard]] QByteArray dataForID3v23Frame(FrameSizes sizes, bool isVersion24,
                                                const ID3Dialect &dialect) const;

    /// The whole "PIC" frame, header included; empty when there is no data or no suffix.
    [[nodiscard]] QByteArray dataForID3v22Frame(const ID3Dialect &dialect) const;

    /// One line for the log.
    [[nodiscard]] QString descriptionForLog(const ID3Dialect &dialect) const;

    /// A copy as the program has always made them: without the description.
    [[nodiscard]] ID3Image copy() const;
};

/// The MIME type of an image file by its first bytes: PNG, JPEG, GIF, WebP, BMP or TIFF.
std::optional<QString> mimeTypeBySignature(QByteArrayView data);
