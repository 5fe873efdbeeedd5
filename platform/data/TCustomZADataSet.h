#pragma once

#include "data/TDataSet.h"

class TCustomZAConnection;

// The family of datasets that reach their rows through a connection component. The parts of a class (its connection,
// statement, parameters, master) are found by the roles of the class; see DataRoles.h.
class TCustomZADataSet : public TDataSet {
    MRV_CLASS
    explicit TCustomZADataSet(TComponent* owner = nullptr);
    ~TCustomZADataSet() override;

    TCustomZAConnection* GetConnection() const { return FConnection; }
    // Writes the property of the class that holds the connection. Nil clears it. Raises EPropertyError for a connection
    // that the property cannot hold.
    void SetConnection(TCustomZAConnection* connection);

    // The data source of the dataset that this one follows, or nil.
    TDataSource* MasterSource() const;
    // What the dataset shows, with the values of its master's current record where the master has rows.
    TStatement Statement() const;
    // The definitions that Update brought are out of date.
    void ForgetDefinitions();

protected:
    bool DescribeColumns(QList<TDataColumn>& columns) override;
    TRowSet ReadRows() override;
    void PropertyChanged(const QString& property) override;

private:
    friend class TCustomZAConnection;
    void TakeConnection(TCustomZAConnection* connection);
    TCustomZAConnection& NeedConnection() const;
    IDataAccess& NeedAccess() const;
    void UseOwnTypes(QList<TDataColumn>& columns) const;

    TCustomZAConnection* FConnection = nullptr;
};
