#include "projects/ProjectEdits.h"

#include "files/FileFinder.h"
#include "files/PathSpelling.h"
#include "projects/ProjectBuilder.h"
#include "projects/XmlProject.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {

enum class FileKind { Other, Xml, Source, Desktop };

FileKind KindOf(const QString& fileName)
{
    static const QHash<QString, FileKind> kinds {
        { QStringLiteral("dproj"), FileKind::Xml },
        { QStringLiteral("cbproj"), FileKind::Xml },
        { QStringLiteral("bdsproj"), FileKind::Xml },
        { QStringLiteral("lpi"), FileKind::Xml },
        { QStringLiteral("lps"), FileKind::Xml },
        { QStringLiteral("dpr"), FileKind::Source },
        { QStringLiteral("dpk"), FileKind::Source },
        { QStringLiteral("lpr"), FileKind::Source },
        { QStringLiteral("cpp"), FileKind::Source },
        { QStringLiteral("dsk"), FileKind::Desktop },
    };
    return kinds.value(QFileInfo(fileName).suffix().toLower());
}

// A place of a project file that names a file.
struct NamingPlace {
    const XmlTree::Element* Element; // whose attribute it is
    QLatin1String Attribute;
    QString Written;
    const XmlTree::Element* Module; // the element that tells more of the module
};

// Reads a project file for its places.
class XmlPlaces {
public:
    XmlPlaces(const SourceFile& file, const QString& projectFile)
        : Text(file.Text())
        , Tree(file, FProblems)
        , Builder(projectFile)
    {
        if (!Tree.IsEmpty())
            XmlProject::Read(Tree, Builder); // for the variables in paths
    }

    QList<NamingPlace> Find() const
    {
        QList<NamingPlace> found;
        if (Tree.IsEmpty())
            return found;
        for (const auto* group : Tree.All(QLatin1String("ItemGroup")))
            for (const auto* item : Tree.Children(*group))
                found << Place(*item, QLatin1String("Include"), *item);
        for (const auto* item : Tree.All(QLatin1String("FILE")))
            found << Place(*item, QLatin1String("FILENAME"), *item);
        for (const auto* units : Tree.All(QLatin1String("Units")))
            for (const auto* unit : Tree.Children(*units))
                if (const auto* name = Tree.Find(*unit, { QLatin1String("Filename") }))
                    found << Place(*name, QLatin1String("Value"), *unit);
        return found;
    }

    bool Means(const QString& written, const QString& file)
    {
        return FoldedPath(Builder.Resolve(written, {})) == FoldedPath(file);
    }

    void Change(const XmlTree::Element* element, QLatin1String attribute, const QString& oldValue,
        const QString& newValue, QList<SourceEdit>& edits) const
    {
        if (!element || element->Attributes.value(attribute).compare(oldValue, Qt::CaseInsensitive) != 0)
            return;
        if (const auto edit = XmlTree::EditOf(Text, *element, attribute, newValue))
            edits << *edit;
    }

    void ChangeText(const XmlTree::Element* element, const QString& newText, QList<SourceEdit>& edits) const
    {
        if (const auto edit = element ? XmlTree::EditOfText(Text, *element, newText) : std::nullopt)
            edits << *edit;
    }

    const QString Text;

private:
    ::Problems FProblems;

public:
    const XmlTree Tree;
    ProjectBuilder Builder;

private:
    static NamingPlace Place(const XmlTree::Element& element, QLatin1String attribute, const XmlTree::Element& module)
    {
        return { &element, attribute, element.Attributes.value(attribute).toString(), &module };
    }
};

QList<SourceEdit> XmlModuleEdits(
    const SourceFile& file, const QString& projectFile, const ProjectEdits::ModuleFiles& module)
{
    XmlPlaces places(file, projectFile);
    QList<SourceEdit> edits;
    const auto folder = places.Builder.Folder();
    const auto spelled = [&](const QString& written, const std::pair<QString, QString>& files) {
        return SpelledLike(written, folder, files.first, files.second, true);
    };
    for (const auto& place : places.Find()) {
        const auto files = std::find_if(module.Files.cbegin(), module.Files.cend(),
            [&](const auto& each) { return places.Means(place.Written, each.first); });
        if (place.Written.isEmpty() || files == module.Files.cend())
            continue;
        places.Change(place.Element, place.Attribute, place.Written, spelled(place.Written, *files), edits);
        const auto& tree = places.Tree;
        places.Change(tree.Find(*place.Module, { QLatin1String("UnitName") }), QLatin1String("Value"),
            module.Unit.OldName, module.Unit.NewName, edits);
        places.Change(place.Module, QLatin1String("UNITNAME"), module.Unit.OldName, module.Unit.NewName, edits);
        const auto* header = tree.Find(*place.Module, { QLatin1String("DependentOn") });
        for (const auto& other : module.Files)
            if (header && places.Means(header->Text, other.first))
                places.ChangeText(header, spelled(header->Text, other), edits);
    }
    return edits;
}

QList<SourceEdit> XmlFormEdits(const SourceFile& file, const QString& projectFile, const FormRename& rename)
{
    XmlPlaces places(file, projectFile);
    QList<SourceEdit> edits;
    for (const auto& place : places.Find()) {
        if (place.Written.isEmpty() || !places.Means(place.Written, rename.UnitFile))
            continue;
        const auto& tree = places.Tree;
        places.Change(tree.Find(*place.Module, { QLatin1String("ComponentName") }), QLatin1String("Value"),
            rename.OldName, rename.NewName, edits);
        places.Change(place.Module, QLatin1String("FORMNAME"), rename.OldName, rename.NewName, edits);
        const auto* form = tree.Find(*place.Module, { QLatin1String("Form") });
        if (form && form->Text.compare(rename.OldName, Qt::CaseInsensitive) == 0)
            places.ChangeText(form, rename.NewName, edits);
    }
    return edits;
}

// Module0=Main.pas, and the section [Main.pas].
QList<SourceEdit> DesktopEdits(const SourceFile& file, const ProjectEdits::ModuleFiles& module)
{
    static const QRegularExpression named(
        QStringLiteral("^(?:Module\\d{1,6}\\s*=\\s*([^\\r\\n]*?)|\\[([^\\]\\r\\n]+)\\])\\s*$"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::MultilineOption);
    const auto folder = QFileInfo(file.FileName()).absolutePath();
    QList<SourceEdit> edits;
    auto matches = named.globalMatch(file.Text());
    while (matches.hasNext()) {
        const auto match = matches.next();
        const int group = match.capturedStart(1) >= 0 ? 1 : 2;
        for (const auto& [oldFile, newFile] : module.Files)
            if (FoldedPath(ResolvedPath(folder, match.captured(group))) == FoldedPath(oldFile))
                edits << SourceEdit { match.capturedStart(group), match.capturedLength(group),
                    SpelledLike(match.captured(group), folder, oldFile, newFile, true) };
    }
    return edits;
}

// A program is a unit that uses others.
Failure ChangeSource(
    SourceFile& file, const QString& projectFile, const std::function<Failure(SourceUnit& unit)>& change)
{
    const bool lazarus = projectFile.endsWith(QLatin1String(".lpi"), Qt::CaseInsensitive);
    const auto unit = SourceUnitFrom({ file.Content() }, lazarus);
    if (auto failure = change(*unit))
        return failure;
    file = SourceFile(file.FileName(), unit->Files().first().Bytes);
    return {};
}

}

Failure ProjectEdits::RenameModule(SourceFile& file, const QString& projectFile, const ModuleFiles& module)
{
    switch (KindOf(file.FileName())) {
    case FileKind::Xml:
        return file.Apply(XmlModuleEdits(file, projectFile, module));
    case FileKind::Source:
        return ChangeSource(
            file, projectFile, [&module](SourceUnit& unit) { return unit.RenameUsedUnit(module.Unit); });
    case FileKind::Desktop:
        return file.Apply(DesktopEdits(file, module));
    default:
        return {};
    }
}

Failure ProjectEdits::RenameForm(SourceFile& file, const QString& projectFile, const FormRename& rename)
{
    switch (KindOf(file.FileName())) {
    case FileKind::Xml:
        return file.Apply(XmlFormEdits(file, projectFile, rename));
    case FileKind::Source:
        return ChangeSource(file, projectFile, [&](SourceUnit& unit) {
            auto inProgram = rename;
            // USEFORM names the form also where the unit declares no variable.
            inProgram.HasVariable = rename.HasVariable || file.FileName().endsWith(QLatin1String(".cpp"));
            return unit.RenameForm(inProgram);
        });
    default:
        return {};
    }
}
