#pragma once

class TPersistent;

// The families of data classes that the designer treats in an order of their own.
namespace DataKinds {

bool IsField(const TPersistent& object);
// A dataset, an SQL or script component, or a connection.
bool IsDataComponent(const TPersistent& object);

}
