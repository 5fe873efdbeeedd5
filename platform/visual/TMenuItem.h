#pragma once

#include "visual/TBitmap.h"
#include "visual/TCommand.h"

#include <QList>
#include <QPointer>

class TAction;
class TImageList;
class TMenu;

// One entry of a menu, and the root of each menu's entries. An item owns the items below it, whoever their owner: they
// go when it goes. An item deleted earlier takes itself out of its parent.
class TMenuItem : public TCommand {
    Q_OBJECT
public:
    explicit TMenuItem(QObject* owner = nullptr);
    ~TMenuItem() override;

    int Count() const { return static_cast<int>(FItems.size()); }
    // The entry at a position from 0; nil outside.
    TMenuItem* Items(int index) const { return FItems.value(index); }
    void Add(TMenuItem* item) { Insert(Count(), item); }
    // A position past the end appends. An item that stands elsewhere is moved here.
    void Insert(int index, TMenuItem* item);
    // Takes the entry out and leaves it to the caller.
    void Remove(TMenuItem* item);
    void Delete(int index);
    // Deletes every entry.
    void Clear();
    int IndexOf(const TMenuItem* item) const { return static_cast<int>(FItems.indexOf(item)); }
    // The first entry with this caption, hot key marks and case left out of account; nil if there is none.
    TMenuItem* Find(const QString& caption) const;
    // The first entry of this name, without regard to case; nil if there is none.
    TMenuItem* FindByName(const QString& name) const;

    // A number that changes whenever an entry comes, goes or changes, so that what was measured of them can be kept.
    unsigned Revision() const { return FRevision; }
    // Gives a hot key to every visible entry that has none, as far as there are letters left that no other entry has.
    void RethinkHotkeys();

    // The item it stands in: a menu's root for a top-level entry; nil for a root and for one that stands nowhere.
    TMenuItem* Parent() const { return FParent; }
    // Position in the parent; -1 without one.
    int MenuIndex() const { return FParent == nullptr ? -1 : FParent->IndexOf(this); }
    // The menu at whose root the chain of parents ends; nil if there is none.
    TMenu* GetParentMenu() const;

    // The action whose properties the item takes over, now and at each later change of one of them. nil lets go.
    TAction* Action() const;
    void SetAction(TAction* action);

    // One of several of which one is checked: those of the same parent and GroupIndex.
    bool RadioItem() const { return FRadioItem; }
    void SetRadioItem(bool radio);
    void SetChecked(bool checked) override;
    // The bold entry that a double click stands for. One in a menu.
    bool Default() const { return FDefault; }
    void SetDefault(bool isDefault);

    void SetImageIndex(int index) override;
    // The item's own picture, used where the image list has none.
    const TBitmap& Bitmap() const { return FBitmap; }
    void SetBitmap(const TBitmap& bitmap);

    // What choosing the item does: OnClick, or without one the action. Nothing if it is disabled.
    virtual void Click();
    TNotifyEvent OnClick;

    // Takes the pictures of this item and all below from the menu's list anew. Called by the menu.
    void UpdateIcons();

Q_SIGNALS:
    void ItemInserted(int index, TMenuItem* item);
    void ItemRemoved(TMenuItem* item);

private:
    friend class TMenu;

    // The values of an action when it was last looked at; an item follows the differences.
    struct ActionState {
        QString caption, hint;
        TShortCut shortCut = scNone;
        bool checked = false, enabled = true, visible = true;
        int imageIndex = -1, helpContext = 0;
    };
    static ActionState StateOf(const TAction& action);
    void TakeOver(const ActionState& now, const ActionState* before);

    void EntriesChanged();

    QList<TMenuItem*> FItems;
    unsigned FRevision = 0;
    TMenuItem* FParent = nullptr;
    TMenu* FMenu = nullptr;
    QPointer<TAction> FAction;
    ActionState FActionState;
    QMetaObject::Connection FActionLink;
    bool FRadioItem = false;
    bool FDefault = false;
    TBitmap FBitmap;
};

// A caption without its hot key marks: "&&" stands for one "&".
QString StripHotkey(const QString& caption);
// The letter after the hot key mark, in lower case; null if there is none.
QChar HotkeyOf(const QString& caption);
