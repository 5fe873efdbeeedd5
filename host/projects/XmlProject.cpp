#include "projects/XmlProject.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

const QLatin1String includeAttribute("Include");
const QLatin1String nameAttribute("Name");

// "Delphi.Personality.12" names a version of the personality at its end.
QString withoutVersion(const QString& personality)
{
    static const QRegularExpression version(QStringLiteral("(\\.\\d+)+$"));
    return QString(personality).remove(version);
}

QString namedText(const XmlTree& tree, QLatin1String element, QLatin1String name)
{
    for (const auto* one : tree.All(element)) {
        if (one->Attributes.value(nameAttribute).compare(name, Qt::CaseInsensitive) == 0 && !one->Text.isEmpty())
            return one->Text;
    }
    return {};
}

QString personalityIn(const XmlTree& tree)
{
    const auto found = tree.All(QLatin1String("Borland.Personality"));
    if (!found.isEmpty() && !found.first()->Text.isEmpty())
        return withoutVersion(found.first()->Text);
    return withoutVersion(namedText(tree, QLatin1String("Option"), QLatin1String("Personality")));
}

void readProperties(const XmlTree& tree, XmlProject& project, ProjectBuilder& builder)
{
    for (const auto* group : tree.Children(tree.Root(), QStringLiteral("PropertyGroup"))) {
        if (group->Attributes.hasAttribute(QLatin1String("Condition")))
            continue;
        for (const auto* property : tree.Children(*group)) {
            builder.SetVariable(property->Name, property->Text);
            if (property->Name == u"FrameworkType" && builder.Project.FrameworkType.isEmpty())
                builder.Project.FrameworkType = property->Text;
            if (property->Name != u"MainSource" || property->Text.isEmpty())
                continue;
            project.MainSource = property->Text;
            project.MainSourcePlace = tree.ProblemAt(*property, {});
        }
    }
}

// A file that takes part in the build, with the form it holds.
ModuleEntry moduleOf(const XmlTree& tree, const XmlTree::Element& item)
{
    ModuleEntry entry;
    entry.Path = item.Attributes.value(includeAttribute).toString();
    entry.FormName = tree.ChildText(item, QLatin1String("Form"));
    entry.FormType = tree.ChildText(item, QLatin1String("FormType"));
    entry.DesignClass = tree.ChildText(item, QLatin1String("DesignClass"));
    entry.Place = tree.ProblemAt(item, {});
    return entry;
}

bool isModuleItem(const XmlTree& tree, const XmlTree::Element& item)
{
    static const QStringList kinds { QStringLiteral("DCCReference"), QStringLiteral("CppCompile"),
        QStringLiteral("DelphiCompile") };
    static const QStringList noModules { QStringLiteral("dcp"), QStringLiteral("lib"), QStringLiteral("bpi"),
        QStringLiteral("a"), QStringLiteral("res"), QStringLiteral("rc") };
    if (!kinds.contains(item.Name) || tree.Find(item, { QLatin1String("MainSource") }))
        return false;
    const auto extension = item.Attributes.value(includeAttribute).toString().section(u'.', -1).toLower();
    return !noModules.contains(extension);
}

}

XmlProject XmlProject::FromMsBuild(const XmlTree& tree, ProjectBuilder& builder)
{
    XmlProject project;
    builder.Project.Personality = personalityIn(tree);
    readProperties(tree, project, builder);
    QList<std::pair<int, ModuleEntry>> ordered;
    for (const auto* group : tree.Children(tree.Root(), QStringLiteral("ItemGroup"))) {
        for (const auto* item : tree.Children(*group)) {
            if (isModuleItem(tree, *item))
                ordered.append({ tree.ChildText(*item, QLatin1String("BuildOrder")).toInt(), moduleOf(tree, *item) });
        }
    }
    std::stable_sort(ordered.begin(), ordered.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [order, entry] : ordered)
        project.Modules << entry;
    return project;
}

XmlProject XmlProject::FromBorland(const XmlTree& tree, ProjectBuilder& builder)
{
    XmlProject project;
    builder.Project.Personality = personalityIn(tree);
    for (const auto* source : tree.All(QLatin1String("Source"))) {
        if (source->Attributes.value(nameAttribute) != u"MainSource" || source->Text.isEmpty())
            continue;
        project.MainSource = source->Text;
        project.MainSourcePlace = tree.ProblemAt(*source, {});
    }
    for (const auto* file : tree.All(QLatin1String("FILE"))) {
        ModuleEntry entry;
        entry.Path = file->Attributes.value(QLatin1String("FILENAME")).toString();
        entry.FormName = file->Attributes.value(QLatin1String("FORMNAME")).toString();
        entry.DesignClass = file->Attributes.value(QLatin1String("DESIGNCLASS")).toString();
        entry.Place = tree.ProblemAt(*file, {});
        static const QStringList kinds { QStringLiteral("cpp"), QStringLiteral("pas"), QStringLiteral("c") };
        if (kinds.contains(QFileInfo(entry.Path).suffix().toLower()))
            project.Modules << entry;
    }
    return project;
}

XmlProject XmlProject::FromLazarus(const XmlTree& tree, ProjectBuilder& builder)
{
    XmlProject project;
    builder.Project.Personality = QStringLiteral("Delphi.Personality");
    for (const auto* package : tree.All(QLatin1String("PackageName"))) {
        if (package->Attributes.value(QLatin1String("Value")).compare(u"LCL", Qt::CaseInsensitive) == 0)
            builder.Project.FrameworkType = QStringLiteral("LCL");
    }
    const auto* options = tree.Find(tree.Root(), { QLatin1String("ProjectOptions") });
    const auto* units = options ? tree.Find(*options, { QLatin1String("Units") }) : nullptr;
    if (!units)
        return project;
    const auto* general = tree.Find(*options, { QLatin1String("General") });
    const int mainUnit = general ? tree.ChildValue(*general, QLatin1String("MainUnit")).toInt() : 0;
    int index = -1;
    for (const auto* unit : tree.Children(*units)) {
        ++index;
        ModuleEntry entry;
        entry.Path = tree.ChildValue(*unit, QLatin1String("Filename"));
        entry.FormName = tree.ChildValue(*unit, QLatin1String("ComponentName"));
        const auto base = tree.ChildValue(*unit, QLatin1String("ResourceBaseClass"));
        if (base == u"DataModule" || base == u"Frame")
            entry.DesignClass = u'T' + base;
        entry.FormType = QStringLiteral("lfm");
        entry.Place = tree.ProblemAt(*unit, {});
        if (index == mainUnit) {
            project.MainSource = entry.Path;
            project.MainSourcePlace = entry.Place;
        } else if (tree.ChildValue(*unit, QLatin1String("IsPartOfProject")).compare(u"True", Qt::CaseInsensitive)
            == 0) {
            project.Modules << entry;
        }
    }
    return project;
}

std::optional<XmlProject> XmlProject::Read(const XmlTree& tree, ProjectBuilder& builder)
{
    if (tree.IsEmpty())
        return {};
    const auto& root = tree.Root();
    if (root.Name == u"Project")
        return FromMsBuild(tree, builder);
    if (root.Name == u"BorlandProject" || root.Name == u"BORLANDPROJECT")
        return FromBorland(tree, builder);
    if (root.Name == u"CONFIG")
        return FromLazarus(tree, builder);
    builder.Report(
        tree.ProblemAt(root, QStringLiteral("is no project: it begins with <%1>").arg(root.Name), Problem::Error));
    return {};
}
