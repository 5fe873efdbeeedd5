#pragma once

#include "forms/FormDocument.h"

#include <QSet>
#include <QStringList>

// Holds a form against the classes that are registered for its class group: which of its components and properties
// nobody knows, and which values their properties cannot have.
class FormAudit {
public:
    // `own`: classes that the project itself declares.
    FormAudit(QString group, QSet<QString> own)
        : FGroup(std::move(group))
        , FOwn(std::move(own))
    {
    }

    // The root is taken for one of `rootClass`.
    void Look(const FormDocument& form, const QString& rootClass);

    // An object of the form with what stands below it.
    void LookBelow(const FormNode& node) { LookAt(node, node.ClassName()); }

    int Known = 0;
    // "TButton.Fancy", "TButton.Align = alMiddle"; in order.
    QStringList Findings;
    // Classes that nobody knows, as often as they occur.
    QStringList Unknown;

private:
    void LookAt(const FormNode& node, const QString& className);
    void LookAtProperty(const FormProperty& property, const QString& className);

    QString FGroup;
    QSet<QString> FOwn;
};
