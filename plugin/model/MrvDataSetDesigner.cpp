#include "model/MrvDataSetDesigner.h"

void TMrvDataSetDesigner::DataEvent(TDataEvent event, qintptr info)
{
    if (FOnDataEvent)
        FOnDataEvent(event, info);
}

TDataSetDesignerScope::TDataSetDesignerScope(TDataSet* dataSet)
    : FDesigner(dynamic_cast<TDSDesigner*>(dataSet->Designer()))
{
    if (FDesigner)
        return;
    FOwn = std::make_unique<TMrvDataSetDesigner>(dataSet);
    FDesigner = FOwn.get();
}
