#pragma once

#include "classes/TypInfo.h"

// The property types that the tables of the data classes share.

inline TTypeInfo StringType()
{
    return { tkString, QStringLiteral("string"), {} };
}

inline TTypeInfo IntegerType()
{
    return { tkInteger, QStringLiteral("Integer"), {} };
}

inline TTypeInfo FloatType()
{
    return { tkFloat, QStringLiteral("Double"), {} };
}

inline TTypeInfo BooleanType()
{
    return { tkEnumeration, QStringLiteral("Boolean"), { QStringLiteral("False"), QStringLiteral("True") } };
}

// `names` are the identifiers, with a blank between.
inline TTypeInfo EnumerationType(const QString& name, const QString& names)
{
    return { tkEnumeration, name, names.split(u' ') };
}

inline TTypeInfo SetType(const QString& name, const QString& names)
{
    return { tkSet, name, names.split(u' ') };
}

inline TTypeInfo EventType(const QString& name)
{
    return { tkMethod, name, {} };
}

// A reference to a component of that class.
inline TTypeInfo ReferenceType(const QString& className)
{
    return { tkClass, className, {} };
}
