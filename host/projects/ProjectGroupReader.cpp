#include "files/FileFinder.h"
#include "files/SourceFile.h"
#include "projects/DesktopFile.h"
#include "projects/ProjectBuilder.h"
#include "projects/ProjectReader.h"
#include "projects/XmlTree.h"

#include <QFileInfo>
#include <QSet>

namespace {

// Groups within groups go no deeper.
constexpr int deepestGroup = 32;

// One reading of a group and of all it leads to, each file once.
class GroupReading {
public:
    ProjectGroupDescription Run(const QString& fileName, int depth = 0)
    {
        ProjectGroupDescription group;
        const auto path = QFileInfo(fileName).absoluteFilePath();
        const auto found = FFiles.Find(path);
        group.FileName = found.isEmpty() ? path : found;
        group.DisplayName = QFileInfo(group.FileName).completeBaseName();
        FSeen.insert(FoldedPath(group.FileName));
        Failure failure;
        const auto file = SourceFile::Read(group.FileName, failure);
        if (!file) {
            group.Problems << *failure;
            return group;
        }
        const XmlTree tree(*file, group.Problems);
        if (tree.IsEmpty())
            return group;
        if (tree.Root().Name != u"Project") {
            group.Problems << tree.ProblemAt(tree.Root(),
                QStringLiteral("is no project group: it begins with <%1>").arg(tree.Root().Name), Problem::Error);
            return group;
        }
        group.Readable = true;
        ReadMembers(tree, group, depth);
        return group;
    }

private:
    void ReadMembers(const XmlTree& tree, ProjectGroupDescription& group, int depth)
    {
        const auto desktop = DesktopFile::OpenFiles(group.FileName);
        for (const auto* items : tree.Children(tree.Root(), QStringLiteral("ItemGroup"))) {
            for (const auto* item : tree.Children(*items, QStringLiteral("Projects"))) {
                const auto name = item->Attributes.value(QLatin1String("Include")).toString();
                const auto path = Member(name, tree.ProblemAt(*item, {}), group, depth);
                if (path.isEmpty())
                    continue;
                if (IsGroupFileName(path)) {
                    group.Members << GroupMember { {},
                        std::make_shared<const ProjectGroupDescription>(Run(path, depth + 1)) };
                    continue;
                }
                auto project = ReadProject(path);
                AddOpenFiles(project, desktop);
                group.Members << GroupMember { project, {} };
            }
        }
    }

    // The path of a member that is to be read; empty, with a report, when it is not.
    QString Member(const QString& name, Problem place, ProjectGroupDescription& group, int depth)
    {
        const auto resolved = ResolvedPath(QFileInfo(group.FileName).absolutePath(), name);
        const auto path = FFiles.Find(resolved);
        const auto key = FoldedPath(path.isEmpty() ? resolved : path);
        if (name.contains(QLatin1String("$(")))
            place.Text = QStringLiteral("%1 is left out: its variables are not known here").arg(name);
        else if (key == FoldedPath(group.FileName))
            place.Text = QStringLiteral("the group names itself");
        else if (FSeen.contains(key))
            place.Text = QStringLiteral("%1 is named twice and opened once").arg(name);
        else if (path.isEmpty())
            place.Text = QStringLiteral("%1 is not there").arg(name);
        else if (!IsProjectFileName(path) && !IsGroupFileName(path))
            place.Text = QStringLiteral("%1 is no project").arg(name);
        else if (depth >= deepestGroup)
            place.Text = QStringLiteral("%1 is left out: groups are nested deeper than %2").arg(name).arg(deepestGroup);
        const bool again = FReported.contains(key);
        if (place.Text.isEmpty()) {
            FSeen.insert(key);
            return path;
        }
        FReported.insert(key);
        if (!again)
            group.Problems << place;
        return {};
    }

    static void AddOpenFiles(ProjectDescription& project, const QStringList& names)
    {
        for (const auto& file : DesktopFile::Meant(names, project)) {
            if (!project.OpenFiles.contains(file))
                project.OpenFiles << file;
        }
    }

    FileFinder FFiles;
    QSet<QString> FSeen; // folded paths of what is read or being read
    QSet<QString> FReported;
};

}

ProjectGroupDescription ReadProjectGroup(const QString& fileName)
{
    return GroupReading().Run(fileName);
}

ProjectGroupDescription ReadProjectOrGroup(const QString& fileName)
{
    if (IsGroupFileName(fileName))
        return ReadProjectGroup(fileName);
    ProjectGroupDescription group;
    auto project = ReadProject(fileName);
    group.DisplayName = project.DisplayName;
    group.Readable = project.Readable;
    group.Members << GroupMember { std::move(project), {} };
    return group;
}
