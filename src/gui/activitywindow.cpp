#include "gui/activitywindow.h"

#include "gui/fetchqueuemodel.h"
#include "gui/firstsize.h"

#include <QHeaderView>
#include <QLabel>
#include <QStackedLayout>
#include <QTableView>
#include <QVBoxLayout>

namespace {
constexpr QSize firstSize(620, 320); // pixels
constexpr int statusWidth = 140; // pixels
} // namespace

ActivityWindow::ActivityWindow(HVHTTPQueue &queue, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("activityWindow"));
    setWindowTitle(qtTrId("ActivityTitle"));
    resize(firstSizeOf(*this, firstSize));
    auto *model = new FetchQueueModel(queue, this);
    auto *table = new QTableView(this);
    table->setModel(model);
    table->setAccessibleName(qtTrId("ActivityTitle"));
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setTextElideMode(Qt::ElideMiddle);
    table->setWordWrap(false);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setSectionResizeMode(FetchQueueModel::URL, QHeaderView::Stretch);
    table->horizontalHeader()->resizeSection(FetchQueueModel::Status, statusWidth);
    auto *idle = new QLabel(qtTrId("ActivityIdle"), table);
    idle->setAlignment(Qt::AlignCenter);
    idle->setForegroundRole(QPalette::PlaceholderText);
    auto *over = new QVBoxLayout(table->viewport());
    over->addWidget(idle);
    const auto showIdle = [idle, model] { idle->setVisible(model->rowCount() == 0); };
    connect(model, &QAbstractItemModel::modelReset, idle, showIdle);
    showIdle();
    auto *column = new QVBoxLayout(this);
    column->addWidget(table);
}
