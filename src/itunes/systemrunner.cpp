#include "itunes/systemrunner.h"

#include "itunes/localrunner.h"
#include "itunes/osascriptrunner.h"

#include <QDir>
#include <QStandardPaths>

MusicPlaces usualMusicPlaces(const MovedFolders &moved)
{
    // Systems without a music folder name the home folder, which nobody wants to be searched.
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return {moved, QDir(folder) == QDir::home() ? QString() : folder};
}

std::unique_ptr<ScriptRunner> systemScriptRunner(const MusicPlaces &places)
{
    const QString osascript = QStandardPaths::findExecutable(QStringLiteral("osascript"));
    if (!osascript.isEmpty())
        return std::make_unique<OsascriptRunner>(osascript);
    return std::make_unique<LocalRunner>(places);
}
