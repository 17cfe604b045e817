#include "text/queryterms.h"

#include "text/stringextensions.h"

using HVStringExtensions::safelyEscapedString;

namespace {

bool isDroppedFromTerm(QChar c)
{
    return c != u'+' && !c.isLetterOrNumber();
}

} // namespace

QString HVUtility::stringForPost(const QString &string, AlphaNumericOnly alphaNumericOnly,
                                 const QString &spaceString)
{
    QString term = HVStringExtensions::plainASCIIString(string);
    term.replace(u' ', u'+');
    if (alphaNumericOnly == AlphaNumericOnly::Yes)
        term.removeIf(isDroppedFromTerm);
    else
        term.remove(QStringLiteral("&+"));
    if (spaceString != QStringLiteral("+"))
        term.replace(QStringLiteral("+"), spaceString);
    return safelyEscapedString(term);
}

QByteArray HVUtility::HTTPFromDictionary(const QMap<QString, QString> &dictionary,
                                         const std::optional<QStringList> &order)
{
    QByteArray body;
    const QStringList keys = order.value_or(dictionary.keys());
    for (const QString &key : keys) {
        const auto found = dictionary.constFind(key);
        if (found == dictionary.constEnd())
            continue;
        if (!body.isEmpty())
            body += '&';
        QString value = *found;
        body += safelyEscapedString(key).toLatin1() + '='
            + safelyEscapedString(value.replace(u' ', u'+')).toLatin1();
    }
    return body;
}
