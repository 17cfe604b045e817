#pragma once

#include <QString>

class QPainter;
class QPalette;
class QRect;

/// What stands in a list without rows.
struct EmptyState {
    QString icon; ///< name of its icon
    QString title;
    QString hint; ///< what to do about it
};

void paintEmptyState(QPainter &painter, const QRect &rect, const QPalette &palette,
                     const EmptyState &state);

/// Frames what files can be dropped onto, while they are held above it.
void paintDropTarget(QPainter &painter, const QRect &rect, const QPalette &palette);
