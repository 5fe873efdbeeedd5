#pragma once

// The designers' side of the IDE: what plug-ins register with it and ask of it. One door for its parts.

#include "classes/TComponent.h"
#include "design/IComponentEditor.h"
#include "design/IDesigner.h"
#include "design/TDragObject.h"

#include <functional>
#include <memory>

// Takes drops of a registered kind of drag object over a designer. Made by the designer for one drag, kept until it is
// over. Positions are in the client coordinates of the target, in designer pixels.
class TDragTarget {
public:
    explicit TDragTarget(InterfacePtr<IDesigner> designer)
        : FDesigner(std::move(designer))
    {
    }
    TDragTarget(const TDragTarget&) = delete;
    TDragTarget& operator=(const TDragTarget&) = delete;
    virtual ~TDragTarget() = default;
    // `target` is the control under the mouse, the root, or for a data module its surface, a "TComponentContainer".
    virtual bool DragOver(TPersistent* target, TDragObject* source, int x, int y, TDragState state) = 0;
    // Makes what is to be made. The designer rolls everything back when it raises.
    virtual void DragDrop(TPersistent* target, TDragObject* source, int x, int y) = 0;
    const InterfacePtr<IDesigner>& Designer() const { return FDesigner; }

private:
    InterfacePtr<IDesigner> FDesigner;
};
using TDragTargetClass = std::function<std::unique_ptr<TDragTarget>(const InterfacePtr<IDesigner>&)>;

// A root that a designer shows.
class IRoot : public IInterface {
public:
    static constexpr TGUID IID = Guid("{9E2C3A44-6E0D-4C5B-8F1B-0A4D8E9B7C21}");
    virtual InterfacePtr<IDesigner> GetDesigner() = 0;
};

// Adds or removes a listener to all designers; a reference is held in between.
void RegisterDesignNotification(const InterfacePtr<IDesignNotification>& notification);
void UnregisterDesignNotification(const InterfacePtr<IDesignNotification>& notification);

// Drag objects of that class name find this target over every designer. The last registration of a name holds.
void RegisterDragTarget(const QString& dragObjectClassName, TDragTargetClass target);
// Nil for a name that nobody registered.
TDragTargetClass FindDragTarget(const QString& dragObjectClassName);
// Takes the registration back; for a host that unloads the package behind it.
void UnregisterDragTarget(const QString& dragObjectClassName);
// The names that have a registration.
QStringList DragTargetNames();

// A new empty list.
InterfacePtr<IDesignerSelections> CreateSelectionList();
// The object as a list holds it; nil for nil.
InterfacePtr<IDesignObject> PersistentToDesignObject(TPersistent* persistent);

// What the component offers; nil for a class that offers nothing.
InterfacePtr<IComponentEditor> GetComponentEditor(TComponent* component, const InterfacePtr<IDesigner>& designer);
// The root that the IDE shows in front; nil when that is none.
InterfacePtr<IRoot> ActiveRoot();
// The designer that shows the root which the object belongs to (a root is its own); InterfaceCast it to IDesigner. Nil
// for an object that stands in no designer.
InterfacePtr<IInterface> FindRootDesigner(TPersistent* persistent);

// The listeners, for the host: a copy that stays stable while they are called.
QList<InterfacePtr<IDesignNotification>> DesignNotifications();

// The host's side of the questions above. There is one; without it the answers are nil.
class IDesignHost {
public:
    virtual InterfacePtr<IComponentEditor> GetComponentEditor(
        TComponent* component, const InterfacePtr<IDesigner>& designer)
        = 0;
    virtual InterfacePtr<IRoot> ActiveRoot() = 0;
    virtual InterfacePtr<IDesigner> DesignerOfRoot(TComponent* root) = 0;

protected:
    ~IDesignHost() = default;
};
void SetDesignHost(IDesignHost* host);
