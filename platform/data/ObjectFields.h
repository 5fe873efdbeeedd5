#pragma once

#include "data/TField.h"

// A field that is made of fields. They belong to their form like any other field, and go with it.
class TObjectField : public TField {
    MRV_CLASS
    explicit TObjectField(TComponent* owner = nullptr)
        : TObjectField(owner, ftADT)
    {
    }
    ~TObjectField() override;
    TFields& Fields() { return FChildren; }
    const TFields& Fields() const { return FChildren; }
    int FieldCount() const { return FChildren.Count(); }
    // The name of the type in the database; empty for one without a name.
    QString ObjectType() const { return StoredValue(QStringLiteral("ObjectType"), QString()).toString(); }

protected:
    TObjectField(TComponent* owner, TFieldType type, int size = 0);

private:
    TFields FChildren;
};

// Parts with names: Address.City.
class TADTField : public TObjectField {
    MRV_CLASS
    explicit TADTField(TComponent* owner = nullptr)
        : TObjectField(owner, ftADT)
    {
    }
};

// Size elements of one type: Phones[0].
class TArrayField : public TObjectField {
    MRV_CLASS
    explicit TArrayField(TComponent* owner = nullptr)
        : TObjectField(owner, ftArray, 10)
    {
    }
};

// Records inside the record.
class TDataSetField : public TObjectField {
    MRV_CLASS
    explicit TDataSetField(TComponent* owner = nullptr)
        : TDataSetField(owner, ftDataSet)
    {
    }

protected:
    using TObjectField::TObjectField;
};

// A record of another table that the record points at.
class TReferenceField : public TDataSetField {
    MRV_CLASS
    explicit TReferenceField(TComponent* owner = nullptr)
        : TDataSetField(owner, ftReference)
    {
    }
};
