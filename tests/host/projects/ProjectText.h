#pragma once

#include "projects/ProjectReader.h"

#include <QDir>
#include <QTextStream>

// A project as a few lines of text, with names relative to the folder of the project.
inline std::string TextOf(const ProjectDescription& project)
{
    const QDir folder = QFileInfo(project.FileName).dir();
    QString text;
    QTextStream out(&text);
    out << project.DisplayName << ' ' << project.Personality << ' ' << project.FrameworkType << " main "
        << (project.MainForm.isEmpty() ? QStringLiteral("-") : project.MainForm) << '\n';
    for (const auto& module : project.Modules) {
        out << int(module.Type) << ' ' << folder.relativeFilePath(module.FileName);
        if (!module.Exists)
            out << " (missing)";
        if (!module.FormFile.isEmpty())
            out << ' ' << folder.relativeFilePath(module.FormFile);
        if (!module.FormName.isEmpty())
            out << ' ' << module.FormName;
        if (!module.DesignClass.isEmpty())
            out << ": " << module.DesignClass;
        out << '\n';
    }
    for (const auto& file : project.OpenFiles)
        out << "open " << folder.relativeFilePath(file) << '\n';
    for (const auto& problem : project.Problems)
        out << problem.ToString().replace(folder.path() + u'/', QString()) << '\n';
    return text.toStdString();
}

inline std::string TextOf(const ProjectGroupDescription& group, const QDir& folder, int level = 0)
{
    QString text;
    const QString indent(level * 2, u' ');
    for (const auto& member : group.Members) {
        if (member.Project) {
            text += indent + folder.relativeFilePath(member.Project->FileName) + u'\n';
        } else {
            text += indent + folder.relativeFilePath(member.Group->FileName) + u'\n';
            text += QString::fromStdString(TextOf(*member.Group, folder, level + 1));
        }
    }
    for (const auto& problem : group.Problems)
        text += indent + problem.ToString().replace(folder.path() + u'/', QString()) + u'\n';
    return text.toStdString();
}
