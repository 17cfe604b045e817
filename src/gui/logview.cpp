#include "gui/logview.h"

#include "gui/logcolors.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace {

constexpr int rowSpacing = 4; // pixels between the lines of text

/// Colours lines by the palette of the moment.
class LineDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const auto color = static_cast<LogColor>(index.data(LogModel::colorRole).toInt());
        option->palette.setColor(QPalette::Text, logColor(color, option->palette));
        option->font.setBold(color == LogColor::Finished);
    }
};

} // namespace

LogView::LogView(UserLog &log, QWidget *parent)
    : QTableView(parent)
{
    setObjectName(QStringLiteral("logView"));
    setAccessibleName(qtTrId("LogTitle"));
    setModel(&mModel);
    setItemDelegate(new LineDelegate(this));
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    horizontalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fitRows();
    connect(&log, &UserLog::lineAdded, &mModel, &LogModel::add);
    connect(&mModel, &QAbstractItemModel::rowsAboutToBeInserted, this, &LogView::noteEnd);
    connect(&mModel, &QAbstractItemModel::rowsInserted, this, &LogView::followEnd);
}

/// All rows are equally high, so that no number of lines costs anything.
void LogView::fitRows()
{
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowSpacing);
}

void LogView::noteEnd()
{
    mFollows = verticalScrollBar()->value() == verticalScrollBar()->maximum();
}

void LogView::followEnd()
{
    if (mFollows)
        scrollToBottom();
}

void LogView::copyLines() const
{
    QModelIndexList lines = selectionModel()->selectedRows();
    std::sort(lines.begin(), lines.end());
    QStringList texts;
    for (const QModelIndex &line : std::as_const(lines))
        texts << line.data().toString();
    for (int row = 0; lines.isEmpty() && row < mModel.rowCount(); ++row)
        texts << mModel.index(row).data().toString();
    if (!texts.isEmpty())
        QGuiApplication::clipboard()->setText(texts.join(u'\n') + u'\n');
}

void LogView::clear()
{
    mModel.clear();
}

void LogView::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    menu.addAction(qtTrId("MenuCopyLog"), this, &LogView::copyLines);
    menu.addAction(qtTrId("MenuClearLog"), this, &LogView::clear);
    menu.exec(event->globalPos());
}

void LogView::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy))
        copyLines();
    else
        QTableView::keyPressEvent(event);
}

void LogView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        fitRows();
}

void LogView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (mModel.rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                     qtTrId("LogPlaceholder"));
}
