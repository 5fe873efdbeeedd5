#pragma once

#include "data/DataRoles.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

// What a catalogue says, as plain values. See packages/README.md for the meaning of each.

// A type of properties that a catalogue declares.
struct CatalogueType {
    QString Name;
    TTypeKind Kind = tkUnknown;
    // Of an enumeration: its identifiers.
    QStringList Identifiers;
    // Of a set: its enumeration. Of another name for a type: that type. Of an event: its parameters.
    QString Of;
    // Of an integer: the values that have names.
    QHash<QString, qlonglong> Values;
    qsizetype Offset = 0;
};

// "Name: Type = default".
struct CatalogueProperty {
    QString Name;
    QString Type;
    std::optional<QString> Default;
    qsizetype Offset = 0;
};

struct CatalogueInclude {
    QString Name;
    qsizetype Offset = 0;
};

// A component that is made with another one. Names hold a %s for the other one's name.
struct CreatedComponent {
    QString ClassName;
    QString Name;
    QMap<QString, QString> References;

    friend bool operator==(const CreatedComponent&, const CreatedComponent&) = default;
};

// The properties by which a data control is bound: paths.
struct BindingPlaces {
    QString Source;
    QString Field;

    friend bool operator==(const BindingPlaces&, const BindingPlaces&) = default;
};

// Property paths of position and size, where those are not in Left, Top, Width and Height.
struct GeometryPlaces {
    QString Left;
    QString Top;
    QString Width;
    QString Height;

    friend bool operator==(const GeometryPlaces&, const GeometryPlaces&) = default;
};

struct CatalogueClass {
    QString Name;
    QString Parent;
    bool BuiltIn = false;
    bool Abstract = false;
    QString Unit;
    QStringList AlsoUses;
    QString Palette;
    std::optional<bool> Container;
    std::optional<QSize> DefaultSize;
    QString Draw;
    QString CaptionProperty;
    std::optional<GeometryPlaces> Geometry;
    QList<CatalogueInclude> Includes;
    QList<CatalogueProperty> Properties;
    QString Item;
    std::optional<BindingPlaces> Bindings;
    QList<CreatedComponent> Creates;
    std::optional<TConnectionRoles> Connection;
    std::optional<TDataSetRoles> DataSet;
    // The full name of the bitmap's file; empty where there is none.
    QString Bitmap;
    qsizetype Offset = 0;
};

struct Catalogue {
    QString FileName;
    QString Package;
    QString Description;
    QString Group;
    QStringList Requires;
    QList<CatalogueType> Types;
    QMap<QString, QList<CatalogueProperty>> PropertySets;
    QList<CatalogueClass> Classes;
};
