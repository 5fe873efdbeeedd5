#include "services/Module.h"

#include "packages/PackageList.h"
#include "rtl/SysUtils.h"
#include "services/Facades.h"
#include "services/Host.h"
#include "services/Project.h"

#include <QFile>
#include <QFileInfo>

Module::Module(Host& host, Project* project, const ModuleDescription& description)
    : FHost(host)
    , FProject(project)
    , FDescription(description)
    , FDesigner(MakeFacade<Designer>(*this))
    , FSourceEditor(MakeFacade<ModuleSourceEditor>(*this))
    , FFormEditor(MakeFacade<ModuleFormEditor>(*this))
{
}

Module::~Module() = default;

namespace {

QByteArray BytesOf(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}

void Module::Load(Problems& problems)
{
    LoadForm(problems);
    CheckUnit(problems);
}

void Module::LoadForm(Problems& problems)
{
    if (FDescription.FormFile.isEmpty())
        return;
    QFile file(FDescription.FormFile);
    if (!file.open(QIODevice::ReadOnly)) {
        problems << FileError(FDescription.FormFile, QStringLiteral("cannot be read: ") + file.errorString());
        return;
    }
    const auto text = file.readAll();
    FormReadOptions options;
    options.FileName = FDescription.FormFile;
    auto read = FormDocument::Read(text, options);
    if (!read) {
        const auto& error = read.Error();
        problems << Problem { error.File, error.Line, error.Column, error.Message, Problem::Error };
        return;
    }
    FFormOnDisk = text;
    const auto& root = (*read)->Root();
    FNameOnDisk = root.Name();
    FClassOnDisk = root.ClassName();
    if (root.TheKind() == FormNode::Kind::Inherited) {
        FAncestorClass = AncestorOf(FClassOnDisk);
        FHost.OpenFormOfClass(FProject, FAncestorClass);
    }
    FDesigner->Open(std::move(*read), text, problems);
}

void Module::CheckUnit(Problems& problems)
{
    if (!FDescription.Exists && !QFileInfo::exists(FDescription.FileName))
        return;
    Failure failure;
    FUnitTried = true;
    if (!FUnit)
        FUnit = OpenSourceUnit(FDescription.FileName, FProject && FProject->IsLazarus(), failure);
    if (!FUnit) {
        if (failure)
            problems << *failure;
        return;
    }
    FUnitOnDisk = FUnit->Files();
    const auto className = FDesigner->RootClassName();
    if (!className.isEmpty() && !FUnit->FindClass(className))
        problems << FileError(FDescription.FileName,
            QStringLiteral("the unit does not declare %1, the class of its form").arg(className));
}

void Module::Close()
{
    if (!std::exchange(FIsOpen, false))
        return;
    FHost.Undo().Forget(*FDesigner);
    FFormEditor->Close();
    FSourceEditor->Close();
    Notifiers.Destroy();
    FDesigner->Close();
    FUnit.reset();
    FFormOnDisk.clear();
    FUnitOnDisk.clear();
}

SourceUnit* Module::Unit()
{
    if (!FUnit && !std::exchange(FUnitTried, true)) {
        Failure failure;
        FUnit = OpenSourceUnit(FDescription.FileName, FProject && FProject->IsLazarus(), failure);
        if (FUnit)
            FUnitOnDisk = FUnit->Files();
    }
    return FUnit.get();
}

QList<FileContent> Module::ChangedFiles()
{
    QList<FileContent> changed;
    if (HasDesigner())
        if (const auto bytes = FDesigner->Form()->Document().Bytes(); bytes != FFormOnDisk)
            changed << FileContent { FDescription.FormFile, bytes };
    if (!FUnit)
        return changed;
    const auto files = FUnit->Files();
    for (qsizetype i = 0; i < files.size(); ++i)
        if (i >= FUnitOnDisk.size() || files[i] != FUnitOnDisk[i])
            changed << files[i];
    return changed;
}

bool Module::IsModified()
{
    return FIsOpen && !ChangedFiles().isEmpty();
}

Failure Module::ChangedOnDisk() const
{
    QList<FileContent> known = FUnitOnDisk;
    if (HasDesigner())
        known << FileContent { FDescription.FormFile, FFormOnDisk };
    for (const auto& file : std::as_const(known))
        if (QFileInfo::exists(file.FileName) && BytesOf(file.FileName) != file.Bytes)
            return FileError(file.FileName,
                QStringLiteral("was changed on disk since it was opened; reload it, then make the change again"));
    return {};
}

void Module::NoteSaved()
{
    if (HasDesigner()) {
        FFormOnDisk = FDesigner->Form()->Document().Bytes();
        FNameOnDisk = FDesigner->RootName();
        FClassOnDisk = RootClass();
        FDescription.FormName = FNameOnDisk;
    }
    if (FUnit)
        FUnitOnDisk = FUnit->Files();
    FDescription.Exists = FDescription.Exists || FUnit;
    if (FProject)
        FProject->NoteModule(FDescription.FileName, FDescription);
}

bool Module::IsRootRenamed() const
{
    return HasDesigner() && (FDesigner->RootName() != FNameOnDisk || RootClass() != FClassOnDisk);
}

void Module::TellBeforeSave()
{
    Notifiers.Walk([](IOTAModuleNotifier& listener) { listener.BeforeSave(); });
    FFormEditor->Tell([](IOTAFormNotifier& listener) {
        listener.BeforeSave();
        listener.FormSaving();
    });
}

void Module::TellAfterSave()
{
    FFormEditor->Tell([](IOTAFormNotifier& listener) { listener.AfterSave(); });
    Notifiers.Walk([](IOTAModuleNotifier& listener) { listener.AfterSave(); });
}

QByteArray Module::FormBytes() const
{
    return HasDesigner() ? FDesigner->Form()->Document().Bytes() : BytesOf(FDescription.FormFile);
}

void Module::TakeUnit(const QList<FileContent>& inMemory, const QList<FileContent>& onDisk)
{
    FUnit->Restore(inMemory);
    FUnitOnDisk = onDisk;
}

void Module::TakeNames(const QString& unitFile, const QString& formFile, const QList<FileContent>& unit)
{
    const auto oldFile = std::exchange(FDescription.FileName, unitFile);
    FDescription.FormFile = formFile;
    if (auto renamed = unit.isEmpty() ? nullptr : SourceUnitFrom(unit, FProject && FProject->IsLazarus()))
        FUnit = std::move(renamed);
    if (FProject)
        FProject->NoteModule(oldFile, FDescription);
    NoteSaved();
}

// Plug-ins know the form files of one kind by their extension; the others are told of under that one.
void Module::TellRenamed()
{
    const auto unitFile = PluginName();
    Notifiers.Walk([&unitFile](IOTAModuleNotifier& listener) { listener.ModuleRenamed(unitFile); });
    FFormEditor->Notifiers.Destroy();
    if (HasDesigner())
        FHost.Notify(ofnFileOpened, ChangeFileExt(unitFile, QStringLiteral(".dfm")));
}

void Module::BringToFront(View view)
{
    if (!FIsOpen)
        return;
    FView = HasDesigner() ? view : View::Source;
    if (FView == View::Form) {
        FDesigner->Resurrect();
        FDesigner->FollowFrames();
    }
    FHost.SetFront(*this);
    if (FView == View::Form)
        FFormEditor->Tell([](IOTAFormNotifier& listener) { listener.FormActivated(); });
}

QString Module::GetFileName()
{
    return FIsOpen ? PluginName() : QString();
}

int Module::GetModuleFileCount()
{
    if (!FIsOpen)
        return 0;
    return HasDesigner() ? 2 : 1;
}

InterfacePtr<IOTAEditor> Module::GetModuleFileEditor(int index)
{
    if (index < 0 || index >= GetModuleFileCount())
        return nullptr;
    if (index == 0)
        return static_cast<IOTAEditor*>(FSourceEditor);
    return static_cast<IOTAEditor*>(FFormEditor);
}

FormDocument* Module::DocumentOf(const QString& className)
{
    return FProject ? FProject->DocumentOf(className) : nullptr;
}

QString Module::AncestorOf(const QString& className)
{
    if (SameText(className, HasDesigner() ? RootClass() : FClassOnDisk) || !FProject)
        if (const auto declared = Unit() ? Unit()->FindClass(className) : std::nullopt)
            return Project::PlainClassName(declared->Ancestor);
    return FProject ? FProject->AncestorOf(className) : QString();
}

QString Module::ClassGroup() const
{
    return FProject ? FProject->ClassGroup() : QStringLiteral("VCL");
}

void Module::FileNames(QString& unit, QString& form, QString& project)
{
    unit = PluginName();
    form = HasDesigner() ? FDescription.FormFile : QString();
    project = FProject ? FProject->GetFileName() : QString();
}

std::optional<UnitReference> Module::UnitOfRoot(const TComponent* root)
{
    auto* module = FHost.ModuleOfRoot(root);
    auto* unit = module ? module->Unit() : nullptr;
    if (!unit)
        return {};
    return UnitReference::FromName(unit->UnitName());
}

TComponent* Module::RootNamed(const QString& formName)
{
    auto* module = FHost.FormModule(formName, FProject);
    return module ? module->FDesigner->Root() : nullptr;
}

UndoStack& Module::Undo()
{
    return FHost.Undo();
}

void Module::WillEdit()
{
    FHost.Undo().Touch(*FDesigner);
}

void Module::Report(const Problem& problem)
{
    FHost.Report(problem);
}

Designer* Module::AncestorDesigner()
{
    if (!HasDesigner() || FAncestorClass.isEmpty())
        return nullptr;
    auto* module = FHost.OpenFormOfClass(FProject, FAncestorClass);
    return module && module != this ? module->FDesigner : nullptr;
}

QList<Designer*> Module::DescendantDesigners()
{
    QList<Designer*> found;
    const auto ownClass = RootClass();
    for (auto* module : FHost.Modules())
        if (module != this && module->HasDesigner() && module->FProject == FProject && !module->FAncestorClass.isEmpty()
            && SameText(module->FAncestorClass, ownClass))
            found << module->FDesigner;
    return found;
}

QList<Designer*> Module::OpenDesigners()
{
    QList<Designer*> found;
    for (auto* module : FHost.Modules())
        if (module->HasDesigner())
            found << module->FDesigner;
    return found;
}

void Module::NotifyRenamed(TOTAHandle component, const QString& oldName, const QString& newName)
{
    FFormEditor->Tell([&](IOTAFormNotifier& listener) { listener.ComponentRenamed(component, oldName, newName); });
}

void Module::NotifyModified()
{
    FFormEditor->Notifiers.Walk([](IOTANotifier& listener) { listener.Modified(); });
    Notifiers.Walk([](IOTAModuleNotifier& listener) { listener.Modified(); });
    FHost.ModuleChanged(*this);
}

void Module::Activate()
{
    BringToFront(View::Form);
}

QList<UnitReference> Module::UnitsNeededBy(TClass aClass)
{
    return FHost.UnitsNeededBy(aClass);
}

QList<CreatedComponent> Module::CreatedWith(TClass aClass)
{
    const auto* packages = FHost.Parts().Packages;
    return packages ? packages->Info(aClass).Creates : QList<CreatedComponent>();
}

const GeometryPlaces* Module::GeometryOf(TClass aClass) const
{
    return FHost.GeometryOf(aClass);
}
