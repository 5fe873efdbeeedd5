#include "app/Session.h"

#include "classes/StandardClasses.h"
#include "configuration/UserConfiguration.h"
#include "data/DataClasses.h"
#include "data/TCustomZAConnection.h"
#include "rtl/TRegistry.h"
#include "services/Module.h"
#include "services/Project.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

// Keeps the session's pointer to the tool window, and hands the window on to the desktop of whoever shows it.
class Session::ToolWindowWatch : public IDesktop {
public:
    explicit ToolWindowWatch(Session& session)
        : FSession(session)
    {
        Deskutil::SetDesktop(this);
    }
    ToolWindowWatch(const ToolWindowWatch&) = delete;
    ToolWindowWatch& operator=(const ToolWindowWatch&) = delete;
    ~ToolWindowWatch() { Deskutil::SetDesktop(nullptr); }

    void FormRegistered(TDockableForm* form) override
    {
        FSession.FToolWindow = form;
        if (FSession.FOptions.Desktop)
            FSession.FOptions.Desktop->FormRegistered(form);
    }
    void FormUnregistered(TDockableForm* form) override
    {
        if (FSession.FOptions.Desktop)
            FSession.FOptions.Desktop->FormUnregistered(form);
        FSession.FToolWindow = nullptr;
    }

private:
    Session& FSession;
};

namespace {

// The project of a connection that stands on a form: where relative database files are looked for, and whose word of
// trust counts.
QString ProjectOf(Host& host, const TCustomZAConnection& connection)
{
    const auto* module = host.ModuleOfRoot(connection.Owner());
    const auto* project = module ? module->OwningProject() : host.ActiveProject();
    return project ? project->Description().FileName : QString();
}

}

Session::Session(SessionOptions options)
    : FOptions(std::move(options))
{
    RegisterStandardClasses();
    RegisterDataClasses();
    const auto problems = FPackages.Load(PackagesFolder());
    PrepareConfiguration();
    FOptions.Parts.Packages = &FPackages;
    FHost = std::make_unique<Host>(FOptions.Parts);
    for (const auto& problem : problems)
        FHost->Report(problem);
    FData.SetProjectOf([this](const TCustomZAConnection& connection) { return ProjectOf(*FHost, connection); });
    FWatch = std::make_unique<ToolWindowWatch>(*this);
}

Session::~Session()
{
    if (!FPluginFile.isEmpty())
        FHost->UnloadPackage(FPluginFile);
    FHost.reset();
    FWatch.reset();
    TRegistryStore::SetDefault(nullptr);
}

Failure Session::FindConfigurationError()
{
    const auto users = UserConfiguration::Find(TRegistryStore::Default());
    return QFileInfo::exists(users.FileName()) ? users.FindError() : std::nullopt;
}

// A private configuration is a copy of the user's in a folder that goes with the session; without one of the user's it
// is the starter configuration, as for a new user.
void Session::PrepareConfiguration()
{
    auto& users = FOptions.Parts.Registry ? *FOptions.Parts.Registry : TRegistryStore::Default();
    if (!FOptions.PrivateConfiguration) {
        const auto configuration = UserConfiguration::Find(users);
        if (const auto failure = configuration.Prepare(users); failure && FOptions.Parts.OnProblem)
            FOptions.Parts.OnProblem(*failure);
        FConfigurationFolder = configuration.Directory();
        return;
    }
    const auto usersFile = UserConfiguration::Find(users).FileName();
    FConfigurationFolder = FPrivateFolder.path() + u'/';
    QFile::copy(usersFile, FConfigurationFolder + QLatin1String("Morvane.cfg"));
    FRegistry = std::make_unique<TRegistryStore>(FConfigurationFolder + QLatin1String("registry.ini"));
    UserConfiguration(FConfigurationFolder).Prepare(*FRegistry);
    FOptions.Parts.Registry = FRegistry.get();
    TRegistryStore::SetDefault(FRegistry.get());
}

QString Session::LoadPlugin()
{
    FPluginFile = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("Morvane290.bpl"));
    auto failure = FHost->LoadPackage(FPluginFile);
    if (!failure.isEmpty())
        return std::exchange(FPluginFile, {}) + QLatin1String(": ") + failure;
    UserConfiguration(FConfigurationFolder).KeepGoodCopy();
    return {};
}
