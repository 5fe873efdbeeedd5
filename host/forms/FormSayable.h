#pragma once

#include "forms/FormNode.h"
#include "forms/FormValue.h"

#include <QString>

#include <optional>

// A binary form can hold names that a form in text has no way to write ("two words", "end"). These find the first one,
// so that it is told rather than written as something else.
namespace FormSayable {

std::optional<QString> FirstUnsayable(const FormNode& node); // of the node and everything in it
std::optional<QString> FirstUnsayable(const FormValue& value);

}
