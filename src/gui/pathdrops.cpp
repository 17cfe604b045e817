#include "gui/pathdrops.h"

#include <QDropEvent>
#include <QUrl>

namespace {
/// Nothing is moved, whatever the file manager would like.
void acceptAsCopy(QDropEvent &event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}
} // namespace

QStringList localPathsIn(const QMimeData &data)
{
    QStringList paths;
    for (const QUrl &url : data.urls())
        if (url.isLocalFile() && url.host().isEmpty())
            paths << url.toLocalFile();
    return paths;
}

PathDrops::PathDrops(QWidget &widget)
    : QObject(&widget)
{
    widget.setAcceptDrops(true);
    widget.installEventFilter(this);
}

bool PathDrops::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
        return enter(*static_cast<QDropEvent *>(event));
    case QEvent::DragMove:
        acceptAsCopy(*static_cast<QDropEvent *>(event));
        return true;
    case QEvent::DragLeave:
        Q_EMIT hovered(false);
        return true;
    case QEvent::Drop:
        drop(*static_cast<QDropEvent *>(event));
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool PathDrops::enter(QDropEvent &event)
{
    const bool canBeTaken = !localPathsIn(*event.mimeData()).isEmpty();
    if (canBeTaken)
        acceptAsCopy(event);
    else
        event.ignore();
    Q_EMIT hovered(canBeTaken);
    return true;
}

void PathDrops::drop(QDropEvent &event)
{
    acceptAsCopy(event);
    Q_EMIT hovered(false);
    Q_EMIT dropped(localPathsIn(*event.mimeData()));
}
