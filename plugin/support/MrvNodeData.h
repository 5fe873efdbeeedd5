#pragma once

#include "model/MrvTypes.h"
#include "rtl/InterfacePtr.h"
#include "rtl/TObject.h"

// What a tree node carries: its kind and a counted reference to the wrapper behind it, or nil.
class TNodeData : public TObject {
public:
    TNodeData(TNodeDataType nodeType, const InterfacePtr<IInterface>& dataRef)
        : FNodeType(nodeType)
        , FDataRef(dataRef)
    {
    }
    // An object that no longer answers as the model's objects do counts as gone: it is let go without a call.
    ~TNodeData() override;

    TNodeDataType GetNodeType() const { return FNodeType; }
    const InterfacePtr<IInterface>& GetDataRef() const { return FDataRef; }

private:
    TNodeDataType FNodeType;
    InterfacePtr<IInterface> FDataRef;
};
