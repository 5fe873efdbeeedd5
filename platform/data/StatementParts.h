#pragma once

#include "data/DataAccess.h"
#include "data/DataRoles.h"

class TCustomZAConnection;
class TComponent;

// How the families read and write the parts of their classes.

// The object that a reference property holds; nil for an empty name and for a property that does not exist.
TPersistent* ReferenceAt(const TPersistent& object, const QString& property);
// Writes the connection into the property that the roles of the component's class name. Raises EPropertyError when the
// class has none, or one that takes connections of another class.
void SetConnectionOf(TComponent& component, TCustomZAConnection* connection);
// The statement that the component's properties make, with its parameters as the form has them.
TStatement StatementOf(const TPersistent& component, const TDataSetRoles& roles);
