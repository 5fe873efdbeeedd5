#include "ide/MrvDesignerMenuItem.h"

#include "rtl/TInterfacedObject.h"
#include "visual/TAction.h"

namespace {

TDesignerMenuItem* MakeItem(const QString& caption, const QKeySequence& shortCut, bool checked, bool enabled,
    const TMenuClick& onClick, int helpContext)
{
    auto* item = new TDesignerMenuItem;
    item->SetCaption(caption);
    item->SetShortCut(shortCut);
    item->SetChecked(checked);
    item->SetEnabled(enabled);
    item->OnClick = onClick;
    item->SetHelpContext(helpContext);
    return item;
}

TDesignerMenuItem* MakeItem(TAction* action)
{
    auto* item = new TDesignerMenuItem;
    item->SetAction(action);
    return item;
}

TDesignerMenuItem* MakeLine()
{
    auto* item = new TDesignerMenuItem;
    item->SetCaption(QStringLiteral("-"));
    return item;
}

}

TDesignerMenuItem::TDesignerMenuItem(QObject* owner)
    : TMenuItem(owner)
{
}

TDesignerMenuItem::~TDesignerMenuItem() = default;

void* TDesignerMenuItem::QueryInterface(const TGUID& iid)
{
    return Rtl::Answer<IMenuItem, IMrvMenuItem2>(this, iid);
}

int TDesignerMenuItem::Release()
{
    const int count = --FRefCount;
    if (count == 0)
        delete this;
    return count;
}

InterfacePtr<IMenuItem> TDesignerMenuItem::Put(int index, TDesignerMenuItem* item)
{
    const InterfacePtr<IMenuItem> held(item);
    FItemList.insert(std::clamp(index, 0, int(FItemList.size())), held);
    return held;
}

InterfacePtr<IMenuItem> TDesignerMenuItem::GetItem(int index)
{
    return FItemList.value(index);
}

bool TDesignerMenuItem::SameAs(IInterface* item)
{
    const auto other = InterfaceCast<IMenuItem>(item);
    return other && other.get() == static_cast<IMenuItem*>(this);
}

InterfacePtr<IMenuItem> TDesignerMenuItem::Find(const QString& caption)
{
    return InterfacePtr<IMenuItem>(dynamic_cast<TDesignerMenuItem*>(TMenuItem::Find(caption)));
}

InterfacePtr<IMenuItem> TDesignerMenuItem::FindByName(const QString& name)
{
    return InterfacePtr<IMenuItem>(dynamic_cast<TDesignerMenuItem*>(TMenuItem::FindByName(name)));
}

int TDesignerMenuItem::Count()
{
    return int(FItemList.size());
}

void TDesignerMenuItem::Clear()
{
    FItemList.clear();
}

InterfacePtr<IMenuItem> TDesignerMenuItem::AddItem(const QString& caption, const QKeySequence& shortCut, bool checked,
    bool enabled, TMenuClick onClick, int helpContext, const QString&)
{
    return Put(Count(), MakeItem(caption, shortCut, checked, enabled, onClick, helpContext));
}

InterfacePtr<IMenuItem> TDesignerMenuItem::AddItem(TAction* action, const QString&)
{
    return Put(Count(), MakeItem(action));
}

InterfacePtr<IMenuItem> TDesignerMenuItem::InsertItem(const QString& caption, const QKeySequence& shortCut,
    bool checked, bool enabled, TMenuClick onClick, int helpContext, const QString& name)
{
    return AddItem(caption, shortCut, checked, enabled, std::move(onClick), helpContext, name);
}

InterfacePtr<IMenuItem> TDesignerMenuItem::InsertItem(int index, const QString& caption, const QKeySequence& shortCut,
    bool checked, bool enabled, TMenuClick onClick, int helpContext, const QString&)
{
    return Put(index, MakeItem(caption, shortCut, checked, enabled, onClick, helpContext));
}

InterfacePtr<IMenuItem> TDesignerMenuItem::InsertItem(TAction* action, const QString& name)
{
    return AddItem(action, name);
}

InterfacePtr<IMenuItem> TDesignerMenuItem::InsertItem(int index, TAction* action, const QString&)
{
    return Put(index, MakeItem(action));
}

InterfacePtr<IMenuItem> TDesignerMenuItem::AddLine(const QString&)
{
    return Put(Count(), MakeLine());
}

InterfacePtr<IMenuItem> TDesignerMenuItem::InsertLine(const QString& name)
{
    return AddLine(name);
}

InterfacePtr<IMenuItem> TDesignerMenuItem::InsertLine(int index, const QString&)
{
    return Put(index, MakeLine());
}

QString TDesignerMenuItem::GetCaption()
{
    const auto* action = Action();
    return action ? action->Caption() : Caption();
}

QKeySequence TDesignerMenuItem::GetShortCut()
{
    return QAction::shortcut();
}

void TDesignerMenuItem::SetShortCut(const QKeySequence& shortCut)
{
    TMenuItem::SetShortCut(ToShortCut(shortCut));
}

InterfacePtr<IMenuItem> TDesignerMenuItem::ParentItem()
{
    return InterfacePtr<IMenuItem>(dynamic_cast<TDesignerMenuItem*>(TMenuItem::Parent()));
}

void TDesignerMenuItem::ClickItem()
{
    auto* action = Action();
    if (action && action->OnExecute)
        action->OnExecute(this);
}
