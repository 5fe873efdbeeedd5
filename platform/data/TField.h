#pragma once

#include "classes/TComponent.h"
#include "data/TFieldType.h"
#include "data/TFields.h"

class TDataSet;
class TObjectField;
class TFieldDef;

// A column of a dataset. A persistent field is a component that the dataset's owner owns; while a dataset without
// persistent fields is open it has fields of its own instead, which the dataset owns and drops when it closes.
//
// A field stands in the list of its dataset, or of the object field that it is a child of, and leaves it when it goes;
// it goes with its dataset. Properties that only the program of a form needs (DisplayFormat, events ...) are kept as
// they were given.
class TField : public TComponent {
    MRV_CLASS
    explicit TField(TComponent* owner = nullptr);
    ~TField() override;

    // Nil while the field stands nowhere. Setting it moves the field to the end of that dataset's fields. The dataset
    // of a child field is that of its parent field.
    TDataSet* DataSet() const;
    void SetDataSet(TDataSet* dataSet);
    // The object field that this one is a child of, or nil.
    TObjectField* ParentField() const { return FParentField; }
    void SetParentField(TObjectField* parent);
    TComponent* GetParentComponent() const override;
    void SetParentComponent(TComponent* parent) override;

    const QString& FieldName() const { return FFieldName; }
    // Raises EDatabaseError for a name that another field of the list bears, but not while the form is being read.
    void SetFieldName(const QString& fieldName);
    // The path from the dataset: "Address.City", "Phones[0]".
    QString FullName() const;
    // The position in the dataset or the parent field; -1 while the field stands nowhere. Setting it moves the field,
    // to the nearest end where the position is outside, and reports "Index" as changed.
    int Index() const { return FFields ? FFields->IndexOf(this) : -1; }
    void SetIndex(int index);
    // The number of its definition (from 1); 0 for a field without one, and for one that is no data field.
    int FieldNo() const;

    virtual TFieldType DataType() const { return FDataType; }
    TFieldKind FieldKind() const { return FFieldKind; }
    void SetFieldKind(TFieldKind kind);
    int Size() const { return FSize; }
    void SetSize(int size);
    int Precision() const { return FPrecision; }
    void SetPrecision(int precision);
    bool Required() const { return FRequired; }
    void SetRequired(bool required);
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool readOnly);
    bool Visible() const { return FVisible; }
    void SetVisible(bool visible);

    // What stands above the field's values: the label of the form file, else the field's name.
    QString DisplayName() const;
    // The label as the form file has it; empty without one.
    QString DisplayLabel() const;
    void SetDisplayLabel(const QString& label);
    // The column width in characters: as the form file has it, else by type and size.
    int DisplayWidth() const;
    QString Origin() const;
    void SetOrigin(const QString& origin);

    // Takes type, size and the like of the definition; FieldName and place stay as they are.
    virtual void AssignDef(const TFieldDef& def);

    // The value in the dataset's current record; invalid without one, null for a null.
    QVariant Value() const;
    bool IsNull() const { return Value().isNull(); }
    // The value as a grid shows it; empty for a null.
    virtual QString DisplayText() const;

protected:
    TField(TComponent* owner, TFieldType dataType, int size = 0);
    void SetDataType(TFieldType type) { FDataType = type; }
    virtual int DefaultDisplayWidth() const { return FSize > 0 ? FSize : 10; }

private:
    friend class TFields;
    friend class TDataSet;
    friend class TObjectField;
    void Leave();

    TDataSet* FDataSet = nullptr;
    TObjectField* FParentField = nullptr;
    TFields* FFields = nullptr;
    QString FFieldName;
    mutable int FIndex = -1;
    // The column of the open dataset that holds the value; -1 while there is none.
    int FColumn = -1;
    int FSize = 0;
    int FPrecision = 0;
    TFieldType FDataType = ftUnknown;
    TFieldKind FFieldKind = fkData;
    bool FRequired = false;
    bool FReadOnly = false;
    bool FVisible = true;
};
