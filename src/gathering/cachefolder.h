#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <map>
#include <optional>

/// A folder of small files, each a piece of data under a key, that stays within a size by dropping
/// the oldest. Several processes may share it: a file is complete or not there, and what is
/// damaged is not there either. Trouble with the disk only means that less is kept.
class CacheFolder {
public:
    /// Nothing is touched before the first use.
    explicit CacheFolder(QString path);

    /// Takes effect with the next piece that is stored.
    void setCapacity(qint64 bytes) { mCapacity = bytes; }
    [[nodiscard]] qint64 capacity() const { return mCapacity; }

    [[nodiscard]] std::optional<QByteArray> read(const QByteArray &key);
    void store(const QByteArray &key, const QByteArray &data);
    void remove(const QByteArray &key);

private:
    struct Entry {
        QString fileName;
        qint64 bytes;
    };

    [[nodiscard]] QString pathOf(const QString &fileName) const;
    void takeInventory();
    void enter(const QString &fileName, qint64 bytes);
    void forget(const QString &fileName);
    void dropOldest();

    QString mPath;
    qint64 mCapacity = 0;
    std::map<qint64, Entry> mByAge; ///< the oldest first
    QHash<QString, qint64> mAges; ///< file name to key in mByAge
    qint64 mNextAge = 0;
    qint64 mBytes = 0;
    bool mKnowsFiles = false;
};
