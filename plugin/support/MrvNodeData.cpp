#include "support/MrvNodeData.h"

#include "model/MrvInterfaces.h"
#include "support/MrvUtils.h"

TNodeData::~TNodeData()
{
    if (FDataRef && !InterfaceCast<IMrvCustomComponentAttr>(FDataRef))
        FDataRef.ClearWithoutRelease();
}

TNodeData* TMrvUtils::CreateNodeData(TNodeDataType nodeType, const InterfacePtr<IInterface>& dataRef)
{
    return new TNodeData(nodeType, dataRef);
}
