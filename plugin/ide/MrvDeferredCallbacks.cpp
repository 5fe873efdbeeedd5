#include "ide/MrvDeferredCallbacks.h"

#include "data/TDataSet.h"
#include "data/TField.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvClasses.h"
#include "rtl/Guard.h"
#include "support/MrvUtils.h"

namespace {

// Action codes of OnRefershChildObject that this unit sends or tells apart.
constexpr int FieldAdded = 0;
constexpr int FieldsAdded = 3;
constexpr int FieldsDeleted = 4;

}

TDefferedCallback::TDefferedCallback(TDataSetList* dataSetList)
    : FDataSetList(dataSetList)
{
    FTimer.SetEnabled(false);
    FTimer.SetInterval(50);
    FTimer.OnTimer = [this](TTimer* timer) {
        // Whatever the work leads to, the list that owns this object outlives the tick.
        const InterfacePtr<TDataSetList> held(FDataSetList);
        OnTimer(timer);
    };
}

void TDefferedCallback::AddItem(TCustomComponentAttr*, bool) { }

void TDefferedCallback::ResetTimer()
{
    FTimer.SetEnabled(false);
    if (!FDataSetList->FSvcManager->FProjectDestroyed)
        FTimer.SetEnabled(true);
}

void TDefferedCallback::Tick(const QString& failureText, const std::function<void()>& work)
{
    FTimer.SetEnabled(false);
    try {
        work();
    } catch (const std::exception& exception) {
        TMrvUtils::LogFailure(failureText, exception);
    }
}

TDefferdDeleteDataSet::TDefferdDeleteDataSet(TDataSetList* dataSetList)
    : TDefferedCallback(dataSetList)
{
    FTimer.SetInterval(100);
}

void TDefferdDeleteDataSet::AddItem(TCustomComponentAttr* item, bool)
{
    ResetTimer();
    item->FDeleted = true;
    ++FCount;
}

void TDefferdDeleteDataSet::OnTimer(TTimer*)
{
    Tick(QStringLiteral("TDefferdDeleteDataSet.Timer - failed!"), [this] {
        if (FCount <= 0)
            return;
        const Finally nothingPending([this] { FCount = 0; });
        // The tree is told while the wrappers are still there.
        if (FDataSetList->FEvents)
            FDataSetList->FEvents->OnComponentDelete();
        FDataSetList->DeleteItems();
    });
}

TDefferedFieldCallback::TDefferedFieldCallback(TDataSetList* dataSetList, int action)
    : TDefferedCallback(dataSetList)
    , FAction(action)
{
}

TDefferedFieldCallback::~TDefferedFieldCallback() = default;

void TDefferedFieldCallback::AddItem(TCustomComponentAttr* item, bool)
{
    ResetTimer();
    auto* attr = dynamic_cast<TDataSetAttr*>(item);
    const InterfacePtr<TDataSetAttr> held(attr);
    if (attr && !FDataSetAttrList.contains(held))
        FDataSetAttrList << held;
}

void TDefferedFieldCallback::OnTimer(TTimer*)
{
    // One text for both instances, also for the one that deletes.
    Tick(QStringLiteral("TDefferedAddField.Timer - failed!"), [this] {
        const auto events = FDataSetList->FEvents;
        if (!events || FDataSetAttrList.isEmpty())
            return;
        if (FNeedBeginUpdate)
            events->BeginUpdate();
        const Finally endUpdate([this, events] {
            FDataSetAttrList.clear();
            if (FNeedBeginUpdate)
                events->EndUpdate(FAction == FieldAdded || FAction == FieldsAdded);
        });
        for (const auto& attr : QList(FDataSetAttrList))
            Report(attr);
    });
}

void TDefferedFieldCallback::Report(const InterfacePtr<TDataSetAttr>& attr)
{
    FDataSetList->FEvents->OnRefershChildObject(attr, QString(), FAction);
    if (FAction == FieldsDeleted)
        RemoveDeletedFields(attr);
}

void TDefferedFieldCallback::RemoveDeletedFields(const InterfacePtr<TDataSetAttr>& attr)
{
    const auto events = FDataSetList->FEvents;
    events->BeginDelete();
    const Finally endDelete([&events] { events->EndDelete(); });
    for (int i = attr->GetFieldCount() - 1; i >= 0; --i)
        if (attr->GetField(i)->FDeleted)
            attr->DeleteField(i);
    attr->UpdateFieldDefs(false);
    events->OnRefreshFieldDefs(attr);
}

void TDefferedOnSessionChange::AddItem(TCustomComponentAttr* item, bool flag)
{
    auto* attr = dynamic_cast<TDataSetAttr*>(item);
    if (!attr)
        return;
    attr->FSessionChanged = true;
    if (flag)
        OnTimer(&FTimer);
    else
        ResetTimer();
}

void TDefferedOnSessionChange::OnTimer(TTimer*)
{
    Tick(QStringLiteral("TDefferedOnSessionChange.OnTimer - failed!"), [this] {
        if (FDataSetList->FEvents)
            FDataSetList->FEvents->OnSessionChanged();
        if (FDataSetList->FMastersMayDiffer)
            FDataSetList->RefreshMasters({});
    });
    // Nobody disables it; the step stays the last of the tick.
    FDataSetList->EnableEvents(deOnItemModified);
}

void TDefferedDescendantFieldCallBack::AddItem(TField* field, int action)
{
    FFieldList << WeakRef<TPersistent>(field);
    FActionList << action;
    ResetTimer();
}

void TDefferedDescendantFieldCallBack::OnTimer(TTimer*)
{
    Tick(QStringLiteral("TDefferedDescendantFieldCallBack.OnTimer - failed!"), [this] {
        const auto events = FDataSetList->FEvents;
        if (!events)
            return;
        events->BeginUpdate();
        const Finally endUpdate([this, events] {
            events->EndUpdate(false);
            FFieldList.clear();
            FActionList.clear();
        });
        for (int i = 0; i < FFieldList.size(); ++i) {
            auto* field = dynamic_cast<TField*>(FFieldList[i].get());
            if (!field)
                continue;
            if (auto* attr = FDataSetList->GetDataSetAttrByObj(field->DataSet()))
                FDataSetList->DoRefreshChildObject(FDataSetList, attr, field, field->Name(), FActionList[i]);
        }
    });
}
