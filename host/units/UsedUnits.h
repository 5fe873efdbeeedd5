#pragma once

#include "units/SourceUnit.h"

#include <QStringList>

// Whether an entry of a uses clause names the unit, under either name and in any case.
bool NamesUnit(const QString& entry, const UnitReference& unit);

// Whether the entries name the library's units with their namespaces. Units of the project's own say nothing.
bool AreScoped(const QStringList& entries);

// A name that can stand as a component's, and a type that can stand in its declaration: words with dots between.
bool IsIdentifier(const QString& name);
bool IsTypeName(const QString& name);
