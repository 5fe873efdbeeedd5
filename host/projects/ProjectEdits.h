#pragma once

#include "files/SourceFile.h"
#include "units/SourceUnit.h"

#include <functional>

// What a project's own files (the project file, the program's source, the desktop file) are told when one of its
// modules is saved under another name or its form is renamed. Only the names change; a file that does not name the
// module stays as it is. A failed edit changes nothing.
//
// To add a kind of project file: name its extension in ProjectEdits.cpp and say where it names modules.
namespace ProjectEdits {

// A module's files, each old one with the new one: the unit first, then its header and its form file where it has them.
struct ModuleFiles {
    UnitRename Unit;
    QList<std::pair<QString, QString>> Files;
};

// `file` is one of the project's own; `projectFile` is the file that the project is known by.
Failure RenameModule(SourceFile& file, const QString& projectFile, const ModuleFiles& module);
Failure RenameForm(SourceFile& file, const QString& projectFile, const FormRename& rename);

}
