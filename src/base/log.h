#pragma once

#include <QLoggingCategory>

// One category a floor. Texts that the program promises are written as they stand, with
// qCWarning(logTags).noquote() or its "%s" form.
Q_DECLARE_LOGGING_CATEGORY(logBase)
Q_DECLARE_LOGGING_CATEGORY(logText)
Q_DECLARE_LOGGING_CATEGORY(logTags)
Q_DECLARE_LOGGING_CATEGORY(logItunes)
Q_DECLARE_LOGGING_CATEGORY(logSongs)
Q_DECLARE_LOGGING_CATEGORY(logGathering)
Q_DECLARE_LOGGING_CATEGORY(logSources)
Q_DECLARE_LOGGING_CATEGORY(logApp)
Q_DECLARE_LOGGING_CATEGORY(logDemo)
Q_DECLARE_LOGGING_CATEGORY(logCli)
Q_DECLARE_LOGGING_CATEGORY(logGui)

enum class Diagnostics { ToLogFile, ToStandardErrorToo };

/// Sends diagnostics to "tagwright.log" in the state folder, and to standard error only when
/// asked. At 1 MB the file becomes "tagwright.log.1" and a new one is begun. The file is opened
/// with the first message; where it cannot be, messages are dropped.
void installDiagnostics(Diagnostics where);
