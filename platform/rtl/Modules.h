#pragma once

#include "rtl/TResourceStream.h"

#include <QString>

// A loaded package as a holder of resources: the folder below which they stand, one folder for each type as in
// ResourcePath. Empty for none.
using HMODULE = QString;

// The module of a loaded package; empty for one that is not loaded. Names are compared without regard to case.
HMODULE GetModuleHandle(const QString& packageName);
// Says where a loaded package keeps its resources; an empty folder takes it back. Called by whoever loads packages.
void SetModuleHandle(const QString& packageName, const HMODULE& folder);
// Whether the module holds the resource.
bool FindResource(const HMODULE& module, const QString& name, TResourceType type);
// The folder of the module's resources of that type.
QString ResourceFolder(const HMODULE& module, TResourceType type);
