#pragma once

#include "gui/dropwindow.h"
#include "gui/mainwindow.h"
#include "gui/singleinstance.h"

#include <QSet>

#include <memory>

/// The program from its start to its end: which window it opens, and what later starts hand to it.
class Session : public QObject {
    Q_OBJECT

public:
    /// The engine must outlive the session, and be started before anything is opened.
    explicit Session(Engine &engine);

    /// Has the user see the main window, still empty, before the engine is started. It is to be
    /// opened then.
    void paintMainWindow();

    /// Takes what later starts of the program hand over.
    void listen();
    /// The main window with the songs of the chosen source.
    void openMainWindow();
    /// The same with the songs of this folder, all of them selected.
    void openMainWindow(const QString &folder);
    /// The small window, which fills in what the songs lack. Without paths, the main window.
    void openPaths(const QStringList &paths);

private:
    void makeMainWindow();
    [[nodiscard]] MainWindow &mainWindow();
    void showInFront(MainWindow &window);
    void welcome(MainWindow &window);
    void announce(const ReleaseAnnouncement &release);
    void showDroppedChanges();

    Engine &mEngine;
    SingleInstance mInstance;
    std::unique_ptr<MainController> mController; ///< with the main window
    std::unique_ptr<MainWindow> mMainWindow; ///< null until it is opened
    std::unique_ptr<DropWindow> mDropWindow; ///< null until something is dropped
    QSet<QString> mChangedPaths; ///< of dropped songs, since the table was last brought up to date
};
