#pragma once

#include "model/MrvCustomComponentAttr.h"

using TConnectionAttrClass = TCustomComponentAttrClass;

// A connection: a group node of the tree.
class TConnectionAttr : public Implements<TCustomComponentAttr, IMrvConnectionAttr> {
public:
    TConnectionAttr(TCustomComponentAttr* owner, TClass classType, TSvcManager* svcManager, TDataSetList* dataSetList);
    ~TConnectionAttr() override;
    void SetComponent(TComponent* component) override;
    // The same text as TDataSetAttr::GetSessionName of a dataset of this connection: the tree matches by it. From the
    // stored names for a connection that has gone.
    void GetSessionName(QString& name) override;

    // The connection's state when last seen.
    bool FConnected = false;
};
