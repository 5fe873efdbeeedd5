#pragma once

#include "packages/CatalogueScope.h"

#include <optional>

// Makes published properties of what a catalogue declares. The objects keep the values as they are given; a property
// that the platform's class publishes already keeps its getter and setter there.
class PropertyMaker {
public:
    explicit PropertyMaker(const CatalogueScope& scope)
        : FScope(scope)
    {
    }

    // `base` is the nearest class of the platform that the publishing class derives from. Nothing, and the reason in
    // `why`, for a type that is not known or a default that is none of its values.
    std::optional<TPropInfo> Make(const CatalogueProperty& declared, TClass base, QString& why) const;

private:
    std::optional<TTypeInfo> TypeOf(const QString& name) const;
    bool ReadDefault(const CatalogueProperty& declared, const TTypeInfo& type, QVariant& value) const;
    QVariant NamedInteger(const QString& typeName, const QString& text) const;
    const CatalogueType* Behind(const QString& typeName) const;

    const CatalogueScope& FScope;
};
