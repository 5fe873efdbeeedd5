#include "toolwindow/MrvImageList.h"

#include "design/DataControls.h"
#include "rtl/SysUtils.h"

int TMrvImageList::IndexByClassName(const QString& className) const
{
    for (int i = 0; i < FClassNames.size(); ++i)
        if (SameText(FClassNames[i], className))
            return i;
    return -1;
}

int TMrvImageList::Add(const TBitmap& image, const TBitmap* mask, const QString& className)
{
    const int known = IndexByClassName(className);
    if (known != -1)
        return known + FDisp;
    FClassNames << className;
    return TImageList::Add(image, mask);
}

int TMrvImageList::AddMasked(const TBitmap& image, TColor maskColor, const QString& className)
{
    const int known = IndexByClassName(className);
    if (known != -1)
        return known + FDisp;
    FClassNames << className;
    return TImageList::AddMasked(image, maskColor);
}

void TMrvImageList::Assign(const TImageList& source)
{
    TImageList::Assign(source);
    FDisp = Count();
}

void TMrvImageList::Clear()
{
    TImageList::Clear();
    FClassNames.clear();
}

void TMrvImageList::Delete(int index)
{
    if (index < 0 || index >= FClassNames.size())
        throw EListError(Format(SListIndexError(), { index }));
    FClassNames.removeAt(index);
    TImageList::Delete(index);
}
