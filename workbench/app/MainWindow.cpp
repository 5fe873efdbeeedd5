#include "app/MainWindow.h"

#include "app/ConfigurationWatch.h"
#include "app/ModuleView.h"
#include "app/ProblemList.h"
#include "app/ProjectFiles.h"
#include "configuration/UserConfiguration.h"
#include "designer/FormSurface.h"
#include "dialogs/HelpWindow.h"
#include "dialogs/Questions.h"
#include "rtl/Guard.h"
#include "rtl/HelpUtil.h"
#include "services/Module.h"
#include "services/Project.h"
#include "ui/TMainMenuBar.h"
#include "visual/TApplication.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QStatusBar>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>

// What the window is made of, and how it follows the host.

MainWindow::MainWindow(SessionOptions options, const QString& settingsFile)
    : FSettings(settingsFile.isEmpty() ? std::make_unique<QSettings>()
                                       : std::make_unique<QSettings>(settingsFile, QSettings::IniFormat))
    , FMenu(std::make_unique<TMainMenu>())
{
    setObjectName(QStringLiteral("MainWindow"));
    setDockNestingEnabled(true);
    BuildMenu();
    BuildDocks();
    BuildToolBar();
    BuildStatusBar();
    auto& parts = options.Parts;
    parts.MainMenu = FMenu.get();
    parts.OnProblem = [this](const Problem& problem) { AddProblem(problem); };
    parts.OnChange = [this] { RefreshLater(); };
    if (!parts.MessageBox)
        parts.MessageBox = Questions::MessageBox(*this);
    if (!parts.Exceptions)
        parts.Exceptions = Questions::ExceptionBox(*this);
    options.Desktop = this;
    FSession = std::make_unique<Session>(std::move(options));
    FConfigurationWatch
        = std::make_unique<ConfigurationWatch>(UserConfiguration(FSession->ConfigurationFolder()).FileName());
    connect(FConfigurationWatch.get(), &ConfigurationWatch::Changed, this,
        [this] { AtEventBorder([&] { NoteConfiguration(); }); });
    FSession->Data().SetLogin(Questions::Login(*this));
    TApplication::Instance().OnHelp = [this](int, std::intptr_t) {
        HelpWindow::Show(*this);
        return !HelpWindow::GuideFile().isEmpty();
    };
    // There is one guide, whatever namespace and topic the plug-in names.
    SetHelpHandler([this](const QString&, const QString&) { HelpWindow::Show(*this); });
    ConnectFiles();
    RestoreWindow();
    Refresh();
}

MainWindow::~MainWindow()
{
    FEnding = true;
    TApplication::Instance().OnHelp = {};
    SetHelpHandler({});
    FConfigurationWatch.reset();
    while (FTabs->count() > 0)
        delete FTabs->widget(0);
    FSession.reset();
    // What hides as it goes has nobody to tell any more.
    for (auto* dock : findChildren<QDockWidget*>())
        dock->disconnect(this);
}

namespace {

// How often it is looked whether a mouse button was let go; milliseconds.
constexpr int FrontDelay = 60;

}

void MainWindow::BuildMenu()
{
    MainMenu::Build(*FMenu, [this](Command command) { AtEventBorder([&] { Execute(command); }); });
    setMenuBar(new TMainMenuBar(*FMenu, this));
}

QDockWidget* MainWindow::Dock(const QString& title, QWidget* widget, Qt::DockWidgetArea area)
{
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(widget->objectName() + QLatin1String("Dock"));
    dock->setWidget(widget);
    addDockWidget(area, dock);
    connect(dock, &QDockWidget::visibilityChanged, this, [this] { RefreshLater(); });
    return dock;
}

void MainWindow::BuildDocks()
{
    FTabs = new QTabWidget;
    FTabs->setTabsClosable(true);
    FTabs->setMovable(true);
    FTabs->setDocumentMode(true);
    FTabs->tabBar()->setChangeCurrentOnDrag(true);
    setCentralWidget(FTabs);
    connect(FTabs, &QTabWidget::currentChanged, this, &MainWindow::NoteFront);
    connect(FTabs, &QTabWidget::tabCloseRequested, this, [this](int index) {
        FTabs->setCurrentIndex(index);
        Execute(Command::Close);
    });
    FFiles = new ProjectFiles;
    FFilesDock = Dock(tr("Files"), FFiles, Qt::LeftDockWidgetArea);
    FProblems = new ProblemList;
    FProblemsDock = Dock(tr("Problems"), FProblems, Qt::BottomDockWidgetArea);
    FProblemsDock->hide();
    resizeDocks({ FFilesDock }, { 220 }, Qt::Horizontal);
}

void MainWindow::BuildToolBar()
{
    struct Button {
        Command Does;
        QStyle::StandardPixmap Picture;
    };
    static constexpr Button Buttons[] = {
        { Command::Open, QStyle::SP_DialogOpenButton },
        { Command::Save, QStyle::SP_DialogSaveButton },
        { Command::Undo, QStyle::SP_ArrowBack },
        { Command::Redo, QStyle::SP_ArrowForward },
        { Command::Delete, QStyle::SP_TrashIcon },
        { Command::ToggleFormSource, QStyle::SP_FileDialogDetailedView },
    };
    auto* bar = addToolBar(tr("Standard"));
    bar->setObjectName(QStringLiteral("StandardToolBar"));
    bar->setIconSize({ 16, 16 });
    for (const auto& button : Buttons) {
        auto& item = MainMenu::Item(*FMenu, button.Does);
        item.setIcon(style()->standardIcon(button.Picture));
        item.setToolTip(item.Hint());
        bar->addAction(&item);
    }
}

void MainWindow::BuildStatusBar()
{
    FStatus = new QLabel;
    FStatus->setObjectName(QStringLiteral("StatusText"));
    statusBar()->addWidget(FStatus, 1);
}

void MainWindow::ConnectFiles()
{
    connect(FFiles, &ProjectFiles::OpenWanted, this,
        [this](const QString& file, const QString& project) { AtEventBorder([&] { OpenModule(file, project); }); });
    connect(FFiles, &ProjectFiles::ActivateWanted, this, [this](const QString& file) {
        AtEventBorder([&] {
            if (auto* project = ProjectOf(file))
                TheHost().SetActiveProject(*project);
        });
    });
    connect(FFiles, &ProjectFiles::CloseWanted, this, [this](const QString& file) {
        AtEventBorder([&] {
            if (auto* project = ProjectOf(file))
                CloseProject(*project);
        });
    });
    connect(FProblems, &ProblemList::PlaceWanted, this,
        [this](const QString& file, int line, int column) { AtEventBorder([&] { ShowPlace(file, line, column); }); });
}

void MainWindow::RestoreWindow()
{
    resize(1280, 800);
    restoreGeometry(FSettings->value(QStringLiteral("Window/Geometry")).toByteArray());
    restoreState(FSettings->value(QStringLiteral("Window/State")).toByteArray());
}

void MainWindow::KeepWindow()
{
    FSettings->setValue(QStringLiteral("Window/Geometry"), saveGeometry());
    FSettings->setValue(QStringLiteral("Window/State"), saveState());
    if (FToolWindow)
        FToolWindow->SaveWindowState(*FSettings);
    FSettings->sync();
}

// A window that was never here before is shown, docked on the right.
void MainWindow::FormRegistered(TDockableForm* form)
{
    if (FToolWindow == form)
        return;
    FToolWindow = form;
    addDockWidget(Qt::RightDockWidgetArea, form);
    resizeDocks({ form }, { 330 }, Qt::Horizontal);
    const auto section = form->DeskSection.isEmpty() ? form->TForm::Name() : form->DeskSection;
    const bool isKnown = FSettings->contains(section + QLatin1String("/Visible"));
    if (isKnown)
        form->LoadWindowState(*FSettings);
    else
        form->ForceShow();
    connect(form, &QDockWidget::visibilityChanged, this, [this] { RefreshLater(); });
}

void MainWindow::FormUnregistered(TDockableForm* form)
{
    if (!form->DeskSection.isEmpty())
        form->SaveWindowState(*FSettings);
    removeDockWidget(form);
    form->setParent(nullptr);
    FToolWindow = nullptr;
}

void MainWindow::StartPlugin()
{
    OfferToRestore();
    FPluginFailure = FSession->LoadPlugin();
    FConfigurationTrouble = ConfigurationTrouble();
    if (!FPluginFailure.isEmpty())
        AddProblem({ {}, 0, 0, FPluginFailure, Problem::Error });
    RefreshLater();
}

bool MainWindow::OpenProject(const QString& fileName, const QString& activeProject)
{
    if (!MayLose(TheHost().Modules()))
        return false;
    FProblems->clear();
    const bool opened = TheHost().Open(QFileInfo(fileName).absoluteFilePath(), activeProject);
    for (const auto* project : TheHost().Projects())
        if (IsTrusted(project->Description().FileName))
            FSession->AllowConnections(project->Description().FileName);
    Refresh();
    return opened;
}

ModuleView* MainWindow::ViewOf(const Module& module) const
{
    for (int i = 0; i < FTabs->count(); ++i)
        if (auto* view = qobject_cast<ModuleView*>(FTabs->widget(i)); view && &view->TheModule() == &module)
            return view;
    return nullptr;
}

ModuleView* MainWindow::CurrentView() const
{
    return qobject_cast<ModuleView*>(FTabs->currentWidget());
}

FormSurface* MainWindow::Surface() const
{
    auto* view = CurrentView();
    return view && view->ShowsForm() ? view->Surface() : nullptr;
}

// The host tells of each change; what follows of a gesture is shown once.
void MainWindow::RefreshLater()
{
    if (FEnding || !FSession || std::exchange(FRefreshWaits, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { AtEventBorder([this] { Refresh(); }); }, Qt::QueuedConnection);
}

void MainWindow::Refresh()
{
    FRefreshWaits = false;
    if (FEnding || std::exchange(FRefreshing, true))
        return;
    const Finally done([this] { FRefreshing = false; });
    SyncViews();
    FFiles->Show(TheHost());
    UpdateTitle();
    UpdateCommands();
    UpdateStatus();
}

void MainWindow::AddView(Module& module)
{
    auto* view = new ModuleView(TheHost(), FSession->Packages(), module);
    FTabs->addTab(view, view->Title());
    connect(view, &QTabWidget::currentChanged, this, [this] { RefreshLater(); });
    if (auto* surface = view->Surface()) {
        connect(surface, &FormSurface::SelectionChanged, this, [this] { RefreshLater(); });
        connect(surface, &FormSurface::SourceWanted, view, [view] { view->ShowSource(); });
    }
}

void MainWindow::SyncViews()
{
    const auto& modules = TheHost().Modules();
    for (int i = FTabs->count() - 1; i >= 0; --i) {
        auto* view = qobject_cast<ModuleView*>(FTabs->widget(i));
        if (!modules.contains(&view->TheModule()))
            delete view;
    }
    for (auto* module : modules)
        if (!ViewOf(*module))
            AddView(*module);
    for (int i = 0; i < FTabs->count(); ++i) {
        auto* view = qobject_cast<ModuleView*>(FTabs->widget(i));
        FTabs->setTabText(i, view->Title());
        FTabs->setTabToolTip(i, view->TheModule().UnitFile());
    }
    ShowInFront(TheHost().CurrentModule());
    if (auto* view = CurrentView())
        view->Refresh();
}

void MainWindow::ShowInFront(const Module* module)
{
    auto* view = module ? ViewOf(*module) : nullptr;
    const bool isOther = view && FTabs->currentWidget() != view;
    // A press on a field in the tree selects it on its own form, which then wants to be in front. But the press may
    // begin a drag onto the form that is in front now: that stays until the button is let go.
    if (isOther && FTabs->count() > 1 && QApplication::mouseButtons() != Qt::NoButton) {
        QTimer::singleShot(FrontDelay, this, [this] { RefreshLater(); });
        return;
    }
    if (!view)
        return;
    FTabs->setCurrentWidget(view);
    if (isOther && view->Surface() && module->FrontView() == Module::View::Form)
        view->ShowForm();
}

// A person changed the tab.
void MainWindow::NoteFront(int index)
{
    auto* view = qobject_cast<ModuleView*>(FTabs->widget(index));
    if (FRefreshing || FEnding || !view || !view->TheModule().IsOpen())
        return;
    AtEventBorder(
        [view] { view->TheModule().BringToFront(view->ShowsForm() ? Module::View::Form : Module::View::Source); });
    RefreshLater();
}

void MainWindow::UpdateTitle()
{
    const auto* project = TheHost().ActiveProject();
    const auto name
        = project ? project->Description().DisplayName + QLatin1String("[*] - Morvane") : QStringLiteral("Morvane[*]");
    setWindowTitle(name);
    setWindowModified(TheHost().IsModified());
}

void MainWindow::UpdateCommands()
{
    const auto enable = [this](Command command, bool enabled) { MainMenu::Item(*FMenu, command).SetEnabled(enabled); };
    const auto check = [this](Command command, bool checked) {
        auto& item = MainMenu::Item(*FMenu, command);
        item.setCheckable(true);
        item.SetChecked(checked);
    };
    auto& host = TheHost();
    const bool hasModule = CurrentView() != nullptr;
    const auto* surface = Surface();
    const bool hasComponents = surface && surface->HasComponentsSelected();
    enable(Command::Save, hasModule && CurrentView()->TheModule().IsModified());
    enable(Command::SaveAs, hasModule);
    enable(Command::SaveAll, host.IsModified());
    enable(Command::Close, hasModule);
    enable(Command::ReloadModule, hasModule);
    enable(Command::CloseProject, host.ActiveProject() != nullptr);
    enable(Command::Undo, host.Undo().CanUndo());
    enable(Command::Redo, host.Undo().CanRedo());
    enable(Command::Delete, hasComponents);
    enable(Command::SelectParent, hasComponents);
    enable(Command::Rename, surface != nullptr);
    enable(Command::SelectAll, surface != nullptr);
    enable(Command::ToggleFormSource, hasModule && CurrentView()->Surface());
    enable(Command::AllowConnections, host.ActiveProject() != nullptr);
    check(Command::AllowConnections, host.ActiveProject() && IsTrusted(host.ActiveProject()->Description().FileName));
    check(Command::ViewFiles, !FFilesDock->isHidden());
    check(Command::ViewProblems, !FProblemsDock->isHidden());
    check(Command::ViewMorvane, FToolWindow && FToolWindow->IsWindowVisible());
    enable(Command::ViewMorvane, FToolWindow != nullptr);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    bool mayGo = false;
    AtEventBorder([&] { mayGo = MayLose(TheHost().Modules()); });
    event->setAccepted(mayGo);
    if (mayGo)
        KeepWindow();
}

// Light turned to dark, or another font: the pictures of forms are made of both.
void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        RefreshLater();
}
