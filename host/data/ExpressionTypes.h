#pragma once

#include "data/DataAccess.h"

#include <functional>

// Concludes the types of columns that are ftUnknown because they are expressions: from the statement's text, and from
// what the columns in them are declared as. `describe` compiles another statement of one column and tells that column;
// it raises EDatabaseError for one that does not compile. What cannot be concluded stays ftUnknown.
void ConcludeTypes(
    const QString& statement, QList<TDataColumn>& columns, const std::function<TDataColumn(const QString&)>& describe);
