#include "base/xmlpropertylist.h"

#include "base/plistelements.h"

#include <QDateTime>
#include <QTimeZone>

namespace {

class XmlPropertyList {
public:
    XmlPropertyList(const QByteArray &data, int maxDepth)
        : mElements(data, maxDepth)
    {
    }

    QVariant document();

private:
    /// The value whose start tag was just read; leaves its end tag behind.
    QVariant value();
    QVariantMap dictionary();
    QVariantList array();
    QVariant scalar(const QString &name);

    PlistElements mElements;
};

QVariantMap XmlPropertyList::dictionary()
{
    QVariantMap map;
    while (mElements.nextKey()) {
        const QString key = mElements.key();
        map[key] = value();
    }
    return map;
}

QVariantList XmlPropertyList::array()
{
    QVariantList list;
    while (mElements.nextIsStart())
        list << value();
    return list;
}

QByteArray fromBase64(const QString &text, bool &ok)
{
    QByteArray encoded = text.toLatin1();
    encoded.removeIf([](char c) { return QChar(QLatin1Char(c)).isSpace(); });
    auto decoded = QByteArray::fromBase64Encoding(encoded, QByteArray::AbortOnBase64DecodingErrors);
    ok = bool(decoded);
    return std::move(decoded.decoded);
}

QDateTime dateOf(const QString &text)
{
    QDateTime date = QDateTime::fromString(text, Qt::ISODate);
    return date.timeSpec() == Qt::LocalTime ? QDateTime(date.date(), date.time(), Qt::UTC)
                                            : date.toUTC();
}

QVariant XmlPropertyList::scalar(const QString &name)
{
    const QString content = mElements.text();
    if (name == u"string")
        return content;
    bool ok = true;
    QVariant value;
    if (name == u"true" || name == u"false")
        value = name == u"true";
    else if (name == u"integer")
        value = content.trimmed().toLongLong(&ok);
    else if (name == u"real")
        value = content.trimmed().toDouble(&ok);
    else if (name == u"data")
        value = fromBase64(content, ok);
    else if (name == u"date")
        ok = (value = dateOf(content.trimmed())).toDateTime().isValid();
    else
        mElements.fail(QStringLiteral("unknown element <%1>").arg(name));
    if (!ok)
        mElements.fail(QStringLiteral("bad %1 \"%2\"").arg(name, content.left(40)));
    return value;
}

QVariant XmlPropertyList::value()
{
    if (mElements.name() == u"dict")
        return dictionary();
    if (mElements.name() == u"array")
        return array();
    return scalar(mElements.name().toString());
}

QVariant XmlPropertyList::document()
{
    mElements.begin();
    QVariant list = value();
    mElements.finish();
    return list;
}

} // namespace

QVariant readXmlPropertyList(const QByteArray &data, int maxDepth)
{
    return XmlPropertyList(data, maxDepth).document();
}
