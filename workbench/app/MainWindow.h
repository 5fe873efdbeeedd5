#pragma once

#include "app/MainMenu.h"
#include "app/Session.h"

#include <QLabel>
#include <QMainWindow>
#include <QSettings>

class ConfigurationWatch;
class FormSurface;
class ModuleView;
class ProblemList;
class ProjectFiles;
class UserConfiguration;

// The workbench's window: the files of the projects on the left, forms and units in the middle, the plug-in's window
// docked on the right, problems below. It owns the session and is the desktop that dockable windows come to.
//
// Life: main makes it, shows it, starts the plug-in and opens the project; the session ends with it, before its menu.
class MainWindow : public QMainWindow, private IDesktop {
    Q_OBJECT
public:
    // The session's parts that have to do with a person are the window's own, as far as they are not given. Window
    // state and the user's word on databases are kept in the settings file; in the user's own for an empty name.
    explicit MainWindow(SessionOptions options = {}, const QString& settingsFile = {});
    ~MainWindow() override;

    // Loads the plug-in; what fails is told in the status bar and the problem list, and the rest works.
    void StartPlugin();
    // False when it could not be opened, or the user wants to keep what is open.
    bool OpenProject(const QString& fileName, const QString& activeProject = {});
    void Execute(Command command);

    Session& TheSession() { return *FSession; }
    Host& TheHost() { return FSession->TheHost(); }
    TMainMenu& Menu() { return *FMenu; }
    // The view of an open module; nil.
    ModuleView* ViewOf(const Module& module) const;
    // The view in front; nil.
    ModuleView* CurrentView() const;
    // Shows at once what otherwise waits for the event loop.
    void Refresh();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    virtual QString AskForFile();
    // Another name for a unit; empty when the user thinks better of it.
    virtual QString AskForNewName(const QString& unitFile);

private:
    // IDesktop
    void FormRegistered(TDockableForm* form) override;
    void FormUnregistered(TDockableForm* form) override;

    void BuildMenu();
    void BuildToolBar();
    void BuildDocks();
    void BuildStatusBar();
    void ConnectFiles();
    QDockWidget* Dock(const QString& title, QWidget* widget, Qt::DockWidgetArea area);
    void RestoreWindow();
    void KeepWindow();

    void RefreshLater();
    void SyncViews();
    void AddView(Module& module);
    void ShowInFront(const Module* module);
    void NoteFront(int index);
    void UpdateTitle();
    void UpdateCommands();
    void UpdateStatus();
    QString StatusText();
    QString ConfigurationTrouble() const;
    void NoteConfiguration();
    void OfferToRestore();
    Failure Restore();
    void OfferStarter(const UserConfiguration& configuration);

    void AddProblem(const Problem& problem);
    void Tell(const Failure& failure);
    void ShowPlace(const QString& fileName, int line, int column);
    void OpenModule(const QString& fileName, const QString& projectFile);
    Project* ProjectOf(const QString& fileName);

    // Asks to save what was changed in these modules. False when the user wants to go on with them.
    bool MayLose(const QList<Module*>& modules);
    void CloseModule();
    void CloseProject(Project& project);
    void SaveModule();
    void SaveModuleAs();
    bool MayWriteOver(const QStringList& files);
    void ReloadModule();
    FormSurface* Surface() const;

    bool IsTrusted(const QString& projectFile) const;
    void SetTrusted(const QString& projectFile, bool trusted);
    void ToggleConnections();
    void ToggleLog();
    void RestoreConfiguration();
    void RestartPlugin();
    void ToggleView(QWidget* widget);
    void ToggleFormSource();

    std::unique_ptr<QSettings> FSettings;
    std::unique_ptr<TMainMenu> FMenu;
    ProjectFiles* FFiles = nullptr;
    ProblemList* FProblems = nullptr;
    QTabWidget* FTabs = nullptr;
    QDockWidget* FFilesDock = nullptr;
    QDockWidget* FProblemsDock = nullptr;
    QPointer<TDockableForm> FToolWindow;
    QLabel* FStatus = nullptr;
    QString FPluginFailure;
    // What keeps the configuration from being used, as it was when the plug-in started or the file changed last.
    QString FConfigurationTrouble;
    std::unique_ptr<ConfigurationWatch> FConfigurationWatch;
    bool FRefreshing = false;
    bool FRefreshWaits = false;
    bool FEnding = false;
    std::unique_ptr<Session> FSession;
};
