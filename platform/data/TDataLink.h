#pragma once

#include "data/TDataSet.h"

class TDataSource;

// What a data-bound control listens through: it hears what happens to the dataset behind a data source. The control
// owns it. It lets go of the data source by itself when that goes.
class TDataLink {
public:
    TDataLink() = default;
    TDataLink(const TDataLink&) = delete;
    TDataLink& operator=(const TDataLink&) = delete;
    virtual ~TDataLink();

    TDataSource* DataSource() const { return FDataSource; }
    void SetDataSource(TDataSource* dataSource);
    // The dataset behind the data source, or nil.
    TDataSet* DataSet() const;
    // Something happened to it; deLayoutChange also when the data source got another dataset or went.
    virtual void DataEvent(TDataEvent event, qintptr info) = 0;

private:
    friend class TDataSource;
    TDataSource* FDataSource = nullptr;
};
