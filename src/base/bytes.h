#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstdint>
#include <exception>

/// What a reader throws when bytes are not what their format asks for. Caught once, at the top
/// of the reader; `reason` is one line for the log.
class MalformedData : public std::exception {
public:
    explicit MalformedData(QString reason);

    [[nodiscard]] const QString &reason() const { return mReason; }
    [[nodiscard]] const char *what() const noexcept override { return mUtf8Reason.constData(); }

private:
    QString mReason;
    QByteArray mUtf8Reason;
};

/// Reads numbers and pieces off the front of a view. Every read past the end throws
/// MalformedData; nothing is copied, so the bytes viewed must outlive the reader and its pieces.
class ByteReader {
public:
    explicit ByteReader(QByteArrayView bytes)
        : mBytes(bytes)
    {
    }

    /// Bytes that would be gone before the first is read.
    explicit ByteReader(QByteArray &&) = delete;

    [[nodiscard]] qsizetype position() const { return mPosition; }
    [[nodiscard]] qsizetype remaining() const { return mBytes.size() - mPosition; }
    [[nodiscard]] bool atEnd() const { return remaining() == 0; }

    std::uint8_t u8();
    std::uint16_t u16();
    std::uint32_t u24();
    std::uint32_t u32();
    std::uint64_t u64();
    QByteArrayView bytes(qsizetype count);
    QByteArrayView rest() { return bytes(remaining()); }
    void skip(qsizetype count) { bytes(count); }

    /// A reader of the next `count` bytes alone, which this reader steps over.
    ByteReader sub(qsizetype count) { return ByteReader(bytes(count)); }

private:
    template<typename Number>
    Number bigEndian(int width);

    QByteArrayView mBytes;
    qsizetype mPosition = 0;
};

/// Appends numbers to a byte array, most significant byte first.
class ByteWriter {
public:
    void u8(std::uint8_t value) { mBytes.append(static_cast<char>(value)); }
    void u16(std::uint16_t value);
    void u24(std::uint32_t value);
    void u32(std::uint32_t value);
    void u64(std::uint64_t value);
    void bytes(QByteArrayView value) { mBytes.append(value); }
    void zeros(qsizetype count) { mBytes.append(count, '\0'); }
    void reserve(qsizetype size) { mBytes.reserve(size); }

    [[nodiscard]] qsizetype size() const { return mBytes.size(); }
    [[nodiscard]] const QByteArray &data() const & { return mBytes; }
    [[nodiscard]] QByteArray data() && { return std::move(mBytes); }

private:
    QByteArray mBytes;
};
