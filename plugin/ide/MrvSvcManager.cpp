#include "ide/MrvSvcManager.h"

#include "model/MrvDataSetList.h"
#include "rtl/Guard.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

namespace {

bool IsUnit(const QString& fileName)
{
    const auto extension = ExtractFileExt(fileName);
    return SameText(extension, QString(sPAS)) || SameText(extension, QString(sCPP));
}

}

TSvcManager::TSvcManager(const InterfacePtr<IMrvEvents>& events, TDataSetList* dataSetList)
    : FEvents(events)
    , FDataSetList(dataSetList)
{
    TMrvUtils::AddLogMessage(QStringLiteral("Try create TSvcManager instance..."));
    FNotifierList = std::make_unique<TNotifierList>();
    FServices = InterfaceCast<IOTAServices>(BorlandIDEServices);
    const auto ideNotifier = New<TIdeNotifier>(FServices, FNotifierList.get());
    ideNotifier->FOnFileNotification = std::bind_front(&TSvcManager::FileNotification, this);
    FDesignNotification = New<TDesignNotification>();
    RegisterDesignNotification(FDesignNotification);
    FDesignNotification->FOnDesignerInitialized = std::bind_front(&TSvcManager::DesignerOpened, this);
    FDesignNotification->FOnDesignerClosed = std::bind_front(&TSvcManager::DesignerClosed, this);
    FDesignNotification->FOnSelectionChanged = std::bind_front(&TSvcManager::SelectionChanged, this);
    TMrvUtils::AddLogMessage(QStringLiteral("TSvcManager instance created."));
}

TSvcManager::~TSvcManager()
{
    try {
        TearDown();
    } catch (...) {
        // Whoever wants to hear of a failure tears down first.
    }
}

void TSvcManager::TearDown()
{
    if (!FDesignNotification)
        return;
    const Finally detach([this] {
        UnregisterDesignNotification(FDesignNotification);
        FDesignNotification->FOnDesignerInitialized = nullptr;
        FDesignNotification->FOnDesignerClosed = nullptr;
        FDesignNotification->FOnSelectionChanged = nullptr;
        FDesignNotification->FOnItemDeleted = nullptr;
        FDesignNotification->FOnItemInserted = nullptr;
        FDesignNotification->FOnItemsModified = nullptr;
        FDesignNotification.Clear();
    });
    FNotifierList->Clear();
}

void TSvcManager::RegisterProjectNotifier()
{
    FProjectDestroyed = false;
    AddModuleNotifier(GetActivePrj());
}

InterfacePtr<IOTAModuleServices> TSvcManager::GetModuleSvc() const
{
    return InterfaceCast<IOTAModuleServices>(BorlandIDEServices);
}

InterfacePtr<IOTAProject> TSvcManager::GetActivePrj()
{
    const auto services = GetModuleSvc();
    const auto project = services ? services->GetActiveProject() : nullptr;
    FProjectName = project ? ExtractFileName(project->GetFileName()) : QString();
    return project;
}

InterfacePtr<IDesigner> TSvcManager::GetActiveDesigner() const
{
    if (const auto root = ActiveRoot())
        return root->GetDesigner();
    return FDesignNotification ? FDesignNotification->FDesigner : nullptr;
}

void TSvcManager::SetActiveFormEditor(const InterfacePtr<IOTAFormEditor>& editor)
{
    if (editor)
        FOldActiveFormEditor = FActiveFormEditor;
    FActiveFormEditor = editor;
}

void TSvcManager::ClearActiveFormEditor()
{
    FActiveFormEditor.Clear();
    FOldActiveFormEditor.Clear();
}

void TSvcManager::SearchValidFormEditor()
{
    const auto services = GetModuleSvc();
    const auto current = services->CurrentModule();
    InterfacePtr<IOTAFormEditor> found;
    for (int i = 0; i < services->GetModuleCount() && !found; ++i) {
        const auto module = services->GetModule(i);
        if (current && module->GetFileName() == current->GetFileName())
            continue;
        found = InterfaceCast<IOTAFormEditor>(GetEditorInterface(module, IOTAFormEditor::IID));
    }
    SetActiveFormEditor(found);
}

InterfacePtr<IOTAEditor> TSvcManager::GetEditorInterface(const InterfacePtr<IOTAModule>& module, const TGUID& iid) const
{
    const int count = module ? module->GetModuleFileCount() : 0;
    for (int i = 0; i < count; ++i) {
        const auto editor = module->GetModuleFileEditor(i);
        if (editor && editor->QueryInterface(iid))
            return editor;
    }
    return nullptr;
}

InterfacePtr<IOTAEditor> TSvcManager::GetEditorByFileName(const QString& fileName, const TGUID& iid) const
{
    return GetEditorInterface(GetModuleSvc()->FindModule(fileName), iid);
}

InterfacePtr<IOTAComponent> TSvcManager::FindComponent(
    const QString& name, const InterfacePtr<IOTAFormEditor>& editor) const
{
    const auto& searched = editor ? editor : FActiveFormEditor;
    return searched ? searched->FindComponent(name) : nullptr;
}

InterfacePtr<IOTAModule> TSvcManager::FindFormModule(const QString& formName) const
{
    const auto services = GetModuleSvc();
    return services ? services->FindFormModule(formName) : nullptr;
}

InterfacePtr<IOTAModuleInfo> TSvcManager::GetModuleInfo(const QString& fileName)
{
    const auto project = GetActivePrj();
    return project ? project->FindModuleInfo(fileName) : nullptr;
}

InterfacePtr<IOTAModuleInfo> TSvcManager::FindModuleInfo(const QString& formName, const QString& fileName)
{
    const auto project = GetActivePrj();
    const int count = project ? project->GetModuleCount() : 0;
    for (int i = 0; i < count; ++i) {
        const auto info = project->GetModule(i);
        if (info->GetFormName() == formName || info->GetFileName() == fileName)
            return info;
    }
    return nullptr;
}

bool TSvcManager::IsModuleFromProject(const QString& fileName)
{
    return bool(GetModuleInfo(fileName));
}

InterfacePtr<IOTAModule> TSvcManager::OpenModule(const InterfacePtr<IOTAModuleInfo>& info)
{
    InterfacePtr<IOTAModule> module;
    try {
        module = info->OpenModule();
    } catch (const std::exception&) {
        return nullptr;
    }
    AddModuleNotifier(module);
    return module;
}

InterfacePtr<IOTAModule> TSvcManager::OpenModule(const QString& fileName)
{
    InterfacePtr<IOTAModule> module;
    try {
        module = GetModuleSvc()->OpenModule(fileName);
    } catch (const std::exception&) {
        return nullptr;
    }
    AddModuleNotifier(module);
    return module;
}

void TSvcManager::AddModuleNotifier(const InterfacePtr<IOTAModule>& module)
{
    if (!module)
        return;
    const auto fileName = module->GetFileName();
    if (SameText(ExtractFileExt(fileName), QString(sDFM)) || FNotifierList->IndexOfName(fileName) != -1)
        return;
    const auto notifier = New<TModuleNotifier>(module, FNotifierList.get());
    notifier->FOnModuleRenamed = std::bind_front(&TSvcManager::ModuleRenamed, this);
    notifier->FOnDestroyed = std::bind_front(&TSvcManager::ModuleDestroyed, this);
}

void TSvcManager::AddFormNotifier(const InterfacePtr<IOTAModule>& module)
{
    const auto editor = InterfaceCast<IOTAFormEditor>(GetEditorInterface(module, IOTAFormEditor::IID));
    if (!editor || FNotifierList->IndexOfName(editor->GetFileName()) != -1)
        return;
    const auto notifier = New<TFormNotifier>(editor, FNotifierList.get());
    notifier->FOnComponentRenamed = std::bind_front(&TSvcManager::ComponentRenamed, this);
    notifier->FOnFormActivated = std::bind_front(&TSvcManager::FormActivated, this);
    notifier->FOnDestroyed = std::bind_front(&TSvcManager::FormDestroyed, this);
}

void TSvcManager::DesignerOpened(TObject*, const InterfacePtr<IDesigner>&) { }

void TSvcManager::DesignerClosed(TObject*, const InterfacePtr<IDesigner>&) { }

void TSvcManager::FormDestroyed(TObject*) { }

void TSvcManager::FormActivated(TObject* sender)
{
    if (auto* notifier = dynamic_cast<TFormNotifier*>(sender))
        SetActiveFormEditor(notifier->FFormEditor);
    if (FEvents)
        FEvents->ShowMainForm();
    if (FFormActivated)
        FFormActivated(sender);
}

void TSvcManager::ModuleRenamed(TObject* sender, const QString& oldName, const QString& newName)
{
    if (TMrvUtils::IsProject(newName)) {
        FProjectName = ExtractFileName(newName);
        if (FEvents)
            FEvents->OnProjectRenamed(newName);
    } else if (FOnModuleRenamed) {
        FOnModuleRenamed(sender, oldName, newName);
    }
}

void TSvcManager::ModuleDestroyed(TObject* sender)
{
    auto* notifier = dynamic_cast<TModuleNotifier*>(sender);
    if (!notifier || !TMrvUtils::IsProject(notifier->FName))
        return;
    FProjectDestroyed = true;
    if (FOnProjectDestroyed)
        FOnProjectDestroyed(sender);
    FProjectName.clear();
    if (FEvents)
        FEvents->OnProjectRenamed(QString());
}

void TSvcManager::SelectionChanged(TObject* sender, const InterfacePtr<IDesignerSelections>& selection)
{
    if (FOnSelectionChanged)
        FOnSelectionChanged(sender, selection);
}

void TSvcManager::ComponentRenamed(
    TObject* sender, TOTAHandle component, const QString& oldName, const QString& newName)
{
    if (FComponentRenamed)
        FComponentRenamed(sender, component, oldName, newName);
}

void TSvcManager::FileNotification(
    TObject* sender, TOTAFileNotification notifyCode, const QString& fileName, bool& cancel)
{
    TMrvUtils::AddLogMessage(Format(
        QStringLiteral("File Notification: FileName: %s,\r\n\t\t\t\t NotifyCode: %s, Dormant status: %s"),
        { fileName, GetEnumName(TOTAFileNotificationInfo(), notifyCode), BoolToStr(FDataSetList->FDormant, true) }));
    try {
        if (FDataSetList->FDormant || FDisableFileNotifications)
            return;
        if (FProjectDestroyed)
            SetActiveFormEditor(nullptr);
        if (notifyCode == ofnFileOpened)
            FileOpened(fileName);
        else if (notifyCode == ofnFileClosing)
            FileClosing(fileName);
        else if (notifyCode == ofnPackageInstalled && FOnPackageInstalled)
            FOnPackageInstalled(this);
        if (FFileNotification)
            FFileNotification(sender, notifyCode, fileName, cancel);
    } catch (const std::exception& exception) {
        TMrvUtils::LogFailure(QStringLiteral("TSvcManager.FileNotification - failed!"), exception);
    }
}

void TSvcManager::FileOpened(const QString& fileName)
{
    const auto module = ModuleOfOpenedFile(fileName);
    AddFormNotifier(module);
    AddModuleNotifier(module);
}

InterfacePtr<IOTAModule> TSvcManager::ModuleOfOpenedFile(const QString& fileName)
{
    if (IsModuleFromProject(fileName) && IsUnit(fileName))
        return GetModuleSvc()->FindModule(fileName);
    const auto pas = ChangeFileExt(fileName, QString(sPAS));
    const auto cpp = ChangeFileExt(fileName, QString(sCPP));
    if (!IsModuleFromProject(pas) && !IsModuleFromProject(cpp))
        return nullptr;
    // Exact on purpose: ".DFM" finds no module.
    if (ExtractFileExt(fileName) != QString(sDFM))
        return nullptr;
    // In a C++Builder project the unit of a form file is the .cpp.
    const bool isCpp = SameText(GetActivePrj()->GetPersonality(), QStringLiteral("CPlusPlusBuilder.Personality"));
    return GetModuleSvc()->FindModule(isCpp ? cpp : pas);
}

void TSvcManager::FileClosing(const QString& fileName)
{
    const auto current = GetModuleSvc()->CurrentModule();
    if (!IsUnit(fileName) || FProjectDestroyed || !current)
        return;
    SetActiveFormEditor(InterfaceCast<IOTAFormEditor>(GetEditorInterface(current, IOTAFormEditor::IID)));
    if (ScanAll())
        if (const auto info = GetModuleInfo(fileName))
            OpenModule(info);
    const Finally removeWrappers([this] { FDataSetList->DeleteItems(); });
    FDataSetList->PrepareDelete(fileName);
    if (FEvents)
        FEvents->OnRefreshDatasetList(fileName, rmRemove);
}

bool TSvcManager::ScanAll() const
{
    InterfacePtr<IMrvPreferences> preferences;
    if (FConfigurationService)
        FConfigurationService->GetPreferences(preferences);
    QString value;
    if (preferences)
        preferences->GetValueByName(QStringLiteral("ScanAllForms"), value);
    return !value.isEmpty() && StrToBool(value);
}
