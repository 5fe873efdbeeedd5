#pragma once

#include "data/TDataSet.h"

class TDataLink;

// What data-bound controls stand on: one place that says which dataset they show. Its dataset may stand on another
// form; when that goes the reference is cleared, which counts as a change of the property.
class TDataSource : public TComponent {
    MRV_CLASS
    explicit TDataSource(TComponent* owner = nullptr);
    ~TDataSource() override;

    TDataSet* DataSet() const { return FDataSet; }
    void SetDataSet(TDataSet* dataSet);
    // A data source that is off passes nothing on.
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool enabled);

    // Called when other data is to be shown: another dataset, another record, opened, closed. The field is the one that
    // alone changed, or nil. Not the published OnDataChange, which names a method of the form's program.
    using TDataChangeEvent = std::function<void(TDataSource* sender, TField* field)>;
    void SetOnDataChange(TDataChangeEvent handler) { FOnDataChange = std::move(handler); }

    // Called by the dataset.
    void DataEvent(TDataEvent event, qintptr info);

private:
    friend class TDataLink;
    friend class TDataSet;
    TDataSet* FDataSet = nullptr;
    QList<TDataLink*> FLinks;
    TDataChangeEvent FOnDataChange;
    bool FEnabled = true;
};
