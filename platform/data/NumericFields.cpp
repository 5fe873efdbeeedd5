#include "data/NumericFields.h"

#include "classes/TClassBuilder.h"
#include "data/PropertyTypes.h"

namespace {

// A numeric class that publishes what form files say of it and no more.
template <class T>
TClassBuilder<T> Numeric(TClassInfo& info, const QString& name, TClass parent)
{
    TClassBuilder<T> table(info, name, parent);
    table.Unit(QStringLiteral("Data.DB"));
    return table;
}

template <class T>
TClassBuilder<T> Ranged(TClassInfo& info, const QString& name, TClass parent, const TTypeInfo& bound)
{
    auto table = Numeric<T>(info, name, parent);
    table.Stored(QStringLiteral("MaxValue"), bound, 0).Stored(QStringLiteral("MinValue"), bound, 0);
    return table;
}

}

TClass TNumericField::Class()
{
    static TClassInfo info;
    static const TClass made = Numeric<TNumericField>(info, QStringLiteral("TNumericField"), TField::Class())
                                   .Stored(QStringLiteral("Alignment"),
                                       EnumerationType(QStringLiteral("TAlignment"),
                                           QStringLiteral("taLeftJustify taRightJustify taCenter")),
                                       QStringLiteral("taRightJustify"))
                                   .Stored(QStringLiteral("DisplayFormat"), StringType(), QString())
                                   .Stored(QStringLiteral("EditFormat"), StringType(), QString())
                                   .Made();
    return made;
}

TClass TIntegerField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Ranged<TIntegerField>(info, QStringLiteral("TIntegerField"), TNumericField::Class(), IntegerType()).Made();
    return made;
}

TClass TSmallintField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Numeric<TSmallintField>(info, QStringLiteral("TSmallintField"), TIntegerField::Class()).Made();
    return made;
}

TClass TWordField::Class()
{
    static TClassInfo info;
    static const TClass made = Numeric<TWordField>(info, QStringLiteral("TWordField"), TIntegerField::Class()).Made();
    return made;
}

TClass TShortintField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Numeric<TShortintField>(info, QStringLiteral("TShortintField"), TIntegerField::Class()).Made();
    return made;
}

TClass TByteField::Class()
{
    static TClassInfo info;
    static const TClass made = Numeric<TByteField>(info, QStringLiteral("TByteField"), TIntegerField::Class()).Made();
    return made;
}

TClass TAutoIncField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Numeric<TAutoIncField>(info, QStringLiteral("TAutoIncField"), TIntegerField::Class()).Made();
    return made;
}

TClass TLongWordField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Ranged<TLongWordField>(info, QStringLiteral("TLongWordField"), TNumericField::Class(), IntegerType()).Made();
    return made;
}

TClass TLargeintField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Ranged<TLargeintField>(info, QStringLiteral("TLargeintField"), TNumericField::Class(), IntegerType()).Made();
    return made;
}

TFloatField::TFloatField(TComponent* owner, TFieldType type)
    : TNumericField(owner, type)
{
    SetPrecision(15);
}

TClass TFloatField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Ranged<TFloatField>(info, QStringLiteral("TFloatField"), TNumericField::Class(), FloatType())
              .Property(QStringLiteral("Precision"), &TField::Precision, &TField::SetPrecision, 15)
              .Stored(QStringLiteral("currency"), BooleanType(), false)
              .Made();
    return made;
}

TClass TCurrencyField::Class()
{
    static TClassInfo info;
    static const TClass made = Numeric<TCurrencyField>(info, QStringLiteral("TCurrencyField"), TFloatField::Class())
                                   .Stored(QStringLiteral("currency"), BooleanType(), true)
                                   .Made();
    return made;
}

QString TCurrencyField::DisplayText() const
{
    const auto value = Value();
    return value.isNull() ? QString() : QString::number(value.toDouble(), 'f', 2);
}

TClass TExtendedField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Ranged<TExtendedField>(info, QStringLiteral("TExtendedField"), TNumericField::Class(), FloatType())
              .Property(QStringLiteral("Precision"), &TField::Precision, &TField::SetPrecision, 0)
              .Stored(QStringLiteral("currency"), BooleanType(), false)
              .Made();
    return made;
}

TClass TSingleField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Ranged<TSingleField>(info, QStringLiteral("TSingleField"), TNumericField::Class(), FloatType())
              .Property(QStringLiteral("Precision"), &TField::Precision, &TField::SetPrecision, 0)
              .Stored(QStringLiteral("currency"), BooleanType(), false)
              .Made();
    return made;
}

TClass TBCDField::Class()
{
    static TClassInfo info;
    static const TClass made = Ranged<TBCDField>(info, QStringLiteral("TBCDField"), TNumericField::Class(), FloatType())
                                   .Property(QStringLiteral("Precision"), &TField::Precision, &TField::SetPrecision, 0)
                                   .Property(QStringLiteral("Size"), &TField::Size, &TField::SetSize, 4)
                                   .Stored(QStringLiteral("currency"), BooleanType(), false)
                                   .Made();
    return made;
}

TClass TFMTBCDField::Class()
{
    static TClassInfo info;
    static const TClass made
        = Ranged<TFMTBCDField>(info, QStringLiteral("TFMTBCDField"), TNumericField::Class(), StringType())
              .Property(QStringLiteral("Precision"), &TField::Precision, &TField::SetPrecision, 0)
              .Property(QStringLiteral("Size"), &TField::Size, &TField::SetSize, 8)
              .Stored(QStringLiteral("currency"), BooleanType(), false)
              .Made();
    return made;
}

TAggregateField::TAggregateField(TComponent* owner)
    : TField(owner, ftUnknown)
{
    SetFieldKind(fkAggregate);
}

TClass TAggregateField::Class()
{
    static TClassInfo info;
    static const TClass made = Numeric<TAggregateField>(info, QStringLiteral("TAggregateField"), TField::Class())
                                   .Enumeration(QStringLiteral("FieldKind"), FieldKindInfo(), &TField::FieldKind,
                                       &TField::SetFieldKind, QStringLiteral("fkAggregate"))
                                   .Stored(QStringLiteral("Active"), BooleanType(), false)
                                   .Stored(QStringLiteral("currency"), BooleanType(), false)
                                   .Stored(QStringLiteral("DisplayName"), StringType(), QString())
                                   .Stored(QStringLiteral("DisplayFormat"), StringType(), QString())
                                   .Stored(QStringLiteral("Expression"), StringType(), QString())
                                   .Stored(QStringLiteral("GroupingLevel"), IntegerType(), 0)
                                   .Stored(QStringLiteral("IndexName"), StringType(), QString())
                                   .Made();
    return made;
}
