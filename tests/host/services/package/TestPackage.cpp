// A design package that registers one of everything with the IDE and takes nothing back by itself.

#include "classes/TClassBuilder.h"
#include "design/DesignIntf.h"
#include "toolsapi/ToolsAPI.h"
#include "visual/TMainMenu.h"

#include <QCoreApplication>
#include <QVariant>

#define PACKAGE_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

class Wizard : public NotifierOf<TNotifierObject, IOTAWizard> {
public:
    ~Wizard() override { qApp->setProperty("wizardEnded", qApp->property("packageFinalized")); }
    QString GetIDString() override { return QStringLiteral("Test.Package"); }
    QString GetName() override { return QStringLiteral("Test"); }
    TWizardStates GetState() override { return wsEnabled; }
    void Execute() override { }
};

class Listener : public NotifierOf<TNotifierObject, IOTAIDENotifier> {
public:
    void FileNotification(TOTAFileNotification, const QString&, bool&) override
    {
        qApp->setProperty("packageHeard", qApp->property("packageHeard").toInt() + 1);
    }
    void BeforeCompile(IOTAProject*, bool&) override { }
    void AfterCompile(bool) override { }
};

class Target : public TDragTarget {
public:
    using TDragTarget::TDragTarget;
    bool DragOver(TPersistent*, TDragObject*, int, int, TDragState) override { return true; }
    void DragDrop(TPersistent*, TDragObject*, int, int) override { }
};

class TPackageComponent : public TComponent {
    MRV_CLASS
    using TComponent::TComponent;
};

TClass TPackageComponent::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TPackageComponent>(info, QStringLiteral("TPackageComponent"), TComponent::Class()).Made();
    return made;
}

}

PACKAGE_EXPORT void MorvaneInitialize()
{
    qApp->setProperty("packageFinalized", false);
    if (qApp->property("packageFails").toBool())
        throw EInvalidOperation(QStringLiteral("the unit Broken failed"));
    RegisterClass(TPackageComponent::Class());
    RegisterDragTarget(QStringLiteral("TPackageDrag"),
        [](const InterfacePtr<IDesigner>& designer) { return std::make_unique<Target>(designer); });
    InterfaceCast<IOTAServices>(BorlandIDEServices)->AddNotifier(New<Listener>());
}

PACKAGE_EXPORT void Register()
{
    RegisterPackageWizard(New<Wizard>());
    if (auto* menu = InterfaceCast<INTAServices>(BorlandIDEServices)->GetMainMenu()) {
        auto* item = new TMenuItem;
        item->SetCaption(QStringLiteral("Package"));
        menu->Items().Items(0)->Insert(0, item);
    }
}

PACKAGE_EXPORT void MorvaneFinalize()
{
    qApp->setProperty("packageFinalized", true);
}

PACKAGE_EXPORT void ShowMorvane(const char16_t* formName, const char16_t* componentName)
{
    qApp->setProperty("packageShown", QString::fromUtf16(formName) + u'.' + QString::fromUtf16(componentName));
}

PACKAGE_EXPORT void CreateDefaultControl(const char16_t* formName, const char16_t* componentName)
{
    qApp->setProperty("packageCreated", QString::fromUtf16(formName) + u'.' + QString::fromUtf16(componentName));
}
