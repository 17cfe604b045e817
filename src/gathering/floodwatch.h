#pragma once

#include <QHash>
#include <QTimer>

/// Looks after the connections of this process, and cuts one that brings far more than is handed
/// on to the loads, or goes on bringing when there is no load any more. For the network library
/// reads a head, or the length of a chunk, until its end is there: in one go, into memory without
/// a limit, and deaf to being told to stop. A server that never ends it would occupy the thread
/// of many loads, and ever more memory, as long as the process lives. Does nothing where the
/// system does not count the bytes of a connection.
class FloodWatch {
public:
    /// `unreadBytes`: what a connection may bring beyond what is handed on.
    explicit FloodWatch(qint64 unreadBytes);
    FloodWatch(const FloodWatch &) = delete;
    FloodWatch &operator=(const FloodWatch &) = delete;
    ~FloodWatch();

    void loadBegins();
    void loadEnds() { --mLoads; }
    /// Bytes of a body that were handed on to a load.
    void noteHandedOn(qint64 bytes) { mHandedOn += bytes; }

private:
    struct Count {
        qint64 received; ///< by the connection
        qint64 handedOn; ///< by then, of all connections
        qint64 lastReceived; ///< at the last look
    };

    void look();

    qint64 mUnreadBytes;
    QTimer mTimer;
    int mLoads = 0;
    qint64 mHandedOn = 0;
    QHash<quint64, Count> mCounts; ///< by the system's name of the connection
};
