// How the list is filled from the IDE's project and modules.

#include "data/TCustomZAConnection.h"
#include "data/TCustomZASQL.h"
#include "data/TDataSet.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvComponentList.h"
#include "model/MrvConnectionAttr.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "model/MrvFormAttr.h"
#include "rtl/Guard.h"
#include "rtl/SysUtils.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

InterfacePtr<IMrvPreferences> TDataSetList::_GetPreferences() const
{
    Assert(bool(FConfigurationService), QStringLiteral("MrvClasses"),
        QStringLiteral("Configuration services is not registered"));
    InterfacePtr<IMrvPreferences> preferences;
    FConfigurationService->GetPreferences(preferences);
    return preferences;
}

bool TDataSetList::_GetScanAll() const
{
    QString value;
    if (const auto preferences = _GetPreferences())
        preferences->GetValueByName(QStringLiteral("ScanAllForms"), value);
    return !value.isEmpty() && StrToBool(value);
}

void TDataSetList::BuildDataSetList(WordBool clearFirst)
{
    if (FDormant)
        return;
    if (clearFirst)
        Clear();
    const auto project = FSvcManager->GetActivePrj();
    if (!project)
        return;
    {
        TComponentList list(FSvcManager.get(), this);
        list.FCustomComponentAttrClass = TCustomComponentAttr::Create<TDataSetAttr>;
        FSvcManager->ClearActiveFormEditor();
        FBuildInProgress = true;
        const Finally done([this] { FBuildInProgress = false; });
        if (_GetScanAll())
            BuildFromProject(project, list);
        else
            BuildFromOpenModules(project, list);
    }
    LinkInherited();
    for (int i = 0; i < GetItemCount(); ++i)
        TakeMaster(*GetItem(i));
    if (IsEventEnabled(deDataSetListLoad) && FEvents)
        FEvents->OnProjectOpened();
}

namespace {

bool IsSourceFile(const QString& fileName)
{
    const auto extension = ExtractFileExt(fileName);
    return SameText(extension, sPAS.Text()) || SameText(extension, sCPP.Text());
}

}

void TDataSetList::BuildFromProject(const InterfacePtr<IOTAProject>& project, TComponentList& list)
{
    const int count = project->GetModuleCount();
    for (int i = 0; i < count; ++i) {
        const auto info = project->GetModule(i);
        if (!info || (info->GetModuleType() != omtForm && info->GetModuleType() != omtDataModule)
            || !IsSourceFile(info->GetFileName()))
            continue;
        auto module = FSvcManager->GetModuleSvc()->FindModule(info->GetFileName());
        if (module) {
            FSvcManager->AddFormNotifier(module);
            FSvcManager->AddModuleNotifier(module);
        } else {
            module = OpenModule(info);
        }
        if (module)
            GetDsListFromModule(module, list);
    }
}

namespace {

// What IsModuleFromProject answers yes for, asked of the project once and not once a module.
QSet<QString> ModuleFiles(IOTAProject& project)
{
    QSet<QString> files;
    for (int i = 0; i < project.GetModuleCount(); ++i)
        if (const auto info = project.GetModule(i))
            files << info->GetFileName().toCaseFolded();
    return files;
}

}

void TDataSetList::BuildFromOpenModules(const InterfacePtr<IOTAProject>& project, TComponentList& list)
{
    const auto services = FSvcManager->GetModuleSvc();
    const auto files = ModuleFiles(*project);
    const int count = services->GetModuleCount();
    for (int i = 0; i < count; ++i) {
        const auto module = services->GetModule(i);
        if (!module || !files.contains(module->GetFileName().toCaseFolded()))
            continue;
        FSvcManager->AddModuleNotifier(module);
        FSvcManager->AddFormNotifier(module);
        GetDsListFromModule(module, list);
    }
}

void TDataSetList::GetDsListFromModule(const InterfacePtr<IOTAModule>& module, TComponentList& list)
{
    const auto editor = InterfaceCast<IOTAFormEditor>(FSvcManager->GetEditorInterface(module, IOTAFormEditor::IID));
    if (!FSvcManager->GetActiveFormEditor())
        FSvcManager->SetActiveFormEditor(editor);
    if (!editor)
        return;
    list.Clear();
    list.FCustomComponentAttrClass = TCustomComponentAttr::Create<TDataSetAttr>;
    list.BuildComponentList(editor, { TDataSet::Class(), TCustomZASQL::Class(), TZAScript::Class() });
    list.AddOrReplace(FItem);
    FItem.Sort();
    list.Clear();
    list.FCustomComponentAttrClass = TCustomComponentAttr::Create<TConnectionAttr>;
    list.BuildComponentList(editor, { TCustomZAConnection::Class() });
    list.AddOrReplace(FConnectionItem);
}

InterfacePtr<IOTAModule> TDataSetList::OpenModule(const InterfacePtr<IOTAModuleInfo>& info)
{
    return FSvcManager->OpenModule(info);
}

InterfacePtr<IOTAModule> TDataSetList::OpenModule(const QString& fileName)
{
    return FSvcManager->OpenModule(fileName);
}

TFormAttr* TDataSetList::CreateFormAttr(TComponent* component)
{
    if (!component)
        return nullptr;
    const auto attr = New<TFormAttr>(nullptr, component->ClassType(), FSvcManager.get(), this);
    attr->SetComponent(component);
    attr->FUnitName = TMrvUtils::ExtractUnitName(component);
    attr->SetFormName(component->Name());
    attr->SetComponentName(component->Name());
    FFormItem.Add(attr.get());
    return attr.get();
}

TConnectionAttr* TDataSetList::CreateConnectionAttr(TComponent* component)
{
    if (!component)
        return nullptr;
    const auto attr = New<TConnectionAttr>(nullptr, component->ClassType(), FSvcManager.get(), this);
    attr->SetFormName(TMrvUtils::GetOwnerName(component));
    attr->FUnitName = TMrvUtils::ExtractUnitName(component);
    attr->SetComponent(component);
    attr->SetComponentName(component->Name());
    FConnectionItem.Add(attr.get());
    return attr.get();
}
