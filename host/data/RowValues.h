#pragma once

#include "data/TFieldType.h"

// The value of a column as fields of that type hold it: a database without types of its own gives dates as text and
// truth as numbers. A value that does not fit its type stays as it is.
QVariant RowValue(const QVariant& value, TFieldType type);
