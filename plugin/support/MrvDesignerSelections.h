#pragma once

#include "classes/TPersistent.h"
#include "design/DesignIntf.h"
#include "rtl/TInterfacedObject.h"

// The plug-in's own selection list for a designer. It holds its objects weakly.
class TDesignerSelections : public Implements<TInterfacedObject, IDesignerSelections> {
public:
    int Add(TPersistent* item) override;
    bool Equals(IDesignerSelections* other) override;
    TPersistent* Get(int index) override { return FList.at(index).get(); }
    int GetCount() override { return int(FList.size()); }
    InterfacePtr<IDesignObject> GetDesignObject(int index) override;

private:
    QList<WeakRef<TPersistent>> FList;
};
