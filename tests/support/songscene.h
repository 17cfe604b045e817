#pragma once

#include "base/inplacefile.h"
#include "support/tempfiles.h"
#include "support/tracedprocess.h"

#include <vector>

/// Bytes without a pattern that shows, the same for each seed.
QByteArray noise(int size, quint32 seed);

constexpr int songSize = 100'000;

const QByteArray &oldBytes();

/// New bytes, or a range kept from the old file.
struct Part {
    QByteArray bytes = {};
    qint64 offset = 0;
    qint64 length = 0;
};
using Parts = QList<Part>;

FileContents contentsFrom(const Parts &parts);
QByteArray bytesFrom(const Parts &parts, const QByteArray &old);

/// What a write makes of the song.
struct Shape {
    const char *name = nullptr;
    Parts parts = {};
    QByteArray expected = {};
};

const std::vector<Shape> &shapes();

/// A row for each shape, in the column "shape".
void addShapes();

/// Gives a file times of long ago, by which a later write shows however coarse the clock is.
void makeOld(const QString &path);
bool hasOldTime(const QString &path);

/// The paths of all files in the folder and those in it.
QStringList filesIn(const QString &folder);

/// Journals, and bytes that were put aside.
QStringList leftOvers();

/// A song with an old time and the state folder of the program that writes it. Made afresh it
/// becomes the one that this process and its children use.
class Scene {
public:
    Scene();

    [[nodiscard]] QString path() const { return mFolder.filePath(QStringLiteral("song.mp3")); }
    [[nodiscard]] bool isOld() const { return fileContents(path()) == oldBytes(); }
    [[nodiscard]] bool isNew(const Shape &shape) const
    {
        return fileContents(path()) == shape.expected;
    }

private:
    QTemporaryDir mFolder;
};

/// What the process of a write returns.
enum WriteResult { Written, Failed, Strange };

/// Writes in this process.
InPlaceFile::Outcome replace(const QString &path, const Parts &parts,
                             KeepTime keepTime = KeepTime::No, KeptJournal *kept = nullptr);

/// Three writes with one journal that is kept for all of them, in a process of its own.
TracedRun writeThrice(const Scene &scene, Disturbance disturbance, const Observer &observer = {});
/// Whether the song is as it was before one of these writes, or after the last.
bool isAsAfterAWrite(const Scene &scene);

/// Writes in a process of its own.
TracedRun write(const Scene &scene, const Shape &shape, Disturbance disturbance,
                const Observer &observer = {});

/// Keeps what the program logs out of the test's report.
class Quiet {
public:
    Quiet() = default;
    Q_DISABLE_COPY(Quiet)
    ~Quiet() { qInstallMessageHandler(mFormer); }

private:
    QtMessageHandler mFormer =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
};

Q_DECLARE_METATYPE(Part)
Q_DECLARE_METATYPE(Shape)
