#include "app/MainWindow.h"

#include "app/ModuleView.h"
#include "app/ProblemList.h"
#include "configuration/UserConfiguration.h"
#include "designer/FormSurface.h"
#include "dialogs/HelpWindow.h"
#include "dialogs/LogWindow.h"
#include "rtl/Guard.h"
#include "services/Module.h"
#include "services/Project.h"

#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QTabWidget>

// What the window does when it is told to.

void MainWindow::Execute(Command command)
{
    auto& host = TheHost();
    auto* surface = Surface();
    switch (command) {
    case Command::None:
        break;
    case Command::Open:
        if (const auto file = AskForFile(); !file.isEmpty())
            OpenProject(file);
        break;
    case Command::Save:
        SaveModule();
        break;
    case Command::SaveAs:
        SaveModuleAs();
        break;
    case Command::SaveAll:
        Tell(host.SaveAll());
        break;
    case Command::Close:
        CloseModule();
        break;
    case Command::CloseProject:
        if (auto* project = host.ActiveProject())
            CloseProject(*project);
        break;
    case Command::Exit:
        close();
        return;
    case Command::Undo:
        host.Undo().Undo();
        break;
    case Command::Redo:
        host.Undo().Redo();
        break;
    case Command::Delete:
        if (surface)
            surface->DeleteSelection();
        break;
    case Command::SelectAll:
        if (surface)
            surface->SelectAll();
        break;
    case Command::SelectParent:
        if (surface)
            surface->SelectParent();
        break;
    case Command::Rename:
        if (surface)
            surface->RenameSelection();
        break;
    case Command::ViewFiles:
        ToggleView(FFilesDock);
        break;
    case Command::ViewMorvane:
        ToggleView(FToolWindow);
        break;
    case Command::ViewProblems:
        ToggleView(FProblemsDock);
        break;
    case Command::ToggleFormSource:
        ToggleFormSource();
        break;
    case Command::AllowConnections:
        ToggleConnections();
        break;
    case Command::ReloadModule:
        ReloadModule();
        break;
    case Command::KeepLog:
        ToggleLog();
        break;
    case Command::ShowLog:
        LogWindow::Show(*this, UserConfiguration(FSession->ConfigurationFolder()));
        break;
    case Command::RestoreConfiguration:
        RestoreConfiguration();
        break;
    case Command::UserGuide:
        HelpWindow::Show(*this);
        break;
    case Command::About:
        QMessageBox::about(this, tr("About Morvane"),
            tr("<b>Morvane</b><p>Drag datasets and fields onto forms, and have bound controls there at once."));
        break;
    }
    RefreshLater();
}

QString MainWindow::AskForFile()
{
    return QFileDialog::getOpenFileName(this, tr("Open Project"),
        FSettings->value(QStringLiteral("LastFolder")).toString(),
        tr("Projects (*.groupproj *.dproj *.cbproj *.dpr *.dpk *.bdsproj *.lpi *.lpr);;All files (*)"));
}

// Whether files may be written over is asked afterwards, since the form file goes along with the unit.
QString MainWindow::AskForNewName(const QString& unitFile)
{
    const auto suffix = QFileInfo(unitFile).suffix();
    return QFileDialog::getSaveFileName(this, tr("Save As"), unitFile, tr("Units (*.%1);;All files (*)").arg(suffix),
        nullptr, QFileDialog::DontConfirmOverwrite);
}

Project* MainWindow::ProjectOf(const QString& fileName)
{
    for (auto* project : TheHost().Projects())
        if (project->Description().FileName == fileName)
            return project;
    return nullptr;
}

void MainWindow::OpenModule(const QString& fileName, const QString& projectFile)
{
    TheHost().ShowModule(fileName, ProjectOf(projectFile));
    Refresh();
    if (auto* view = CurrentView(); view && view->Surface())
        view->ShowForm();
}

void MainWindow::Tell(const Failure& failure)
{
    if (!failure)
        return;
    AddProblem(*failure);
    MessageDlg(failure->ToString(), mtError, mbOK);
}

void MainWindow::AddProblem(const Problem& problem)
{
    FProblems->Add(problem);
    FProblemsDock->show();
    if (problem.Severity == Problem::Error)
        FProblemsDock->raise();
}

void MainWindow::ShowPlace(const QString& fileName, int line, int column)
{
    auto* module = TheHost().FindOpenModule(fileName);
    if (!module && QFileInfo::exists(fileName))
        module = TheHost().ShowModule(fileName);
    auto* view = module ? (TheHost().SetFront(*module), Refresh(), ViewOf(*module)) : nullptr;
    if (!view)
        return;
    if (QFileInfo(fileName) == QFileInfo(module->UnitFile()))
        view->ShowSource(line, column);
    else
        view->ShowForm();
}

bool MainWindow::MayLose(const QList<Module*>& modules)
{
    QList<Module*> changed;
    QStringList names;
    for (auto* module : TheHost().SavedWith(modules))
        if (module->IsModified()) {
            changed << module;
            names << QFileInfo(module->UnitFile()).fileName();
        }
    if (changed.isEmpty())
        return true;
    const auto answer = MessageDlg(
        tr("Save changes to %1?").arg(names.join(QLatin1String(", "))), mtConfirmation, mbYes | mbNo | mbCancel);
    if (answer != mrYes)
        return answer == mrNo;
    const auto failure = TheHost().Save(changed);
    Tell(failure);
    return !failure;
}

void MainWindow::CloseModule()
{
    auto* view = CurrentView();
    if (!view)
        return;
    auto& module = view->TheModule();
    if (MayLose({ &module }))
        TheHost().CloseModule(module);
    Refresh();
}

void MainWindow::CloseProject(Project& project)
{
    QList<Module*> modules;
    for (auto* module : TheHost().Modules())
        if (module->OwningProject() == &project)
            modules << module;
    if (MayLose(modules))
        TheHost().CloseProject(project);
    Refresh();
}

void MainWindow::SaveModule()
{
    if (auto* view = CurrentView())
        Tell(TheHost().Save(view->TheModule()));
}

bool MainWindow::MayWriteOver(const QStringList& files)
{
    QStringList names;
    for (const auto& file : files)
        names << QFileInfo(file).fileName();
    if (names.isEmpty())
        return true;
    const auto last = names.takeLast();
    const auto text = names.isEmpty()
        ? tr("%1 is there already. Replace it?").arg(last)
        : tr("%1 and %2 are there already. Replace them?").arg(names.join(QLatin1String(", ")), last);
    return MessageDlg(text, mtConfirmation, mbYes | mbNo) == mrYes;
}

void MainWindow::SaveModuleAs()
{
    auto* view = CurrentView();
    const auto file = view ? AskForNewName(view->TheModule().UnitFile()) : QString();
    if (file.isEmpty())
        return;
    auto& module = view->TheModule();
    if (MayWriteOver(TheHost().WrittenOverBySaveAs(module, file)))
        Tell(TheHost().SaveAs(module, file));
}

void MainWindow::ReloadModule()
{
    auto* view = CurrentView();
    if (view && MayLose({ &view->TheModule() }))
        TheHost().Reload(view->TheModule());
}

void MainWindow::ToggleView(QWidget* widget)
{
    if (widget)
        widget->setVisible(widget->isHidden());
}

void MainWindow::ToggleFormSource()
{
    if (auto* view = CurrentView())
        view->ShowsForm() ? view->ShowSource() : view->ShowForm();
}
