#pragma once

#include "design/IComponentEditor.h"
#include "model/MrvInterfaces.h"
#include "visual/TMenuItem.h"

// An ordinary menu item that a component editor can fill as if it were the designer's menu.
//
// It counts its own references and lives as long as somebody holds one; hence it has no owner. Its sub-items stand in
// FItemList alone and not among the menu item's own entries: whoever shows a menu copies them.
class TDesignerMenuItem : public TMenuItem, public IMenuItem, public IMrvMenuItem2 {
    Q_OBJECT
public:
    explicit TDesignerMenuItem(QObject* owner = nullptr);
    ~TDesignerMenuItem() override;

    void* QueryInterface(const TGUID& iid) override;
    int AddRef() override { return ++FRefCount; }
    int Release() override;

    // Sub-items. The name argument of those that add one is not used.
    InterfacePtr<IMenuItem> GetItem(int index) override;
    bool SameAs(IInterface* item) override;
    InterfacePtr<IMenuItem> Find(const QString& caption) override;
    InterfacePtr<IMenuItem> FindByName(const QString& name) override;
    int Count() override;
    void Clear() override;
    InterfacePtr<IMenuItem> AddItem(const QString& caption, const QKeySequence& shortCut, bool checked, bool enabled,
        TMenuClick onClick, int helpContext, const QString& name) override;
    InterfacePtr<IMenuItem> AddItem(TAction* action, const QString& name) override;
    InterfacePtr<IMenuItem> InsertItem(const QString& caption, const QKeySequence& shortCut, bool checked, bool enabled,
        TMenuClick onClick, int helpContext, const QString& name) override;
    InterfacePtr<IMenuItem> InsertItem(int index, const QString& caption, const QKeySequence& shortCut, bool checked,
        bool enabled, TMenuClick onClick, int helpContext, const QString& name) override;
    InterfacePtr<IMenuItem> InsertItem(TAction* action, const QString& name) override;
    InterfacePtr<IMenuItem> InsertItem(int index, TAction* action, const QString& name) override;
    InterfacePtr<IMenuItem> AddLine(const QString& name) override;
    InterfacePtr<IMenuItem> InsertLine(const QString& name) override;
    InterfacePtr<IMenuItem> InsertLine(int index, const QString& name) override;

    // The action's caption for an item that has an action.
    QString GetCaption() override;
    void SetCaption(const QString& caption) override { TMenuItem::SetCaption(caption); }
    bool GetChecked() override { return Checked(); }
    void SetChecked(bool checked) override { TMenuItem::SetChecked(checked); }
    bool GetEnabled() override { return Enabled(); }
    void SetEnabled(bool enabled) override { TMenuItem::SetEnabled(enabled); }
    int GetGroupIndex() override { return GroupIndex(); }
    void SetGroupIndex(int index) override { TMenuItem::SetGroupIndex(index); }
    int GetHelpContext() override { return HelpContext(); }
    void SetHelpContext(int context) override { TMenuItem::SetHelpContext(context); }
    QString GetHint() override { return Hint(); }
    void SetHint(const QString& hint) override { TMenuItem::SetHint(hint); }
    bool GetRadioItem() override { return RadioItem(); }
    void SetRadioItem(bool radio) override { TMenuItem::SetRadioItem(radio); }
    QKeySequence GetShortCut() override;
    void SetShortCut(const QKeySequence& shortCut) override;
    int GetTag() override { return int(Tag()); }
    void SetTag(int tag) override { TMenuItem::SetTag(tag); }
    bool GetVisible() override { return Visible(); }
    void SetVisible(bool visible) override { TMenuItem::SetVisible(visible); }
    QString Name() override { return TMenuItem::Name(); }
    int MenuIndex() override { return TMenuItem::MenuIndex(); }
    InterfacePtr<IMenuItem> ParentItem() override;
    bool IsLine() override { return TMenuItem::IsLine(); }

    // Runs the item's action, with the item as sender; an item without an action does nothing.
    void ClickItem() override;

private:
    InterfacePtr<IMenuItem> Put(int index, TDesignerMenuItem* item);
    int FRefCount = 0;
    QList<InterfacePtr<IMenuItem>> FItemList;
};
