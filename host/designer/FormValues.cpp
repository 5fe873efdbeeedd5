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
    if (value.kind() == FormValue::Kind::Identifier && TheNames())
        if (const auto number = TheNames()->IdentToInt(type.Name, value.toString()))
            return *number;
    return value.kind() == FormValue::Kind::Integer ? QVariant(qlonglong(value.toInteger()))
                                                    : QVariant(value.toString());
}

QVariant Natural(const FormValue& value)
{
    switch (value.kind()) {
    case FormValue::Kind::Boolean:
        return value.toBool();
    case FormValue::Kind::Integer:
        return qlonglong(value.toInteger());
    case FormValue::Kind::String:
    case FormValue::Kind::Identifier:
        return value.toString();
    case FormValue::Kind::Set:
    case FormValue::Kind::List:
        return value.toStringList();
    default:
        return value.isReal() ? QVariant(double(value.toReal())) : QVariant();
    }
}

QVariant Enumerated(const FormValue& value, const TTypeInfo& type)
{
    if (value.kind() == FormValue::Kind::Integer && type.Name != QLatin1String("Boolean"))
        return GetEnumName(type, int(value.toInteger()));
    return Natural(value);
}

FormValue Number(const QVariant& value, const TTypeInfo& type)
{
    bool isNumber = false;
    const auto number = value.toLongLong(&isNumber);
    const auto name = isNumber && TheNames() ? TheNames()->IntToIdent(type.Name, number) : QString();
    if (!name.isEmpty())
        return FormValue::identifier(name);
    return isNumber ? FormValue::integer(number) : FormValue::identifier(value.toString());
}

FormValue ByNature(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return FormValue::boolean(value.toBool());
    case QMetaType::Int:
    case QMetaType::LongLong:
        return FormValue::integer(value.toLongLong());
    case QMetaType::Double:
        return FormValue::real(value.toDouble());
    case QMetaType::QStringList:
        return FormValue::set(value.toStringList());
    default:
        return FormValue::string(value.toString());
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
        return value.kind() == FormValue::Kind::Integer || value.isReal() ? QVariant(double(value.toReal()))
                                                                          : QVariant();
    case tkMethod:
        return value.kind() == FormValue::Kind::Nil ? QVariant(QString()) : QVariant(value.toString());
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
        return value.typeId() == QMetaType::Bool ? FormValue::boolean(value.toBool())
                                                 : FormValue::identifier(value.toString());
    case tkFloat:
        return FormValue::real(value.toDouble());
    case tkString:
        return FormValue::string(value.toString());
    case tkSet:
        return FormValue::set(value.toStringList());
    case tkMethod:
        return value.toString().isEmpty() ? FormValue::nil() : FormValue::identifier(value.toString());
    default:
        return ByNature(value);
    }
}

}
