#include "model/MrvComponentList.h"

#include "data/TDataSet.h"
#include "design/IDesigner.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvDataSetAttr.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

TComponentList::TComponentList(TSvcManager* svcManager, TDataSetList* dataSetList)
    : FSvcManager(svcManager)
    , FDataSetList(dataSetList)
{
}

TComponent* TComponentList::RootComponent() const
{
    return TMrvUtils::ExtractComponent(FFormEditor->GetRootComponent(), nullptr);
}

TMrvObjectList& TComponentList::BuildComponentList(
    const InterfacePtr<IOTAFormEditor>& formEditor, const QList<TClass>& classes)
{
    FFormEditor = formEditor;
    Clear();
    auto* root = RootComponent();
    if (!root) {
        const auto native = InterfaceCast<INTAFormEditor>(FFormEditor);
        if (const auto designer = native ? native->FormDesigner() : nullptr) {
            designer->Resurrect();
            root = RootComponent();
        }
    }
    if (!root)
        return FItem;
    const auto components = root->Components();
    for (auto* component : components)
        if (std::any_of(classes.begin(), classes.end(), [component](TClass c) { return component->InheritsFrom(c); }))
            StrProc(component);
    return FItem;
}

QString TComponentList::UnitName() const
{
    const auto project = FSvcManager->GetActivePrj();
    const bool isCpp = project && SameText(project->GetPersonality(), u"CPlusPlusBuilder.Personality");
    return ChangeFileExt(FFormEditor->GetFileName(), isCpp ? sCPP : sPAS);
}

void TComponentList::StrProc(TComponent* component)
{
    Assert(FCustomComponentAttrClass != nullptr, QStringLiteral("MrvClasses"));
    const auto attr = FCustomComponentAttrClass(nullptr, component->ClassType(), FSvcManager, FDataSetList);
    attr->SetFormName(TMrvUtils::GetOwnerName(component));
    attr->FUnitName = UnitName();
    attr->SetComponent(component);
    attr->SetComponentName(component->Name());
    if (auto* dataSetAttr = dynamic_cast<TDataSetAttr*>(attr.get())) {
        dataSetAttr->TakeSession(component);
        // SQL and script components have no fields.
        if (component->InheritsFrom(TDataSet::Class())) {
            dataSetAttr->IntfUpdateFields();
            dataSetAttr->IntfUpdateFieldDefs();
        }
    }
    FItem.Add(attr.get());
}

// What is known of the old wrapper stays: its control choice, its session-unique value. A component that came back as
// another object takes its fields along.
void TComponentList::Keep(TCustomComponentAttr& old, TCustomComponentAttr& gathered)
{
    auto* component = gathered.FComponent.get();
    const bool isOther = component != old.FComponent.get();
    if (isOther)
        old.SetComponent(component);
    old.SetComponentName(gathered.FComponentName);
    auto* dataSetAttr = dynamic_cast<TDataSetAttr*>(&old);
    if (!dataSetAttr || !component || !component->InheritsFrom(TDataSet::Class()))
        return;
    if (isOther)
        dataSetAttr->IntfUpdateFields();
    dataSetAttr->UpdateFieldDefs(false);
}

void TComponentList::AddOrReplace(TMrvObjectList& target)
{
    QSet<const TCustomComponentAttr*> added;
    // A wrapper that waits for its removal is no match: the component it stood for is another one.
    const auto wasThere
        = [&added](const TCustomComponentAttr* attr) { return !attr->FDeleted && !added.contains(attr); };
    for (const auto& gathered : FItem.Held()) {
        auto* old
            = target.FindByFormAndName(gathered->FFormName, gathered->FComponentName, Qt::CaseSensitive, wasThere);
        if (old) {
            Keep(*old, *gathered);
            continue;
        }
        target.Add(gathered.get());
        added.insert(gathered.get());
    }
}

void TComponentList::AddToExisting(TMrvObjectList& target)
{
    for (const auto& gathered : FItem.Held())
        target.Add(gathered.get());
}
