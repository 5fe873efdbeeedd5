#include "services/ComponentEditors.h"

#include "rtl/SysUtils.h"
#include "rtl/TInterfacedObject.h"

namespace {

class VerbEditor : public Implements<TInterfacedObject, IComponentEditor> {
public:
    VerbEditor(TComponent* component, InterfacePtr<IDesigner> designer, QList<ComponentVerb> verbs)
        : FComponent(component)
        , FDesigner(std::move(designer))
        , FVerbs(std::move(verbs))
    {
    }
    void Edit() override { ExecuteVerb(0); }
    void ExecuteVerb(int index) override
    {
        auto* component = FComponent.get();
        const auto verb = FVerbs.value(index);
        if (component && verb.Execute)
            verb.Execute(*component, FDesigner);
    }
    QString GetVerb(int index) override { return FVerbs.value(index).Caption; }
    int GetVerbCount() override { return int(FVerbs.size()); }
    void PrepareItem(int index, const InterfacePtr<IMenuItem>& item) override
    {
        auto* component = FComponent.get();
        const auto verb = FVerbs.value(index);
        if (component && verb.Prepare)
            verb.Prepare(*component, FDesigner, item);
    }
    TComponent* GetComponent() override { return FComponent.get(); }
    InterfacePtr<IDesigner> GetDesigner() override { return FDesigner; }

private:
    WeakRef<TComponent> FComponent;
    InterfacePtr<IDesigner> FDesigner;
    QList<ComponentVerb> FVerbs;
};

}

void ComponentEditors::Register(const QString& className, const ComponentVerb& verb)
{
    FEntries << Entry { className, {}, verb };
}

void ComponentEditors::RegisterForAll(std::function<bool(const TComponent&)> offers, const ComponentVerb& verb)
{
    FEntries << Entry { {}, std::move(offers), verb };
}

InterfacePtr<IComponentEditor> ComponentEditors::EditorOf(
    TComponent* component, const InterfacePtr<IDesigner>& designer) const
{
    if (!component)
        return nullptr;
    QList<ComponentVerb> verbs;
    for (auto walk = component->ClassType(); walk; walk = walk.ClassParent())
        for (const auto& entry : FEntries)
            if (!entry.ClassName.isEmpty() && walk.ClassNameIs(entry.ClassName))
                verbs << entry.Verb;
    for (const auto& entry : FEntries)
        if (entry.Offers && entry.Offers(*component))
            verbs << entry.Verb;
    if (verbs.isEmpty())
        return nullptr;
    return New<VerbEditor>(component, designer, verbs);
}
