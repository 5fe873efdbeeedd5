#pragma once

#include "ide/MrvNotifiers.h"
#include "model/MrvInterfaces.h"

#include <memory>

// The one object of the process that joins the IDE to the model of the active project. It lives as long as the package;
// the model lives as long as one project is active. Detached it has no services; attached it has, and the list is
// registered with the sink.
class TMrvApiProxy : public TObject {
public:
    // From here on the IDE can call in. Nothing happens to a project before the first active-project notification.
    TMrvApiProxy();
    ~TMrvApiProxy() override;
    // What the destructor does where this was not called. Raises what the IDE raises; the proxy is of no more use then.
    void TearDown();

    // Called by the tool window's constructor and destructor.
    void RegisterForm(TForm* form);
    void UnRegisterForm();

    bool GetIsProjectOpened() const { return FIsProjectOpened; }
    // The active project's file name, or "<No active projects>".
    QString GetActiveProjectName() const;
    // The caller guarantees that a project exists.
    QString GetProjectPersonality() const;
    // Attaches to the project that is active already; nothing happens without one.
    void AttachToProject();
    void UnloadAssembly();
    // The IDE notifier's handler. Nothing leaves it.
    void OnFileNotification(TObject* sender, TOTAFileNotification notifyCode, const QString& fileName, bool& cancel);

    // The model's list, or nil while no project is attached.
    InterfacePtr<IMrvDataSetList> GetDataSetList() const;

    InterfacePtr<IMrvInteropServices> FMrvInteropServices;
    InterfacePtr<IMrvEvents> FEvents;
    InterfacePtr<TIdeNotifier> FIDENotifier;
    QString FProjectPersonality = QStringLiteral("Delphi.Personality");
    // From a completed attach until the project closes.
    bool FIsProjectOpened = false;
    // Stays after UnRegisterForm; never used then but for its visibility, hence weak.
    WeakRef<TForm> FToolWindow;

private:
    void HandleFileNotification(TOTAFileNotification notifyCode, const QString& fileName);
    void CloseProject();
    void Attach(const QString& fileName);
    void CreateServices();
    void AttachList();
    void DropServices();

    bool FTornDown = false;
};

// Made by the unit's initialization, freed by its finalization.
extern std::unique_ptr<TMrvApiProxy> MrvApiProxy;

namespace MrvServicesProxy {

// Make and free MrvApiProxy; failures are logged and go no further.
void Initialization();
void Finalization();

}
