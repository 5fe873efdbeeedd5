#pragma once

#include "visual/TMenuItem.h"

#include <QPointer>

#include <memory>

class TImageList;

// Whether hot keys are given out by the menu itself.
enum TMenuAutoFlag { maAutomatic, maManual };

// What every menu has, shown or not: a root whose items are its entries, and an image list for their pictures. The
// list is not owned; when it goes, the menu is without.
class TMenu {
public:
    virtual ~TMenu();
    TMenu(const TMenu&) = delete;
    TMenu& operator=(const TMenu&) = delete;

    // The root. Never shown itself; belongs to the menu.
    TMenuItem& Items() { return *FItems; }
    const TMenuItem& Items() const { return *FItems; }

    TImageList* Images() const;
    virtual void SetImages(TImageList* images);

    // Manual unless set: Qt's menus find an entry by its first letter in any case.
    TMenuAutoFlag AutoHotkeys() const { return FAutoHotkeys; }
    void SetAutoHotkeys(TMenuAutoFlag flag) { FAutoHotkeys = flag; }

    // The menu as an object that can own its items.
    virtual QObject* AsObject() = 0;

protected:
    TMenu();
    // Called when the list of pictures was replaced, changed or deleted.
    virtual void ImagesChanged();

    // Deletes the entries; for classes that must do this before their base goes.
    void FreeItems();

private:
    std::unique_ptr<TMenuItem> FItems;
    QPointer<TImageList> FImages;
    TMenuAutoFlag FAutoHotkeys = maManual;
};
