#pragma once

#include "rtl/InterfacePtr.h"

#include <QHash>
#include <QList>
#include <QString>

#include <functional>

class TComponent;
class TCustomComponentAttr;
class TMrvObjectList;

using TAttrFilter = std::function<bool(const TCustomComponentAttr*)>;

// Where the wrappers of one list are found by their keys: component, name, form with name. Each table is made by the
// first question for it and kept up by the list and by the wrappers, which tell of every change of a key.
class TAttrIndex {
public:
    void Add(TCustomComponentAttr* item);
    void Remove(TCustomComponentAttr* item);
    void Clear();

    // Those whose key fits, in no order; texts are compared without regard to case.
    QList<TCustomComponentAttr*> ByComponent(
        const QList<TCustomComponentAttr*>& items, const TComponent* component) const;
    QList<TCustomComponentAttr*> ByName(const QList<TCustomComponentAttr*>& items, const QString& name) const;
    QList<TCustomComponentAttr*> ByFormAndName(
        const QList<TCustomComponentAttr*>& items, const QString& formName, const QString& name) const;

private:
    template <class Key>
    struct TTable {
        QMultiHash<Key, TCustomComponentAttr*> Items;
        bool Made = false;
    };
    mutable TTable<const void*> FByComponent;
    mutable TTable<QString> FByName;
    mutable TTable<QString> FByFormAndName;
};

// While it lives, a key of the wrapper changes: the lists that hold it forget the old keys and learn the new ones.
class TAttrKeyChange {
public:
    explicit TAttrKeyChange(TCustomComponentAttr* item);
    TAttrKeyChange(const TAttrKeyChange&) = delete;
    TAttrKeyChange& operator=(const TAttrKeyChange&) = delete;
    ~TAttrKeyChange();

private:
    TCustomComponentAttr* FItem;
};
