#pragma once

#include "classes/TypInfo.h"
#include "forms/FormValue.h"

#include <QVariant>

#include <optional>

// Values between form files and published properties. References to components are no values: see FormLinks.
namespace FormValues {

// Names of whole numbers: clRed of TColor, crHandPoint of TCursor.
class IntegerNames {
public:
    // Nothing for a name that the type does not have.
    virtual std::optional<qlonglong> IdentToInt(const QString& typeName, const QString& identifier) const = 0;
    // Empty for a number without a name.
    virtual QString IntToIdent(const QString& typeName, qlonglong value) const = 0;

protected:
    ~IntegerNames() = default;
};
// Nil: numbers have no names. The caller keeps it alive until it sets another.
void SetIntegerNames(const IntegerNames* names);

// The value as the property's type carries it. Without a type (a property that nobody knows) as it is by nature.
// Invalid for a value that only the file can hold (pictures, collections of unknown items).
QVariant ToVariant(const FormValue& value, const TTypeInfo* type);

// The value as the file writes it.
FormValue ToFormValue(const QVariant& value, const TTypeInfo& type);

}
