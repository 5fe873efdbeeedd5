#pragma once

#include "design/DesignIntf.h"

#include <QLibrary>

class Host;
class TMenuItem;

// The library of a design package. Its entry points are C symbols:
//
//   void MorvaneInitialize()   initialises its units; raises an Exception that says what failed, after it has
//                              finalised what was initialised
//   void Register()            called once after that
//   void MorvaneFinalize()     finalises its units in the reverse order
//
// The code stays mapped after the end: texts and classes of it may be held anywhere. So a package sets its state when
// it initialises, and can be started again.
class PackageLibrary {
public:
    explicit PackageLibrary(const QString& fileName);

    const QString& FileName() const { return FFileName; }
    // "" when it runs, else what failed; then nothing of it is left.
    QString Start(Host& host);
    void Finalize();
    QFunctionPointer Export(const char* name) { return FLibrary.resolve(name); }
    // Whether the code of the object's class, or the object itself, belongs to the library.
    bool IsOfThis(const void* object) const;
    bool IsOfThis(const TDragTargetClass& target) const;
    // Takes back what the package left behind.
    void Sweep(Host& host);

private:
    QList<TMenuItem*> MenuItems(Host& host) const;
    bool Holds(const void* address) const;

    QString FFileName;
    QLibrary FLibrary;
    void* FBase = nullptr;
    QList<TMenuItem*> FOwnItems;
};
