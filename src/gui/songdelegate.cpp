#include "gui/songdelegate.h"

#include "app/songcolumns.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>

namespace {

SongColumnInfo::Kind kindOf(const QModelIndex &index)
{
    return infoOf(static_cast<SongColumn>(index.column())).kind;
}

/// Numbers end at the right, where the text of the next column begins.
constexpr QChar roomBehindNumbers(0x2002); // en space

bool isCutOff(const QStyleOptionViewItem &option, const QStyledItemDelegate &delegate,
              const QModelIndex &index)
{
    return delegate.sizeHint(option, index).width() > option.rect.width();
}

/// Tags and file names are not ours: whatever stands in them is shown as it is.
QString shownLiterally(const QString &text)
{
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
}

} // namespace

void SongDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    using enum SongColumnInfo::Kind;
    const auto kind = kindOf(index);
    option->textElideMode = Qt::ElideRight;
    if (kind == Icon || kind == Mark)
        option->decorationAlignment = Qt::AlignCenter;
    if (kind == Icon)
        option->state.setFlag(QStyle::State_HasFocus, false); // a frame round no text
    if (kind == Number)
        option->text += roomBehindNumbers;
}

QWidget *SongDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                    const QModelIndex &index) const
{
    auto *editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
    editor->setAccessibleName(
        index.model()
            ->headerData(index.column(), Qt::Horizontal, Qt::AccessibleTextRole)
            .toString());
    return editor;
}

bool SongDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                             const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QStringList lines;
    if (isCutOff(option, *this, index))
        lines << index.data(Qt::DisplayRole).toString();
    lines << index.data(Qt::ToolTipRole).toString();
    lines.removeAll(QString());
    if (lines.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPos(), shownLiterally(lines.join(u'\n')), view,
                           view->visualRect(index));
    return true;
}
