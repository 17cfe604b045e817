#pragma once

#include <QMap>
#include <QString>
#include <QUrlQuery>

#include <functional>
#include <optional>

/// A request to a sample site.
struct SampleRequest {
    QString host; ///< and port, as the visitor named them; for addresses on pages
    QString path; ///< below the site's own address, without a slash in front; decoded
    QUrlQuery query;
    QUrlQuery form; ///< the fields of a posted form
};

struct SamplePage {
    QByteArray mimeType;
    QByteArray body;
};

/// One of the sample sites: what it answers, and where its source's definition finds it.
struct SampleSite {
    using Answer = std::function<std::optional<SamplePage>(const SampleRequest &)>;

    QString className; ///< of the source that searches it
    /// Keys of the definition, and what they hold below the site's own address.
    QMap<QString, QString> addresses;
    Answer answer; ///< nothing: there is no such page
};

/// A page in the characters that sites of that age used.
[[nodiscard]] SamplePage htmlPage(const QString &html);

/// The value of a query or form, with its escapes undone.
[[nodiscard]] QString fieldOf(const QUrlQuery &fields, const QString &name);
