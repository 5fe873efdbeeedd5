#include "design/DesignIntf.h"

#include "rtl/SysUtils.h"
#include "rtl/TInterfacedObject.h"

namespace {

struct Registrations {
    QList<InterfacePtr<IDesignNotification>> Notifications;
    QHash<QString, TDragTargetClass> DragTargets;
    IDesignHost* Host = nullptr;
};

Registrations& TheRegistrations()
{
    static Registrations registrations;
    return registrations;
}

class TDesignObject : public Implements<TInterfacedObject, IDesignObject> {
public:
    explicit TDesignObject(TPersistent* object)
        : FObject(object)
    {
    }
    TPersistent* GetObject() override { return FObject.get(); }

private:
    WeakRef<TPersistent> FObject;
};

class TSelectionList : public Implements<TInterfacedObject, IDesignerSelections> {
public:
    int Add(TPersistent* item) override
    {
        FItems << WeakRef<TPersistent>(item);
        return int(FItems.size()) - 1;
    }
    bool Equals(IDesignerSelections* other) override { return other == this; }
    TPersistent* Get(int index) override { return FItems.at(index).get(); }
    int GetCount() override { return int(FItems.size()); }
    InterfacePtr<IDesignObject> GetDesignObject(int index) override { return PersistentToDesignObject(Get(index)); }

private:
    QList<WeakRef<TPersistent>> FItems;
};

}

void RegisterDesignNotification(const InterfacePtr<IDesignNotification>& notification)
{
    TheRegistrations().Notifications << notification;
}

void UnregisterDesignNotification(const InterfacePtr<IDesignNotification>& notification)
{
    TheRegistrations().Notifications.removeOne(notification);
}

QList<InterfacePtr<IDesignNotification>> DesignNotifications()
{
    return TheRegistrations().Notifications;
}

void RegisterDragTarget(const QString& dragObjectClassName, TDragTargetClass target)
{
    TheRegistrations().DragTargets.insert(dragObjectClassName, std::move(target));
}

void UnregisterDragTarget(const QString& dragObjectClassName)
{
    TheRegistrations().DragTargets.remove(dragObjectClassName);
}

TDragTargetClass FindDragTarget(const QString& dragObjectClassName)
{
    return TheRegistrations().DragTargets.value(dragObjectClassName);
}

QStringList DragTargetNames()
{
    return TheRegistrations().DragTargets.keys();
}

InterfacePtr<IDesignerSelections> CreateSelectionList()
{
    return New<TSelectionList>();
}

InterfacePtr<IDesignObject> PersistentToDesignObject(TPersistent* persistent)
{
    return persistent ? InterfacePtr<IDesignObject>(New<TDesignObject>(persistent)) : nullptr;
}

void SetDesignHost(IDesignHost* host)
{
    TheRegistrations().Host = host;
}

InterfacePtr<IComponentEditor> GetComponentEditor(TComponent* component, const InterfacePtr<IDesigner>& designer)
{
    auto* host = TheRegistrations().Host;
    return host && component ? host->GetComponentEditor(component, designer) : nullptr;
}

InterfacePtr<IRoot> ActiveRoot()
{
    auto* host = TheRegistrations().Host;
    return host ? host->ActiveRoot() : nullptr;
}

InterfacePtr<IInterface> FindRootDesigner(TPersistent* persistent)
{
    auto* host = TheRegistrations().Host;
    if (!host)
        return nullptr;
    for (auto* walk = persistent; walk; walk = walk->GetOwner()) {
        auto* component = dynamic_cast<TComponent*>(walk);
        if (component && component->DesignerHook())
            return host->DesignerOfRoot(component);
    }
    return nullptr;
}
