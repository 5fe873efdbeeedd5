#pragma once

#include "forms/FormValue.h"
#include "rtl/TypInfo.h"

#include <QVariant>

// Values between form files and published properties. References to components are no values: see FormLinks.
namespace FormValues {

// The value as the property's type carries it. Without a type (a property that nobody knows) as it is by nature.
// Invalid for a value that only the file can hold (pictures, collections of unknown items).
QVariant ToVariant(const FormValue& value, const TTypeInfo* type);

// The value as the file writes it.
FormValue ToFormValue(const QVariant& value, const TTypeInfo& type);

}
