#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

// What is done with the pages of lyrics sites. Pages come from strangers and may be of any size:
// every step takes time in proportion to the text.
namespace LyricsPage {

/// The characters of a page with lyrics: UTF-8, or what `charset` names. Bytes that are no UTF-8
/// are those of Windows-1252.
[[nodiscard]] QString decoded(QByteArrayView bytes, const QString &charset);

/// What stands between the marker and the next double quote; nothing where one of them is missing.
[[nodiscard]] std::optional<QString> linkBehind(const QString &text, const QString &marker);

/// A cell of a list as it is compared: what is visible of it, simplified.
[[nodiscard]] QString simplifiedCell(const QString &cell);

/// The three ends of a line as one.
[[nodiscard]] QString withPlainNewlines(const QString &text);

// The words of a song, out of what stands around them on the page of each site.

/// `adBegin` and `adEnd` enclose advertisements; either empty: there are none.
[[nodiscard]] QString lyricsAndSongsLyrics(const QString &markup, const QString &adBegin,
                                           const QString &adEnd);
/// `lineBreak` ends each line; empty or nowhere: the page's own line ends do.
[[nodiscard]] QString leosLyrics(const QString &markup, const QString &lineBreak);
[[nodiscard]] QString askLyrics(const QString &markup);

} // namespace LyricsPage
