#pragma once

#include "classes/TPersistent.h"
#include "data/DataAccess.h"
#include "data/TFieldType.h"

#include <QFlags>

class TDataSet;
class TFieldDefs;

enum TFieldAttribute {
    faHiddenCol = 1 << 0,
    faReadonly = 1 << 1,
    faRequired = 1 << 2,
    faLink = 1 << 3,
    faUnNamed = 1 << 4, // an object whose own name does not stand in the paths of its children
    faFixed = 1 << 5,
};
Q_DECLARE_FLAGS(TFieldAttributes, TFieldAttribute)
Q_DECLARE_OPERATORS_FOR_FLAGS(TFieldAttributes)

// What is known of a column before a field is made of it. It belongs to its list of definitions. A definition of an
// object type (ftADT, ftArray ...) has child definitions; an array's are one for each element, by position.
class TFieldDef : public TCollectionItem {
    MRV_CLASS
    explicit TFieldDef(TFieldDefs* defs);
    ~TFieldDef() override;

    TFieldDefs* FieldDefs() const { return FDefs; }
    // Nil for definitions that stand in no dataset.
    TDataSet* DataSet() const;
    const QString& Name() const { return FName; }
    void SetName(const QString& name);
    TFieldType DataType() const { return FDataType; }
    void SetDataType(TFieldType type);
    // Characters of a text, digits behind the point of a decimal number, elements of an array; 0 for other types.
    int Size() const { return FSize; }
    void SetSize(int size);
    // All digits of a number; 0 where that is not known.
    int Precision() const { return FPrecision; }
    void SetPrecision(int precision);
    TFieldAttributes Attributes() const { return FAttributes; }
    void SetAttributes(TFieldAttributes attributes);
    bool Required() const { return FAttributes.testFlag(faRequired); }
    void SetRequired(bool required);
    // From 1: the column's number, which is its place in the list.
    int FieldNo() const { return Index() + 1; }

    // The class of the field that is made of it; nil for a type that no field is made of.
    TClass FieldClass() const { return DefaultFieldClass(FDataType); }

    bool HasChildDefs() const;
    // Made when first asked for.
    TFieldDefs& ChildDefs();
    const TFieldDefs* ChildDefsIfAny() const { return FChildDefs.get(); }
    TFieldDef* AddChild();
    // The definition that this one is a child of, or nil.
    TFieldDef* ParentDef() const;

private:
    void Edited(const QString& property);

    TFieldDefs* FDefs;
    QString FName;
    TFieldType FDataType = ftUnknown;
    int FSize = 0;
    int FPrecision = 0;
    TFieldAttributes FAttributes;
    std::unique_ptr<TFieldDefs> FChildDefs;
};

// The definitions of a dataset, or the children of a definition, in order.
//
// They come from the form file (a dataset that keeps its own definitions) or from Update, which asks the database.
// Those that Update brought belong to no form file: they report no change, and are not stored.
class TFieldDefs : public TCollection {
    MRV_CLASS
    explicit TFieldDefs(TDataSet* dataSet = nullptr);
    explicit TFieldDefs(TFieldDef* parent);
    TPersistent* GetOwner() const override;

    // Nil for lists that stand in no dataset.
    TDataSet* DataSet() const;
    TFieldDef* ParentDef() const { return FParentDef; }
    // Raises EListError outside the range.
    TFieldDef* Items(int index) const;
    // The definition of that name, without regard to case, or nil. This list only; paths are found by TFieldDefList.
    TFieldDef* Find(const QString& name) const;
    int IndexOfName(const QString& name) const;

    TFieldDef* AddFieldDef(const QString& name, TFieldType type, int size = 0, bool required = false);
    TCollectionItem* Add() override;
    void Delete(int index) override;
    void Clear() override;
    void Assign(TPersistent* source) override;

    // Whether the definitions are what the dataset has: those of a form file are, and those that Update brought, until
    // the statement, the table or the connection changes.
    bool Updated() const { return FUpdated; }
    void SetUpdated(bool updated) { FUpdated = updated; }
    // Asks the dataset for its definitions, which for a real table or query means its database. Leaves everything as it
    // was and raises EDatabaseError when that fails. A dataset that nobody can ask keeps what it has.
    void Update();
    // Whether the definitions came from Update.
    bool Described() const { return FDescribed; }
    // Makes the list say what these columns are. Definitions stay the same objects as far as there are as many.
    void Describe(const QList<TDataColumn>& columns);

    // Anything about the definitions or their children changed.
    void Touched();
    // Grows with every such change; for those who keep something derived of them.
    unsigned Version() const { return FVersion; }

private:
    TDataSet* FDataSet = nullptr;
    TFieldDef* FParentDef = nullptr;
    unsigned FVersion = 0;
    bool FUpdated = false;
    bool FDescribed = false;
};

// The definitions of a dataset and their children in one list, each under its path: "Address", "Address.City",
// "Phones", "Phones[0]". Belongs to its dataset; made anew when the definitions changed.
class TFieldDefList {
public:
    explicit TFieldDefList(const TFieldDefs& defs)
        : FDefs(defs)
    {
    }
    int Count() const;
    // Raises EListError outside the range.
    TFieldDef* Items(int index) const;
    // The path of that entry.
    QString Paths(int index) const;
    // The definition at that path, without regard to case, or nil.
    TFieldDef* Find(const QString& path) const;

private:
    void Need() const;
    void AddAll(const QString& prefix, const TFieldDefs& defs) const;
    void AddElements(const QString& path, const TFieldDef& array) const;
    void AddOne(const QString& path, TFieldDef* def) const;

    const TFieldDefs& FDefs;
    mutable unsigned FVersion = ~0U;
    mutable QList<std::pair<QString, TFieldDef*>> FEntries;
    mutable QHash<QString, TFieldDef*> FByPath;
};
