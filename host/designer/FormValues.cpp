#include "designer/FormValues.h"

namespace FormValues {

namespace {

const IntegerNames*& TheNames()
{
    static const IntegerNames* names = nullptr;
    return names;
}

QVariant Whole(const FormValue& value, const TTypeInfo& type)
{
    if (value.TheKind() == FormValue::Kind::Identifier && TheNames())
        if (const auto number = TheNames()->IdentToInt(type.Name, value.ToString()))
            return *number;
    return value.TheKind() == FormValue::Kind::Integer ? QVariant(qlonglong(value.ToInteger()))
                                                       : QVariant(value.ToString());
}

QVariant Natural(const FormValue& value)
{
    switch (value.TheKind()) {
    case FormValue::Kind::Boolean:
        return value.ToBool();
    case FormValue::Kind::Integer:
        return qlonglong(value.ToInteger());
    case FormValue::Kind::String:
    case FormValue::Kind::Identifier:
        return value.ToString();
    case FormValue::Kind::Set:
    case FormValue::Kind::List:
        return value.ToStringList();
    default:
        return value.IsReal() ? QVariant(double(value.ToReal())) : QVariant();
    }
}

QVariant Enumerated(const FormValue& value, const TTypeInfo& type)
{
    if (value.TheKind() == FormValue::Kind::Integer && type.Name != QLatin1String("Boolean"))
        return GetEnumName(type, int(value.ToInteger()));
    return Natural(value);
}

FormValue Number(const QVariant& value, const TTypeInfo& type)
{
    bool isNumber = false;
    const auto number = value.toLongLong(&isNumber);
    const auto name = isNumber && TheNames() ? TheNames()->IntToIdent(type.Name, number) : QString();
    if (!name.isEmpty())
        return FormValue::Identifier(name);
    return isNumber ? FormValue::Integer(number) : FormValue::Identifier(value.toString());
}

FormValue ByNature(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return FormValue::Boolean(value.toBool());
    case QMetaType::Int:
    case QMetaType::LongLong:
        return FormValue::Integer(value.toLongLong());
    case QMetaType::Double:
        return FormValue::Real(value.toDouble());
    case QMetaType::QStringList:
        return FormValue::Set(value.toStringList());
    default:
        return FormValue::String(value.toString());
    }
}

}

void SetIntegerNames(const IntegerNames* names)
{
    TheNames() = names;
}

QVariant ToVariant(const FormValue& value, const TTypeInfo* type)
{
    if (!type)
        return Natural(value);
    switch (type->Kind) {
    case tkInteger:
    case tkInt64:
        return Whole(value, *type);
    case tkEnumeration:
        return Enumerated(value, *type);
    case tkFloat:
        return value.TheKind() == FormValue::Kind::Integer || value.IsReal() ? QVariant(double(value.ToReal()))
                                                                             : QVariant();
    case tkMethod:
        return value.TheKind() == FormValue::Kind::Nil ? QVariant(QString()) : QVariant(value.ToString());
    default:
        return Natural(value);
    }
}

FormValue ToFormValue(const QVariant& value, const TTypeInfo& type)
{
    switch (type.Kind) {
    case tkInteger:
    case tkInt64:
        return Number(value, type);
    case tkEnumeration:
        return value.typeId() == QMetaType::Bool ? FormValue::Boolean(value.toBool())
                                                 : FormValue::Identifier(value.toString());
    case tkFloat:
        return FormValue::Real(value.toDouble());
    case tkString:
        return FormValue::String(value.toString());
    case tkSet:
        return FormValue::Set(value.toStringList());
    case tkMethod:
        return value.toString().isEmpty() ? FormValue::Nil() : FormValue::Identifier(value.toString());
    default:
        return ByNature(value);
    }
}

}
