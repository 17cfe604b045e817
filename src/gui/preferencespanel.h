#pragma once

#include "app/engine.h"

#include <QDialog>

#include <functional>
#include <vector>

class QFormLayout;
class QLabel;
class QVBoxLayout;
struct PixelSlider;

/// The preferences: what is changed counts at once, so there is nothing to confirm.
class PreferencesPanel : public QDialog {
    Q_OBJECT

public:
    /// The engine must outlive the panel.
    PreferencesPanel(Engine &engine, QWidget *parent);

    /// Fills the controls and shows the panel in front.
    void orderFrontPreferencesPanel();

private:
    [[nodiscard]] QWidget *artworkPage();
    [[nodiscard]] QWidget *filesPage();
    [[nodiscard]] QWidget *sourcesPage();
    void addSlider(QFormLayout &form, const PixelSlider &slider, const QString &label);
    void addCheckBox(QVBoxLayout &column, const QString &text, const QString &name,
                     const Setting<bool> &setting);
    void putValuesInInterface();
    void useDefaults();

    Engine &mEngine;
    QLabel *mNoteField = nullptr;
    /// Each puts one setting into its control.
    std::vector<std::function<void()>> mFillControls;
};
