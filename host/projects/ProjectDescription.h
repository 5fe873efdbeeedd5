#pragma once

#include "files/Problem.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

// What a module is to the designer. The numbers of the first two are agreed with those who ask for modules that have
// a form.
enum class ModuleType {
    Form = 0, // a form or a frame
    DataModule = 1, // a container of components without a face
    Unit = 2, // a unit without a form
    Other = 3 // any other file that belongs to the project
};

// A module as its project file tells of it; nothing of it is opened for that.
struct ModuleDescription {
    QString FileName; // the unit: absolute, as it stands on disk where it is there
    QString FormFile; // the form file beside the unit; empty where there is none
    QString FormName; // empty for a unit without a form
    QString DesignClass; // what the form derives from ("TDataModule", "TFrame"); empty for an ordinary form
    ModuleType Type = ModuleType::Unit;
    bool Exists = false; // the unit is there; a form file may be there without it

    bool HasForm() const { return Type == ModuleType::Form || Type == ModuleType::DataModule; }
    // The name that plug-ins know the unit by: they have one extension for Pascal units, so .pp counts as .pas.
    QString PluginName() const;

    friend bool operator==(const ModuleDescription&, const ModuleDescription&) = default;
};

// A project as its files tell of it: a plain value, without anything opened, run or connected.
//
// What is not as it should be stands in `Problems`, one message each, and the rest is there all the same:
//   - a module whose unit is missing is kept, with `Exists` false; with its form file there it can still be shown;
//   - a module that is named twice, by whatever spelling, is kept once;
//   - a module with a variable in its name that is not known is dropped, as no file is meant by it;
//   - two modules whose forms bear one name are both kept.
struct ProjectDescription {
    QString FileName; // absolute
    QString DisplayName; // the file's name without folder and extension
    QString Personality; // "Delphi.Personality", "CPlusPlusBuilder.Personality", or as found
    QString FrameworkType; // "VCL", "FMX", "LCL", or as found; empty where nothing tells
    QString MainSource; // the program's source, which is none of the modules: absolute; empty where none is named
    QString MainForm; // the name of the modules' form that is created first; empty where none is known to be
    QList<ModuleDescription> Modules; // in project order
    QStringList OpenFiles; // those of the modules' files that the desktop file lists, absolute, in its order
    ::Problems Problems;
    bool Readable = false; // false when the project's own file could not be understood

    // The module with that form, or nil. Exact names win over names in another case.
    const ModuleDescription* FindForm(const QString& formName) const;
    const ModuleDescription* FindFile(const QString& fileName) const;

    bool IsLazarus() const { return FileName.endsWith(QLatin1String(".lpi"), Qt::CaseInsensitive); }
};

struct ProjectGroupDescription;

// An entry of a group: a project, or another group.
struct GroupMember {
    std::optional<ProjectDescription> Project;
    std::shared_ptr<const ProjectGroupDescription> Group;
};

// A group and all that it leads to. A project or group that leads back to one that is being read, or that was read
// before, is reported once and not followed.
struct ProjectGroupDescription {
    QString FileName; // absolute; empty for a project that was opened by itself
    QString DisplayName;
    QList<GroupMember> Members; // in the group's order
    ::Problems Problems; // of the group's own file
    bool Readable = false;

    // The projects of this group and of those within it, in order.
    QList<ProjectDescription> AllProjects() const;

    // The problems of this group, of those within it, and of their projects.
    ::Problems AllProblems() const;
};
