#pragma once

#include "tags/id3dialect.h"

#include <QByteArrayView>
#include <QString>

#include <optional>

/// Lyrics (or a comment): what "USLT" and "ULT" frames hold.
struct TextBlock {
    std::optional<QString> text;
    std::optional<QString> desc; ///< the content descriptor
    std::optional<QString> lang; ///< three letters; empty for three zero bytes

    bool operator==(const TextBlock &) const = default;

    /// The block in the `length` bytes from `offset`: encoding byte, language, descriptor, text.
    /// `bytes` is the whole tag. Nothing without a text, even when there is a descriptor.
    static std::optional<TextBlock> textBlockIn(QByteArrayView bytes, qsizetype offset,
                                                qsizetype length, const ID3Dialect &dialect);
};
