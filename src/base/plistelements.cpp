#include "base/plistelements.h"

#include "base/bytes.h"

PlistElements::PlistElements(const QByteArray &data, int maxDepth)
    : mXml(data)
    , mMaxElements(maxDepth + 1)
{
}

PlistElements::PlistElements(QIODevice *device, int maxDepth)
    : mXml(device)
    , mMaxElements(maxDepth + 1)
{
}

void PlistElements::fail(const QString &reason) const
{
    throw MalformedData(QStringLiteral("line %1: %2").arg(mXml.lineNumber()).arg(reason));
}

void PlistElements::next()
{
    switch (mXml.readNext()) {
    case QXmlStreamReader::Invalid:
        fail(mXml.errorString());
    case QXmlStreamReader::StartElement:
        if (++mElements > mMaxElements)
            fail(QStringLiteral("nested deeper than %1 levels").arg(mMaxElements - 1));
        break;
    case QXmlStreamReader::EndElement:
        --mElements;
        break;
    case QXmlStreamReader::DTD:
        if (mXml.text().contains(u'['))
            fail(QStringLiteral("a document type with declarations of its own"));
        break;
    case QXmlStreamReader::EntityReference:
        fail(QStringLiteral("unknown entity \"%1\"").arg(mXml.name()));
    default:
        break;
    }
}

void PlistElements::begin()
{
    if (!nextIsStart() || name() != u"plist")
        fail(QStringLiteral("<%1> instead of <plist>").arg(name()));
    if (!nextIsStart())
        fail(QStringLiteral("an empty property list"));
}

void PlistElements::finish()
{
    if (nextIsStart())
        fail(QStringLiteral("a second value"));
    while (!mXml.atEnd())
        next();
}

bool PlistElements::nextIsStart()
{
    for (;;) {
        next();
        if (mXml.isStartElement() || mXml.isEndElement())
            return mXml.isStartElement();
        if (mXml.isCharacters() && !mXml.isWhitespace())
            fail(QStringLiteral("text between the values"));
    }
}

bool PlistElements::nextKey()
{
    if (!nextIsStart())
        return false;
    if (name() != u"key")
        fail(QStringLiteral("<%1> where a key should be").arg(name()));
    readTextInto(mKey);
    if (!nextIsStart())
        fail(QStringLiteral("no value for \"%1\"").arg(mKey));
    return true;
}

void PlistElements::readTextInto(QString &text)
{
    text.resize(0);
    for (next(); !mXml.isEndElement(); next()) {
        if (mXml.isCharacters())
            text += mXml.text();
        else if (mXml.isStartElement())
            fail(QStringLiteral("<%1> inside a text").arg(name()));
    }
}

const QString &PlistElements::text()
{
    readTextInto(mText);
    return mText;
}

void PlistElements::skip()
{
    for (const int outside = mElements - 1; mElements > outside;)
        next();
}
