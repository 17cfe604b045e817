#include "support/songscene.h"

#include "base/folders.h"
#include "base/inplacefile.h"
#include "support/tempfiles.h"

#include <QDir>

#include <fcntl.h>
#include <sys/stat.h>

namespace {
constexpr timespec longAgo[] = {{1'000'000'000, 5}, {1'100'000'000, 123'456'789}};

/// In memory where possible: there, thousands of syncs take no time.
QString folderTemplate()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath())
        + QStringLiteral("/tagwright-XXXXXX");
}

int writeSong(const QString &path, const FileContents &contents)
{
    const auto opened = InPlaceFile::open(path);
    if (!opened.file)
        return opened.error.isEmpty() ? FailedWithoutReason : Failed;
    const auto outcome = opened.file->replaceContents(contents, KeepTime::No);
    if (outcome.kind == InPlaceFile::Outcome::Kind::Failed)
        return outcome.error.isEmpty() ? FailedWithoutReason : Failed;
    return outcome.kind == InPlaceFile::Outcome::Kind::Written ? Written : Unchanged;
}
} // namespace

QByteArray noise(int size, quint32 seed)
{
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>((seed = seed * 1664525 + 1013904223) >> 24);
    return bytes;
}

const QByteArray &oldBytes()
{
    static const QByteArray bytes = noise(songSize, 1);
    return bytes;
}

std::vector<Shape> shapes()
{
    const QByteArray tag = noise(10'000, 2);
    const QByteArray end = noise(128, 3);
    std::vector<Shape> all(5);
    all[0].name = "head and end of the same size";
    all[0].contents.append(tag);
    all[0].contents.keep(tag.size(), songSize - tag.size() - end.size());
    all[0].contents.append(end);
    all[0].expected = tag + oldBytes().mid(tag.size(), songSize - tag.size() - end.size()) + end;
    all[1].name = "grown";
    all[1].contents.append(tag);
    all[1].contents.keep(500, songSize - 500);
    all[1].expected = tag + oldBytes().mid(500);
    all[2].name = "shrunk";
    all[2].contents.append(tag);
    all[2].contents.keep(30'000, songSize - 30'000);
    all[2].expected = tag + oldBytes().mid(30'000);
    all[3].name = "ranges change places";
    all[3].contents.keep(70'000, 30'000);
    all[3].contents.keep(0, 70'000);
    all[3].expected = oldBytes().mid(70'000) + oldBytes().left(70'000);
    all[4].name = "end added";
    all[4].contents.keep(0, songSize);
    all[4].contents.append(end);
    all[4].expected = oldBytes() + end;
    return all;
}

Scene::Scene()
    : mFolder(folderTemplate())
{
    writeFile(path(), oldBytes());
    ::utimensat(AT_FDCWD, QFile::encodeName(path()).constData(), longAgo, 0);
    qputenv("XDG_STATE_HOME", QFile::encodeName(mFolder.filePath(QStringLiteral("state"))));
}

QString Scene::path() const
{
    return mFolder.filePath(QStringLiteral("song.mp3"));
}

bool Scene::isOld() const
{
    return fileContents(path()) == oldBytes();
}

bool Scene::hasOldTime() const
{
    struct stat found = {};
    ::stat(QFile::encodeName(path()).constData(), &found);
    return found.st_mtim.tv_sec == longAgo[1].tv_sec && found.st_mtim.tv_nsec == longAgo[1].tv_nsec;
}

bool Scene::isNew(const Shape &shape) const
{
    return fileContents(path()) == shape.expected;
}

QStringList Scene::leftOvers()
{
    const QDir state(stateFolder());
    return QDir(state.filePath(QStringLiteral("journal"))).entryList(QDir::Files)
        + QDir(state.filePath(QStringLiteral("kept"))).entryList(QDir::Files);
}

TracedRun write(const Scene &scene, const Shape &shape, Disturbance disturbance,
                const std::function<void(const TracedCall &)> &observer)
{
    return runTraced([&] { return writeSong(scene.path(), shape.contents); }, disturbance,
                     observer);
}

TracedRun recover(Disturbance disturbance)
{
    return runTraced(
        [] {
            recoverInterruptedWrites();
            return 0;
        },
        disturbance);
}

Quiet::Quiet()
    : mFormer(qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {}))
{
}

Quiet::~Quiet()
{
    qInstallMessageHandler(mFormer);
}
