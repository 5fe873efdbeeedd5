#pragma once

#include <QHash>
#include <QList>
#include <QString>

class TField;
class TObjectField;

// The fields of a dataset, or of an object field, in order. It owns none of them: a persistent field belongs to its
// form, and leaves the list when it goes. The list belongs to its dataset or object field.
class TFields {
public:
    TFields() = default;
    TFields(const TFields&) = delete;
    TFields& operator=(const TFields&) = delete;

    int Count() const { return int(FList.size()); }
    // Raises EListError outside the range.
    TField* Fields(int index) const;
    TField* operator[](int index) const { return Fields(index); }
    QList<TField*>::const_iterator begin() const { return FList.cbegin(); }
    QList<TField*>::const_iterator end() const { return FList.cend(); }

    // The first field of that FieldName, without regard to case, or nil. This list only: children of object fields
    // are found by TDataSet::FindField.
    TField* FindField(const QString& fieldName) const;
    // The same; raises EDatabaseError instead of giving nil.
    TField* FieldByName(const QString& fieldName) const;
    // -1 for a field that is not in the list.
    int IndexOf(const TField* field) const;

private:
    friend class TField;
    friend class TObjectField;
    void Add(TField* field);
    void Remove(TField* field);
    void Move(TField* field, int index);
    void NamesChanged() { FNamesKnown = false; }

    QList<TField*> FList;
    // The fields before this position know their index; the others are numbered when somebody asks.
    mutable int FNumbered = 0;
    // Made by the first search, kept by additions, dropped by anything else.
    mutable QHash<QString, TField*> FByName;
    mutable bool FNamesKnown = false;
};
