#pragma once

#include "data/TDataSetDesigner.h"

#include <functional>
#include <memory>

using TDataEventNotify = std::function<void(TDataEvent event, qintptr info)>;

// The dataset designer that the plug-in attaches where a dataset has no open fields editor, so that it can create
// fields.
class TMrvDataSetDesigner : public TDSDesigner {
public:
    using TDSDesigner::TDSDesigner;
    void DataEvent(TDataEvent event, qintptr info) override;

    TDataEventNotify FOnDataEvent;
};

// The designer of a dataset for one piece of work: its own if it has one, else one of ours that goes at the end.
class TDataSetDesignerScope {
public:
    explicit TDataSetDesignerScope(TDataSet* dataSet);
    TDSDesigner* operator->() const { return FDesigner; }
    TDSDesigner* get() const { return FDesigner; }

private:
    std::unique_ptr<TMrvDataSetDesigner> FOwn;
    TDSDesigner* FDesigner;
};
