#include "classes/TComponent.h"
#include "data/TField.h"
#include "rtl/Guard.h"
#include "support/MrvDesignerSelections.h"
#include "support/MrvUtils.h"

int TDesignerSelections::Add(TPersistent* item)
{
    FList << WeakRef<TPersistent>(item);
    return GetCount() - 1;
}

bool TDesignerSelections::Equals(IDesignerSelections* other)
{
    return other == static_cast<IDesignerSelections*>(this);
}

InterfacePtr<IDesignObject> TDesignerSelections::GetDesignObject(int index)
{
    return PersistentToDesignObject(Get(index));
}

namespace {

// While it lives the component is one that stands on no form and, a field of a parent form, one of the form's own:
// a designer selects it whether or not it is its own.
class TMrvComponent {
public:
    explicit TMrvComponent(TComponent* component)
        : FComponent(component)
        , FOwner(component->Owner())
        , FComponentState(component->ComponentState())
        , FIsInheritedField(component->InheritsFrom(TField::Class()) && component->HasState(csAncestor))
    {
        if (FIsInheritedField)
            component->SetComponentState(csDesigning);
        component->SetOwnerRaw(nullptr);
    }
    TMrvComponent(const TMrvComponent&) = delete;
    TMrvComponent& operator=(const TMrvComponent&) = delete;
    ~TMrvComponent()
    {
        auto* component = FComponent.get();
        if (!component)
            return;
        component->SetOwnerRaw(FOwner);
        if (FIsInheritedField)
            component->SetComponentState(FComponentState);
    }

private:
    WeakRef<TComponent> FComponent;
    TComponent* FOwner;
    TComponentState FComponentState;
    bool FIsInheritedField;
};

void Select(const InterfacePtr<IDesigner>& designer, TPersistent* instance, bool addToSelection)
{
    const InterfacePtr<IDesignerSelections> list = New<TDesignerSelections>();
    if (addToSelection)
        designer->GetSelections(list);
    list->Add(instance);
    designer->SetSelections(list);
}

}

void TMrvUtils::SelectComponent(const InterfacePtr<IDesigner>& designer, TPersistent* instance, bool addToSelection)
{
    if (!designer)
        return;
    auto* component = dynamic_cast<TComponent*>(instance);
    if (!component) {
        Select(designer, instance, addToSelection);
        return;
    }
    const TMrvComponent stranger(component);
    Select(designer, instance, addToSelection);
}
