#pragma once

#include "base/bytes.h"

#include <QByteArrayList>
#include <QString>

#include <cstdint>

/// Collects the bytes of an ID3v2 tag behind its header. Big frames stay apart, so that a picture
/// is not copied on its way into the file.
class TagPieces {
public:
    void append(const QByteArray &bytes);

    /// Records why no tag can be made, one line for the user; the first reason stays.
    void fail(const QString &reason);

    [[nodiscard]] bool isEmpty() const { return mLength == 0; }

    /// The whole tag, header included, or why there is none.
    struct Made {
        QByteArrayList pieces;
        QString error;
    };
    [[nodiscard]] Made withHeader(std::uint8_t majorVersion) &&;

private:
    void setApart();

    QByteArrayList mPieces;
    QByteArray mTail;
    qsizetype mLength = 0;
    QString mError;
};
