#include "projects/DesktopFile.h"

#include "files/FileFinder.h"
#include "files/SourceFile.h"
#include "projects/ProjectBuilder.h"
#include "projects/XmlTree.h"

#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>

namespace {

std::optional<SourceFile> beside(const QString& projectFile, const QString& extension)
{
    const QFileInfo info(projectFile);
    const auto found = FindFileIgnoringCase(info.absolutePath() + u'/' + info.completeBaseName() + u'.' + extension);
    Failure failure;
    return found.isEmpty() ? std::nullopt : SourceFile::Read(found, failure);
}

// The entries Module0, Module1 ... of the section [Modules].
QStringList desktopModules(const SourceFile& file)
{
    static const QRegularExpression entry(
        QStringLiteral("^Module(\\d{1,6})\\s*=(.*)$"), QRegularExpression::CaseInsensitiveOption);
    QMap<int, QString> modules;
    bool here = false;
    for (const auto& raw : file.Text().split(QRegularExpression(QStringLiteral("[\\r\\n]+")))) {
        const auto line = raw.trimmed();
        if (line.startsWith(u'['))
            here = line.compare(u"[Modules]", Qt::CaseInsensitive) == 0;
        const auto match = here ? entry.match(line) : QRegularExpressionMatch();
        if (match.hasMatch())
            modules.insert(match.captured(1).toInt(), match.captured(2).trimmed());
    }
    return modules.values();
}

// The units of a session that are loaded, in the order of their editor tabs.
QStringList sessionUnits(const SourceFile& file)
{
    Problems ignored;
    const XmlTree tree(file, ignored);
    QList<std::pair<int, QString>> open;
    for (const auto* units : tree.All(QLatin1String("Units"))) {
        for (const auto* unit : tree.Children(*units)) {
            bool shown = false;
            const int tab = tree.ChildValue(*unit, QLatin1String("EditorIndex")).toInt(&shown);
            const bool loaded
                = tree.ChildValue(*unit, QLatin1String("Loaded")).compare(u"True", Qt::CaseInsensitive) == 0;
            const auto name = tree.ChildValue(*unit, QLatin1String("Filename"));
            if (!name.isEmpty() && ((shown && tab >= 0) || loaded))
                open.append({ shown && tab >= 0 ? tab : 0, name });
        }
    }
    std::stable_sort(open.begin(), open.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    QStringList names;
    for (const auto& [tab, name] : open)
        names << name;
    return names;
}

// How many parts two paths have in common, counted from their ends.
qsizetype commonTail(const QStringList& one, const QStringList& other)
{
    qsizetype count = 0;
    while (count < one.size() && count < other.size() && one[one.size() - 1 - count] == other[other.size() - 1 - count])
        ++count;
    return count;
}

QString meantModule(const QString& name, const ProjectDescription& project)
{
    const auto wanted = FoldedPath(ResolvedPath(QFileInfo(project.FileName).absolutePath(), name));
    for (const auto& module : project.Modules) {
        if (FoldedPath(module.FileName) == wanted || FoldedPath(module.FormFile) == wanted)
            return module.FileName;
    }
    if (!IsForeignAbsolutePath(name))
        return {};
    const auto parts = wanted.split(u'/');
    QString best;
    qsizetype bestTail = 0;
    for (const auto& module : project.Modules) {
        for (const auto& file : { module.FileName, module.FormFile }) {
            const auto tail = commonTail(parts, FoldedPath(file).split(u'/'));
            if (tail > bestTail) {
                best = module.FileName;
                bestTail = tail;
            }
        }
    }
    return best;
}

}

QStringList DesktopFile::OpenFiles(const QString& projectFile)
{
    if (!projectFile.endsWith(QLatin1String(".lpi"), Qt::CaseInsensitive)) {
        const auto desktop = beside(projectFile, QStringLiteral("dsk"));
        return desktop ? desktopModules(*desktop) : QStringList();
    }
    if (const auto session = beside(projectFile, QStringLiteral("lps")))
        return sessionUnits(*session);
    Failure failure;
    const auto project = SourceFile::Read(projectFile, failure);
    return project ? sessionUnits(*project) : QStringList();
}

QStringList DesktopFile::Meant(const QStringList& names, const ProjectDescription& project)
{
    QStringList files;
    for (const auto& name : names) {
        const auto file = meantModule(name, project);
        if (!file.isEmpty() && !files.contains(file))
            files << file;
    }
    return files;
}
