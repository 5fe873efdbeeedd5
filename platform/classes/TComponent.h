#pragma once

#include "classes/TPersistent.h"

#include <QFlags>

// States of a component.
enum TComponentStateFlag {
    csLoading = 1 << 0, // its form is being read
    csDestroying = 1 << 1, // it is going; nobody starts anything with it
    csDesigning = 1 << 2, // it stands in a designer
    csAncestor = 1 << 3, // it came from the form that its form inherits from
    csInline = 1 << 4, // it is a frame that stands on a form
};
Q_DECLARE_FLAGS(TComponentState, TComponentStateFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(TComponentState)

enum TOperation { opInsert, opRemove };

// What a root component tells the designer that shows it. Implemented by the host; a root has at most one.
class IDesignerHook {
public:
    // A published property of the root, of a component that it owns or of an object that belongs to one has a new
    // value.
    virtual void PropertyChanged(TPersistent* instance, const QString& property) = 0;
    // Before a component that the root owns takes a new name; raises EComponentError to refuse it.
    virtual void ValidateRename(TComponent* component, const QString& oldName, const QString& newName) = 0;
    // A component that the root owns took a new name; the old one is empty when it had none.
    virtual void Renamed(TComponent* component, const QString& oldName) = 0;

protected:
    ~IDesignerHook() = default;
};

// The base of everything that has a name and can stand on a form or data module.
//
// A component lives until its owner goes or somebody deletes it; deleting it removes it from its owner, deletes what it
// owns, last first, and clears the references that other components published to it. The names of the components of
// one owner differ, without regard to case; an empty name may be borne by many.
class TComponent : public TPersistent {
    MRV_CLASS
    explicit TComponent(TComponent* owner = nullptr);
    ~TComponent() override;

    TComponent* Owner() const { return FOwner; }
    TPersistent* GetOwner() const override { return FOwner; }
    // Swaps the owner's pointer alone: neither owner learns of it. For objects that a designer must take for strangers
    // for a moment.
    void SetOwnerRaw(TComponent* owner) { FOwner = owner; }
    void InsertComponent(TComponent* component);
    void RemoveComponent(TComponent* component);

    const QString& Name() const { return FName; }
    // Raises EComponentError for a name that is no identifier or that another component of the owner bears.
    void SetName(const QString& name);

    // The components that this one owns, in order of insertion (the order of their position in the file for a form).
    const QList<TComponent*>& Components() const { return FComponents; }
    int ComponentCount() const { return int(FComponents.size()); }
    // The owned component of that name, without regard to case, or nil. An empty name finds nothing.
    TComponent* FindComponent(const QString& name) const;

    TComponentState ComponentState() const { return FComponentState; }
    void SetComponentState(TComponentState state) { FComponentState = state; }
    bool HasState(TComponentStateFlag flag) const { return FComponentState.testFlag(flag); }

    qlonglong Tag() const { return FTag; }
    void SetTag(qlonglong tag);
    // Where a component that is no control stands on its designer, in designer pixels.
    int DesignLeft() const { return FDesignLeft; }
    int DesignTop() const { return FDesignTop; }
    void SetDesignPosition(int left, int top);

    // Asks to hear of the end of another component: Notification(component, opRemove).
    void FreeNotification(TComponent* component);
    // A component that this one asked about goes (opRemove). Overrides clear their references and call the base,
    // which clears the stored ones.
    virtual void Notification(TComponent* component, TOperation operation);

    // The visual or logical parent that the form file nests this component under, or nil; a control's is its Parent.
    virtual TComponent* GetParentComponent() const { return nullptr; }
    // Gives it that parent; classes without one ignore it.
    virtual void SetParentComponent(TComponent*) { }
    // All properties and references of its form are read.
    virtual void Loaded() { SetComponentState(FComponentState & ~TComponentState(csLoading)); }

    IDesignerHook* DesignerHook() const { return FHook; }
    void SetDesignerHook(IDesignerHook* hook) { FHook = hook; }
    // Sets csDestroying here and on all owned components; the end is near and everybody can see it.
    void Destroying();

private:
    void RenameIn(TComponent* owner, const QString& oldName);

    QString FName;
    TComponent* FOwner = nullptr;
    QList<TComponent*> FComponents;
    QHash<QString, TComponent*> FByName;
    QList<TComponent*> FFreeNotifies;
    TComponentState FComponentState;
    IDesignerHook* FHook = nullptr;
    qlonglong FTag = 0;
    int FDesignLeft = 0;
    int FDesignTop = 0;
};
