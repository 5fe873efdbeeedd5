#include "ide/MrvNotifiers.h"

#include "support/MrvUtils.h"

#include <algorithm>

namespace {

// Calls an event if it is assigned. The copy keeps it whole while it runs, should it be erased meanwhile.
template <class Event, class... Args>
void Raise(const Event& event, Args&&... args)
{
    const auto held = event;
    if (held)
        held(std::forward<Args>(args)...);
}

}

TMrvCustomNotifier::TMrvCustomNotifier(const QString& className)
    : FClassName(className)
{
    LogStep(QStringLiteral("Create"));
}

TMrvCustomNotifier::~TMrvCustomNotifier()
{
    LeaveList();
    LogStep(QStringLiteral("Destroy"));
}

void TMrvCustomNotifier::EraseCallback()
{
    LogStep(QStringLiteral("EraseCallBack"));
}

void TMrvCustomNotifier::LogStep(const QString& step) const
{
    TMrvUtils::AddLogMessage(QLatin1String("Notifier ") + FClassName + u'.' + step);
}

void TMrvCustomNotifier::SetName(const QString& name)
{
    if (FOwner)
        FOwner->Rename(FOwnerIndex, name);
    FName = name;
}

void TMrvCustomNotifier::JoinList(TNotifierList* list)
{
    FOwner = list;
    FOwnerIndex = list ? list->Add(this) : -1;
}

void TMrvCustomNotifier::LeaveList()
{
    if (auto* list = std::exchange(FOwner, nullptr))
        list->Forget(FOwnerIndex);
}

TNotifierList::~TNotifierList()
{
    try {
        Clear();
    } catch (...) {
        // Whoever wants to hear of a failure clears the list first.
    }
}

int TNotifierList::Add(TMrvCustomNotifier* notifier)
{
    FItems << notifier;
    FByName.insert(notifier->FName, Count() - 1);
    return Count() - 1;
}

void TNotifierList::Forget(int index)
{
    FByName.remove(FItems[index]->FName, index);
    FItems[index] = nullptr;
}

void TNotifierList::Rename(int index, const QString& name)
{
    FByName.remove(FItems[index]->FName, index);
    FByName.insert(name, index);
}

int TNotifierList::IndexOfName(const QString& name) const
{
    const auto [begin, end] = FByName.equal_range(name);
    const auto first = std::min_element(begin, end);
    return first != end ? *first : -1;
}

void TNotifierList::Clear()
{
    std::exception_ptr failure;
    for (int i = 0; i < Count(); ++i) {
        auto* entry = FItems[i];
        const auto notifier = InterfaceCast<IOTANotifier>(entry);
        if (!notifier)
            continue;
        entry->EraseCallback();
        try {
            notifier->Destroyed();
        } catch (...) {
            if (!failure)
                failure = std::current_exception();
        }
        entry->LeaveList();
    }
    FItems.clear();
    FByName.clear();
    if (failure)
        std::rethrow_exception(failure);
}

TFormNotifier::TFormNotifier(const InterfacePtr<IOTAFormEditor>& editor, TNotifierList* owner)
    : NotifierOf(QStringLiteral("TFormNotifier"))
    , FFormEditor(editor)
{
    FName = editor->GetFileName();
    FIndex = editor->AddNotifier(InterfacePtr<IOTANotifier>(this));
    JoinList(owner);
}

TFormNotifier::~TFormNotifier()
{
    if (FIndex >= 0) {
        FFormEditor->RemoveNotifier(FIndex);
        FIndex = -1;
    }
    FFormEditor.ClearWithoutRelease();
}

void TFormNotifier::Destroyed()
{
    if (FIndex < 0)
        return;
    Raise(FOnDestroyed, this);
    FFormEditor->RemoveNotifier(std::exchange(FIndex, -1));
    FFormEditor.ClearWithoutRelease();
    LeaveList();
}

void TFormNotifier::Modified()
{
    Raise(FOnModified, this);
}

void TFormNotifier::FormActivated()
{
    Raise(FOnFormActivated, this);
}

void TFormNotifier::FormSaving()
{
    Raise(FOnFormSaving, this);
}

void TFormNotifier::ComponentRenamed(TOTAHandle component, const QString& oldName, const QString& newName)
{
    Raise(FOnComponentRenamed, this, component, oldName, newName);
}

void TFormNotifier::EraseCallback()
{
    FOnComponentRenamed = nullptr;
    FOnDestroyed = nullptr;
    FOnFormActivated = nullptr;
    FOnFormSaving = nullptr;
    FOnModified = nullptr;
    TMrvCustomNotifier::EraseCallback();
}

TIdeNotifier::TIdeNotifier(const InterfacePtr<IOTAServices>& services, TNotifierList* owner)
    : NotifierOf(QStringLiteral("TIdeNotifier"))
    , FServices(services)
{
    FName = QStringLiteral("IDENotifier");
    FIndex = services ? services->AddNotifier(InterfacePtr<IOTAIDENotifier>(this)) : -1;
    JoinList(owner);
}

TIdeNotifier::~TIdeNotifier()
{
    if (FIndex >= 0 && FServices) {
        FServices->RemoveNotifier(std::exchange(FIndex, -1));
        FServices.Clear();
    }
}

void TIdeNotifier::Destroyed()
{
    if (FIndex < 0 || !FServices)
        return;
    FServices->RemoveNotifier(std::exchange(FIndex, -1));
    FServices.Clear();
    Raise(FOnDestroyed, this);
    LeaveList();
}

void TIdeNotifier::FileNotification(TOTAFileNotification notifyCode, const QString& fileName, bool& cancel)
{
    Raise(FOnFileNotification, this, notifyCode, fileName, cancel);
}

void TIdeNotifier::BeforeCompile(IOTAProject* project, bool& cancel)
{
    Raise(FOnBeforeCompile, this, project, cancel);
}

void TIdeNotifier::AfterCompile(bool succeeded)
{
    Raise(FOnAfterCompile, this, succeeded);
}

void TIdeNotifier::EraseCallback()
{
    FOnFileNotification = nullptr;
    FOnDestroyed = nullptr;
    FOnBeforeCompile = nullptr;
    FOnAfterCompile = nullptr;
    TMrvCustomNotifier::EraseCallback();
}

TModuleNotifier::TModuleNotifier(const InterfacePtr<IOTAModule>& module, TNotifierList* owner)
    : NotifierOf(QStringLiteral("TModuleNotifier"))
    , FModule(module)
{
    FName = module->GetFileName();
    FIndex = module->AddNotifier(InterfacePtr<IOTAModuleNotifier>(this));
    JoinList(owner);
}

TModuleNotifier::~TModuleNotifier()
{
    if (FIndex >= 0 && FModule)
        FModule->RemoveNotifier(FIndex);
}

void TModuleNotifier::Destroyed()
{
    if (FIndex < 0 || !FModule)
        return;
    FModule->RemoveNotifier(std::exchange(FIndex, -1));
    FModule.Clear();
    Raise(FOnDestroyed, this);
    FOnDestroyed = nullptr;
    FOnModuleRenamed = nullptr;
    LeaveList();
}

void TModuleNotifier::ModuleRenamed(const QString& newName)
{
    Raise(FOnModuleRenamed, this, FName, newName);
    SetName(newName);
}

TDesignNotification::~TDesignNotification()
{
    FDesigner.ClearWithoutRelease();
}

void TDesignNotification::ItemDeleted(const InterfacePtr<IDesigner>& designer, TPersistent* item)
{
    Raise(FOnItemDeleted, this, designer, item);
}

void TDesignNotification::ItemInserted(const InterfacePtr<IDesigner>& designer, TPersistent* item)
{
    Raise(FOnItemInserted, this, designer, item);
}

void TDesignNotification::ItemsModified(const InterfacePtr<IDesigner>& designer)
{
    Raise(FOnItemsModified, this, designer);
}

void TDesignNotification::SelectionChanged(
    const InterfacePtr<IDesigner>& designer, const InterfacePtr<IDesignerSelections>& selection)
{
    SetActiveDesigner(designer);
    Raise(FOnSelectionChanged, this, selection);
}

void TDesignNotification::DesignerOpened(const InterfacePtr<IDesigner>& designer, bool)
{
    SetActiveDesigner(designer);
    Raise(FOnDesignerInitialized, this, designer);
}

void TDesignNotification::DesignerClosed(const InterfacePtr<IDesigner>& designer, bool)
{
    if (FDesigner)
        FDesigner->ClearSelection();
    FDesigner.Clear();
    Raise(FOnDesignerClosed, this, designer);
}
