#include "app/songsources.h"

#include "base/folderwalk.h"

#include <QFileInfo>

namespace {

void readFolder(const QString &path, EntrySink &sink)
{
    walkFolder(path,
               {
                   .file = [&sink](const QString &file) { sink.add({file}); },
                   .problem =
                       [&sink](const QString &name, const QString &reason) {
                           sink.problem(QStringLiteral("%1: %2").arg(name, reason));
                       },
                   .goesOn = [&sink] { return sink.goesOn(); },
               });
}

} // namespace

std::optional<SongSource> folderSource(const QString &path)
{
    if (!QFileInfo(path).isDir())
        return std::nullopt;
    SongSource source;
    source.kind = SourceKind::Folder;
    source.name = path;
    source.windowTitle = qtTrId("WindowTitleDirectory").arg(path);
    source.progressText = qtTrId("ScanningDirectory");
    source.readEntries = [path](EntrySink &sink) { readFolder(path, sink); };
    return source;
}
