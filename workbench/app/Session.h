#pragma once

#include "data/SqlDataAccess.h"
#include "files/Problem.h"
#include "packages/PackageList.h"
#include "services/Host.h"
#include "ui/TDockableForm.h"

#include <QPointer>
#include <QTemporaryDir>

// What a session is made with.
struct SessionOptions {
    // A copy of the user's configuration that goes with the session, so that nothing the session does changes theirs.
    bool PrivateConfiguration = false;
    HostParts Parts;
    // Called when a dockable window comes and goes; without it the window is kept as it is.
    IDesktop* Desktop = nullptr;
};

// Everything that the workbench is but its own windows: the classes of the platform and of the catalogues, the host,
// the data access, the user's configuration and the plug-in. The window and the verbs of the command line stand on one.
class Session {
public:
    explicit Session(SessionOptions options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // What keeps the user's own configuration from loading, told of their file; nothing where there is none yet. Who
    // works on a private copy asks first, since all that fails later is told of the copy.
    static Failure FindConfigurationError();

    Host& TheHost() { return *FHost; }
    PackageList& Packages() { return FPackages; }
    SqlDataAccess& Data() { return FData; }

    // Loads the plug-in; "" when it runs, else what failed.
    QString LoadPlugin();
    // The plug-in's tool window; nil while there is none.
    TDockableForm* ToolWindow() const { return FToolWindow; }
    // Where the user's (or this session's own) configuration is kept.
    QString ConfigurationFolder() const { return FConfigurationFolder; }
    // The user's word that this project may reach its databases.
    void AllowConnections(const QString& projectFile) { FData.Allow(projectFile); }

private:
    class ToolWindowWatch;
    void PrepareConfiguration();

    SessionOptions FOptions;
    QTemporaryDir FPrivateFolder;
    std::unique_ptr<TRegistryStore> FRegistry;
    QString FConfigurationFolder;
    PackageList FPackages;
    SqlDataAccess FData;
    std::unique_ptr<ToolWindowWatch> FWatch;
    QPointer<TDockableForm> FToolWindow;
    std::unique_ptr<Host> FHost;
    QString FPluginFile;
};
