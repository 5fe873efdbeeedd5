#pragma once

#include "support/MrvAttrIndex.h"

#include <QList>

class TComponent;
class TCustomComponentAttr;

// A list of wrappers that shares their ownership: it holds one reference on each entry. Each wrapper's FIndex is its
// position in the list that numbered it last, as long as the caller renumbers after a Delete.
//
// The order that Sort makes has no meaning for the user; it only does not depend on the order of arrival. It is made
// when somebody next looks at a position, so that a list that grows form by form is sorted once and not once a form.
//
// The finders answer what a walk from the first entry would, at a cost that does not grow with the list.
class TMrvObjectList {
public:
    TMrvObjectList() = default;
    TMrvObjectList(const TMrvObjectList&) = delete;
    TMrvObjectList& operator=(const TMrvObjectList&) = delete;
    virtual ~TMrvObjectList();

    // Gives the position. A nil entry is allowed and counts nothing.
    int Add(TCustomComponentAttr* item);
    // Removes the slot, then releases the entry. The entries behind it keep their FIndex: see ResyncIndex.
    void Delete(int index);
    // Swaps the slot's pointer: no counting, no change of FIndex. For the caller's own bookkeeping.
    void Put(int index, TCustomComponentAttr* item);
    // Releases every entry; one that fails is logged and the others go on. The list is empty afterwards.
    virtual void Clear();
    // By the low 32 bits of the wrappers' stored component address, as a signed number; among equal ones by the whole
    // address. Renumbers all.
    void Sort();
    // Sets the FIndex of the entries from `start` to the last to their position.
    void ResyncIndex(int start);

    int Count() const { return int(FItems.size()); }
    // Raises EListError outside the range.
    TCustomComponentAttr* Item(int index) const;
    TCustomComponentAttr* operator[](int index) const { return Item(index); }
    // -1 for a wrapper that is not in the list.
    int IndexOf(const TCustomComponentAttr* item) const;
    bool Contains(const TCustomComponentAttr* item) const;
    // The entries as they stand now, each with a reference, for a walk under which the list may change.
    QList<InterfacePtr<TCustomComponentAttr>> Held() const;

    // The first entry that fits, or nil. By the stored component, which must be alive; nothing is looked up anew.
    TCustomComponentAttr* FindByComponent(const TComponent* component) const;
    // By LookupName, without regard to case, among those that `fits`.
    TCustomComponentAttr* FindByName(const QString& name, const TAttrFilter& fits = {}) const;
    // By form name and LookupName.
    TCustomComponentAttr* FindByFormAndName(const QString& formName, const QString& name,
        Qt::CaseSensitivity sensitivity, const TAttrFilter& fits = {}) const;

private:
    friend class TAttrKeyChange;
    void Settle() const;
    TCustomComponentAttr* First(const QList<TCustomComponentAttr*>& found) const;
    void Leave(TCustomComponentAttr* item);

    mutable QList<TCustomComponentAttr*> FItems;
    mutable bool FSortPending = false;
    mutable TAttrIndex FKeys;
};
