#pragma once

// Registers the classes of this folder that form files name: the roots, the bases of the catalogues' controls, the
// label. The host calls it once, before it reads the catalogues. Calling it again is harmless.
void RegisterStandardClasses();
