#pragma once

#include "projects/ProjectDescription.h"

// Reads a project: .dproj, .cbproj, .bdsproj, .dpr, .dpk or .lpi. The files that belong together are read together: a
// .dproj with its program, a .dpr with the .dproj beside it, each with its desktop file.
//
// Nothing in a project runs: files are looked at and no more.
//
// To add a kind of project file: write a reader that fills a ProjectBuilder, and name its extension in the table of
// ProjectReader.cpp.
ProjectDescription ReadProject(const QString& fileName);

// Reads a group with all its projects.
ProjectGroupDescription ReadProjectGroup(const QString& fileName);

// Reads whatever it is: a project becomes the only member of a group without a file.
ProjectGroupDescription ReadProjectOrGroup(const QString& fileName);

// Whether the file name is that of a project or of a group, by its extension.
bool IsProjectFileName(const QString& fileName);
bool IsGroupFileName(const QString& fileName);
