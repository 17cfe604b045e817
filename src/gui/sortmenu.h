#pragma once

#include "app/visiblesongs.h"

#include <QMenu>

#include <array>

class MainController;

/// By which column the songs are sorted, and which way.
class SortMenu : public QMenu {
public:
    /// The controller must outlive the menu.
    explicit SortMenu(MainController &controller, QWidget *parent = nullptr);

private:
    void addColumns();
    void addOrders();
    [[nodiscard]] QAction *addChoice(const QString &text, QActionGroup &among);
    void showSorting();

    MainController &mController;
    std::array<QAction *, songColumnCount> mColumns{};
    QAction *mAscending = nullptr;
    QAction *mDescending = nullptr;
};
