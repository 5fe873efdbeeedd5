#pragma once

#include "toolsapi/OTANotifiers.h"

class IDesigner;
class IOTAModule;
class TComponent;

// All of these are facades of the host: they stay valid until the process ends, and answer nil, 0 or an empty text once
// what they stand for is closed. Indexes start at 0; an index outside the range gives nil.

// A component of a form.
class IOTAComponent : public IInterface {
public:
    static constexpr TGUID IID = Guid("{AC139ADF-329A-D411-87C6-9B2730412200}");
    // The handle that ComponentRenamed and GetComponentFromHandle use.
    virtual TOTAHandle GetComponentHandle() = 0;
    // The class name.
    virtual QString GetComponentType() = 0;
};

// The native side of an IOTAComponent.
class INTAComponent : public IInterface {
public:
    static constexpr TGUID IID = Guid("{34B2E2D1-E36F-11D1-AB0E-00C04FB16FB3}");
    // Nil once the component is gone.
    virtual TComponent* GetComponent() = 0;
};

// One file of a module as it is edited.
class IOTAEditor : public IInterface {
public:
    static constexpr TGUID IID = Guid("{F17A7BD0-E07D-11D1-AB0B-00C04FB16FB3}");
    virtual QString GetFileName() = 0;
    // The module that this file is of; nil after closing.
    virtual IOTAModule* GetModule() = 0;
    virtual bool GetModified() = 0;
    // Gives the index for RemoveNotifier. Never calls the notifier back from here.
    virtual int AddNotifier(const InterfacePtr<IOTANotifier>& notifier) = 0;
    virtual void RemoveNotifier(int index) = 0;
    // Brings the editor to the front.
    virtual void Show() = 0;
};

// The editor of a module's source text.
class IOTASourceEditor : public IOTAEditor {
public:
    using Parent = IOTAEditor;
    static constexpr TGUID IID = Guid("{4D460588-10A6-4CAD-87E7-5654266073F9}");
};

// The editor of a module's form.
class IOTAFormEditor : public IOTAEditor {
public:
    using Parent = IOTAEditor;
    static constexpr TGUID IID = Guid("{F17A7BD2-E07D-11D1-AB0B-00C04FB16FB3}");
    // The form or data module; its INTAComponent answers nil while the form is dormant (Resurrect of its designer
    // brings it back). Nil when the form could not be read.
    virtual InterfacePtr<IOTAComponent> GetRootComponent() = 0;
    // A component that the root owns, or the root itself by its name, without regard to case; nil otherwise and for an
    // empty name.
    virtual InterfacePtr<IOTAComponent> FindComponent(const QString& name) = 0;
    // Nil for a handle that is none of this form's.
    virtual InterfacePtr<IOTAComponent> GetComponentFromHandle(TOTAHandle handle) = 0;
};

// The native side of a form editor.
class INTAFormEditor : public IInterface {
public:
    static constexpr TGUID IID = Guid("{34B2E2D0-E36F-11D1-AB0E-00C04FB16FB3}");
    virtual InterfacePtr<IDesigner> FormDesigner() = 0;
};

// An open module: a unit with the form that belongs to it, or a project.
class IOTAModule : public IInterface {
public:
    static constexpr TGUID IID = Guid("{7D68D2CA-6E1A-11D5-87D5-00B0D0AB9FA8}");
    // The full name of the unit's (or the project's) file.
    virtual QString GetFileName() = 0;
    virtual int GetModuleFileCount() = 0;
    // The unit's editor first; a module whose form can be read has a form editor behind it.
    virtual InterfacePtr<IOTAEditor> GetModuleFileEditor(int index) = 0;
    virtual int AddNotifier(const InterfacePtr<IOTAModuleNotifier>& notifier) = 0;
    virtual void RemoveNotifier(int index) = 0;
};

// What a module of a project is.
enum TOTAModuleType {
    omtForm = 0,
    omtDataModule = 1,
    omtProjUnit = 2,
    omtUnit = 3,
    omtRc = 4,
    omtAsm = 5,
    omtDef = 6,
    omtObj = 7,
    omtRes = 8,
    omtLib = 9,
    omtTypeLib = 10,
    omtPackageImport = 11,
    omtFormResource = 12,
    omtCustom = 13
};

// A module that the project names, open or not.
class IOTAModuleInfo : public IInterface {
public:
    static constexpr TGUID IID = Guid("{B1B3B9E1-7A8A-11D5-87D5-00B0D0AB9FA8}");
    virtual TOTAModuleType GetModuleType() = 0;
    virtual QString GetFileName() = 0;
    // Empty for a module without a form. Known without opening.
    virtual QString GetFormName() = 0;
    // Opens the module; its file notification has been sent when this returns. Raises an Exception that says what is
    // wrong with the file.
    virtual InterfacePtr<IOTAModule> OpenModule() = 0;
};

class IOTAProject : public IOTAModule {
public:
    using Parent = IOTAModule;
    static constexpr TGUID IID = Guid("{F17A7BCA-E07D-11D1-AB0B-00C04FB16FB3}");
    virtual int GetModuleCount() = 0;
    // In project order.
    virtual InterfacePtr<IOTAModuleInfo> GetModule(int index) = 0;
    // The first module of that file, without regard to case; nil for none.
    virtual InterfacePtr<IOTAModuleInfo> FindModuleInfo(const QString& fileName) = 0;
    // "Delphi.Personality", "CPlusPlusBuilder.Personality" or another.
    virtual QString GetPersonality() = 0;
    // "VCL", "FMX", "LCL" or another.
    virtual QString GetFrameworkType() = 0;
};
