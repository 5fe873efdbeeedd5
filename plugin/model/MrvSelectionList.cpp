#include "model/MrvSelectionList.h"

void TMrvSelectionList::GetItem(int index, InterfacePtr<IMrvCustomComponentAttr>& item)
{
    item = FList.value(index);
}

void TMrvSelectionList::Add(const InterfacePtr<IMrvCustomComponentAttr>& item)
{
    FList << item;
}
