#pragma once

#include "classes/TypInfo.h"

#include <memory>

class TComponent;

// In the body of a class that describes itself: declares `static TClass Class()`, which its table defines, and the
// class that an instance is of.
#define MRV_CLASS                                                                                                      \
public:                                                                                                                \
    static TClass Class();                                                                                             \
                                                                                                                       \
protected:                                                                                                             \
    TClass BuiltInClass() const override                                                                               \
    {                                                                                                                  \
        return Class();                                                                                                \
    }                                                                                                                  \
                                                                                                                       \
public:

// The base of every object with published properties: components, and objects that belong to one.
//
// An instance is of a class that is known at run time (ClassType), which may be a catalogue's class that derives from
// the C++ class of the object. Properties that only the run-time class publishes are kept in the object's stored
// values.
class TPersistent {
public:
    TPersistent();
    TPersistent(const TPersistent&) = delete;
    TPersistent& operator=(const TPersistent&) = delete;
    virtual ~TPersistent();

    static TClass Class();
    TClass ClassType() const { return FClass ? FClass : BuiltInClass(); }
    QString ClassName() const { return ClassType().ClassName(); }
    bool InheritsFrom(TClass ancestor) const { return ClassType().InheritsFrom(ancestor); }
    // Makes the object one of a catalogue's class: by the class's factory, and where a form's class is renamed.
    void SetDynamicClass(TClass aClass) { FClass = aClass; }

    // The object that this one belongs to, or nil. A component's is its owner.
    virtual TPersistent* GetOwner() const { return FSubObjectOwner; }
    // Takes the content of another object of the same kind. Raises EConvertError where that has no meaning.
    virtual void Assign(TPersistent* source);

    // The value kept under a property's name; the given default when there is none.
    QVariant StoredValue(const QString& name, const QVariant& defaultValue = {}) const;
    // Keeps it, and reports the change when it is one. A reference to a component is cleared when that component goes.
    void SetStoredValue(const QString& name, const QVariant& value);
    QStringList StoredValueNames() const;
    // A sub-object that the class makes for the instance; owned by it. `name` is the property that gives it.
    void AdoptSubObject(const QString& name, std::unique_ptr<TPersistent> object);
    TPersistent* SubObject(const QString& name) const;
    void SetSubObjectOwner(TPersistent* owner) { FSubObjectOwner = owner; }

    // Says that a published property has a new value. Every setter of one calls it after the change. It travels up the
    // owners to the root component, whose designer hears of it (IDesignerHook).
    void Changed(const QString& property);

    // A token that outlives the object; see WeakRef.
    std::shared_ptr<TPersistent*> Self() const;

protected:
    virtual TClass BuiltInClass() const { return Class(); }
    // Called by Changed on the object itself, before the designer hears of the change.
    virtual void PropertyChanged(const QString&) { }
    TPersistent* SubObjectOwner() const { return FSubObjectOwner; }
    // Forgets every stored reference to that component.
    void ClearStoredReferences(const TComponent* component);

private:
    struct Extra;
    Extra& NeedExtra();

    TClass FClass;
    TPersistent* FSubObjectOwner = nullptr;
    std::unique_ptr<Extra> FExtra;
    mutable std::shared_ptr<TPersistent*> FSelf;
};

Q_DECLARE_METATYPE(TPersistent*)

// A pointer that becomes nil when the object goes. It keeps nothing alive.
template <class T>
class WeakRef {
public:
    WeakRef() = default;
    WeakRef(T* object) { Set(object); }
    WeakRef& operator=(T* object)
    {
        Set(object);
        return *this;
    }
    T* get() const { return FToken && *FToken ? FObject : nullptr; }
    T* operator->() const { return get(); }
    explicit operator bool() const { return get() != nullptr; }
    // The address that was set, whether or not the object is still there; for comparisons only.
    const void* Address() const { return FObject; }

private:
    void Set(T* object)
    {
        FObject = object;
        FToken = object ? object->Self() : nullptr;
    }
    T* FObject = nullptr;
    std::shared_ptr<TPersistent*> FToken;
};

// A list of lines: SQL, Params, Lines. Changing it reports the change of the property that holds it.
class TStrings : public TPersistent {
    MRV_CLASS
    TStrings() = default;
    TStrings(TPersistent* owner, const QString& property)
        : FProperty(property)
    {
        SetSubObjectOwner(owner);
    }
    TPersistent* GetOwner() const override { return SubObjectOwner(); }
    void Assign(TPersistent* source) override;

    const QStringList& Lines() const { return FLines; }
    void SetLines(const QStringList& lines);
    // The lines, each closed with CR LF, as the platform's Text property gives them; setting takes any line ends.
    QString Text() const;
    void SetText(const QString& text);
    int Count() const { return int(FLines.size()); }
    // The part behind the first "=" of the first line with that name (no regard to case); empty without one.
    QString Value(const QString& name) const;

private:
    QString FProperty;
    QStringList FLines;
};

// One entry of a collection; it belongs to its collection.
class TCollection;
class TCollectionItem : public TPersistent {
    MRV_CLASS
    explicit TCollectionItem(TCollection* collection);
    TPersistent* GetOwner() const override;
    TCollection* Collection() const { return FCollection; }
    int Index() const;

private:
    TCollection* FCollection;
};

// An ordered list of items that belong to it, made by the collection: the `<item ... end>` of form files.
class TCollection : public TPersistent {
    MRV_CLASS
    using ItemFactory = std::function<std::unique_ptr<TCollectionItem>(TCollection*)>;
    explicit TCollection(TPersistent* owner = nullptr, const QString& property = {}, ItemFactory make = {});
    ~TCollection() override;
    TPersistent* GetOwner() const override { return SubObjectOwner(); }

    int Count() const { return int(FItems.size()); }
    TCollectionItem* Item(int index) const { return FItems.at(size_t(index)).get(); }
    virtual TCollectionItem* Add();
    virtual void Delete(int index);
    virtual void Clear();
    int IndexOf(const TCollectionItem* item) const;
    const QString& PropertyName() const { return FProperty; }

private:
    QString FProperty;
    ItemFactory FMake;
    std::vector<std::unique_ptr<TCollectionItem>> FItems;
};
