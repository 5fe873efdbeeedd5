#pragma once

#include <QMenu>

// A QMenu that knows the entries which are menu items: one of several shows a dot for its tick.
class ItemMenu : public QMenu {
    Q_OBJECT
public:
    using QMenu::QMenu;

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;
};
