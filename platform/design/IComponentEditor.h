#pragma once

#include "rtl/InterfacePtr.h"

#include <QKeySequence>
#include <QString>

#include <functional>

class QObject;
class TAction;
class TComponent;
class IDesigner;
class IMenuItem;

using TMenuClick = std::function<void(QObject* sender)>;

// A menu that a component editor fills; the IDE implements it, and so does a plug-in that shows verbs of its own. Its
// items are menus themselves. The caller holds a reference to each item as long as it uses it.
//
// An item is made of its properties or follows an action, which must outlive it. `name` is that of the item as a
// component; empty for none. `onClick` is called with the item as sender. What is added stands last; an index is a
// position from 0, and one outside of the menu is taken as the nearest end. In the order of the interface.
class IMenuItems : public IInterface {
public:
    static constexpr TGUID IID = Guid("{C9CC6C38-C96A-4514-8D6F-1D121727BFAF}");
    // Whether the other is this very item.
    virtual bool SameAs(IInterface* item) = 0;
    // The first item of that caption (hot keys aside) or name; nil without one.
    virtual InterfacePtr<IMenuItem> Find(const QString& caption) = 0;
    virtual InterfacePtr<IMenuItem> FindByName(const QString& name) = 0;
    virtual int Count() = 0;
    // Nil outside the range.
    virtual InterfacePtr<IMenuItem> GetItem(int index) = 0;
    virtual void Clear() = 0;
    virtual InterfacePtr<IMenuItem> AddItem(const QString& caption, const QKeySequence& shortCut, bool checked,
        bool enabled, TMenuClick onClick, int helpContext, const QString& name)
        = 0;
    virtual InterfacePtr<IMenuItem> AddItem(TAction* action, const QString& name) = 0;
    // Without an index: first in the menus of the IDE, last in a menu that only collects.
    virtual InterfacePtr<IMenuItem> InsertItem(const QString& caption, const QKeySequence& shortCut, bool checked,
        bool enabled, TMenuClick onClick, int helpContext, const QString& name)
        = 0;
    virtual InterfacePtr<IMenuItem> InsertItem(int index, const QString& caption, const QKeySequence& shortCut,
        bool checked, bool enabled, TMenuClick onClick, int helpContext, const QString& name)
        = 0;
    virtual InterfacePtr<IMenuItem> InsertItem(TAction* action, const QString& name) = 0;
    virtual InterfacePtr<IMenuItem> InsertItem(int index, TAction* action, const QString& name) = 0;
    // A separating line.
    virtual InterfacePtr<IMenuItem> AddLine(const QString& name) = 0;
    virtual InterfacePtr<IMenuItem> InsertLine(const QString& name) = 0;
    virtual InterfacePtr<IMenuItem> InsertLine(int index, const QString& name) = 0;
};

// One item, with its sub-items: the properties of a TMenuItem (`visual/TMenuItem.h`), with their meaning there.
class IMenuItem : public IMenuItems {
public:
    using Parent = IMenuItems;
    static constexpr TGUID IID = Guid("{DAF029E1-9592-4B07-A450-A10056A2B9B5}");
    virtual QString GetCaption() = 0;
    virtual void SetCaption(const QString& caption) = 0;
    virtual bool GetChecked() = 0;
    virtual void SetChecked(bool checked) = 0;
    virtual bool GetEnabled() = 0;
    virtual void SetEnabled(bool enabled) = 0;
    virtual int GetGroupIndex() = 0;
    virtual void SetGroupIndex(int index) = 0;
    virtual int GetHelpContext() = 0;
    virtual void SetHelpContext(int context) = 0;
    virtual QString GetHint() = 0;
    virtual void SetHint(const QString& hint) = 0;
    virtual bool GetRadioItem() = 0;
    virtual void SetRadioItem(bool radio) = 0;
    virtual QKeySequence GetShortCut() = 0;
    virtual void SetShortCut(const QKeySequence& shortCut) = 0;
    virtual int GetTag() = 0;
    virtual void SetTag(int tag) = 0;
    virtual bool GetVisible() = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual QString Name() = 0;
    // Position in the parent; -1 without one.
    virtual int MenuIndex() = 0;
    // Nil for the items of the menu itself.
    virtual InterfacePtr<IMenuItem> ParentItem() = 0;
    virtual bool IsLine() = 0;
};

// What a component offers in its menu, and what a double click on it does.
class IComponentEditor : public IInterface {
public:
    static constexpr TGUID IID = Guid("{ECACBA34-DCDF-4BE2-A645-E4404BC06106}");
    // The default action.
    virtual void Edit() = 0;
    // Verbs are numbered from 0 in the order of the menu. One that does not exist does nothing and has no caption.
    virtual void ExecuteVerb(int index) = 0;
    virtual QString GetVerb(int index) = 0;
    virtual int GetVerbCount() = 0;
    // Completes the verb's menu item, for instance with sub-items. Sub-items run by their action.
    virtual void PrepareItem(int index, const InterfacePtr<IMenuItem>& item) = 0;
    virtual TComponent* GetComponent() = 0;
    virtual InterfacePtr<IDesigner> GetDesigner() = 0;
};
