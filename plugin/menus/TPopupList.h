#pragma once

#include <QList>
#include <QObject>

#include <memory>

class TMenuItem;
class TPopupMenuEx;

// All extended popup menus of the process, and what happens beside drawing while one of them is open: the hint and the
// cursor for the item pointed at, and help for it.
//
// The first menu makes the list; it goes when the unit finalises. While there is a menu there is one hidden object that
// hears what the menus and their submenus are told.
class TPopupList {
public:
    TPopupList();
    ~TPopupList();

    void Add(TPopupMenuEx* menu);
    void Remove(TPopupMenuEx* menu);
    int Count() const { return static_cast<int>(FMenus.size()); }
    TPopupMenuEx* Items(int index) const { return FMenus.value(index); }
    // The menu that the item stands in, at any depth; nil if none of the list.
    TPopupMenuEx* FindMenu(const TMenuItem* item) const;

    // Who hears the menus; nil without a menu.
    QObject* Window() const { return FWindow.get(); }
    // Also hears this window of a menu.
    void Watch(QObject* window);

    // An item is pointed at, or is no longer: shows its hint and, in a menu with a cursor, that. nil, or an item that
    // no menu knows, clears the hint.
    void MenuSelect(TMenuItem* item, bool highlighted);
    // Asks for help on the item: its context, or that of the nearest item above it that has one.
    void Help(const TMenuItem& item);

private:
    QList<TPopupMenuEx*> FMenus;
    std::unique_ptr<QObject> FWindow;
};

// nil before the first menu and after the unit has finalised.
extern std::unique_ptr<TPopupList> PopupList;
