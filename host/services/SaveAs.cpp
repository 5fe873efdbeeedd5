#include "services/SaveAs.h"

#include "projects/ProjectBuilder.h"
#include "services/Host.h"
#include "services/Module.h"
#include "services/Project.h"
#include "units/UsedUnits.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

// Kinds of files that may take each other's place.
QStringList KindOf(const QString& suffix)
{
    static const QList<QStringList> kinds { { QStringLiteral("pas"), QStringLiteral("pp") },
        { QStringLiteral("cpp"), QStringLiteral("cxx"), QStringLiteral("cc") } };
    for (const auto& kind : kinds)
        if (kind.contains(suffix.toLower()))
            return kind;
    return { suffix.toLower() };
}

bool IsPascal(const QString& fileName)
{
    return KindOf(QFileInfo(fileName).suffix()).first() == u"pas";
}

// The name with the old file's extension, unless it has one of that kind.
QString WithExtension(const QString& fileName, const QString& oldFile)
{
    const auto suffix = QFileInfo(oldFile).suffix();
    const auto absolute = QDir::cleanPath(QFileInfo(fileName).absoluteFilePath());
    const bool has = KindOf(suffix).contains(QFileInfo(fileName).suffix().toLower());
    return has || suffix.isEmpty() ? absolute : absolute + u'.' + suffix;
}

QString WithSuffix(const QString& unitFile, const QString& oldFile)
{
    if (oldFile.isEmpty())
        return {};
    const QFileInfo unit(unitFile);
    return unit.path() + u'/' + unit.completeBaseName() + u'.' + QFileInfo(oldFile).suffix();
}

}

SaveAs::SaveAs(Host& host, Module& module, const QString& fileName)
    : FHost(host)
    , FModule(module)
    , FUnitFile(WithExtension(fileName, module.UnitFile()))
    , FFormFile(WithSuffix(FUnitFile, module.FormFile()))
{
    FNames.Unit.OldFile = module.UnitFile();
    FNames.Unit.NewFile = FUnitFile;
    FNames.Files << std::pair(module.UnitFile(), FUnitFile);
    if (const auto* unit = module.Unit()) {
        FNames.Unit.OldName = unit->UnitName();
        FNames.Unit.NewName = QFileInfo(FUnitFile).completeBaseName();
        const auto files = unit->Files();
        for (qsizetype i = 1; i < files.size(); ++i)
            FNames.Files << std::pair(files[i].FileName, WithSuffix(FUnitFile, files[i].FileName));
    }
    if (module.HasDesigner())
        FNames.Unit.Declares << module.RootClass() << module.FormName();
    if (!FFormFile.isEmpty())
        FNames.Files << std::pair(module.FormFile(), FFormFile);
}

SaveAs::~SaveAs() = default;

bool SaveAs::IsLazarus() const
{
    return FModule.OwningProject() && FModule.OwningProject()->IsLazarus();
}

QStringList SaveAs::Overwritten() const
{
    QStringList found;
    for (const auto& [oldFile, newFile] : FNames.Files)
        if (oldFile != newFile && QFileInfo::exists(newFile))
            found << newFile;
    return found;
}

Failure SaveAs::CheckName() const
{
    const auto name = QFileInfo(FUnitFile).completeBaseName();
    static const QStringList reserved = QStringLiteral(
        "and array as asm begin case class const constructor destructor dispinterface div do downto else end except "
        "exports file finalization finally for function goto if implementation in inherited initialization inline "
        "interface is label library mod nil not object of on or out packed procedure program property raise record "
        "repeat resourcestring set shl shr string then threadvar to try type unit until uses var while with xor")
                                            .split(u' ');
    const auto parts = name.split(u'.');
    const bool isReserved = std::any_of(
        parts.cbegin(), parts.cend(), [](const QString& part) { return reserved.contains(part, Qt::CaseInsensitive); });
    if (!IsTypeName(name) || (IsPascal(FUnitFile) && isReserved))
        return FileError(FUnitFile, QStringLiteral("\"%1\" is no name of a unit").arg(name));
    auto* open = FHost.FindOpenModule(FUnitFile);
    if (open && open != &FModule)
        return FileError(FUnitFile, QStringLiteral("the file is open; close it first"));
    return {};
}

// What would not compile any more, or mean two files by one name.
Failure SaveAs::CheckProject() const
{
    const auto* project = FModule.OwningProject();
    if (!project)
        return {};
    const auto name = QFileInfo(FUnitFile).completeBaseName();
    const auto taken = [&name](const QString& other) { return name.compare(other, Qt::CaseInsensitive) == 0; };
    const auto& description = project->Description();
    if (IsPascal(FUnitFile) && taken(QFileInfo(description.MainSource).completeBaseName()))
        return FileError(FUnitFile, QStringLiteral("the program itself is called %1").arg(name));
    for (const auto& module : description.Modules) {
        const auto* open = FHost.FindOpenModule(module.FileName);
        if (open && open->IsRootRenamed())
            return FileError(FUnitFile,
                QStringLiteral("%1 was renamed and is not saved yet; save it, then save under another name")
                    .arg(open->FormName()));
        if (IsPascal(FUnitFile) && taken(open && open->HasDesigner() ? open->FormName() : module.FormName))
            return FileError(FUnitFile, QStringLiteral("a form of the project is called %1").arg(name));
        if (module.FileName != FModule.UnitFile() && taken(QFileInfo(module.FileName).completeBaseName()))
            return FileError(FUnitFile, QStringLiteral("the project has a unit %1 already").arg(name));
    }
    return {};
}

void SaveAs::Write(const QList<FileContent>& before, const QList<FileContent>& after)
{
    for (qsizetype i = 0; i < after.size(); ++i)
        if (i >= before.size() || after[i] != before[i])
            FToWrite << after[i];
}

Failure SaveAs::PrepareModule()
{
    if (const auto* unit = FModule.Unit()) {
        const auto renamed = SourceUnitFrom(unit->Files(), IsLazarus());
        if (auto failure = renamed->SaveUnder(FUnitFile))
            return failure;
        FUnit = renamed->Files();
        FToWrite << FUnit;
    } else {
        QFile file(FModule.UnitFile());
        if (!file.open(QIODevice::ReadOnly))
            return FileError(FModule.UnitFile(), QStringLiteral("cannot be read: ") + file.errorString());
        FToWrite << FileContent { FUnitFile, file.readAll() };
    }
    if (!FFormFile.isEmpty())
        FToWrite << FileContent { FFormFile, FModule.FormBytes() };
    return {};
}

// The files of a unit, which use the module's by its new name.
Failure SaveAs::Renamed(QList<FileContent>& files) const
{
    const auto unit = SourceUnitFrom(files, IsLazarus());
    if (!unit)
        return {};
    if (auto failure = unit->RenameUsedUnit(FNames.Unit))
        return failure;
    files = unit->Files();
    return {};
}

Failure SaveAs::PrepareUser(const QString& fileName)
{
    auto* open = FHost.FindOpenModule(fileName);
    auto* unit = open ? open->Unit() : nullptr;
    QList<FileContent> before;
    User user { unit ? open : nullptr, {}, {} };
    if (unit) {
        before = open->UnitOnDisk();
        user.InMemory = unit->Files();
        if (auto failure = Renamed(user.InMemory))
            return failure;
    } else {
        Failure failure;
        const auto read = OpenSourceUnit(fileName, IsLazarus(), failure);
        if (!read)
            return {}; // what cannot be read cannot be compiled either
        before = read->Files();
    }
    user.OnDisk = before;
    if (auto failure = Renamed(user.OnDisk))
        return failure;
    if (user.OnDisk == before && (!unit || user.InMemory == unit->Files()))
        return {};
    if (unit && user.OnDisk != before)
        if (auto failure = open->ChangedOnDisk())
            return failure;
    Write(before, user.OnDisk);
    FUsers.push_back(user);
    return {};
}

Failure SaveAs::PrepareUsers()
{
    const auto* project = FModule.OwningProject();
    if (!project || !FModule.Unit())
        return {};
    for (const auto& module : project->Description().Modules)
        if (module.FileName != FModule.UnitFile() && module.Exists && module.Type != ModuleType::Other)
            if (auto failure = PrepareUser(module.FileName))
                return failure;
    return {};
}

Failure SaveAs::PrepareProject()
{
    auto* project = FModule.OwningProject();
    if (!project)
        return {};
    auto& text = project->Text();
    if (auto failure = text.Refresh())
        return failure;
    FProjectInMemory = text.Files();
    FProjectOnDisk = text.OnDisk();
    if (auto failure = text.WithRenamedModule(FProjectInMemory, FNames))
        return failure;
    if (auto failure = text.WithRenamedModule(FProjectOnDisk, FNames))
        return failure;
    Write(text.OnDisk(), FProjectOnDisk);
    return {};
}

Failure SaveAs::Run()
{
    if (FUnitFile == FModule.UnitFile())
        return FHost.Save(FModule);
    if (auto failure = CheckName())
        return failure;
    if (auto failure = CheckProject())
        return failure;
    FModule.TellBeforeSave();
    if (auto failure = PrepareModule())
        return failure;
    if (auto failure = PrepareUsers())
        return failure;
    if (auto failure = PrepareProject())
        return failure;
    if (auto failure = SaveTogether(FToWrite))
        return failure;
    Commit();
    return {};
}

// Earlier states of the texts are brought under the new name too, so that going back to one stays possible. One that
// cannot be is forgotten.
void SaveAs::RewriteUndo()
{
    auto& undo = FHost.Undo();
    undo.Rewrite(FModule.TheDesigner(), [this](QList<FileContent>& files) {
        const auto unit = SourceUnitFrom(files, IsLazarus());
        if (!unit)
            return true;
        const bool done = !unit->SaveUnder(FUnitFile);
        files = unit->Files();
        return done;
    });
    for (auto& user : FUsers)
        if (user.Open)
            undo.Rewrite(user.Open->TheDesigner(), [this](QList<FileContent>& files) { return !Renamed(files); });
    if (auto* project = FModule.OwningProject())
        undo.Rewrite(project->Text(),
            [this, project](QList<FileContent>& files) { return !project->Text().WithRenamedModule(files, FNames); });
}

void SaveAs::Commit()
{
    RewriteUndo();
    for (auto& user : FUsers)
        if (user.Open)
            user.Open->TakeUnit(user.InMemory, user.OnDisk);
    if (auto* project = FModule.OwningProject())
        project->Text().Take(FProjectInMemory, FProjectOnDisk);
    FModule.TakeNames(FUnitFile, FFormFile, FUnit);
    FHost.ModuleRenamed(FModule);
    FModule.TellAfterSave();
}
