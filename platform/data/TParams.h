#pragma once

#include "classes/TPersistent.h"
#include "data/TFieldType.h"

class TParams;

// A parameter of a statement: ":Name" in its text.
class TParam : public TCollectionItem {
    MRV_CLASS
    explicit TParam(TParams* params);
    const QString& Name() const { return FName; }
    void SetName(const QString& name);
    TFieldType DataType() const { return FDataType; }
    void SetDataType(TFieldType type);
    // Invalid where the form gives none.
    QVariant Value() const { return StoredValue(QStringLiteral("Value")); }
    void SetValue(const QVariant& value) { SetStoredValue(QStringLiteral("Value"), value); }

private:
    QString FName;
    TFieldType FDataType = ftUnknown;
};

// The parameters of a statement, as the form file holds them.
class TParams : public TCollection {
    MRV_CLASS
    explicit TParams(TPersistent* owner = nullptr, const QString& property = QStringLiteral("Params"));
    // Raises EListError outside the range.
    TParam* Items(int index) const;
    // Without regard to case, or nil.
    TParam* FindParam(const QString& name) const;
};
