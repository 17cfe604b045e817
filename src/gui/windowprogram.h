#pragma once

#include <QStringList>

// What the program with the window does from its start to its end. Both need a QApplication, and
// return the exit status.

/// Opens the small window on these songs and folders, or without any the main window. Where the
/// program runs already, that one does.
[[nodiscard]] int runWindow(const QStringList &paths);

/// Opens the main window on sample songs, sites and settings: nothing of the user's is touched.
[[nodiscard]] int runDemoWindow();
