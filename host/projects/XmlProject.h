#pragma once

#include "projects/ProjectBuilder.h"
#include "projects/XmlTree.h"

// What an XML project file says about the project's modules. Personality, framework and variables go to the builder
// at once; the modules are returned, in project order.
struct XmlProject {
    QList<ModuleEntry> Modules;
    QString MainSource; // as written
    Problem MainSourcePlace;

    // .dproj and .cbproj
    static XmlProject FromMsBuild(const XmlTree& tree, ProjectBuilder& builder);

    // .bdsproj
    static XmlProject FromBorland(const XmlTree& tree, ProjectBuilder& builder);

    // .lpi
    static XmlProject FromLazarus(const XmlTree& tree, ProjectBuilder& builder);

    // By the file's root element. Nothing, with a report, when it is no project file's.
    static std::optional<XmlProject> Read(const XmlTree& tree, ProjectBuilder& builder);
};
