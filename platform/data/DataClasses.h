#pragma once

// Registers the classes of this folder that form files name, with their roles. The host calls it once, after
// RegisterStandardClasses and before it reads the catalogues. Calling it again is harmless.
void RegisterDataClasses();
