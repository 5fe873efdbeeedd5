#pragma once

#include "classes/TypInfo.h"
#include "rtl/TInterfacedObject.h"

#include <QFlags>
#include <QString>

class IOTAProject;

// What happened to a file. The numbers are fixed.
enum TOTAFileNotification {
    ofnFileOpening,
    ofnFileOpened,
    ofnFileClosing,
    ofnDefaultDesktopLoad,
    ofnDefaultDesktopSave,
    ofnProjectDesktopLoad,
    ofnProjectDesktopSave,
    ofnPackageInstalled,
    ofnPackageUninstalled,
    ofnActiveProjectChanged,
    ofnProjectOpenedFromTemplate,
    ofnBeginProjectGroupOpen,
    ofnEndProjectGroupOpen,
    ofnBeginProjectGroupClose,
    ofnEndProjectGroupClose,
};
// The names of the values, for GetEnumName.
const TTypeInfo& TOTAFileNotificationInfo();

// A component of a form as the tools API names it; valid until the component goes. Nil names nothing.
using TOTAHandle = void*;

// A listener. The host holds a reference from AddNotifier until RemoveNotifier, and one more during each callback.
class IOTANotifier : public IInterface {
public:
    static constexpr TGUID IID = Guid("{F17A7BCF-E07D-11D1-AB0B-00C04FB16FB3}");
    virtual void AfterSave() = 0;
    virtual void BeforeSave() = 0;
    // The watched thing goes away now; references to it must be let go. Sent once, always before it goes.
    virtual void Destroyed() = 0;
    virtual void Modified() = 0;
};

class IOTAFormNotifier : public IOTANotifier {
public:
    using Parent = IOTANotifier;
    static constexpr TGUID IID = Guid("{F17A7BD4-E07D-11D1-AB0B-00C04FB16FB3}");
    // The user turned to the form's designer.
    virtual void FormActivated() = 0;
    virtual void FormSaving() = 0;
    // A component of the form has a new name. An empty old name: it was inserted (it has owner, state and, a field, its
    // dataset). An empty new name: it is being deleted and is still whole.
    virtual void ComponentRenamed(TOTAHandle component, const QString& oldName, const QString& newName) = 0;
};

class IOTAModuleNotifier : public IOTANotifier {
public:
    using Parent = IOTANotifier;
    static constexpr TGUID IID = Guid("{F17A7BCE-E07D-11D1-AB0B-00C04FB16FB3}");
    // Asked before a save; false keeps the file from being overwritten.
    virtual bool CheckOverwrite() = 0;
    // The module's file has a new name; the module answers with it already.
    virtual void ModuleRenamed(const QString& newName) = 0;
};

class IOTAIDENotifier : public IOTANotifier {
public:
    using Parent = IOTANotifier;
    static constexpr TGUID IID = Guid("{E052204F-ECE9-11D1-AB19-00C04FB16FB3}");
    // `cancel` set to true stops what has not happened yet (opening, closing); otherwise it is ignored.
    virtual void FileNotification(TOTAFileNotification notifyCode, const QString& fileName, bool& cancel) = 0;
    virtual void BeforeCompile(IOTAProject* project, bool& cancel) = 0;
    virtual void AfterCompile(bool succeeded) = 0;
};

enum TWizardState { wsEnabled = 1, wsChecked = 2 };
Q_DECLARE_FLAGS(TWizardStates, TWizardState)

class IOTAWizard : public IOTANotifier {
public:
    using Parent = IOTANotifier;
    static constexpr TGUID IID = Guid("{B75C0CE0-EEA6-11D1-9504-00608CCBF153}");
    virtual QString GetIDString() = 0;
    virtual QString GetName() = 0;
    virtual TWizardStates GetState() = 0;
    // The user chose the wizard.
    virtual void Execute() = 0;
};

// The base of listeners: the four callbacks, empty.
class TNotifierObject : public TInterfacedObject {
public:
    virtual void AfterSave() { }
    virtual void BeforeSave() { }
    virtual void Destroyed() { }
    virtual void Modified() { }
};

// A TNotifierObject that answers to the notifier interface I (and, through it, to IOTANotifier).
template <class Base, class I>
class NotifierOf : public Implements<Base, I> {
public:
    using Implements<Base, I>::Implements;
    void AfterSave() override { Base::AfterSave(); }
    void BeforeSave() override { Base::BeforeSave(); }
    void Destroyed() override { Base::Destroyed(); }
    void Modified() override { Base::Modified(); }
};
