#include "model/MrvCustomComponentAttr.h"

#include "data/TCustomZADataSet.h"
#include "data/TCustomZASQL.h"
#include "data/TField.h"
#include "design/DesignIntf.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvDataSetList.h"
#include "rtl/Guard.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

namespace {

QString OwnClassName(TClass classType)
{
    if (classType.InheritsFrom(TCustomZASQL::Class()))
        return TCustomZASQLClassName;
    return classType.InheritsFrom(TZAScript::Class()) ? TZASctiptClassName : QString();
}

}

TCustomComponentAttr::TCustomComponentAttr(TCustomComponentAttr* owner, TClass classType, TSvcManager* svcManager,
    TDataSetList* dataSetList, const char16_t* className)
    : FClassType(classType)
    , FSvcManager(svcManager)
    , FDataSetList(dataSetList)
    , FOwner(owner)
    , FCtrlClassName(OwnClassName(classType))
    , FWrapperClass(className)
{
    TMrvUtils::AddLogMessage(QStringLiteral("Try Create ") + ClassName() + QStringLiteral(" wrapper..."));
    if (dataSetList && dataSetList->FConfigurationService)
        dataSetList->FConfigurationService->GetCurrentPersonality(FPersonalityUISettions);
    if (svcManager)
        FGuid = svcManager->GetUniqueValue();
    TMrvUtils::AddLogMessage(QStringLiteral("Wrapper created"));
}

TCustomComponentAttr::~TCustomComponentAttr()
{
    TMrvUtils::AddLogMessage(QStringLiteral("Destroy ") + ClassName() + QStringLiteral(" wrapper"));
}

void TCustomComponentAttr::SetComponentName(const QString& name)
{
    if (name == FComponentName)
        return;
    const TAttrKeyChange change(this);
    FComponentName = name;
}

void TCustomComponentAttr::SetFormName(const QString& name)
{
    if (name == FFormName)
        return;
    const TAttrKeyChange change(this);
    FFormName = name;
}

void TCustomComponentAttr::SetComponent(TComponent* component)
{
    SetLastKnown(component);
}

void TCustomComponentAttr::SetLastKnown(TComponent* component)
{
    if (component && component == FComponent.get())
        return;
    const TAttrKeyChange change(this);
    FComponent = component;
}

// What a search by the names would find: no need to ask the IDE for it. Two forms of one name do not meet that way.
bool TCustomComponentAttr::LastKnownIsCurrent() const
{
    const auto* component = FComponent.get();
    if (!component || component->Name() != FComponentName)
        return false;
    const auto* root = component->Owner() ? component->Owner() : component;
    return root->Name() == FFormName && root->DesignerHook();
}

InterfacePtr<IOTAComponent> TCustomComponentAttr::GetOTAComponent()
{
    auto* manager = SvcManager();
    // Nothing bears no name: no module is opened for it.
    if (!manager || FComponentName.isEmpty())
        return nullptr;
    auto module = manager->FindFormModule(FFormName);
    if (!module)
        if (const auto info = manager->FindModuleInfo(FFormName, FUnitName))
            module = FDataSetList->OpenModule(info);
    const auto editor = InterfaceCast<IOTAFormEditor>(manager->GetEditorInterface(module, IOTAFormEditor::IID));
    return editor ? editor->FindComponent(FComponentName) : nullptr;
}

TComponent* TCustomComponentAttr::GetComponent()
{
    // A wrapper that waits for its removal takes no other component that bears its names by now.
    if (FDeleted || LastKnownIsCurrent())
        return FComponent.get();
    if (auto* found = TMrvUtils::ExtractComponent(GetOTAComponent(), GetDesigner()))
        SetLastKnown(found);
    return FComponent.get();
}

bool TCustomComponentAttr::IsValid()
{
    const auto* manager = SvcManager();
    const auto services = manager ? manager->GetModuleSvc() : nullptr;
    const auto module = services ? services->FindModule(FUnitName) : nullptr;
    if (!module)
        return false;
    const auto editor = InterfaceCast<IOTAFormEditor>(manager->GetEditorInterface(module, IOTAFormEditor::IID));
    return editor && editor->FindComponent(FComponentName);
}

bool TCustomComponentAttr::InheritsFrom(TClass aClass)
{
    const auto* component = GetComponent();
    return component && component->InheritsFrom(aClass);
}

QString TCustomComponentAttr::GetComponentClassName()
{
    return FClassType.ClassName();
}

InterfacePtr<IDesigner> TCustomComponentAttr::GetComponentDesigner()
{
    return InterfaceCast<IDesigner>(FindRootDesigner(GetComponent()));
}

InterfacePtr<IDesigner> TCustomComponentAttr::GetDesigner() const
{
    const auto* manager = SvcManager();
    return manager ? manager->GetActiveDesigner() : nullptr;
}

InterfacePtr<IMrvEvents> TCustomComponentAttr::Events() const
{
    return FDataSetList ? FDataSetList->FEvents : nullptr;
}

WordBool TCustomComponentAttr::IntfInheritsFrom(const QString& className)
{
    const auto* component = GetComponent();
    return component && component->ClassType().InheritsFromNamed(className);
}

void TCustomComponentAttr::IntfComponentClassName(QString& name)
{
    name = GetComponentClassName();
}

void TCustomComponentAttr::IntfComponentName(WordBool, QString& name)
{
    name = FComponentName;
}

void TCustomComponentAttr::IntfFormName(QString& name)
{
    name = GetFormName();
}

void TCustomComponentAttr::IntfUnitName(QString& name)
{
    name = FUnitName;
}

void TCustomComponentAttr::IntfGetOwner(InterfacePtr<IMrvCustomComponentAttr>& owner)
{
    owner = InterfacePtr<IMrvCustomComponentAttr>(FOwner.get());
}

void TCustomComponentAttr::IntfSelect(WordBool append)
{
    auto* list = DataSetList();
    if (!list)
        return;
    list->DisableEvents(deSelectionChanged);
    const Finally enable([list] { list->EnableEvents(deSelectionChanged); });
    if (auto* component = GetComponent())
        TMrvUtils::SelectComponent(GetDesigner(), component, append);
}

WordBool TCustomComponentAttr::IntfDotNetAcceptedDragAndDrop(QObject*)
{
    return false;
}

int TCustomComponentAttr::IntfDotNetCreateControl(QObject*, int, int, WordBool)
{
    return 0;
}

bool TCustomComponentAttr::GetComponentFromWindowHandle(QObject*, TComponent*& component)
{
    component = nullptr;
    return false;
}

TControlType TCustomComponentAttr::IntfGetControlType()
{
    const auto* component = GetComponent();
    if (!component)
        return ctOther;
    if (component->InheritsFrom(TDataSet::Class()) || component->InheritsFrom(TCustomZADataSet::Class()))
        return ctDataSet;
    if (component->InheritsFrom(TField::Class()))
        return ctField;
    if (component->InheritsFrom(TCustomZASQL::Class()) || component->InheritsFrom(TZAScript::Class()))
        return ctComponent;
    return ctOther;
}

void TCustomComponentAttr::IntfGetPersistent(TPersistent*& persistent)
{
    persistent = GetComponent();
}
