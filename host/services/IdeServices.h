#pragma once

#include "rtl/TInterfacedObject.h"
#include "toolsapi/ToolsAPI.h"

class Host;

// The services of the IDE, all on one object; what BorlandIDEServices is. A facade: without its host it answers nil.
class IdeServices : public Facade<IOTAServices, IOTAModuleServices, INTAServices, IOTAAboutBoxServices> {
public:
    explicit IdeServices(Host& host)
        : FHost(&host)
    {
    }
    // The host goes.
    void Close() { FHost = nullptr; }
    // Another interface that is asked for by its identifier.
    void AddService(IInterface* service) { FMore << service; }
    void* QueryInterface(const TGUID& iid) override;

    int AddNotifier(const InterfacePtr<IOTAIDENotifier>& notifier) override;
    void RemoveNotifier(int index) override;

    InterfacePtr<IOTAProject> GetActiveProject() override;
    InterfacePtr<IOTAModule> CurrentModule() override;
    InterfacePtr<IOTAModule> FindModule(const QString& fileName) override;
    InterfacePtr<IOTAModule> FindFormModule(const QString& formName) override;
    int GetModuleCount() override;
    InterfacePtr<IOTAModule> GetModule(int index) override;
    InterfacePtr<IOTAModule> OpenModule(const QString& fileName) override;

    TMainMenu* GetMainMenu() override;

    int AddProductInfo(const QString& companyName, const QString& legalLine, const QString& title,
        const QString& description, const QImage& aboutImage, const QImage& splashImage, bool unregistered,
        const QString& licenseStatus, const QString& skuName, bool other, bool another) override;

private:
    Host* FHost;
    QList<IInterface*> FMore;
};
