#pragma once

#include <QByteArrayView>

#include <memory>

/// A checksum of 64 bits (XXH3) that takes little more time than reading the bytes. It tells bytes
/// that were written whole from others, not from those that someone made up.
class Checksum {
public:
    Checksum();
    ~Checksum();
    void add(QByteArrayView bytes);
    [[nodiscard]] quint64 value() const;

    [[nodiscard]] static quint64 of(QByteArrayView bytes);

private:
    struct State;
    std::unique_ptr<State> mState;
};
