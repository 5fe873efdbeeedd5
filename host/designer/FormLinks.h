#pragma once

#include "classes/TComponent.h"

#include <QHash>
#include <QList>

#include <functional>

// A reference from a property to a component, as a form file names it: "Query1", "DataModule1.Query1" for a component
// of another form, "Frame1.Query1" for one of a frame.
struct FormLink {
    WeakRef<TPersistent> Instance;
    QString Property;
    // Empty for nil, which is said over something else.
    QString Target;
    // Whose components the name is looked up among first: the root, or the frame that the instance stands in.
    WeakRef<TComponent> Scope;
};

// The references of one form. Those within the form are resolved when it is complete; those to other forms as soon as
// these are open, again after they were closed and opened.
class FormLinks {
public:
    using FindRoot = std::function<TComponent*(const QString& formName)>;

    void Add(const FormLink& link) { FLinks << link; }
    // Sets what can be resolved. What leads within the form is forgotten, what leads to another form is kept.
    void Resolve(TComponent& root, const FindRoot& otherRoot);
    // Forgets what the file said of that property: it has another value now.
    void Forget(const TPersistent* instance, const QString& property);
    // A component of another form was named anew; gives what changed.
    QList<FormLink> Rename(const QString& oldTarget, const QString& newTarget);
    const QList<FormLink>& External() const { return FLinks; }

    // The name by which a form file refers to the component from that root; empty for a component without a name.
    static QString NameFrom(const TComponent& root, const TComponent& scope, const TComponent& target);
    // What a form that inherits refers to where its ancestor's form refers to the target: its own component of that
    // name where the target is the ancestor's own, else the target itself. Nil where it has none of that name.
    static TComponent* InheritedTarget(const TComponent& ancestorRoot, TComponent& target, TComponent& root);

private:
    QList<FormLink> FLinks;
};
