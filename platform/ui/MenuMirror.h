#pragma once

#include <QObject>

#include <functional>

class QMenu;
class QWidget;
class TMenuItem;

// Shows the entries of a TMenuItem in a QMenu or QMenuBar and keeps them in step: entries come, go and get submenus as
// the item changes. Belongs to the widget.
class MenuMirror : public QObject {
    Q_OBJECT
public:
    using MakeMenu = std::function<QMenu*(QWidget* parent)>;

    // `makeMenu` makes the widget of each submenu; without one it is an ItemMenu.
    MenuMirror(TMenuItem& from, QWidget& to, MakeMenu makeMenu);

private:
    void Show(int index, TMenuItem* item);
    void Hide(TMenuItem* item);
    void GiveSubMenu(TMenuItem* item);

    TMenuItem& FFrom;
    QWidget& FTo;
    MakeMenu FMakeMenu;
};
