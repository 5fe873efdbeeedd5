// The choice of control: always one of a real control, "Details" or "None", kept in FCtrlClassName, FCtrlIndex and
// FCtrlCreationMode together.

#include "model/MrvCustomComponentAttr.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

namespace {

// The index of a pseudo-control, or -1 for any other name.
int PseudoIndex(const QString& className)
{
    if (SameText(className, DetailsClassName))
        return DetailsCtrlIndex;
    return SameText(className, NoneClassName) ? NoneCtrlIndex : -1;
}

TCtrlCreationMode ModeOf(const QString& className)
{
    switch (PseudoIndex(className)) {
    case DetailsCtrlIndex:
        return ccmDetails;
    case NoneCtrlIndex:
        return ccmNone;
    default:
        return ccmDataGridView;
    }
}

QString ClassNameOf(const InterfacePtr<IMrvBindableControlInfo>& item)
{
    QString name;
    if (item)
        item->GetClassName(name);
    return name;
}

}

void TCustomComponentAttr::EnumDBControlList(bool reset)
{
    if (!FCtrlMenuItems) {
        FCtrlCreationMode = ccmNone;
        return;
    }
    if (reset)
        FCtrlClassName.clear();
    const int count = FCtrlMenuItems->GetCount();
    // Exact for the one and in any case for the other: a choice "details" counts as a control's class here.
    const bool isPseudo = FCtrlClassName == DetailsClassName || SameText(FCtrlClassName, NoneClassName);
    if (!isPseudo && (FCtrlClassName.isEmpty() || count == 0)) {
        InterfacePtr<IMrvBindableControlInfo> item;
        if (count > 0)
            FCtrlMenuItems->GetDefaultItem(item);
        FCtrlClassName = item ? ClassNameOf(item) : NoneClassName;
    }
    SetCtrlCreationMode(ModeOf(FCtrlClassName));
}

void TCustomComponentAttr::NeedChoice()
{
    if (FCtrlClassName.isEmpty())
        NeedCtrlMenuItems();
}

InterfacePtr<IMrvBindableControlInfo> TCustomComponentAttr::GetDefaultMenuItem()
{
    InterfacePtr<IMrvBindableControlInfo> item;
    if (FPersonalityUISettions)
        FPersonalityUISettions->GetDefaultBindClassName(this, item);
    return item;
}

int TCustomComponentAttr::IndexOfChoice(const QString& className) const
{
    if (!FCtrlMenuItems)
        return -1;
    const int pseudo = PseudoIndex(className);
    return pseudo >= 0 ? pseudo : FCtrlMenuItems->IndexOf(className);
}

void TCustomComponentAttr::GetCurrentMenuItem(InterfacePtr<IMrvBindableControlInfo>& item)
{
    item = nullptr;
    NeedCtrlMenuItems();
    const bool isOwnClass = FCtrlClassName == TCustomZASQLClassName || FCtrlClassName == TZASctiptClassName;
    if (!FCtrlClassName.isEmpty() && !isOwnClass) {
        if (FCtrlMenuItems)
            FCtrlMenuItems->ItemByClassName(FCtrlClassName, item);
        FCtrlIndex = IndexOfChoice(FCtrlClassName);
    } else {
        item = GetDefaultMenuItem();
        FCtrlClassName = item ? ClassNameOf(item) : NoneClassName;
        FCtrlIndex = item ? IndexOfChoice(FCtrlClassName) : NoneCtrlIndex;
    }
    if (FCtrlIndex >= 0)
        return;
    FCtrlClassName = NoneClassName;
    FCtrlIndex = NoneCtrlIndex;
    item = nullptr;
}

void TCustomComponentAttr::IntfGetCurrentCtrlClassName(QString& name)
{
    if (PseudoIndex(FCtrlClassName) < 0) {
        InterfacePtr<IMrvBindableControlInfo> item;
        GetCurrentMenuItem(item);
        FCtrlClassName = item ? ClassNameOf(item) : NoneClassName;
    }
    name = FCtrlClassName;
}

QString TCustomComponentAttr::ListItemClassName(int index) const
{
    InterfacePtr<IMrvBindableControlInfo> item;
    FCtrlMenuItems->GetItem(index, item);
    return ClassNameOf(item);
}

void TCustomComponentAttr::GetCtrlMenu(const InterfacePtr<IMrvMenu>& menu)
{
    NeedCtrlMenuItems();
    menu->Clear();
    if (!FCtrlMenuItems)
        return;
    for (int i = 0; i < FCtrlMenuItems->GetCount(); ++i) {
        const auto className = ListItemClassName(i);
        if (!TMrvUtils::ClassIsPresent(className))
            continue;
        InterfacePtr<IMrvBindableControlInfo> item;
        FCtrlMenuItems->GetItem(i, item);
        QString caption;
        item->GetCaption(caption);
        const int pseudo = PseudoIndex(className);
        menu->AddItem(caption, className, pseudo >= 0 ? pseudo : i);
    }
}

void TCustomComponentAttr::IntfGetCtrlMenu(const InterfacePtr<IMrvMenu>& menu)
{
    GetCtrlMenu(menu);
}

void TCustomComponentAttr::IntfGetCtrlIndex(int& index)
{
    NeedCtrlMenuItems();
    const bool isEmpty = !FCtrlMenuItems || FCtrlMenuItems->GetCount() == 0;
    if (isEmpty && FCtrlIndex != DetailsCtrlIndex)
        FCtrlIndex = NoneCtrlIndex;
    index = FCtrlIndex;
}

void TCustomComponentAttr::IntfSetCtrlIndex(int index)
{
    NeedCtrlMenuItems();
    if (index == DetailsCtrlIndex || index == NoneCtrlIndex) {
        FCtrlClassName = index == DetailsCtrlIndex ? DetailsClassName : NoneClassName;
        SetCtrlCreationMode(ModeOf(FCtrlClassName));
    } else if (FCtrlMenuItems) {
        FCtrlClassName = ListItemClassName(index);
        SetCtrlCreationMode(ccmDataGridView);
    } else {
        return;
    }
    FCtrlIndex = index;
}

void TCustomComponentAttr::IntfSetCtrlCreationMode(TCtrlCreationMode mode)
{
    SetCtrlCreationMode(mode);
}

void TCustomComponentAttr::IntfGetCtrlCreationMode(TCtrlCreationMode& mode)
{
    mode = FCtrlCreationMode;
}
