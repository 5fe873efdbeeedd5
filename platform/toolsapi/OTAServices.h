#pragma once

#include "toolsapi/OTAModules.h"

#include <QImage>
#include <QStringList>

class IOTAPaletteGroup;
class TMainMenu;

// The root of all services: InterfaceCast it to the service wanted. Nil where no IDE runs. Set by the host.
extern InterfacePtr<IInterface> BorlandIDEServices;

class IOTAServices : public IInterface {
public:
    static constexpr TGUID IID = Guid("{D1358CFB-9B5C-4E6C-BC4B-C6D06C6689C1}");
    virtual int AddNotifier(const InterfacePtr<IOTAIDENotifier>& notifier) = 0;
    virtual void RemoveNotifier(int index) = 0;
};

class IOTAModuleServices : public IInterface {
public:
    static constexpr TGUID IID = Guid("{55A5E848-27FB-4880-8E7C-7F05A9802482}");
    // Nil while no project is open.
    virtual InterfacePtr<IOTAProject> GetActiveProject() = 0;
    // The module the user works on, or nil.
    virtual InterfacePtr<IOTAModule> CurrentModule() = 0;
    // The open module of that file (unit, form or project): by the exact name first, then without regard to case; nil.
    virtual InterfacePtr<IOTAModule> FindModule(const QString& fileName) = 0;
    // The first open module whose form bears that name, the active project's first; nil for none and an empty name.
    virtual InterfacePtr<IOTAModule> FindFormModule(const QString& formName) = 0;
    // Open modules, in the order of opening.
    virtual int GetModuleCount() = 0;
    virtual InterfacePtr<IOTAModule> GetModule(int index) = 0;
    // Like IOTAModuleInfo::OpenModule, for any file.
    virtual InterfacePtr<IOTAModule> OpenModule(const QString& fileName) = 0;
};

// The IDE's own objects.
class INTAServices : public IInterface {
public:
    static constexpr TGUID IID = Guid("{8209041F-F37F-4570-88B8-6C310FFFF81A}");
    // Nil for an IDE without windows.
    virtual TMainMenu* GetMainMenu() = 0;
};

class IOTAAboutBoxServices : public IInterface {
public:
    static constexpr TGUID IID = Guid("{62A2F7FD-16F1-45B9-9417-A2D293D07A22}");
    virtual int AddProductInfo(const QString& companyName, const QString& legalLine, const QString& title,
        const QString& description, const QImage& aboutImage, const QImage& splashImage, bool unregistered,
        const QString& licenseStatus, const QString& skuName, bool other, bool another)
        = 0;
};

// What a package needs and holds.
class IOTAPackageInfo : public IInterface {
public:
    static constexpr TGUID IID = Guid("{2B3C9F8A-5D0E-4E53-9E61-0C8F6D1F2A11}");
    // Names of the packages that it requires, in its order.
    virtual QStringList GetRequiredPackages() = 0;
};

class IOTAPackageServices : public IInterface {
public:
    static constexpr TGUID IID = Guid("{1E8AB2DA-CC56-4FA5-851A-9CDC957D1D65}");
    virtual int GetPackageCount() = 0;
    virtual QString GetPackageName(int package) = 0;
    virtual int GetComponentCount(int package) = 0;
    // The class name of a component that the package puts on the palette.
    virtual QString GetComponentName(int package, int component) = 0;
    virtual InterfacePtr<IOTAPackageInfo> GetPackage(int package) = 0;
};

class IOTAPaletteServices : public IInterface {
public:
    static constexpr TGUID IID = Guid("{6963F71C-0A3F-4598-B6F6-9574CE0E6847}");
    virtual InterfacePtr<IOTAPaletteGroup> GetBaseGroup() = 0;
};

// The active project, or nil.
InterfacePtr<IOTAProject> GetActiveProject();

// Hands a wizard to the IDE, which holds it until the package that registered it goes. Raises EInvalidOperation without
// an IDE.
void RegisterPackageWizard(const InterfacePtr<IOTAWizard>& wizard);
// The IDE's side of it. Set by the host.
using WizardRegistrar = std::function<void(const InterfacePtr<IOTAWizard>&)>;
void SetWizardRegistrar(WizardRegistrar registrar);
