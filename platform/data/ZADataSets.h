#pragma once

#include "data/TCustomZADataSet.h"
#include "data/TParams.h"

// Our own datasets: they publish the parts of the family under its plain names.

// The rows of a statement.
class TZAQuery : public TCustomZADataSet {
    MRV_CLASS
    explicit TZAQuery(TComponent* owner = nullptr);
    TStrings& SQL() { return FSQL; }
    TParams& Params() { return FParams; }

private:
    TStrings FSQL;
    TParams FParams;
};

// The rows of a table.
class TZATable : public TCustomZADataSet {
    MRV_CLASS
    using TCustomZADataSet::TCustomZADataSet;
};

// The rows that a stored procedure gives.
class TZAStoredProc : public TCustomZADataSet {
    MRV_CLASS
    explicit TZAStoredProc(TComponent* owner = nullptr);
    TParams& Params() { return FParams; }

private:
    TParams FParams;
};

// A table that lives with the form: its definitions are edited at design time and stand in the form file. It has no
// rows before its program fills it, and Update leaves its definitions alone.
class TZAScratchTable : public TCustomZADataSet {
    MRV_CLASS
    using TCustomZADataSet::TCustomZADataSet;

protected:
    bool DescribeColumns(QList<TDataColumn>& columns) override;
    TRowSet ReadRows() override;
};
