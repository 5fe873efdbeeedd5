#pragma once

#include <QMenu>

// A QMenu that knows the entries which are menu items: one of several shows a dot for its tick.
class ItemMenu : public QMenu {
    Q_OBJECT
public:
    using QMenu::QMenu;

protected:
    // In a popup menu that goes by the left button alone, another one chooses nothing.
    void mouseReleaseEvent(QMouseEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};
