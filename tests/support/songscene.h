#pragma once

#include "base/filecontents.h"
#include "support/tracedprocess.h"

#include <QStringList>
#include <QTemporaryDir>

#include <vector>

/// Bytes without a pattern that shows, the same for each seed.
QByteArray noise(int size, quint32 seed);

constexpr int songSize = 100'000;

const QByteArray &oldBytes();

/// What a write makes of the song.
struct Shape {
    const char *name;
    FileContents contents;
    QByteArray expected;
};

std::vector<Shape> shapes();

/// A song with an old time and the state folder of the program that writes it. Made afresh it
/// becomes the one that this process and its children use.
class Scene {
public:
    Scene();

    [[nodiscard]] QString path() const;
    [[nodiscard]] bool isOld() const;
    [[nodiscard]] bool hasOldTime() const;
    [[nodiscard]] bool isNew(const Shape &shape) const;

    /// Journals, and bytes that were put aside.
    [[nodiscard]] static QStringList leftOvers();

private:
    QTemporaryDir mFolder;
};

/// What the process of a write returns.
enum WriteResult { Written, Failed, FailedWithoutReason, Unchanged };

/// Writes or recovers in a process of its own.
TracedRun write(const Scene &scene, const Shape &shape, Disturbance disturbance,
                const std::function<void(const TracedCall &)> &observer = {});
TracedRun recover(Disturbance disturbance = {});

/// Keeps what the program logs out of the test's report.
class Quiet {
public:
    Quiet();
    Quiet(const Quiet &) = delete;
    Quiet &operator=(const Quiet &) = delete;
    ~Quiet();

private:
    QtMessageHandler mFormer;
};
