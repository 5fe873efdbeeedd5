#include "ide/MrvServicesProxy.h"

#include "classes/Forms.h"
#include "config/MrvCfgIntf.h"
#include "ide/MrvEvents.h"
#include "ide/MrvInteropServices.h"
#include "rtl/Guard.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"

std::unique_ptr<TMrvApiProxy> MrvApiProxy;

namespace {

void Log(const QString& text)
{
    TMrvUtils::AddLogMessage(text);
}

void AssertList(const InterfacePtr<IMrvDataSetList>& list)
{
    Assert(bool(list), QStringLiteral("MrvServicesProxy"));
}

bool IsServed(const QString& personality)
{
    return SameText(personality, u"Delphi.Personality") || SameText(personality, u"CPlusPlusBuilder.Personality");
}

QString OwnPackageFileName()
{
    return QLatin1String("Morvane") + IDEInfos[IDEVer].PackageSuffix + QLatin1String(".bpl");
}

}

TMrvApiProxy::TMrvApiProxy()
{
    FEvents = New<TEvents>();
    const auto services = InterfaceCast<IOTAServices>(BorlandIDEServices);
    Log(QStringLiteral("***** Morvane is started *****"));
    FIDENotifier = New<TIdeNotifier>(services, nullptr);
    FIDENotifier->FOnFileNotification = std::bind_front(&TMrvApiProxy::OnFileNotification, this);
}

TMrvApiProxy::~TMrvApiProxy()
{
    try {
        TearDown();
    } catch (...) {
        // Whoever wants to hear of a failure tears down first.
    }
}

void TMrvApiProxy::TearDown()
{
    if (std::exchange(FTornDown, true))
        return;
    Log(QStringLiteral("Try destroy TMrvApiProxy object"));
    UnloadAssembly();
    FEvents.Clear();
    FIDENotifier->FOnFileNotification = nullptr;
    if (const auto notifier = InterfaceCast<IOTANotifier>(FIDENotifier))
        notifier->Destroyed();
    DropServices();
}

void TMrvApiProxy::RegisterForm(TForm* form)
{
    FToolWindow = form;
    FEvents->RegisterForm(form);
}

void TMrvApiProxy::UnRegisterForm()
{
    if (FEvents)
        FEvents->UnRegisterForm();
}

InterfacePtr<IMrvDataSetList> TMrvApiProxy::GetDataSetList() const
{
    InterfacePtr<IMrvDataSetList> list;
    if (FMrvInteropServices)
        FMrvInteropServices->GetDataSetList(list);
    return list;
}

QString TMrvApiProxy::GetActiveProjectName() const
{
    QString name;
    if (FMrvInteropServices) {
        const auto list = GetDataSetList();
        AssertList(list);
        list->GetActiveProjectName(name);
    }
    return name.isEmpty() ? QString(sNoActiveProject) : name;
}

QString TMrvApiProxy::GetProjectPersonality() const
{
    return GetActiveProject()->GetPersonality();
}

void TMrvApiProxy::AttachToProject()
{
    const auto project = GetActiveProject();
    if (!project || project->GetFileName().isEmpty())
        return;
    bool cancel = false;
    OnFileNotification(this, ofnActiveProjectChanged, project->GetFileName(), cancel);
}

// Compares without regard to case, as the attach does. The call is not reached in normal use: projects of other
// personalities have no services. Both project paths call this first all the same.
void TMrvApiProxy::UnloadAssembly()
{
    const auto list = GetDataSetList();
    if (list && !IsServed(FProjectPersonality))
        list->IntfDestroyObject();
}

void TMrvApiProxy::OnFileNotification(TObject*, TOTAFileNotification notifyCode, const QString& fileName, bool&)
{
    try {
        HandleFileNotification(notifyCode, fileName);
    } catch (const std::exception& exception) {
        Log(QStringLiteral("TMrvApiProxy.OnFileNotification - failed!"));
        Log(Format(QStringLiteral("File Notification: FileName: %s,\r\n\t\t\t\t NotifyCode: %s"),
            { fileName, GetEnumName(TOTAFileNotificationInfo(), notifyCode) }));
        Log(QStringLiteral("Exception.Message is '%1'").arg(QString::fromUtf8(exception.what())));
    }
}

void TMrvApiProxy::HandleFileNotification(TOTAFileNotification notifyCode, const QString& fileName)
{
    const bool isOwnPackage = SameText(ExtractFileName(fileName), OwnPackageFileName());
    if (notifyCode == ofnPackageInstalled && isOwnPackage && GetActiveProject())
        AttachToProject();
    if (notifyCode == ofnPackageUninstalled && isOwnPackage)
        Log(QStringLiteral("***** Uninstal Morvane *****"));
    if (notifyCode == ofnFileClosing && TMrvUtils::IsProject(fileName))
        CloseProject();
    if (notifyCode == ofnActiveProjectChanged)
        Attach(fileName);
}

void TMrvApiProxy::CloseProject()
{
    UnloadAssembly();
    FEvents->OnProjectClosed();
    DropServices();
    FIsProjectOpened = false;
}

void TMrvApiProxy::Attach(const QString& fileName)
{
    Log(QString());
    Log(QLatin1String("***** Project opening: ") + ExtractFileName(fileName) + QLatin1String(" *****"));
    Log(QStringLiteral("Try unload assembly..."));
    UnloadAssembly();
    DropServices();
    const auto project = GetActiveProject();
    if (!project)
        return;
    FProjectPersonality = project->GetPersonality();
    CreateServices();
    if (!FMrvInteropServices) {
        FIsProjectOpened = false;
        return;
    }
    AttachList();
    FIsProjectOpened = true;
    FEvents->OnProjectOpened();
    FEvents->OnProjectRenamed(GetActiveProjectName());
}

void TMrvApiProxy::CreateServices()
{
    Assert(bool(MrvConfigurationService), QStringLiteral("MrvServicesProxy"));
    if (IsServed(FProjectPersonality)) {
        Log(QStringLiteral("Try create win32 instances of TMrvInteropServices"));
        MrvConfigurationService->SetAcitvePersonality(prVCL);
        FMrvInteropServices = New<TMrvInteropServices>();
        return;
    }
    try {
        Log(QStringLiteral("Try create CLR instances of TMrvInteropServices"));
        MrvConfigurationService->SetAcitvePersonality(prCLR);
    } catch (const std::exception& exception) {
        Log(QLatin1String("Failed to create Ole object: ") + QString::fromUtf8(exception.what()));
        FMrvInteropServices.Clear();
    }
}

void TMrvApiProxy::AttachList()
{
    // A failure in here leaves the services set and the project not opened, until the next notification.
    FIsProjectOpened = false;
    Log(QStringLiteral("Try register configuration service in TMrvInteropService"));
    FMrvInteropServices->RegisterConfigurationService(MrvConfigurationService);
    FMrvInteropServices->CreateObjects();
    const auto list = GetDataSetList();
    AssertList(list);
    if (FToolWindow && !FToolWindow->IsWindowVisible())
        list->GoDormant();
    Log(QStringLiteral("Try register events"));
    list->RegisterEvents(FEvents);
    Log(QStringLiteral("Try register configuration service in DataSet List"));
    // Exact on purpose: the list of a C++Builder project stays empty until the first refresh.
    if (FProjectPersonality == QLatin1String("Delphi.Personality")) {
        Log(QStringLiteral("Try build DataSet list"));
        list->BuildDataSetList(true);
    }
    Log(QStringLiteral("Try register project notifier"));
    list->IntfRegisterProjectNotifier();
}

// Lets the services go. A list that somebody still holds must not speak into the tree of the next project.
void TMrvApiProxy::DropServices()
{
    const auto list = GetDataSetList();
    FMrvInteropServices.Clear();
    if (list && !list.IsLast()) {
        list->GoDormant();
        list->RegisterEvents(nullptr);
    }
}

void MrvServicesProxy::Initialization()
{
    try {
        Log(QStringLiteral("MrvServicesProxy.Initialization - Try create TMrvApiProxy"));
        MrvApiProxy = std::make_unique<TMrvApiProxy>();
        Log(QStringLiteral("MrvServicesProxy.Initialization - success"));
    } catch (...) {
        Log(QStringLiteral("MrvServicesProxy.Initialization - Failed"));
    }
}

void MrvServicesProxy::Finalization()
{
    try {
        Log(QStringLiteral("MrvServicesProxy.finalization: Try free MrvApiProxy object"));
        // Who calls back meanwhile finds nil.
        if (const auto proxy = std::exchange(MrvApiProxy, nullptr))
            proxy->TearDown();
        Log(QStringLiteral("MrvServicesProxy.finalization: success"));
    } catch (...) {
        Log(QStringLiteral("MrvServicesProxy.finalization: failed"));
    }
}
