// Masters and details: a dataset's master stands below it in the tree, and may come, go and change without the detail.

#include "data/TCustomZADataSet.h"
#include "data/TDataSource.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "rtl/SysUtils.h"

namespace {

// Looks no component up.
TDataSet* MasterOf(const TDataSetAttr& attr)
{
    auto* dataSet = dynamic_cast<TCustomZADataSet*>(attr.FComponent.get());
    const auto* source = dataSet ? dataSet->MasterSource() : nullptr;
    return source ? source->DataSet() : nullptr;
}

}

bool TDataSetList::TakeMaster(TDataSetAttr& attr) const
{
    auto* dataSet = attr.FDeleted ? nullptr : MasterOf(attr);
    auto* master = dataSet ? GetDataSetAttrByObj(dataSet) : nullptr;
    if (attr.FMaster == master)
        return false;
    attr.FMaster = TBackRef<TDataSetAttr>(master);
    return true;
}

void TDataSetList::RefreshMasters(const QString& drawnUnit)
{
    FMastersMayDiffer = false;
    QStringList units;
    for (int i = 0; i < GetItemCount(); ++i) {
        auto* attr = GetItem(i);
        if (TakeMaster(*attr) && !SameText(attr->FUnitName, drawnUnit) && !units.contains(attr->FUnitName))
            units << attr->FUnitName;
    }
    for (const auto& unit : std::as_const(units))
        if (FEvents)
            FEvents->OnRefreshDatasetList(unit, rmAdd);
}
