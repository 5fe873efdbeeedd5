#pragma once

#include "model/MrvInterfaces.h"
#include "rtl/TInterfaceList.h"

// The control classes offered for one dataset section or one field group. The order is meaning, and the menus show it:
// the default stands first, the pseudo-controls "Details" and "None" stand last.
//
// The default item is a member of the list, or a detached item: one of a class that is not listed, or a
// pseudo-control. A list that was never given a default takes item 0 at the first look and keeps it.
class TBindableControlInfoList
    : public Implements<TInterfaceList<IMrvBindableControlInfo>, IMrvBindableControlInfoList> {
public:
    using TItem = InterfacePtr<IMrvBindableControlInfo>;

    void GetItem(int index, TItem& item) override;
    void GetDefaultItem(TItem& item) override;
    void SetDefaultItem(const TItem& item) override;
    void Assign(const InterfacePtr<IMrvBindableControlInfoList>& source) override;
    int IndexOf(const TItem& item) override;
    int IndexOf(const QString& className) override;
    int GetCount() override { return Count(); }
    int Add(const TItem& item) override;
    void Delete(int index) override;
    void Delete(const QString& className) override;
    void Clear() override;
    void ItemByClassName(const QString& className, TItem& item) override;

    TItem GetItems(int index) const;
    // Copies into the item that stands there; the reference stays.
    void PutItems(int index, const TItem& item);
    static QString ExtractClassName(const TItem& item);
    TItem GetDefItem();
    // Moves the default to the front; it sorts nothing else.
    void SortList();
    // Adds the pseudo-control of that name unless the list has it.
    void AddPseudoControl(const QString& name);
    // The section or field group that the list is of; it stands in messages.
    void SetGroupName(const QString& name) { FGroupName = name; }

private:
    TItem FDefaultItem;
    QString FGroupName;
};
