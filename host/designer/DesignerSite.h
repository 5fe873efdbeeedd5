#pragma once

#include "designer/FormClassSource.h"
#include "packages/Catalogue.h"
#include "toolsapi/OTANotifiers.h"
#include "units/SourceUnit.h"

class Designer;
class TComponent;
class UndoStack;

// What a designer needs of the module and the IDE that it stands in. Lives longer than the designer's form.
class DesignerSite : public FormClassSource {
public:
    // As IDesigner::ModuleFileNames.
    virtual void FileNames(QString& unit, QString& form, QString& project) = 0;
    // The unit of the form; nil where it cannot be read.
    virtual SourceUnit* Unit() = 0;
    // The unit that declares the root of another open form; nothing for a root that no open module shows.
    virtual std::optional<UnitReference> UnitOfRoot(const TComponent* root) = 0;
    // The open form of that name, the own project's first; nil.
    virtual TComponent* RootNamed(const QString& formName) = 0;

    virtual UndoStack& Undo() = 0;
    // Before the form or the unit changes.
    virtual void WillEdit() = 0;
    // An edit that could not be made in the unit; the form is edited all the same.
    virtual void Report(const Problem& problem) = 0;

    // The form of the ancestor class; opened when it is not. Nil without one.
    virtual Designer* AncestorDesigner() = 0;
    // Open forms that inherit from this one, directly.
    virtual QList<Designer*> DescendantDesigners() = 0;
    // All open forms of the IDE.
    virtual QList<Designer*> OpenDesigners() = 0;

    // Passes on to the listeners of the form.
    virtual void NotifyRenamed(TOTAHandle component, const QString& oldName, const QString& newName) = 0;
    virtual void NotifyModified() = 0;
    // The root is about to get that name, from the person or the program. What refers to the form is opened, so that
    // it can follow. Raises EComponentError when the project has such a name already.
    virtual void WillRenameRoot(const QString& newName) = 0;
    // The root has got the new name, and nothing else has: units and the project's files take it and the class that
    // goes by it, or none of them does. The form's own file is the designer's to change.
    virtual Failure RenameRoot(const QString& oldName, const QString& newName) = 0;
    // The class of the form has another name in its file, after a renaming or going back over one.
    virtual void RootClassChanged(const QString& oldClass, const QString& newClass) = 0;
    // Brings the form to the front.
    virtual void Activate() = 0;
    // The units that a component of that class needs.
    virtual QList<UnitReference> UnitsNeededBy(TClass aClass) = 0;
    // What is made with a component of that class.
    virtual QList<CreatedComponent> CreatedWith(TClass aClass) = 0;
};
