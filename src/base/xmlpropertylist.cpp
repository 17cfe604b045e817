#include "base/xmlpropertylist.h"

#include "base/bytes.h"

#include <QDateTime>
#include <QTimeZone>
#include <QXmlStreamReader>

namespace {

class XmlPropertyList {
public:
    XmlPropertyList(const QByteArray &data, int maxDepth)
        : mXml(data)
        , mMaxDepth(maxDepth)
    {
    }

    QVariant document();

private:
    /// The value whose start tag was just read; leaves its end tag behind.
    QVariant value(int depth);
    QVariantMap dictionary(int depth);
    QVariantList array(int depth);
    QVariant scalar(const QString &name);
    QString text();
    /// Goes on to the next start tag (yes) or end tag (no), past blanks and comments.
    bool nextIsStart();
    void next();
    [[noreturn]] void fail(const QString &reason) const;

    QXmlStreamReader mXml;
    int mMaxDepth;
};

void XmlPropertyList::fail(const QString &reason) const
{
    throw MalformedData(QStringLiteral("line %1: %2").arg(mXml.lineNumber()).arg(reason));
}

void XmlPropertyList::next()
{
    mXml.readNext();
    if (mXml.hasError())
        fail(mXml.errorString());
    if (mXml.isDTD() && mXml.text().contains(u'['))
        fail(QStringLiteral("a document type with declarations of its own"));
    if (mXml.isEntityReference())
        fail(QStringLiteral("unknown entity \"%1\"").arg(mXml.name()));
}

bool XmlPropertyList::nextIsStart()
{
    for (;;) {
        next();
        if (mXml.isStartElement() || mXml.isEndElement())
            return mXml.isStartElement();
        if (mXml.isCharacters() && !mXml.isWhitespace())
            fail(QStringLiteral("text between the values"));
    }
}

QString XmlPropertyList::text()
{
    QString text;
    for (next(); !mXml.isEndElement(); next()) {
        if (mXml.isCharacters())
            text += mXml.text();
        else if (mXml.isStartElement())
            fail(QStringLiteral("<%1> inside a text").arg(mXml.name()));
    }
    return text;
}

QVariantMap XmlPropertyList::dictionary(int depth)
{
    QVariantMap map;
    while (nextIsStart()) {
        if (mXml.name() != u"key")
            fail(QStringLiteral("<%1> where a key should be").arg(mXml.name()));
        const QString key = text();
        if (!nextIsStart())
            fail(QStringLiteral("no value for \"%1\"").arg(key));
        map[key] = value(depth + 1);
    }
    return map;
}

QVariantList XmlPropertyList::array(int depth)
{
    QVariantList list;
    while (nextIsStart())
        list << value(depth + 1);
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
    const QString content = text();
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
        fail(QStringLiteral("unknown element <%1>").arg(name));
    if (!ok)
        fail(QStringLiteral("bad %1 \"%2\"").arg(name, content.left(40)));
    return value;
}

QVariant XmlPropertyList::value(int depth)
{
    if (depth > mMaxDepth)
        fail(QStringLiteral("nested deeper than %1 levels").arg(mMaxDepth));
    if (mXml.name() == u"dict")
        return dictionary(depth);
    if (mXml.name() == u"array")
        return array(depth);
    return scalar(mXml.name().toString());
}

QVariant XmlPropertyList::document()
{
    if (!nextIsStart() || mXml.name() != u"plist")
        fail(QStringLiteral("<%1> instead of <plist>").arg(mXml.name()));
    if (!nextIsStart())
        fail(QStringLiteral("an empty property list"));
    QVariant list = value(1);
    if (nextIsStart())
        fail(QStringLiteral("a second value"));
    while (!mXml.atEnd())
        next();
    return list;
}

} // namespace

QVariant readXmlPropertyList(const QByteArray &data, int maxDepth)
{
    return XmlPropertyList(data, maxDepth).document();
}
