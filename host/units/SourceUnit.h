#pragma once

#include "files/Problem.h"
#include "files/SaveTogether.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

// A unit that a class lives in, by both of its names: with its namespace ("Vcl.DBCtrls") and without ("DBCtrls").
// A unit that has no namespace gives the same name twice.
struct UnitReference {
    QString Scoped;
    QString Plain;

    // From either name; the plain one is what follows the last dot.
    static UnitReference FromName(const QString& name);

    friend bool operator==(const UnitReference&, const UnitReference&) = default;
};

struct FieldDeclaration {
    QString Name;
    QString Type;

    friend bool operator==(const FieldDeclaration&, const FieldDeclaration&) = default;
};

// A class as its unit declares it.
struct ClassDeclaration {
    QString Name;
    QString Ancestor; // as written, the first of the list; empty where none is named
    QList<FieldDeclaration> PublishedFields; // of the section that the designer keeps, in order
    QStringList Methods; // of the whole class, in order, by name

    friend bool operator==(const ClassDeclaration&, const ClassDeclaration&) = default;
};

// A unit of the project is saved under another name: what the files that use it are told. File names are absolute.
struct UnitRename {
    QString OldFile;
    QString NewFile;
    QString OldName;
    QString NewName;
    QStringList Declares; // names of the unit that others may write behind its own, as in Main.MainForm

    friend bool operator==(const UnitRename&, const UnitRename&) = default;
};

// The root of a form is renamed, and with it its class and the variable that the unit declares for it.
struct FormRename {
    QString UnitName; // of the unit that declares the class
    QString UnitFile; // absolute
    QString OldName;
    QString NewName;
    QString OldClass;
    QString NewClass;
    bool HasVariable = false; // the unit declares a variable under the old name

    friend bool operator==(const FormRename&, const FormRename&) = default;
};

// A unit of source text as the designer sees it: the fields that stand for the components of a form, and the units
// it uses. Lossless: what nobody edits keeps every byte. A failed edit changes nothing. The owner keeps `Files()`
// from before an edit to undo it with `Restore`.
//
// To add a language: derive from this class and name its extensions in OpenSourceUnit.
class SourceUnit {
public:
    virtual ~SourceUnit();

    virtual QString UnitName() const = 0;

    // The declaration of a class; nothing when the unit does not declare it, or cannot be followed that far.
    virtual std::optional<ClassDeclaration> FindClass(const QString& className) const = 0;

    // The units that the interface uses, and those that only the implementation uses, as written.
    virtual QStringList InterfaceUses() const = 0;
    virtual QStringList ImplementationUses() const = 0;

    // Declares a component at the end of the class's published fields. Declaring what is declared already, with the
    // same type, is done at once.
    virtual Failure AddField(const QString& className, const FieldDeclaration& field) = 0;
    virtual Failure RemoveField(const QString& className, const QString& fieldName) = 0;
    virtual Failure RenameField(const QString& className, const QString& oldName, const QString& newName) = 0;

    // Sees to it that the unit uses another one, under either name. An added entry has its namespace where the
    // unit's other entries have theirs.
    virtual Failure UseInInterface(const UnitReference& unit) = 0;
    virtual Failure UseInImplementation(const UnitReference& unit) = 0;

    // Puts the unit under another file name, and its header with it: the name that the unit bears, and what it says
    // of its own files, follow. Nothing is written to disk.
    virtual Failure SaveUnder(const QString& fileName) = 0;
    // Another unit was saved under a new name: entries that use it, with their file names, follow.
    virtual Failure RenameUsedUnit(const UnitRename& rename) = 0;

    // Whether the unit declares a variable of that class, outside of any class.
    virtual bool DeclaresVariable(const QString& name, const QString& className) const = 0;
    // Names the class and the variable anew wherever the code means them; in the form's own unit, in those that use
    // it, and in a program. Fails when the unit uses one of the new names for something else already, or an old one.
    virtual Failure RenameForm(const FormRename& rename) = 0;

    // What is wrong with the unit as it stands; empty for a sound one.
    virtual Problems Check() const = 0;

    // The files as they would be saved: the unit itself first, then its header where it has one.
    virtual QList<FileContent> Files() const = 0;

    // Takes back content that Files() gave.
    virtual void Restore(const QList<FileContent>& files) = 0;

protected:
    // Whether the unit may be edited, with the first error when not: a comment that is not closed makes everything
    // behind it a guess.
    bool IsSound(Failure& failure) const;
};

// Reads the unit in a file: .pas and .pp as Pascal, .lpr, .dpr and .dpk too; .cpp, .h and their kin as C++ with both
// files of the pair. `lazarus` tells whose Pascal it is. Nothing, with the reason, when it cannot be read.
std::unique_ptr<SourceUnit> OpenSourceUnit(const QString& fileName, bool lazarus, Failure& failure);

// The same from files as Files() gives them. Nil for a language that is not known.
std::unique_ptr<SourceUnit> SourceUnitFrom(const QList<FileContent>& files, bool lazarus);
