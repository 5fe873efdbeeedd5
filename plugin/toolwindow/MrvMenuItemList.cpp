#include "toolwindow/MrvMenuItemList.h"

#include "rtl/SysUtils.h"

void TMenuItemList::Clear()
{
    FMenuList.clear();
    FSubItemList.clear();
}

void TMenuItemList::AddItem(const QString& caption, const QString& className, int tag)
{
    FMenuList << Line { caption, className, tag };
    FSubItemList << nullptr;
}

void TMenuItemList::AddSubItem(const QString& caption, const QString& className, int tag, int index)
{
    auto& subItems = FSubItemList[index];
    if (!subItems)
        subItems = New<TMenuItemList>();
    subItems->AddItem(caption, className, tag);
}

void TMenuItemList::InsertItem(int index, const QString& caption, const QString& className)
{
    if (FMenuList.isEmpty())
        AddItem(caption, className, 0);
    else
        FMenuList.insert(index, Line { caption, className, index });
}

int TMenuItemList::SubItemsCount(int index)
{
    const auto subItems = FSubItemList.value(index);
    return subItems ? subItems->Count() : 0;
}

void TMenuItemList::GetItem(int index, QString& caption)
{
    caption = InternalGetCaptions(index);
}

void TMenuItemList::GetSubItem(int index, int subIndex, QString& caption)
{
    const auto subItems = FSubItemList.value(index);
    Assert(bool(subItems), QStringLiteral("MrvToolWindow"));
    subItems->GetItem(subIndex, caption);
}

QString TMenuItemList::InternalGetClassNames(int index) const
{
    const auto caption = FMenuList.at(index).Caption;
    for (const auto& line : FMenuList)
        if (SameText(line.Caption, caption))
            return line.ClassName;
    return {};
}
