#pragma once

#include "model/MrvTypes.h"
#include "rtl/InterfacePtr.h"

// What a tree node carries: its kind and a counted reference to the wrapper behind it, or nil.
class TNodeData {
public:
    TNodeData(TNodeDataType nodeType, const InterfacePtr<IInterface>& dataRef)
        : FNodeType(nodeType)
        , FDataRef(dataRef)
    {
    }
    TNodeData(const TNodeData&) = delete;
    TNodeData& operator=(const TNodeData&) = delete;
    // An object that no longer answers as the model's objects do counts as gone: it is let go without a call.
    ~TNodeData();

    TNodeDataType GetNodeType() const { return FNodeType; }
    const InterfacePtr<IInterface>& GetDataRef() const { return FDataRef; }

private:
    TNodeDataType FNodeType;
    InterfacePtr<IInterface> FDataRef;
};
