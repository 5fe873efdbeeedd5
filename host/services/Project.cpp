#include "services/Project.h"

#include "projects/FormHeader.h"
#include "rtl/SysUtils.h"
#include "services/Facades.h"
#include "services/Host.h"
#include "services/Module.h"
#include "units/SourceUnit.h"

TOTAModuleType ModuleInfo::GetModuleType()
{
    switch (FProject.Description().Modules.at(FIndex).Type) {
    case ModuleType::Form:
        return omtForm;
    case ModuleType::DataModule:
        return omtDataModule;
    case ModuleType::Unit:
        return omtUnit;
    default:
        return omtCustom;
    }
}

QString ModuleInfo::GetFileName()
{
    return FProject.IsOpen() ? FProject.Description().Modules.at(FIndex).PluginName() : QString();
}

QString ModuleInfo::GetFormName()
{
    if (!FProject.IsOpen())
        return {};
    const auto& description = FProject.Description().Modules.at(FIndex);
    const auto* open = FProject.TheHost().FindOpenModule(description.FileName);
    return open && open->HasDesigner() ? open->FormName() : description.FormName;
}

InterfacePtr<IOTAModule> ModuleInfo::OpenModule()
{
    if (!FProject.IsOpen())
        return nullptr;
    return FProject.TheHost().OpenModule(FProject.Description().Modules.at(FIndex).FileName, &FProject);
}

Project::Project(Host& host, const ProjectDescription& description)
    : FHost(host)
    , FDescription(description)
{
    for (int i = 0; i < int(FDescription.Modules.size()); ++i)
        FInfos.push_back(MakeFacade<ModuleInfo>(*this, i));
    IndexFiles();
}

Project::~Project() = default;

void Project::IndexFiles()
{
    FByFile.clear();
    for (qsizetype i = 0; i < FDescription.Modules.size(); ++i)
        FByFile.insert(FDescription.Modules[i].FileName.toLower(), i);
    for (int i = 0; i < FDescription.Modules.size(); ++i)
        if (const auto name = FDescription.Modules[i].PluginName().toLower(); !FByFile.contains(name))
            FByFile.insert(name, i);
}

QString Project::ClassGroup() const
{
    return FDescription.FrameworkType.isEmpty() ? QStringLiteral("VCL") : FDescription.FrameworkType.toUpper();
}

void Project::Close()
{
    if (!FIsOpen)
        return;
    Notifiers.Destroy();
    FHost.Undo().Forget(FText);
    FIsOpen = false;
    FDocuments.clear();
}

InterfacePtr<IOTAModuleInfo> Project::GetModule(int index)
{
    if (index < 0 || index >= GetModuleCount())
        return nullptr;
    return FInfos[size_t(index)];
}

InterfacePtr<IOTAModuleInfo> Project::FindModuleInfo(const QString& fileName)
{
    const auto found = FByFile.constFind(fileName.toLower());
    return FIsOpen && found != FByFile.constEnd() ? GetModule(int(*found)) : nullptr;
}

const ModuleDescription* Project::FindFile(const QString& fileName) const
{
    const auto found = FByFile.constFind(fileName.toLower());
    return found == FByFile.constEnd() ? nullptr : &FDescription.Modules[*found];
}

// An open form may be of another class by now than its file on disk says.
QString Project::FormClassOf(const ModuleDescription& module) const
{
    const auto* open = FHost.FindOpenModule(module.FileName);
    return open && open->HasDesigner() ? open->RootClass() : FormHeader::Read(module.FormFile).ClassName;
}

const ModuleDescription* Project::FindFormClass(const QString& className)
{
    if (!std::exchange(FClassesKnown, true))
        for (qsizetype i = FDescription.Modules.size() - 1; i >= 0; --i)
            if (const auto& module = FDescription.Modules[i]; !module.FormFile.isEmpty())
                FByClass.insert(FormClassOf(module).toLower(), i);
    const auto found = className.isEmpty() ? FByClass.constEnd() : FByClass.constFind(className.toLower());
    return found == FByClass.constEnd() ? nullptr : &FDescription.Modules[*found];
}

FormDocument* Project::DocumentOf(const QString& className)
{
    const auto* module = FindFormClass(className);
    if (!module)
        return nullptr;
    if (auto* open = FHost.FindOpenModule(module->FileName); open && open->HasDesigner())
        return &open->TheDesigner().Form()->Document();
    auto& document = FDocuments[className.toLower()];
    if (!document) {
        auto read = FormDocument::Load(module->FormFile);
        if (read)
            document = std::move(*read);
    }
    return document.get();
}

QString Project::AncestorOf(const QString& className)
{
    const auto* module = FindFormClass(className);
    if (!module)
        return {};
    auto* open = FHost.FindOpenModule(module->FileName);
    if (open) {
        const auto declared = open->Unit() ? open->Unit()->FindClass(className) : std::nullopt;
        return declared ? PlainClassName(declared->Ancestor) : QString();
    }
    const auto known = FAncestors.constFind(className.toLower());
    if (known != FAncestors.constEnd())
        return *known;
    Failure failure;
    const auto unit = OpenSourceUnit(module->FileName, IsLazarus(), failure);
    const auto declared = unit ? unit->FindClass(className) : std::nullopt;
    const auto ancestor = declared ? PlainClassName(declared->Ancestor) : QString();
    FAncestors.insert(className.toLower(), ancestor);
    return ancestor;
}

void Project::ForgetForm(const QString& className)
{
    FDocuments.remove(className.toLower());
    FAncestors.remove(className.toLower());
}

void Project::ForgetFormClasses()
{
    FClassesKnown = false;
    FByClass.clear();
    FAncestors.clear();
}

void Project::NoteModule(const QString& oldFile, const ModuleDescription& module)
{
    const auto found = FByFile.constFind(oldFile.toLower());
    if (found == FByFile.constEnd())
        return;
    auto& known = FDescription.Modules[*found];
    if (known == module)
        return;
    if (FDescription.MainForm == known.FormName)
        FDescription.MainForm = module.FormName;
    for (auto& file : FDescription.OpenFiles)
        if (file == known.FileName)
            file = module.FileName;
    known = module;
    IndexFiles();
}

QString Project::PlainClassName(const QString& name)
{
    return name.mid(std::max(name.lastIndexOf(u'.'), name.lastIndexOf(u':')) + 1).trimmed();
}
