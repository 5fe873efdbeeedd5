#pragma once

namespace MrvInterfaces {

// Masks all floating-point exceptions for the time the package is loaded. Failures are logged and go no further.
void Initialization();
// Puts the saved control word back.
void Finalization();

}
