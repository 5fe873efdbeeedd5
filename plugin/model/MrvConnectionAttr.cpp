#include "model/MrvConnectionAttr.h"

#include "data/TCustomZAConnection.h"
#include "model/MrvDataSetList.h"

TConnectionAttr::TConnectionAttr(
    TCustomComponentAttr* owner, TClass classType, TSvcManager* svcManager, TDataSetList* dataSetList)
    : Implements(owner, classType, svcManager, dataSetList, u"TConnectionAttr")
{
}

TConnectionAttr::~TConnectionAttr() = default;

void TConnectionAttr::SetComponent(TComponent* component)
{
    TCustomComponentAttr::SetComponent(component);
    if (const auto* connection = dynamic_cast<TCustomZAConnection*>(component))
        FConnected = connection->Connected();
}

void TConnectionAttr::GetSessionName(QString& name)
{
    // The last known object is enough: to ask for a new one would open a closed form for its name.
    const auto* component = FComponent.get();
    const bool isNamed
        = component && component->Owner() && !component->Name().isEmpty() && !component->Owner()->Name().isEmpty();
    name = isNamed ? TDataSetList::MakeSessionName(component->Name(), component->Owner()->Name())
                   : TDataSetList::MakeSessionName(FComponentName, FFormName);
}
