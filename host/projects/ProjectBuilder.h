#pragma once

#include "files/FileFinder.h"
#include "projects/ProjectDescription.h"

#include <QHash>

// A module as one file of a project names it.
struct ModuleEntry {
    QString Path; // as written
    QString FormName;
    QString DesignClass;
    QString FormType; // the form file's extension where the project tells it
    Problem Place; // where it is named, without a text
};

// A form that the program creates at its start.
struct CreatedForm {
    QString ClassName;
    QString FormName;
};

// Puts a project's description together from what its files say, one list of modules from each of them. The first
// list gives the order; a later one fills in what the first leaves open, and adds what it does not name.
class ProjectBuilder {
public:
    explicit ProjectBuilder(const QString& fileName);

    ProjectDescription Project;

    const QString& Folder() const { return FFolder; }
    FileFinder& Files() { return FFiles; }

    void Report(const Problem& problem) { Project.Problems << problem; }
    void Report(Problem place, const QString& text);

    // Names that stand for a text in the project's paths, without regard to case.
    void SetVariable(const QString& name, const QString& value);

    // The absolute path that is meant, as it stands on disk where it is there. Empty, with a report, when a variable
    // in it is not known.
    QString Resolve(const QString& path, const Problem& place);

    void AddModules(const QList<ModuleEntry>& entries);
    void SetMainForm(const QList<CreatedForm>& created);

    // Looks at the files of the modules and reports what is missing; to be called once, at the end.
    void Finish();

private:
    struct Slot {
        ModuleEntry Entry;
        ModuleDescription Module;
    };

    QString Expand(const QString& text, QString* unknown) const;
    QString FormFileOf(const Slot& slot);
    void FinishModule(Slot& slot);
    void ReportMissing(const Slot& slot);
    void ReportSharedNames();

    QString FFolder;
    FileFinder FFiles;
    QHash<QString, QString> FVariables;
    QList<Slot> FSlots;
    QHash<QString, int> FIndex; // by the folded path
};

// The key under which two spellings of one path meet.
QString FoldedPath(const QString& path);

// What a form derives from, in terms of the designer.
ModuleType TypeOfDesignClass(const QString& designClass);
