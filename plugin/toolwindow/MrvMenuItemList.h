#pragma once

#include "model/MrvInterfaces.h"
#include "rtl/TInterfacedObject.h"

#include <QList>

// A menu as the model fills it: captions, class names and tags, with one level of sub-items. The window reads it.
class TMenuItemList : public Implements<TInterfacedObject, IMrvMenu> {
public:
    void Clear() override;
    void AddItem(const QString& caption, const QString& className, int tag) override;
    void AddSubItem(const QString& caption, const QString& className, int tag, int index) override;
    // In an empty list an item with tag 0; otherwise at the index, with the index as its tag. Sub-items are not moved
    // with it: do not mix the two.
    void InsertItem(int index, const QString& caption, const QString& className) override;
    int Count() override { return int(FMenuList.size()); }
    int SubItemsCount(int index) override;
    void GetItem(int index, QString& caption) override;
    // Asserts that the item has sub-items.
    void GetSubItem(int index, int subIndex, QString& caption) override;

    int GetTag(int index) const { return FMenuList.at(index).Tag; }
    QString InternalGetCaptions(int index) const { return FMenuList.at(index).Caption; }
    // The class name of the first item with that item's caption.
    QString InternalGetClassNames(int index) const;

private:
    struct Line {
        QString Caption;
        QString ClassName;
        int Tag;
    };
    QList<Line> FMenuList;
    QList<InterfacePtr<IMrvMenu>> FSubItemList;
};
