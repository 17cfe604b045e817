#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace HVUtility {

/// Cuts a page into entries and each entry into pieces of text, by the markers that `resources`
/// holds under "listBegin", "listEnd", "entryBegin", "textBegin" and "textEnd", in any case. The
/// pieces keep their "textBegin" and "textEnd"; entries without a piece are left out. None if the
/// page is empty or a marker missing; an empty list if the page lacks the list.
[[nodiscard]] std::optional<QList<QStringList>> parsedContentsOfHTML(const QString &page,
                                                                     const QVariantMap &resources);

/// The numStrings-th run of visible text after the marker (in that very case), trimmed; the first
/// is number 1. White space between two tags is a run too.
[[nodiscard]] std::optional<QString> visibleHTMLTextIn(const QString &page, int numStrings,
                                                       const QString &afterHTML);

/// The first visible text behind each of the markers that `before`, a number and `after` make, for
/// 1, 2, 3 and so on; ends at the first number that has none. Of a marker that stands several
/// times the first counts. Titles are read up to 4096 units behind the marker.
[[nodiscard]] QStringList numberedHTMLTextsIn(const QString &page, const QString &before,
                                              const QString &after);

} // namespace HVUtility
