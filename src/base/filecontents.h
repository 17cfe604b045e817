#pragma once

#include <QByteArray>

#include <vector>

/// What a file shall hold: new bytes and ranges kept from the old file, in order.
class FileContents {
public:
    struct Piece {
        QByteArray bytes; ///< new bytes; a kept range when `keptLength` is not 0
        qint64 keptOffset = 0; ///< in the old file
        qint64 keptLength = 0;

        [[nodiscard]] qint64 length() const { return keptLength ? keptLength : bytes.size(); }
    };

    /// New bytes; none add nothing.
    void append(QByteArray bytes);

    /// `length` bytes of the old file from `offset` on; 0 bytes add nothing.
    void keep(qint64 offset, qint64 length);

    [[nodiscard]] const std::vector<Piece> &pieces() const { return mPieces; }
    [[nodiscard]] qint64 length() const { return mLength; }

private:
    std::vector<Piece> mPieces;
    qint64 mLength = 0;
};
