// What a component's editor offers.

#include "design/DesignIntf.h"
#include "ide/MrvDesignerMenuItem.h"
#include "model/MrvCustomComponentAttr.h"
#include "rtl/SysUtils.h"

namespace {

// The verbs that this plug-in itself adds to the designer's menu.
bool IsOwnVerb(const QString& caption)
{
    return SameText(caption, u"Show in Morvane") || SameText(caption, u"Create default control");
}

}

InterfacePtr<IComponentEditor> TCustomComponentAttr::MrvGetComponentEditor()
{
    return GetComponentEditor(GetComponent(), GetComponentDesigner());
}

void TCustomComponentAttr::IntfGetMenu(const InterfacePtr<IMrvMenu>& menu)
{
    menu->Clear();
    const auto editor = MrvGetComponentEditor();
    if (!editor)
        return;
    const InterfacePtr<IMenuItem> item(new TDesignerMenuItem(nullptr));
    for (int verb = 0; verb < editor->GetVerbCount(); ++verb) {
        const auto caption = editor->GetVerb(verb);
        if (IsOwnVerb(caption))
            continue;
        menu->AddItem(caption, QString(), verb);
        item->Clear();
        editor->PrepareItem(verb, item);
        for (int sub = 0; sub < item->Count(); ++sub)
            menu->AddSubItem(item->GetItem(sub)->GetCaption(), QString(), sub, verb);
    }
}

void TCustomComponentAttr::IntfExecuteVerb(int verb, int subVerb)
{
    const auto editor = MrvGetComponentEditor();
    if (!editor)
        return;
    if (const auto designer = editor->GetDesigner())
        designer->Activate();
    const InterfacePtr<IMenuItem> item(new TDesignerMenuItem(nullptr));
    editor->ExecuteVerb(verb);
    editor->PrepareItem(verb, item);
    if (item->Count() == 0)
        return;
    if (const auto subItem = InterfaceCast<IMrvMenuItem2>(item->GetItem(subVerb)))
        subItem->ClickItem();
}

void TCustomComponentAttr::IntfEdit()
{
    if (const auto editor = MrvGetComponentEditor())
        editor->Edit();
}
