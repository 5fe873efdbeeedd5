#pragma once

#include "classes/TComponent.h"
#include "data/TFieldDef.h"
#include "data/TFields.h"

class TDataSetDesigner;
class TDataSource;

// What happens to a dataset.
enum TDataEvent {
    deFieldChange,
    deRecordChange,
    deDataSetChange, // opened, closed, or all rows are others
    deDataSetScroll, // another record is current
    deLayoutChange,
    deUpdateRecord,
    deUpdateState,
    deCheckBrowseMode,
    dePropertyChange,
    deFieldListChange, // a field came, went, moved or has another FieldName
    deFocusControl,
    deParentScroll,
    deConnectChange,
    deReconcileError,
    deDisabledStateChange,
};

// The base of all components that have rows.
//
// It knows its fields, which belong to its form and go with it, and its definitions, which belong to it. A class that
// only a catalogue knows is one of these, or of TCustomZADataSet.
//
// Being active has two sides. The stored state is what the form file says: the published property Active. Reading and
// writing that property never opens anything. Being open is having rows: only Open makes it so, when the user asks for
// it, and it changes nothing in the form. Active() is what a plug-in sees: open, or stored as active and not closed
// since. So a look at the rows of a dataset, and closing them again, leaves its form file as it was.
class TDataSet : public TComponent {
    MRV_CLASS
    explicit TDataSet(TComponent* owner = nullptr);
    ~TDataSet() override;

    TFields& Fields() { return FFields; }
    const TFields& Fields() const { return FFields; }
    int FieldCount() const { return FFields.Count(); }
    TFieldDefs& FieldDefs() { return FFieldDefs; }
    const TFieldDefs& FieldDefs() const { return FFieldDefs; }
    const TFieldDefList& FieldDefList() const { return FFieldDefList; }
    // By full name ("Address.City"), without regard to case, or nil.
    TField* FindField(const QString& fullName) const;
    // The same; raises EDatabaseError instead of giving nil.
    TField* FieldByName(const QString& fullName) const;

    bool Active() const { return FOpen || (StoredActive() && !FClosedForNow); }
    // True makes an inactive dataset active: it opens it, except that one which was only stored as active becomes that
    // again. False closes.
    void SetActive(bool active);
    // Gets the rows. Raises EDatabaseError when they cannot be had, or when the user has not allowed it.
    void Open();
    // Lets the rows go.
    void Close();
    // Whether there are rows.
    bool IsOpen() const { return FOpen; }
    bool StoredActive() const { return StoredValue(QStringLiteral("Active"), false).toBool(); }
    void SetStoredActive(bool active);

    // The rows that were read; 0 while it is not open.
    virtual int RecordCount() const { return int(FRows.Rows.size()); }
    // The number of the current record from 1; 0 while there is none; below 0 for a class that cannot tell.
    virtual int RecNo() const { return FRecNo; }
    // Raises EDatabaseError outside the records.
    void SetRecNo(int number);
    bool Bof() const { return FBof; }
    bool Eof() const { return FEof; }
    void First();
    void Last();
    void Next() { MoveBy(1); }
    void Prior() { MoveBy(-1); }
    // Stops at the ends. Gives how far it went.
    int MoveBy(int distance);
    // There are more rows than were read.
    bool IsTruncated() const { return FRows.Truncated; }
    // The value of a column in the current record; TField::Value is the way to it.
    QVariant ColumnValue(int column) const;

    // What edits its fields at design time, or nil. The designer sets and clears itself.
    TDataSetDesigner* Designer() const { return FDesigner; }
    // Tells the data sources and the designer.
    virtual void DataEvent(TDataEvent event, qintptr info);

    // Whether aggregate and internally calculated fields have a meaning here.
    virtual bool SupportsAggregates() const;

protected:
    // The columns of the dataset, from its database. False when there is nobody to ask. Raises EDatabaseError.
    virtual bool DescribeColumns(QList<TDataColumn>& columns);
    // The rows. Raises EDatabaseError; the base class has no rows and says so.
    virtual TRowSet ReadRows();
    void PropertyChanged(const QString& property) override;

private:
    friend class TDataSource;
    friend class TDataSetDesigner;
    friend class TFieldDefs;
    void UpdateFieldDefs();
    // Lets the rows go for the time of a change of the fields; true when there were any.
    bool SuspendRows();
    void BindFields();
    void UnbindFields();
    void MakeFields();
    void DropRows();

    TFields FFields;
    TFieldDefs FFieldDefs;
    TFieldDefList FFieldDefList;
    QList<TDataSource*> FDataSources;
    TDataSetDesigner* FDesigner = nullptr;
    TRowSet FRows;
    int FRecNo = 0;
    bool FBof = true;
    bool FEof = true;
    bool FOpen = false;
    // Somebody closed what the form file stores as active.
    bool FClosedForNow = false;
    // It had rows when it was closed for now.
    bool FHadRows = false;
    // Its fields are its own, made for the time that it is open.
    bool FOwnFields = false;
};
