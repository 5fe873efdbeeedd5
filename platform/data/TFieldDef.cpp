#include "data/TFieldDef.h"

#include "classes/TClassBuilder.h"
#include "data/PropertyTypes.h"
#include "data/TDataSet.h"

namespace {

const QStringList& AttributeNames()
{
    static const auto names = QStringLiteral("faHiddenCol faReadonly faRequired faLink faUnNamed faFixed").split(u' ');
    return names;
}

QStringList NamesOf(TFieldAttributes attributes)
{
    QStringList names;
    for (int bit = 0; bit < AttributeNames().size(); ++bit)
        if (attributes & TFieldAttribute(1 << bit))
            names << AttributeNames()[bit];
    return names;
}

TFieldAttributes AttributesOf(const QStringList& names)
{
    TFieldAttributes attributes;
    for (const auto& name : names) {
        const auto bit = AttributeNames().indexOf(name, 0);
        if (bit >= 0)
            attributes |= TFieldAttribute(1 << bit);
    }
    return attributes;
}

}

TClass TFieldDef::Class()
{
    static TClassInfo info;
    static const TClass made = [] {
        TClassBuilder<TFieldDef> table(info, QStringLiteral("TFieldDef"), TCollectionItem::Class());
        table.Unit(QStringLiteral("Data.DB"))
            .Property(QStringLiteral("Name"), &TFieldDef::Name, &TFieldDef::SetName, QString())
            .Enumeration(QStringLiteral("DataType"), FieldTypeInfo(), &TFieldDef::DataType, &TFieldDef::SetDataType,
                QStringLiteral("ftUnknown"))
            .Property(QStringLiteral("Precision"), &TFieldDef::Precision, &TFieldDef::SetPrecision, 0)
            .Property(QStringLiteral("Size"), &TFieldDef::Size, &TFieldDef::SetSize, 0)
            .SubObject(QStringLiteral("ChildDefs"), QStringLiteral("TFieldDefs"),
                [](TFieldDef& def) { return &def.ChildDefs(); })
            .StoredIf([](const TFieldDef& def) { return def.HasChildDefs(); })
            .Stored(QStringLiteral("Attributes"),
                SetType(QStringLiteral("TFieldAttributes"), AttributeNames().join(u' ')), QStringList());
        auto& attributes = info.Properties.last();
        attributes.Get = [](const TPersistent* object) {
            return QVariant(NamesOf(static_cast<const TFieldDef*>(object)->Attributes()));
        };
        attributes.Set = [](TPersistent* object, const QVariant& value) {
            static_cast<TFieldDef*>(object)->SetAttributes(AttributesOf(value.toStringList()));
        };
        return table.Made();
    }();
    return made;
}

TFieldDef::TFieldDef(TFieldDefs* defs)
    : TCollectionItem(defs)
    , FDefs(defs)
{
}

TFieldDef::~TFieldDef() = default;

TDataSet* TFieldDef::DataSet() const
{
    return FDefs ? FDefs->DataSet() : nullptr;
}

void TFieldDef::Edited(const QString& property)
{
    if (FDefs)
        FDefs->Touched();
    Changed(property);
}

void TFieldDef::SetName(const QString& name)
{
    if (std::exchange(FName, name) != name)
        Edited(QStringLiteral("Name"));
}

void TFieldDef::SetDataType(TFieldType type)
{
    if (std::exchange(FDataType, type) != type)
        Edited(QStringLiteral("DataType"));
}

void TFieldDef::SetSize(int size)
{
    if (std::exchange(FSize, size) != size)
        Edited(QStringLiteral("Size"));
}

void TFieldDef::SetPrecision(int precision)
{
    if (std::exchange(FPrecision, precision) != precision)
        Edited(QStringLiteral("Precision"));
}

void TFieldDef::SetAttributes(TFieldAttributes attributes)
{
    if (std::exchange(FAttributes, attributes) != attributes)
        Edited(QStringLiteral("Attributes"));
}

void TFieldDef::SetRequired(bool required)
{
    auto attributes = FAttributes;
    SetAttributes(attributes.setFlag(faRequired, required));
}

bool TFieldDef::HasChildDefs() const
{
    return FChildDefs && FChildDefs->Count() > 0;
}

TFieldDefs& TFieldDef::ChildDefs()
{
    if (!FChildDefs)
        FChildDefs = std::make_unique<TFieldDefs>(this);
    return *FChildDefs;
}

TFieldDef* TFieldDef::AddChild()
{
    return static_cast<TFieldDef*>(ChildDefs().Add());
}

TFieldDef* TFieldDef::ParentDef() const
{
    return FDefs ? FDefs->ParentDef() : nullptr;
}
