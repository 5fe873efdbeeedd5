#include "projects/ProjectReader.h"

#include "projects/DesktopFile.h"
#include "projects/FormHeader.h"
#include "projects/ProgramSource.h"
#include "projects/ProjectBuilder.h"
#include "projects/XmlProject.h"

#include <QFileInfo>

namespace {

const QStringList xmlExtensions { QStringLiteral("dproj"), QStringLiteral("cbproj"), QStringLiteral("bdsproj"),
    QStringLiteral("lpi") };
const QStringList programExtensions { QStringLiteral("dpr"), QStringLiteral("dpk") };

QString extensionOf(const QString& fileName)
{
    return QFileInfo(fileName).suffix().toLower();
}

// One reading of one project: first its own file, then the files that go with it.
class ProjectReading {
public:
    explicit ProjectReading(const QString& fileName)
        : FBuilder(fileName)
        , FProject(FBuilder.Project)
    {
    }

    ProjectDescription Run()
    {
        Failure failure;
        const auto file = SourceFile::Read(FProject.FileName, failure);
        if (!file) {
            FBuilder.Report(*failure);
        } else if (xmlExtensions.contains(extensionOf(FProject.FileName))) {
            ReadXml(*file);
        } else {
            ReadProgram(*file);
        }
        SetPersonality();
        FBuilder.Finish();
        FBuilder.SetMainForm(FCreated);
        FProject.OpenFiles = DesktopFile::Meant(DesktopFile::OpenFiles(FProject.FileName), FProject);
        return FProject;
    }

private:
    void ReadXml(const SourceFile& file)
    {
        const XmlTree tree(file, FProject.Problems);
        const auto xml = XmlProject::Read(tree, FBuilder);
        FProject.Readable = xml.has_value();
        const auto source = xml ? xml->MainSource : QString();
        if (!source.isEmpty())
            SetMainSource(xml->MainSource, xml->MainSourcePlace);
        else
            FindMainSource();
        auto modules = xml ? xml->Modules : QList<ModuleEntry>();
        RemoveMainSource(modules);
        FBuilder.AddModules(modules);
        if (FProject.MainSource.isEmpty())
            return;
        Failure failure;
        if (const auto program = SourceFile::Read(FProject.MainSource, failure)) {
            AddProgram(*program);
            FProject.Readable = true;
        } else if (!source.isEmpty()) {
            FBuilder.Report(xml->MainSourcePlace,
                source + u' '
                    + (QFileInfo::exists(FProject.MainSource) ? failure->Text : QStringLiteral("is not there")));
        }
    }

    void SetMainSource(const QString& path, const Problem& place)
    {
        const auto source = FBuilder.Resolve(path, place);
        if (FoldedPath(source) == FoldedPath(FProject.FileName))
            FBuilder.Report(place, QStringLiteral("the project names itself as its source"));
        else
            FProject.MainSource = source;
    }

    // Where the project's own file names no source, the one of the same name beside it is meant.
    void FindMainSource()
    {
        const QStringList kinds { QStringLiteral(".dpr"), QStringLiteral(".dpk"), QStringLiteral(".lpr"),
            QStringLiteral(".cpp") };
        for (const auto& kind : kinds) {
            const auto found = FBuilder.Files().Find(FBuilder.Folder() + u'/' + FProject.DisplayName + kind);
            if (!found.isEmpty() && FProject.MainSource.isEmpty())
                FProject.MainSource = found;
        }
    }

    // A C++ project lists its source among the files it compiles.
    void RemoveMainSource(QList<ModuleEntry>& modules)
    {
        if (extensionOf(FProject.FileName) != u"cbproj" && extensionOf(FProject.FileName) != u"bdsproj")
            return;
        modules.removeIf([this](const ModuleEntry& entry) {
            return FoldedPath(ResolvedPath(FBuilder.Folder(), entry.Path)) == FoldedPath(FProject.MainSource);
        });
    }

    void AddProgram(const SourceFile& file)
    {
        const auto program = ProgramSource::Read(file, FProject.IsLazarus());
        FCreated = program.Created;
        FBuilder.AddModules(program.Modules);
        FBuilder.AddModules(UnitsOfCreatedForms(program));
    }

    // A form that is created though no module is said to hold it may be in a unit that is used by its name alone.
    QList<ModuleEntry> UnitsOfCreatedForms(const ProgramSource& program)
    {
        QList<ModuleEntry> found;
        if (FProject.IsLazarus() || program.Created.isEmpty())
            return found;
        for (auto entry : program.PlainUnits) {
            const auto unit = FBuilder.Files().Find(FBuilder.Folder() + u'/' + entry.Path);
            if (unit.isEmpty())
                continue;
            for (const auto& kind : { QStringLiteral(".dfm"), QStringLiteral(".fmx") }) {
                const auto form
                    = FBuilder.Files().Find(FBuilder.Folder() + u'/' + QFileInfo(unit).completeBaseName() + kind);
                const auto name = form.isEmpty() ? QString() : FormHeader::Read(form).Name;
                const bool created = std::any_of(program.Created.cbegin(), program.Created.cend(),
                    [&name](const CreatedForm& one) { return one.FormName.compare(name, Qt::CaseInsensitive) == 0; });
                if (created)
                    found << entry;
            }
        }
        return found;
    }

    // A program or a package by itself, with what the project file beside it adds.
    void ReadProgram(const SourceFile& file)
    {
        FProject.MainSource = FProject.FileName;
        const auto program = ProgramSource::Read(file, false);
        FCreated = program.Created;
        FProject.Readable = true;
        FBuilder.AddModules(program.Modules);
        FBuilder.AddModules(UnitsOfCreatedForms(program));
        for (const auto& kind : { QStringLiteral(".dproj"), QStringLiteral(".bdsproj") }) {
            const auto beside = FBuilder.Files().Find(FBuilder.Folder() + u'/' + FProject.DisplayName + kind);
            Failure failure;
            const auto xmlFile = beside.isEmpty() ? std::nullopt : SourceFile::Read(beside, failure);
            if (!xmlFile)
                continue;
            const XmlTree tree(*xmlFile, FProject.Problems);
            if (const auto xml = XmlProject::Read(tree, FBuilder))
                FBuilder.AddModules(xml->Modules);
            break;
        }
        if (FProject.FrameworkType.isEmpty())
            FProject.FrameworkType = FrameworkOf(program);
    }

    static QString FrameworkOf(const ProgramSource& program)
    {
        for (const auto& unit : program.PlainUnits) {
            const auto name = unit.Path.toLower();
            if (name == u"vcl.forms.pas" || name == u"forms.pas")
                return QStringLiteral("VCL");
            if (name == u"fmx.forms.pas")
                return QStringLiteral("FMX");
        }
        return {};
    }

    void SetPersonality()
    {
        if (!FProject.Personality.isEmpty())
            return;
        const bool cpp = extensionOf(FProject.FileName) == u"cbproj";
        FProject.Personality
            = cpp ? QStringLiteral("CPlusPlusBuilder.Personality") : QStringLiteral("Delphi.Personality");
    }

    ProjectBuilder FBuilder;
    ProjectDescription& FProject;
    QList<CreatedForm> FCreated;
};

}

ProjectDescription ReadProject(const QString& fileName)
{
    return ProjectReading(fileName).Run();
}

bool IsProjectFileName(const QString& fileName)
{
    return xmlExtensions.contains(extensionOf(fileName)) || programExtensions.contains(extensionOf(fileName));
}

bool IsGroupFileName(const QString& fileName)
{
    return extensionOf(fileName) == u"groupproj";
}
