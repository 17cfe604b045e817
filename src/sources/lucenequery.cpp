#include "sources/lucenequery.h"

#include <QUrl>

namespace {

/// A tag may hold anything; no title is longer, and an address must not be.
constexpr qsizetype longestWords = 200; // characters

constexpr QLatin1String special{R"(+-&|!(){}[]^"~*?:\/)"};

} // namespace

QString luceneTerm(const QString &field, const QString &words)
{
    // In lower case AND, OR and NOT are words.
    const QString literal = words.simplified().left(longestWords).toLower();
    if (literal.isEmpty())
        return {};
    QString escaped;
    for (const QChar character : literal) {
        if (special.contains(character))
            escaped += u'\\';
        escaped += character;
    }
    return QStringLiteral("%1:(%2)").arg(field, escaped);
}

QString luceneQuery(QStringList terms)
{
    terms.removeAll(QString());
    const QByteArray encoded = QUrl::toPercentEncoding(terms.join(QLatin1String(" AND ")));
    return QString::fromLatin1(encoded);
}
