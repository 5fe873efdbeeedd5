#include "classes/TClassBuilder.h"
#include "data/TDataSet.h"
#include "data/TFieldDef.h"

namespace {

std::unique_ptr<TCollectionItem> MakeFieldDef(TCollection* defs)
{
    return std::make_unique<TFieldDef>(static_cast<TFieldDefs*>(defs));
}

}

TClass TFieldDefs::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TFieldDefs>(info, QStringLiteral("TFieldDefs"), TCollection::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Made();
    return made;
}

TFieldDefs::TFieldDefs(TDataSet* dataSet)
    : TCollection(dataSet, QStringLiteral("FieldDefs"), MakeFieldDef)
    , FDataSet(dataSet)
{
}

TFieldDefs::TFieldDefs(TFieldDef* parent)
    : TCollection(parent, QStringLiteral("ChildDefs"), MakeFieldDef)
    , FParentDef(parent)
{
}

// Described definitions stand apart from the form: what happens to them goes no further up.
TPersistent* TFieldDefs::GetOwner() const
{
    return FDescribed ? nullptr : TCollection::GetOwner();
}

TDataSet* TFieldDefs::DataSet() const
{
    return FParentDef ? FParentDef->DataSet() : FDataSet;
}

TFieldDef* TFieldDefs::Items(int index) const
{
    if (index < 0 || index >= Count())
        throw EListError(QStringLiteral("List index out of bounds (%1)").arg(index));
    return static_cast<TFieldDef*>(Item(index));
}

int TFieldDefs::IndexOfName(const QString& name) const
{
    for (int i = 0; i < Count(); ++i)
        if (SameText(Items(i)->Name(), name))
            return i;
    return -1;
}

TFieldDef* TFieldDefs::Find(const QString& name) const
{
    const int index = IndexOfName(name);
    return index < 0 ? nullptr : Items(index);
}

TFieldDef* TFieldDefs::AddFieldDef(const QString& name, TFieldType type, int size, bool required)
{
    auto* def = static_cast<TFieldDef*>(Add());
    def->SetName(name);
    def->SetDataType(type);
    def->SetSize(size);
    def->SetRequired(required);
    return def;
}

TCollectionItem* TFieldDefs::Add()
{
    FUpdated = true;
    Touched();
    return TCollection::Add();
}

void TFieldDefs::Delete(int index)
{
    Touched();
    TCollection::Delete(index);
}

void TFieldDefs::Clear()
{
    Touched();
    TCollection::Clear();
}

void TFieldDefs::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TFieldDefs*>(source);
    if (!other)
        return TCollection::Assign(source);
    if (other == this)
        return;
    Clear();
    for (int i = 0; i < other->Count(); ++i) {
        auto* from = other->Items(i);
        auto* to = AddFieldDef(from->Name(), from->DataType(), from->Size());
        to->SetPrecision(from->Precision());
        to->SetAttributes(from->Attributes());
        if (from->HasChildDefs())
            to->ChildDefs().Assign(&from->ChildDefs());
    }
}

void TFieldDefs::Update()
{
    if (FDataSet)
        FDataSet->UpdateFieldDefs();
}

void TFieldDefs::Describe(const QList<TDataColumn>& columns)
{
    FDescribed = true;
    while (Count() > columns.size())
        Delete(Count() - 1);
    for (int i = 0; i < columns.size(); ++i) {
        const auto& column = columns[i];
        auto* def = i < Count() ? Items(i) : static_cast<TFieldDef*>(Add());
        def->SetName(column.Name);
        def->SetDataType(column.DataType);
        def->SetSize(column.Size);
        def->SetPrecision(column.Precision);
        TFieldAttributes attributes;
        attributes.setFlag(faRequired, column.Required).setFlag(faReadonly, column.ReadOnly);
        def->SetAttributes(attributes);
        if (def->HasChildDefs())
            def->ChildDefs().Clear();
    }
    FUpdated = true;
}

void TFieldDefs::Touched()
{
    ++FVersion;
    if (FParentDef && FParentDef->FieldDefs())
        FParentDef->FieldDefs()->Touched();
}

int TFieldDefList::Count() const
{
    Need();
    return int(FEntries.size());
}

TFieldDef* TFieldDefList::Items(int index) const
{
    if (index < 0 || index >= Count())
        throw EListError(QStringLiteral("List index out of bounds (%1)").arg(index));
    return FEntries[index].second;
}

QString TFieldDefList::Paths(int index) const
{
    return index >= 0 && index < Count() ? FEntries[index].first : QString();
}

TFieldDef* TFieldDefList::Find(const QString& path) const
{
    Need();
    return FByPath.value(path.toLower());
}

void TFieldDefList::Need() const
{
    if (FVersion == FDefs.Version())
        return;
    FEntries.clear();
    FByPath.clear();
    AddAll(QString(), FDefs);
    FVersion = FDefs.Version();
}

void TFieldDefList::AddOne(const QString& path, TFieldDef* def) const
{
    FEntries.append({ path, def });
    if (!FByPath.contains(path.toLower()))
        FByPath.insert(path.toLower(), def);
}

void TFieldDefList::AddAll(const QString& prefix, const TFieldDefs& defs) const
{
    for (int i = 0; i < defs.Count(); ++i) {
        auto* def = defs.Items(i);
        const auto path = prefix + def->Name();
        AddOne(path, def);
        if (!def->HasChildDefs())
            continue;
        if (def->DataType() == ftArray)
            AddElements(path, *def);
        else
            AddAll(def->Attributes().testFlag(faUnNamed) ? QString() : path + u'.', def->ChildDefs());
    }
}

void TFieldDefList::AddElements(const QString& path, const TFieldDef& array) const
{
    const auto& children = *array.ChildDefsIfAny();
    for (int i = 0; i < std::min(array.Size(), children.Count()); ++i) {
        auto* element = children.Items(i);
        const auto elementPath = QStringLiteral("%1[%2]").arg(path).arg(i);
        AddOne(elementPath, element);
        if (element->DataType() == ftADT && element->HasChildDefs())
            AddAll(elementPath + u'.', element->ChildDefs());
    }
}
