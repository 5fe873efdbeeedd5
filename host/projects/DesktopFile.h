#pragma once

#include "projects/ProjectDescription.h"

#include <QStringList>

// The files that were open when a project or a group was last left.
namespace DesktopFile {

// The names in the desktop file beside `projectFile` (.dsk, .lps, or the .lpi itself), as written and in its order;
// none where there is no such file.
QStringList OpenFiles(const QString& projectFile);

// Those of the project's modules that the names mean. A desktop file may come from another machine: a name with a
// drive letter means the module that agrees with it in most folders, counted from the file's name backwards.
QStringList Meant(const QStringList& names, const ProjectDescription& project);

}
