#pragma once

#include "forms/FormTree.h"
#include "forms/FormValue.h"

// Decodes the value of a property in the format of its tree.
FormValue ReadFormValue(const FormTree& tree, const FormProperty& property);
