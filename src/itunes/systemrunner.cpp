#include "itunes/systemrunner.h"

#include "itunes/localrunner.h"
#include "itunes/osascriptrunner.h"

#include <QStandardPaths>

std::unique_ptr<ScriptRunner> systemScriptRunner()
{
    const QString osascript = QStandardPaths::findExecutable(QStringLiteral("osascript"));
    if (!osascript.isEmpty())
        return std::make_unique<OsascriptRunner>(osascript);
    return std::make_unique<LocalRunner>();
}
