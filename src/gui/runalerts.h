#pragma once

#include "app/prefscontroller.h"

#include <QDialog>

#include <functional>

class QLabel;

/// Calls `proceed` when titles are not to be gathered and overwritten, or the user wants that.
void askAboutOverwritingTitles(const GatheringOptions &options, QWidget *parent,
                               const std::function<void()> &proceed);

/// Warns of songs of compilations for which something is missing, until the user has enough of it.
/// The run goes on meanwhile; a later song takes the place of an earlier one.
class CompilationWarning : public QDialog {
    Q_OBJECT

public:
    /// The settings must outlive the panel.
    CompilationWarning(PrefsController &prefs, QWidget *parent);

    void warnAboutCompilationForTrack(const QString &title, const QString &artist);

private:
    PrefsController &mPrefs;
    QLabel *mText;
};
