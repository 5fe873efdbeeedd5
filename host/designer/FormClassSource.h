#pragma once

#include "files/Problem.h"
#include "forms/FormDocument.h"
#include "packages/Catalogue.h"

// What a form needs to know of the project it stands in: the forms and frames that it is built on.
class FormClassSource {
public:
    // The form file of the designed class, as it stands now; nil for a class that the project does not design.
    virtual FormDocument* DocumentOf(const QString& className) = 0;
    // The class that a designed class derives from, as its unit declares it; empty when nobody knows.
    virtual QString AncestorOf(const QString& className) = 0;
    // The class group of the project ("VCL", "FMX", "LCL").
    virtual QString ClassGroup() const = 0;
    // The property paths of position and size of that class's controls, where they are not Left, Top, Width, Height.
    virtual const GeometryPlaces* GeometryOf(TClass aClass) const = 0;

protected:
    ~FormClassSource() = default;
};
