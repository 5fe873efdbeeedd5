#pragma once

#include "rtl/InterfacePtr.h"

#include <QString>

#include <functional>
#include <memory>

class IDesigner;
class TDataSet;
class TDSDesigner;
class TField;

// The platform's dialog that defines a new field of a dataset. The caller sets it up, shows it and lets it go; the
// dialog makes the field through the dataset's designer before ShowModal returns.
class TDefineField {
public:
    TDefineField() = default;
    TDefineField(const TDefineField&) = delete;
    TDefineField& operator=(const TDefineField&) = delete;
    virtual ~TDefineField() = default;

    // What makes the field.
    virtual void SetDSDesigner(TDSDesigner* designer) = 0;
    // The designer of the form that the dataset stands on.
    virtual void SetDesigner(const InterfacePtr<IDesigner>& designer) = 0;
    virtual void SetDataset(TDataSet* dataSet) = 0;
    // The radio group of field kinds: data, calculated and lookup stand there in 3 columns; more can be added.
    virtual int Columns() const = 0;
    virtual void SetColumns(int columns) = 0;
    virtual void AddKind(const QString& text) = 0;
    // Gives the modal result; 1 is a field that was made.
    virtual int ShowModal() = 0;
    // The new field; nil without one.
    virtual TField* Field() const = 0;
};

// The dialog of whoever can show one. Without a maker the dialog is one that is cancelled at once.
using TDefineFieldMaker = std::function<std::unique_ptr<TDefineField>()>;
void SetDefineFieldMaker(TDefineFieldMaker maker);
std::unique_ptr<TDefineField> MakeDefineField();
