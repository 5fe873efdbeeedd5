#include "ide/MrvDragAndDropIntf.h"

#include "classes/Controls.h"
#include "ide/MrvServicesProxy.h"
#include "model/MrvDropDesigner.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"

#include <QGuiApplication>
#include <QWindow>

namespace {

const TMrvDragList& DraggedItems(TDragObject* source)
{
    const auto* drag = dynamic_cast<TMrvDragDBControl*>(source);
    if (!drag)
        throw EInvalidCast(QStringLiteral("Invalid class typecast"));
    return drag->FSelList;
}

QString NameOf(const TComponent* component)
{
    return component ? component->Name() : QString();
}

// The parent's and the owner's name for a control that is dropped there. A drop on a record panel lands on what holds
// the panel.
std::pair<QString, QString> DropNames(TPersistent* target)
{
    auto* component = dynamic_cast<TComponent*>(target);
    auto* owner = component ? component->Owner() : nullptr;
    if (auto* panel = dynamic_cast<TDBCtrlPanel*>(target))
        return { NameOf(panel->Parent()), NameOf(owner ? owner->Owner() : nullptr) };
    return { NameOf(component), NameOf(owner) };
}

bool IsServedPersonality(const QString& personality)
{
    return SameText(personality, u"Delphi.Personality") || SameText(personality, u"CPlusPlusBuilder.Personality");
}

bool DataSetAccepted(IMrvDataSetAttr& dataSet, TCtrlCreationMode mode, bool isDataSet)
{
    if (mode != ccmDetails)
        return isDataSet && mode != ccmNone;
    return isDataSet && (dataSet.IntfGetFieldCount() > 0 || dataSet.IntfGetFieldDefCount() > 0);
}

}

TMrvDragDBControl::TMrvDragDBControl(QObject* control, const TMrvDragList& selList)
    : TDragControlObject(control)
    , FSelList(selList)
{
}

bool TMrvDragDBControl::EveryItemAccepts(QObject* window)
{
    for (const auto& item : FSelList)
        if (!item->IntfDotNetAcceptedDragAndDrop(window))
            return false;
    return FSelList.size() > 1 || MrvDragAndDropIntf::GetDragAndDropAccepted(FSelList);
}

// The branch of the other personalities is kept with the operations that it uses; no project takes it.
int TMrvDragDBControl::GetDragCursor(bool accepted, int x, int y)
{
    FAccepted = false;
    if (!MrvApiProxy || IsServedPersonality(MrvApiProxy->FProjectPersonality))
        return TDragControlObject::GetDragCursor(accepted, x, y);
    FCursorPoint = { x, y };
    FAccepted = EveryItemAccepts(QGuiApplication::topLevelAt(FCursorPoint));
    return FAccepted ? crDrag : TDragControlObject::GetDragCursor(accepted, x, y);
}

// Exact on purpose, unlike the cursor: the drag of a C++Builder project ends here without a step of its own.
void TMrvDragDBControl::Finished(QObject* target, int x, int y, bool accepted)
{
    if (!MrvApiProxy || MrvApiProxy->FProjectPersonality == QLatin1String("Delphi.Personality")) {
        TDragControlObject::Finished(target, x, y, accepted);
        return;
    }
    if (!FAccepted)
        return;
    auto* window = QGuiApplication::topLevelAt(FCursorPoint);
    int runningY = window ? window->mapFromGlobal(FCursorPoint).y() : FCursorPoint.y();
    for (const auto& item : FSelList)
        runningY = item->IntfDotNetCreateControl(window, FCursorPoint.x(), runningY + 5, true);
}

bool TDBControlTarget::DragOver(TPersistent* target, TDragObject* source, int, int, TDragState)
{
    const auto& items = DraggedItems(source);
    return MrvDragAndDropIntf::GetDragAndDropAccepted(items) && target
        && !SameText(target->ClassName(), u"TComponentContainer");
}

void TDBControlTarget::DragDrop(TPersistent* target, TDragObject* source, int x, int y)
{
    const auto [parentName, ownerName] = DropNames(target);
    const TDropDesigner drop(Designer());
    for (const auto& item : TMrvDragList(DraggedItems(source)))
        y = item->IntfCreateControl(parentName, ownerName, x, y + 5, true);
}

InterfacePtr<IMrvDataSetList> MrvDragAndDropIntf::GetDataSetList()
{
    return MrvApiProxy ? MrvApiProxy->GetDataSetList() : nullptr;
}

bool MrvDragAndDropIntf::GetDragAndDropAccepted(const TMrvDragList& list)
{
    if (list.size() != 1)
        return !list.isEmpty();
    const auto& item = list.first();
    const bool isDataSet = TMrvUtils::IsDataSetDescendant(item.get());
    TCtrlCreationMode mode = ccmNone;
    item->IntfGetCtrlCreationMode(mode);
    if (const auto dataSet = InterfaceCast<IMrvDataSetAttr>(item))
        return DataSetAccepted(*dataSet, mode, isDataSet);
    return mode != ccmNone;
}

void MrvDragAndDropIntf::Initialization()
{
    const auto makeTarget
        = [](const InterfacePtr<IDesigner>& designer) { return std::make_unique<TDBControlTarget>(designer); };
    try {
        TMrvUtils::AddLogMessage(QStringLiteral("MrvDragAndDropIntf.Initialization - Try Register DragTarget"));
        RegisterDragTarget(QStringLiteral("TMrvDragDBControl"), makeTarget);
        TMrvUtils::AddLogMessage(QStringLiteral("MrvDragAndDropIntf.Initialization - success"));
    } catch (...) {
        TMrvUtils::AddLogMessage(QStringLiteral("MrvDragAndDropIntf.Initialization - Failed"));
    }
}
