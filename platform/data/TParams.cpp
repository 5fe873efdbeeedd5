#include "data/TParams.h"

#include "classes/TClassBuilder.h"
#include "data/PropertyTypes.h"

TClass TParam::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TParam>(info, QStringLiteral("TParam"), TCollectionItem::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Enumeration(QStringLiteral("DataType"), FieldTypeInfo(), &TParam::DataType,
                                       &TParam::SetDataType, QStringLiteral("ftUnknown"))
                                   .Property(QStringLiteral("Name"), &TParam::Name, &TParam::SetName, QString())
                                   .Stored(QStringLiteral("NumericScale"), IntegerType(), 0)
                                   .Stored(QStringLiteral("ParamType"),
                                       EnumerationType(QStringLiteral("TParamType"),
                                           QStringLiteral("ptUnknown ptInput ptOutput ptInputOutput ptResult")),
                                       QStringLiteral("ptUnknown"))
                                   .Stored(QStringLiteral("Precision"), IntegerType(), 0)
                                   .Stored(QStringLiteral("Size"), IntegerType(), 0)
                                   .Stored(QStringLiteral("Value"), { tkVariant, QStringLiteral("Variant"), {} })
                                   .Made();
    return made;
}

TParam::TParam(TParams* params)
    : TCollectionItem(params)
{
}

void TParam::SetName(const QString& name)
{
    if (std::exchange(FName, name) != name)
        Changed(QStringLiteral("Name"));
}

void TParam::SetDataType(TFieldType type)
{
    if (std::exchange(FDataType, type) != type)
        Changed(QStringLiteral("DataType"));
}

TClass TParams::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TParams>(info, QStringLiteral("TParams"), TCollection::Class())
                                   .Unit(QStringLiteral("Data.DB"))
                                   .Made();
    return made;
}

TParams::TParams(TPersistent* owner, const QString& property)
    : TCollection(
        owner, property, [](TCollection* params) { return std::make_unique<TParam>(static_cast<TParams*>(params)); })
{
}

TParam* TParams::Items(int index) const
{
    if (index < 0 || index >= Count())
        throw EListError(QStringLiteral("List index out of bounds (%1)").arg(index));
    return static_cast<TParam*>(Item(index));
}

TParam* TParams::FindParam(const QString& name) const
{
    for (int i = 0; i < Count(); ++i)
        if (SameText(Items(i)->Name(), name))
            return Items(i);
    return nullptr;
}
