#pragma once

#include "packages/Catalogue.h"
#include "units/SourceUnit.h"

// What the catalogues say of a class beside its properties: its own entry, completed from its parents'.
struct ComponentInfo {
    // The package that has the class itself; empty for a class that is in none (a form of the project's own).
    QString Package;
    // The page of the palette; empty for a class that is not offered there. Of the class itself.
    QString Palette;
    QString Bitmap; // of the class itself
    // What the form surface draws; empty where no catalogue says.
    QString Draw;
    bool Container = false;
    QString CaptionProperty;
    GeometryPlaces Geometry;
    BindingPlaces Bindings;
    QList<CreatedComponent> Creates;
    // The unit of the class and those that come with it, as a form's unit needs them. Of the nearest class that has
    // one.
    QList<UnitReference> Units;

    friend bool operator==(const ComponentInfo&, const ComponentInfo&) = default;
};

// The name of a library's unit in a project without unit scopes: "DBCtrls" for "Vcl.DBCtrls". A unit that never had
// another name keeps its own.
QString PlainUnitName(const QString& scoped);
