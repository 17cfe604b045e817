#include "support/songscene.h"

#include "base/writejournal.h"

#include "base/folders.h"

#include <QDirIterator>
#include <QTest>

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

int resultOf(const InPlaceFile::Outcome &outcome)
{
    using Kind = InPlaceFile::Outcome::Kind;
    if (outcome.kind == Kind::Written)
        return Written;
    return outcome.kind == Kind::Failed && !outcome.error.isEmpty() ? Failed : Strange;
}

Shape shape(const char *name, const Parts &parts)
{
    return {.name = name, .parts = parts, .expected = bytesFrom(parts, oldBytes())};
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

FileContents contentsFrom(const Parts &parts)
{
    FileContents contents;
    for (const Part &part : parts) {
        contents.append(part.bytes);
        contents.keep(part.offset, part.length);
    }
    return contents;
}

QByteArray bytesFrom(const Parts &parts, const QByteArray &old)
{
    QByteArray bytes;
    for (const Part &part : parts)
        bytes += part.bytes + old.mid(part.offset, part.length);
    return bytes;
}

const std::vector<Shape> &shapes()
{
    static const QByteArray tag = noise(10'000, 2);
    static const QByteArray end = noise(128, 3);
    static const std::vector<Shape> all = {
        shape("head and end of the same size",
              {{tag}, {.offset = 10'000, .length = songSize - 10'128}, {end}}),
        shape("grown", {{tag}, {.offset = 500, .length = songSize - 500}}),
        shape("shrunk", {{tag}, {.offset = 30'000, .length = songSize - 30'000}}),
        shape("ranges change places", {{.offset = 70'000, .length = 30'000}, {.length = 70'000}}),
        shape("end added", {{.length = songSize}, {end}})};
    return all;
}

void addShapes()
{
    QTest::addColumn<Shape>("shape");
    for (const Shape &shape : shapes())
        QTest::newRow(shape.name) << shape;
}

void makeOld(const QString &path)
{
    ::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), longAgo, 0);
}

bool hasOldTime(const QString &path)
{
    struct stat found = {};
    ::stat(QFile::encodeName(path).constData(), &found);
    return found.st_mtim.tv_sec == longAgo[1].tv_sec && found.st_mtim.tv_nsec == longAgo[1].tv_nsec;
}

Scene::Scene()
    : mFolder(folderTemplate())
{
    writeFile(path(), oldBytes());
    makeOld(path());
    qputenv("XDG_STATE_HOME", QFile::encodeName(mFolder.filePath(QStringLiteral("state"))));
}

QStringList filesIn(const QString &folder)
{
    QStringList found;
    QDirIterator each(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (each.hasNext())
        found << each.next();
    return found;
}

QStringList leftOvers()
{
    return filesIn(stateFolder());
}

InPlaceFile::Outcome replace(const QString &path, const Parts &parts, KeepTime keepTime,
                             KeptJournal *kept)
{
    const auto opened = InPlaceFile::open(path);
    if (!opened.file)
        return {.kind = InPlaceFile::Outcome::Kind::Failed, .error = opened.error};
    return opened.file->replaceContents(contentsFrom(parts), keepTime, kept);
}

TracedRun write(const Scene &scene, const Shape &shape, Disturbance disturbance,
                const Observer &observer)
{
    return runTraced([&] { return resultOf(replace(scene.path(), shape.parts)); }, disturbance,
                     observer);
}

namespace {
/// A grown tag, a small piece further on, and a tag that shrinks: the journal of each stands where
/// a shorter or longer one stood.
const std::vector<Parts> &writesInTurn()
{
    static const std::vector<Parts> writes = {
        {{noise(20'000, 4)}, {.offset = 500, .length = songSize - 500}},
        {{.length = 50'000}, {noise(700, 5)}, {.offset = 50'700, .length = songSize - 31'200}},
        {{noise(12'000, 6)}, {.offset = 20'000, .length = songSize - 500}}};
    return writes;
}
} // namespace

TracedRun writeThrice(const Scene &scene, Disturbance disturbance, const Observer &observer)
{
    return runTraced(
        [&] {
            KeptJournal kept;
            for (const Parts &parts : writesInTurn())
                if (const int result = resultOf(replace(scene.path(), parts, KeepTime::No, &kept)))
                    return result;
            return int{Written};
        },
        disturbance, observer);
}

bool isAsAfterAWrite(const Scene &scene)
{
    const QByteArray now = fileContents(scene.path());
    QByteArray state = oldBytes();
    bool isOneOfThem = now == state;
    for (const Parts &parts : writesInTurn()) {
        state = bytesFrom(parts, state);
        isOneOfThem = isOneOfThem || now == state;
    }
    return isOneOfThem;
}
