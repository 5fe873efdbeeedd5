#include "data/TFields.h"

#include "data/TField.h"
#include "rtl/SysUtils.h"

TField* TFields::Fields(int index) const
{
    if (index < 0 || index >= Count())
        throw EListError(QStringLiteral("List index out of bounds (%1)").arg(index));
    return FList[index];
}

TField* TFields::FindField(const QString& fieldName) const
{
    if (!FNamesKnown) {
        FByName.clear();
        for (auto field = FList.crbegin(); field != FList.crend(); ++field)
            FByName.insert((*field)->FieldName().toLower(), *field);
        FNamesKnown = true;
    }
    return fieldName.isEmpty() ? nullptr : FByName.value(fieldName.toLower());
}

TField* TFields::FieldByName(const QString& fieldName) const
{
    if (auto* found = FindField(fieldName))
        return found;
    throw EDatabaseError(QStringLiteral("Field '%1' not found").arg(fieldName));
}

int TFields::IndexOf(const TField* field) const
{
    if (!field || field->FFields != this)
        return -1;
    const int known = field->FIndex;
    if (known < FNumbered && FList.value(known) == field)
        return known;
    for (; FNumbered < Count(); ++FNumbered)
        FList[FNumbered]->FIndex = FNumbered;
    return field->FIndex;
}

void TFields::Add(TField* field)
{
    if (FNamesKnown && !FByName.contains(field->FieldName().toLower()))
        FByName.insert(field->FieldName().toLower(), field);
    field->FFields = this;
    FList << field;
}

void TFields::Remove(TField* field)
{
    const int index = IndexOf(field);
    FList.removeAt(index);
    FNumbered = std::min(FNumbered, index);
    NamesChanged();
    field->FFields = nullptr;
    field->FIndex = -1;
}

void TFields::Move(TField* field, int index)
{
    const int from = IndexOf(field);
    FList.move(from, index);
    FNumbered = std::min({ FNumbered, from, index });
    NamesChanged();
}
