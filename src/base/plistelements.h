#pragma once

#include <QByteArray>
#include <QXmlStreamReader>

class QIODevice;

/// The elements of a property list in XML, one after the other, in memory that does not grow with
/// the list. Throws MalformedData with the line of what is wrong: what is not well-formed, nested
/// deeper than `maxDepth` values, or brings entities of its own. Nothing outside is ever read.
class PlistElements {
public:
    PlistElements(const QByteArray &data, int maxDepth);
    /// `device` is open and outlives this.
    PlistElements(QIODevice *device, int maxDepth);

    /// Goes to the value in <plist>; nothing but blanks may follow it (`finish`).
    void begin();
    void finish();

    /// Goes on to the next start tag (yes) or end tag (no), past blanks and comments.
    bool nextIsStart();
    /// Inside a dictionary: goes on to the value of the next key; no at the dictionary's end.
    bool nextKey();
    [[nodiscard]] const QString &key() const { return mKey; }
    /// Of the element whose start tag was just read.
    [[nodiscard]] QStringView name() const { return mXml.name(); }

    // Both leave the end tag of the element behind whose start tag was just read.
    /// What stands in it, valid until the next call.
    const QString &text();
    void skip();

    [[noreturn]] void fail(const QString &reason) const;

private:
    void next();
    void readTextInto(QString &text);

    QXmlStreamReader mXml;
    int mMaxElements; ///< within each other, <plist> being the first
    int mElements = 0;
    QString mKey;
    QString mText;
};
