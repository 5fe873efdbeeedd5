#include "designer/ComponentMenu.h"

#include "design/DesignIntf.h"
#include "rtl/Guard.h"
#include "rtl/TInterfacedObject.h"
#include "visual/TAction.h"

namespace {

class DesignMenuItem : public Implements<TInterfacedObject, IMenuItem> {
public:
    explicit DesignMenuItem(TMenuItem* item)
        : FItem(item)
    {
    }

    bool SameAs(IInterface* item) override
    {
        auto* other = dynamic_cast<DesignMenuItem*>(item);
        return other && other->FItem == FItem;
    }
    InterfacePtr<IMenuItem> Find(const QString& caption) override { return As(FItem ? FItem->Find(caption) : nullptr); }
    InterfacePtr<IMenuItem> FindByName(const QString& name) override
    {
        return As(FItem ? FItem->FindByName(name) : nullptr);
    }
    int Count() override { return FItem ? FItem->Count() : 0; }
    InterfacePtr<IMenuItem> GetItem(int index) override { return As(FItem ? FItem->Items(index) : nullptr); }
    void Clear() override
    {
        if (FItem)
            FItem->Clear();
    }

    InterfacePtr<IMenuItem> AddItem(const QString& caption, const QKeySequence& shortCut, bool checked, bool enabled,
        TMenuClick onClick, int helpContext, const QString& name) override
    {
        return InsertItem(Count(), caption, shortCut, checked, enabled, std::move(onClick), helpContext, name);
    }
    InterfacePtr<IMenuItem> AddItem(TAction* action, const QString& name) override
    {
        return InsertItem(Count(), action, name);
    }
    InterfacePtr<IMenuItem> InsertItem(const QString& caption, const QKeySequence& shortCut, bool checked, bool enabled,
        TMenuClick onClick, int helpContext, const QString& name) override
    {
        return InsertItem(0, caption, shortCut, checked, enabled, std::move(onClick), helpContext, name);
    }
    InterfacePtr<IMenuItem> InsertItem(int index, const QString& caption, const QKeySequence& shortCut, bool checked,
        bool enabled, TMenuClick onClick, int helpContext, const QString& name) override
    {
        auto* item = Make(index, name);
        if (!item)
            return nullptr;
        item->SetCaption(caption);
        item->SetShortCut(ToShortCut(shortCut));
        item->SetChecked(checked);
        item->SetEnabled(enabled);
        item->SetHelpContext(helpContext);
        item->OnClick = std::move(onClick);
        return As(item);
    }
    InterfacePtr<IMenuItem> InsertItem(TAction* action, const QString& name) override
    {
        return InsertItem(0, action, name);
    }
    InterfacePtr<IMenuItem> InsertItem(int index, TAction* action, const QString& name) override
    {
        auto* item = Make(index, name);
        if (item)
            item->SetAction(action);
        return As(item);
    }
    InterfacePtr<IMenuItem> AddLine(const QString& name) override { return InsertLine(Count(), name); }
    InterfacePtr<IMenuItem> InsertLine(const QString& name) override { return InsertLine(0, name); }
    InterfacePtr<IMenuItem> InsertLine(int index, const QString& name) override
    {
        auto* item = Make(index, name);
        if (item)
            item->SetCaption(QStringLiteral("-"));
        return As(item);
    }

    QString GetCaption() override { return FItem ? FItem->Caption() : QString(); }
    void SetCaption(const QString& caption) override
    {
        Do([&] { FItem->SetCaption(caption); });
    }
    bool GetChecked() override { return FItem && FItem->Checked(); }
    void SetChecked(bool checked) override
    {
        Do([&] { FItem->SetChecked(checked); });
    }
    bool GetEnabled() override { return FItem && FItem->Enabled(); }
    void SetEnabled(bool enabled) override
    {
        Do([&] { FItem->SetEnabled(enabled); });
    }
    int GetGroupIndex() override { return FItem ? FItem->GroupIndex() : 0; }
    void SetGroupIndex(int index) override
    {
        Do([&] { FItem->SetGroupIndex(index); });
    }
    int GetHelpContext() override { return FItem ? FItem->HelpContext() : 0; }
    void SetHelpContext(int context) override
    {
        Do([&] { FItem->SetHelpContext(context); });
    }
    QString GetHint() override { return FItem ? FItem->Hint() : QString(); }
    void SetHint(const QString& hint) override
    {
        Do([&] { FItem->SetHint(hint); });
    }
    bool GetRadioItem() override { return FItem && FItem->RadioItem(); }
    void SetRadioItem(bool radio) override
    {
        Do([&] { FItem->SetRadioItem(radio); });
    }
    QKeySequence GetShortCut() override { return FItem ? ToKeySequence(FItem->ShortCut()) : QKeySequence(); }
    void SetShortCut(const QKeySequence& shortCut) override
    {
        Do([&] { FItem->SetShortCut(ToShortCut(shortCut)); });
    }
    int GetTag() override { return FItem ? int(FItem->Tag()) : 0; }
    void SetTag(int tag) override
    {
        Do([&] { FItem->SetTag(tag); });
    }
    bool GetVisible() override { return FItem && FItem->Visible(); }
    void SetVisible(bool visible) override
    {
        Do([&] { FItem->SetVisible(visible); });
    }
    QString Name() override { return FItem ? FItem->Name() : QString(); }
    int MenuIndex() override { return FItem ? FItem->MenuIndex() : -1; }
    InterfacePtr<IMenuItem> ParentItem() override { return As(FItem ? FItem->Parent() : nullptr); }
    bool IsLine() override { return FItem && FItem->IsLine(); }

private:
    static InterfacePtr<IMenuItem> As(TMenuItem* item) { return ComponentMenu::AsMenuItem(item); }
    template <class Work>
    void Do(Work&& work)
    {
        if (FItem)
            work();
    }
    TMenuItem* Make(int index, const QString& name)
    {
        if (!FItem)
            return nullptr;
        auto* item = new TMenuItem;
        item->SetName(name);
        FItem->Insert(index, item);
        return item;
    }

    QPointer<TMenuItem> FItem;
};

}

InterfacePtr<IMenuItem> ComponentMenu::AsMenuItem(TMenuItem* item)
{
    if (!item)
        return nullptr;
    return New<DesignMenuItem>(item);
}

void ComponentMenu::Fill(TMenuItem& menu, TComponent& component, const InterfacePtr<IDesigner>& designer)
{
    const auto editor = GetComponentEditor(&component, designer);
    for (int i = 0; editor && i < editor->GetVerbCount(); ++i) {
        auto* item = new TMenuItem;
        item->SetCaption(editor->GetVerb(i));
        menu.Add(item);
        editor->PrepareItem(i, AsMenuItem(item));
        // The editor may have given the item an action or a click of its own.
        if (item->Count() == 0 && !item->OnClick && !item->Action())
            item->OnClick = [editor, i](QObject*) { AtEventBorder([&] { editor->ExecuteVerb(i); }); };
    }
}
