#include "projects/ProjectBuilder.h"
#include "rtl/SysUtils.h"
#include "services/Host.h"
#include "services/Module.h"
#include "services/Project.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

// A form gets another name, and with it its class, its variable and everything in the project that refers to them.

namespace {

bool IsPascal(const QString& fileName)
{
    const auto suffix = QFileInfo(fileName).suffix().toLower();
    return suffix == u"pas" || suffix == u"pp";
}

bool Uses(const SourceUnit& unit, const QString& unitName)
{
    const auto reference = UnitReference::FromName(unitName);
    for (const auto& entry : unit.InterfaceUses() + unit.ImplementationUses())
        if (SameText(entry, reference.Scoped))
            return true;
    return false;
}

// Whether the unit of a module that is not open would change.
bool UnitRefers(const QString& fileName, bool lazarus, const FormRename& rename)
{
    Failure failure;
    const auto unit = OpenSourceUnit(fileName, lazarus, failure);
    if (!unit || !Uses(*unit, rename.UnitName))
        return false;
    const auto before = unit->Files();
    return unit->RenameForm(rename) || unit->Files() != before;
}

// Whether the bytes of a form file, text or binary, hold one of the names.
bool FormRefers(const QString& fileName, const FormRename& rename)
{
    QFile file(fileName);
    if (fileName.isEmpty() || !file.open(QIODevice::ReadOnly))
        return false;
    const QRegularExpression names(
        QStringLiteral("\\b(?:%1|%2)\\b")
            .arg(QRegularExpression::escape(rename.OldName), QRegularExpression::escape(rename.OldClass)),
        QRegularExpression::CaseInsensitiveOption);
    return QString::fromLatin1(file.readAll()).contains(names);
}

}

FormRename Module::RenamingOfRoot(const QString& oldName, const QString& newName)
{
    FormRename rename;
    rename.UnitFile = FDescription.FileName;
    rename.OldName = oldName;
    rename.NewName = newName;
    rename.OldClass = RootClass();
    rename.NewClass = SameText(rename.OldClass, u'T' + oldName) ? u'T' + newName : rename.OldClass;
    if (const auto* unit = Unit()) {
        rename.UnitName = unit->UnitName();
        rename.HasVariable = unit->DeclaresVariable(oldName, rename.OldClass);
    }
    return rename;
}

void Module::WillRenameRoot(const QString& newName)
{
    if (!FProject)
        return;
    const auto modules = FProject->Description().Modules;
    const auto rename = RenamingOfRoot(FormName(), newName);
    const auto refuse = [&newName](const QString& text) { throw EComponentError(text.arg(newName)); };
    if (IsPascal(FDescription.FileName)
        && SameText(QFileInfo(FProject->Description().MainSource).completeBaseName(), newName))
        refuse(QStringLiteral("The program itself is called %1"));
    for (const auto& module : modules) {
        const auto* open = FHost.FindOpenModule(module.FileName);
        if (IsPascal(module.FileName) && SameText(QFileInfo(module.FileName).completeBaseName(), newName))
            refuse(QStringLiteral("The project has a unit named %1 already"));
        if (open != this && SameText(open && open->HasDesigner() ? open->FormName() : module.FormName, newName))
            refuse(QStringLiteral("The project has a form named %1 already"));
    }
    for (const auto& module : modules)
        if (!FHost.FindOpenModule(module.FileName) && module.Exists
            && (UnitRefers(module.FileName, FProject->IsLazarus(), rename) || FormRefers(module.FormFile, rename)))
            FHost.OpenModuleFile(module.FileName, FProject);
}

Failure Module::RenameRoot(const QString& oldName, const QString& newName)
{
    if (auto failure = FProject ? FProject->Text().Refresh() : Failure())
        return failure;
    const auto rename = RenamingOfRoot(oldName, newName);
    QList<Module*> users;
    for (auto* module : FHost.Modules())
        if (module == this
            || (FProject && module->FProject == FProject && module->Unit() && Uses(*module->Unit(), rename.UnitName)))
            users << module;
    QList<QList<FileContent>> before;
    for (auto* module : std::as_const(users)) {
        module->WillEdit();
        before << (module->Unit() ? module->Unit()->Files() : QList<FileContent>());
    }
    Failure failure;
    for (auto* module : std::as_const(users))
        if (auto* unit = failure ? nullptr : module->Unit())
            failure = unit->RenameForm(rename);
    if (FProject && !failure) {
        FHost.Undo().Touch(FProject->Text());
        failure = FProject->Text().RenameForm(rename);
    }
    if (failure) {
        for (qsizetype i = 0; i < users.size(); ++i)
            if (auto* unit = users[i]->Unit())
                unit->Restore(before[i]);
        return failure;
    }
    // Frames of the class on other forms.
    for (auto* module : FHost.Modules())
        if (FProject && module != this && module->FProject == FProject && module->HasDesigner())
            module->FDesigner->Form()->RenameClass(rename.OldClass, rename.NewClass);
    for (auto* module : std::as_const(users))
        if (module != this)
            module->NotifyModified();
    return {};
}

void Module::RootClassChanged(const QString& oldClass, const QString& newClass)
{
    if (!FProject)
        return;
    FProject->ForgetFormClasses();
    for (auto* module : FHost.Modules())
        if (module->FProject == FProject && SameText(module->FAncestorClass, oldClass))
            module->FAncestorClass = newClass;
}
