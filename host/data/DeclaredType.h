#pragma once

#include "data/DataAccess.h"

// The column that a type in a table's declaration makes: "VARCHAR(40)", "DECIMAL(10,2)", "DOUBLE PRECISION". A type
// without a name that is known goes by the rules of SQLite's affinity; an empty text is ftUnknown. The name is empty.
TDataColumn DeclaredType(const QString& declaration);

// A decimal column of that precision and scale: ftBCD where its values fit one, else ftFMTBcd.
TDataColumn DecimalColumn(int precision, int scale);
// A text column; without a size it has `DefaultTextSize` characters.
constexpr int DefaultTextSize = 255;
TDataColumn TextColumn(TFieldType type, int size);
