#include "projects/ProjectDescription.h"

namespace {

// The first module whose text is the wanted one, in that case first and in any case then.
template <typename Get>
const ModuleDescription* findModule(const QList<ModuleDescription>& modules, const QString& wanted, Get get)
{
    if (wanted.isEmpty())
        return nullptr;
    for (const auto sensitivity : { Qt::CaseSensitive, Qt::CaseInsensitive }) {
        for (const auto& module : modules) {
            if (get(module).compare(wanted, sensitivity) == 0)
                return &module;
        }
    }
    return nullptr;
}

}

const ModuleDescription* ProjectDescription::FindForm(const QString& formName) const
{
    return findModule(Modules, formName, [](const ModuleDescription& module) { return module.FormName; });
}

const ModuleDescription* ProjectDescription::FindFile(const QString& fileName) const
{
    return findModule(Modules, fileName, [](const ModuleDescription& module) { return module.FileName; });
}

QList<ProjectDescription> ProjectGroupDescription::AllProjects() const
{
    QList<ProjectDescription> projects;
    for (const auto& member : Members) {
        if (member.Project)
            projects << *member.Project;
        else if (member.Group)
            projects << member.Group->AllProjects();
    }
    return projects;
}

::Problems ProjectGroupDescription::AllProblems() const
{
    auto problems = Problems;
    for (const auto& member : Members) {
        if (member.Project)
            problems << member.Project->Problems;
        else if (member.Group)
            problems << member.Group->AllProblems();
    }
    return problems;
}

QString ModuleDescription::PluginName() const
{
    return FileName.endsWith(QLatin1String(".pp"), Qt::CaseInsensitive) ? FileName.chopped(2) + QLatin1String("pas")
                                                                        : FileName;
}
