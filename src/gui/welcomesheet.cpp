#include "gui/welcomesheet.h"

#include "base/setting.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr Setting<bool> wasWelcomed{"wasWelcomed", false};
constexpr int leastTextWidth = 420; // pixels
constexpr int margin = 24; // pixels
constexpr int betweenParagraphs = 12; // pixels
constexpr double titleScale = 1.5;

QLabel *paragraph(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    label->setMinimumWidth(std::max(leastTextWidth, label->fontMetrics().averageCharWidth() * 56));
    return label;
}
} // namespace

WelcomeSheet::WelcomeSheet(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("welcomeSheet"));
    setWindowTitle(qtTrId("WelcomeTitle"));
    setModal(true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(betweenParagraphs);
    QLabel *title = paragraph(qtTrId("WelcomeTitle"));
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * titleScale);
    title->setFont(font);
    column->addWidget(title);
    for (const QString &text :
         {qtTrId("WelcomeWhat"), qtTrId("WelcomeSafety"), qtTrId("WelcomeBegin")})
        column->addWidget(paragraph(text));
    column->addSpacing(betweenParagraphs);

    auto *row = new QHBoxLayout;
    auto *later = new QPushButton(qtTrId("WelcomeLater"));
    auto *demo = new QPushButton(qtTrId("WelcomeDemo"));
    auto *folder = new QPushButton(qtTrId("WelcomeFolder"));
    folder->setDefault(true);
    row->addWidget(later);
    row->addStretch();
    row->addWidget(demo);
    row->addWidget(folder);
    column->addLayout(row);
    setFixedSize(sizeHint());
    for (QPushButton *button : {later, demo, folder})
        connect(button, &QPushButton::clicked, this, &QDialog::accept);
    connect(demo, &QPushButton::clicked, this, &WelcomeSheet::demoWanted);
    connect(folder, &QPushButton::clicked, this, &WelcomeSheet::folderWanted);
}

bool WelcomeSheet::isNeeded(QSettings &settings)
{
    const bool isNeeded = !wasWelcomed.value(settings);
    wasWelcomed.set(settings, true);
    return isNeeded;
}
