#include "model/MrvDataSetList.h"

#include "design/DesignIntf.h"
#include "ide/MrvDeferredCallbacks.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvConnectionAttr.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvFieldAttr.h"
#include "model/MrvFieldDefsAttr.h"
#include "model/MrvSelectionList.h"
#include "rtl/Guard.h"
#include "support/MrvUtils.h"

namespace {

// The list that a sink serves. One that goes late sends nothing into the tree of the next.
TBackRef<TDataSetList> GServedList;

// What the list counts for deferred fields of its two kinds.
constexpr int FieldsAdded = 3;
constexpr int FieldsDeleted = 4;

}

TDataSetList::TDataSetList()
{
    TMrvUtils::AddLogMessage(QStringLiteral("Try create TDataSetList instance..."));
    FDefferdDeleteDataSet = std::make_unique<TDefferdDeleteDataSet>(this);
    FDefferedAddField = std::make_unique<TDefferedFieldCallback>(this, FieldsAdded);
    FDefferedDeleteField = std::make_unique<TDefferedFieldCallback>(this, FieldsDeleted);
    FDefferedOnSessionChange = std::make_unique<TDefferedOnSessionChange>(this);
    FDefferedDescendantFieldCallBack = std::make_unique<TDefferedDescendantFieldCallBack>(this);
    FSvcManager = std::make_unique<TSvcManager>(nullptr, this);
    WireHandlers();
    TMrvUtils::AddLogMessage(QStringLiteral("TDataSetList instance created"));
}

void TDataSetList::WireHandlers()
{
    using std::placeholders::_1, std::placeholders::_2, std::placeholders::_3, std::placeholders::_4;
    auto& manager = *FSvcManager;
    manager.FComponentRenamed = std::bind(&TDataSetList::OnComponentRenamed, this, _1, _2, _3, _4);
    manager.FOnPackageInstalled = std::bind(&TDataSetList::OnPackageInstalled, this, _1);
    manager.FFileNotification = std::bind(&TDataSetList::OnFileNotification, this, _1, _2, _3, _4);
    manager.FOnProjectDestroyed = std::bind(&TDataSetList::OnProjectClose, this, _1);
    manager.FOnModuleRenamed = std::bind(&TDataSetList::OnModuleRenamed, this, _1, _2, _3);
    manager.FOnSelectionChanged = std::bind(&TDataSetList::OnSelectionChanged, this, _1, _2);
    auto& notification = *manager.FDesignNotification;
    notification.FOnItemsModified = std::bind(&TDataSetList::OnItemModified, this, _1, _2);
    notification.FOnItemDeleted = std::bind(&TDataSetList::OnItemDeleted, this, _1, _2, _3);
    notification.FOnItemInserted = std::bind(&TDataSetList::OnItemInserted, this, _1, _2, _3);
}

TDataSetList::~TDataSetList()
{
    try {
        FDefferdDeleteDataSet.reset();
        FDefferedAddField.reset();
        FDefferedDeleteField.reset();
        FDefferedOnSessionChange.reset();
        FSelectionChache.Clear();
        FDefferedDescendantFieldCallBack.reset();
        Clear();
        // A destructor raises nothing: what fails in taking leave of the IDE does so here.
        FSvcManager->TearDown();
        FSvcManager.reset();
    } catch (const std::exception& exception) {
        TMrvUtils::LogFailure(QStringLiteral("TDataSetList.Destroy - failed"), exception);
    }
    CutBackRefs();
}

void TDataSetList::IntfDestroyObject()
{
    // Those who still hold the list find it empty and deaf; it is gone with the last of them.
    const InterfacePtr<TDataSetList> held(this);
    RegisterEvents(nullptr);
    GoDormant();
    FSelectionChache.Clear();
    Clear();
}

void TDataSetList::Clear()
{
    FItem.Clear();
    FConnectionItem.Clear();
    FFormItem.Clear();
}

void TDataSetList::RegisterEvents(const InterfacePtr<IMrvEvents>& events)
{
    auto* served = GServedList.get();
    if (events && served && served != this && served->FEvents == events)
        served->RegisterEvents(nullptr);
    FEvents = events;
    if (FSvcManager)
        FSvcManager->RegisterEvents(events);
    if (events)
        GServedList = this;
}

void TDataSetList::IntfRegisterConfigurationService(const InterfacePtr<IMrvConfigurationService>& service)
{
    FConfigurationService = service;
    FSvcManager->FConfigurationService = service;
}

void TDataSetList::IntfRegisterProjectNotifier()
{
    FSvcManager->RegisterProjectNotifier();
}

void TDataSetList::Resurrect()
{
    if (!FDormant)
        return;
    FDormant = false;
    BuildDataSetList(true);
    if (FEvents)
        FEvents->OnRefreshDatasetList(QString(), rmFullRefresh);
}

int TDataSetList::SetActiveDesignerModified()
{
    if (const auto designer = FSvcManager->GetActiveDesigner())
        designer->Modified();
    return 0;
}

void TDataSetList::GetActiveProjectName(QString& name)
{
    FSvcManager->GetActivePrj();
    name = FSvcManager->FProjectName;
}

WordBool TDataSetList::IsModuleFromProject(const QString& fileName)
{
    return FSvcManager->IsModuleFromProject(fileName);
}

void TDataSetList::IntfCreateSelectionList(InterfacePtr<IMrvSelectionList>& list)
{
    list = New<TMrvSelectionList>();
}

void TDataSetList::IntfPreferencesWasChanged()
{
    for (int i = 0; i < GetItemCount(); ++i) {
        auto* attr = GetItem(i);
        for (int field = 0; field < attr->GetFieldCount(); ++field)
            attr->GetField(field)->EnumDBControlList(true);
        for (int def = 0; def < attr->GetFieldDefsCount(); ++def)
            attr->GetFieldDefs(def)->EnumDBControlList(true);
        attr->EnumDBControlList(true);
    }
}

void TDataSetList::IntfGetClassTypeByName(const QString& className, TControlType& type)
{
    for (auto walk = FindClass(className); walk; walk = walk.ClassParent()) {
        if (walk.ClassNameIs(u"TDataSet")) {
            type = ctDataSet;
            return;
        }
        if (walk.ClassNameIs(u"TField")) {
            type = ctField;
            return;
        }
    }
}

void TDataSetList::Select(TPersistent* persistent, bool append)
{
    DisableEvents(deSelectionChanged);
    const Finally enable([this] { EnableEvents(deSelectionChanged); });
    TMrvUtils::SelectComponent(FSvcManager->GetActiveDesigner(), persistent, append);
}

void TDataSetList::SelectFieldDefs(const InterfacePtr<IMrvFieldDefAttr>& fieldDef, WordBool append)
{
    TPersistent* proxy = nullptr;
    fieldDef->GetFieldDefsProxy(proxy);
    Select(proxy, append);
    SetActiveDesignerModified();
}

void TDataSetList::SelectOne(IMrvCustomComponentAttr& item, const InterfacePtr<IDesigner>& activeDesigner)
{
    if (item.IsDeleted())
        return;
    TPersistent* persistent = nullptr;
    item.IntfGetPersistent(persistent);
    if (!persistent)
        return;
    auto designer = InterfaceCast<IDesigner>(FindRootDesigner(persistent));
    if (!designer)
        designer = activeDesigner;
    designer->Activate();
    designer->SelectComponent(persistent);
}

void TDataSetList::IntfSetSelections(const InterfacePtr<IMrvSelectionList>& list)
{
    const auto designer = FSvcManager->GetActiveDesigner();
    if (!designer)
        return;
    InterfacePtr<IMrvCustomComponentAttr> item;
    if (list->Count() == 1) {
        list->GetItem(0, item);
        if (item)
            SelectOne(*item, designer);
        return;
    }
    const auto selections = CreateSelectionList();
    for (int i = 0; i < list->Count(); ++i) {
        list->GetItem(i, item);
        TPersistent* persistent = nullptr;
        if (item && !item->IsDeleted())
            item->IntfGetPersistent(persistent);
        if (persistent)
            selections->Add(persistent);
    }
    DisableEvents(deSelectionChanged);
    const Finally enable([this] { EnableEvents(deSelectionChanged); });
    if (selections->GetCount() > 0)
        designer->SetSelections(selections);
}
