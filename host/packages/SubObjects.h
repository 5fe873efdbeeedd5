#pragma once

#include "classes/TypInfo.h"

// A property whose object belongs to the instance: a Font, Lines, Columns. The object is made when it is first asked
// for, of the class of that name in that group; one of a class that is not registered (any more) is a bare TPersistent.
TPropInfo SubObjectProperty(const QString& name, const TTypeInfo& type, const QString& group);

// Says of which class the items of a collection class are; a class that says nothing has its parent's.
void SetItemClass(TClass collection, TClass item);
