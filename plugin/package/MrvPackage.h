#pragma once

#include <QStringList>

// The package as a list of units. They initialise in the order of the list and finalise in the reverse order, as the
// IDE runs them; the start state of each is set here and not when the library is mapped, so that a package that was
// unloaded starts anew when it is loaded again.
namespace MrvPackage {

// Runs the units' initialization. What a unit raises comes out after the units before it were finalised again.
void Initialize();
// Runs the finalization of what was initialised; all of it, even when a unit raises, whose exception comes out last.
void Finalize();
// The units that are initialised now, in order.
QStringList InitializedUnits();

}
