#pragma once

#include "design/DesignIntf.h"

#include <QList>

#include <functional>

// A component editor with the verbs that were given to it.
struct ComponentVerb {
    QString Caption;
    std::function<void(TComponent&, const InterfacePtr<IDesigner>&)> Execute;
    // Completes the menu item; may be empty.
    std::function<void(TComponent&, const InterfacePtr<IDesigner>&, const InterfacePtr<IMenuItem>&)> Prepare;
};

// What the IDE offers for a component: verbs by class. A class has the verbs of its ancestors, too, its own first. The
// first verb is what Edit does.
//
// To add one, call Register with the class's name (it may be one of a catalogue) and a verb.
class ComponentEditors {
public:
    void Register(const QString& className, const ComponentVerb& verb);
    // Verbs behind all others, for the components that `offers` says yes to.
    void RegisterForAll(std::function<bool(const TComponent&)> offers, const ComponentVerb& verb);
    // Nil for a component that has no verbs.
    InterfacePtr<IComponentEditor> EditorOf(TComponent* component, const InterfacePtr<IDesigner>& designer) const;

private:
    struct Entry {
        QString ClassName;
        std::function<bool(const TComponent&)> Offers;
        ComponentVerb Verb;
    };
    QList<Entry> FEntries;
};
