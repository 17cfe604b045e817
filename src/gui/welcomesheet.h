#pragma once

#include <QDialog>

class QSettings;

/// Greets a new user: what the program does, that nothing is moved or renamed, and where to
/// begin.
class WelcomeSheet : public QDialog {
    Q_OBJECT

public:
    explicit WelcomeSheet(QWidget *parent);

    /// Whether the user has never been greeted; from then on not any more.
    [[nodiscard]] static bool isNeeded(QSettings &settings);

Q_SIGNALS:
    void folderWanted();
    void demoWanted();
};
