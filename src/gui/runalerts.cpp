#include "gui/runalerts.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int textWidth = 360; // pixels
}

void askAboutOverwritingTitles(const GatheringOptions &options, QWidget *parent,
                               const std::function<void()> &proceed)
{
    if (!options.gather.testFlag(AssetSongTitle) || !options.overwrite.testFlag(AssetSongTitle))
        return proceed();
    auto *alert = new QMessageBox(QMessageBox::Critical, qtTrId("OverwriteTitleTitle"),
                                  qtTrId("OverwriteTitleTitle"), QMessageBox::NoButton, parent);
    alert->setObjectName(QStringLiteral("overwriteTitleAlert"));
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setInformativeText(qtTrId("OverwriteTitleMessage"));
    QPushButton *replace =
        alert->addButton(qtTrId("OverwriteTitleProceed"), QMessageBox::AcceptRole);
    alert->setDefaultButton(
        alert->addButton(qtTrId("OverwriteTitleCancel"), QMessageBox::RejectRole));
    QObject::connect(replace, &QPushButton::clicked, parent, proceed);
    alert->open();
}

CompilationWarning::CompilationWarning(PrefsController &prefs, QWidget *parent)
    : QDialog(parent)
    , mPrefs(prefs)
    , mText(new QLabel(this))
{
    setObjectName(QStringLiteral("compilationWarning"));
    setWindowTitle(qtTrId("CompilationWarningTitle"));
    mText->setTextFormat(Qt::PlainText);
    mText->setWordWrap(true);
    mText->setFixedWidth(textWidth);
    auto *dontWarn = new QCheckBox(qtTrId("CompilationWarningDontWarn"), this);
    dontWarn->setObjectName(QStringLiteral("dontWarnCompilation"));
    connect(dontWarn, &QCheckBox::toggled, this,
            [this](bool isOn) { preferences::dontWarnCompilation.set(mPrefs.settings(), isOn); });
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    setAttribute(Qt::WA_ShowWithoutActivating); // the run goes on, and so does the user
    auto *column = new QVBoxLayout(this);
    column->addWidget(mText);
    column->addWidget(dontWarn);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize); // for a longer text it grows
}

void CompilationWarning::warnAboutCompilationForTrack(const QString &title, const QString &artist)
{
    if (preferences::dontWarnCompilation.value(mPrefs.settings()))
        return;
    const auto inOneLine = [this](const QString &text) {
        return mText->fontMetrics().elidedText(text, Qt::ElideRight, textWidth);
    };
    mText->setText(qtTrId("CompilationWarningText").arg(inOneLine(title), inOneLine(artist)));
    show();
}
