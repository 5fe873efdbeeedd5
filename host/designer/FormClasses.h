#pragma once

#include "classes/TClass.h"

#include <QString>

// Which class a name in a form file means.
namespace FormClasses {

// How a component that nobody knows takes part in its form, told by what its file says of it.
enum class Shape { Component, Control, Container };

// The registered class of that name in the group, else the one that serves every group; nil for a name that nobody
// registered and for a class whose objects are no components.
TClass Known(const QString& name, const QString& group);

// A class that a form file or a unit declares ("TMainForm"), or that stands for one nobody knows. Its objects are made
// as the parent's. The same name, parent and group give the same class again.
TClass Declared(const QString& name, TClass parent, const QString& group);
TClass Placeholder(const QString& name, const QString& group, Shape shape);

}
