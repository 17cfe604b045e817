#pragma once

#include <QMimeData>
#include <QStringList>
#include <QWidget>

/// The files and folders of this machine among what is dragged.
[[nodiscard]] QStringList localPathsIn(const QMimeData &data);

/// Has a widget take files and folders from file managers. Parts of it that take drops themselves
/// come first.
class PathDrops : public QObject {
    Q_OBJECT

public:
    explicit PathDrops(QWidget &widget);

Q_SIGNALS:
    void dropped(const QStringList &paths);
    /// Whether something that can be dropped is held above the widget.
    void hovered(bool isAbove);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool enter(QDropEvent &event);
    void drop(QDropEvent &event);
};
