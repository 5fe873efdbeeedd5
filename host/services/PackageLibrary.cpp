#include "services/PackageLibrary.h"

#include "design/DesignIntf.h"
#include "rtl/Messages.h"
#include "services/Host.h"
#include "visual/TMainMenu.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>

#include <dlfcn.h>

PackageLibrary::PackageLibrary(const QString& fileName)
    : FFileName(QFileInfo(fileName).absoluteFilePath())
    , FLibrary(FFileName)
{
    FLibrary.setLoadHints(QLibrary::PreventUnloadHint | QLibrary::ResolveAllSymbolsHint);
}

namespace {

using EntryPoint = void (*)();

void* BaseOf(const void* address)
{
    Dl_info info {};
    return address && dladdr(address, &info) ? info.dli_fbase : nullptr;
}

void Gather(const TMenuItem& parent, QList<TMenuItem*>& found)
{
    for (int i = 0; i < parent.Count(); ++i) {
        found << parent.Items(i);
        Gather(*parent.Items(i), found);
    }
}

QString MessageOf(const std::exception& exception)
{
    const auto* ours = dynamic_cast<const Exception*>(&exception);
    return ours ? ours->Message() : QString::fromUtf8(exception.what());
}

}

QList<TMenuItem*> PackageLibrary::MenuItems(Host& host) const
{
    QList<TMenuItem*> found;
    if (const auto* menu = host.Parts().MainMenu)
        Gather(menu->Items(), found);
    return found;
}

QString PackageLibrary::Start(Host& host)
{
    if (!FLibrary.load())
        return FLibrary.errorString();
    const auto initialize = EntryPoint(FLibrary.resolve("MorvaneInitialize"));
    const auto finalize = EntryPoint(FLibrary.resolve("MorvaneFinalize"));
    const auto start = EntryPoint(FLibrary.resolve("Register"));
    if (!initialize || !finalize || !start)
        return QStringLiteral("%1 is no design package: it lacks MorvaneInitialize, Register or MorvaneFinalize")
            .arg(FFileName);
    FBase = BaseOf(reinterpret_cast<const void*>(initialize));
    const auto before = MenuItems(host);
    try {
        initialize();
    } catch (const std::exception& exception) {
        return MessageOf(exception);
    }
    try {
        start();
    } catch (const std::exception& exception) {
        AtEventBorder([&] { finalize(); });
        return MessageOf(exception);
    }
    for (auto* item : MenuItems(host))
        if (!before.contains(item))
            FOwnItems << item;
    return {};
}

void PackageLibrary::Finalize()
{
    if (const auto finalize = EntryPoint(FLibrary.resolve("MorvaneFinalize")))
        AtEventBorder([&] { finalize(); });
}

bool PackageLibrary::Holds(const void* address) const
{
    return FBase && BaseOf(address) == FBase;
}

bool PackageLibrary::IsOfThis(const void* object) const
{
    if (!object)
        return false;
    return Holds(object) || Holds(*static_cast<const void* const*>(object));
}

bool PackageLibrary::IsOfThis(const TDragTargetClass& target) const
{
    using Function = std::unique_ptr<TDragTarget> (*)(const InterfacePtr<IDesigner>&);
    if (const auto* function = target.target<Function>())
        return Holds(reinterpret_cast<const void*>(*function));
    return Holds(&target.target_type());
}

void PackageLibrary::Sweep(Host& host)
{
    host.Products.removeIf([this](const Host::ProductInfo& product) { return product.Package == FFileName; });
    for (const auto& notification : DesignNotifications())
        if (IsOfThis(notification.get()))
            UnregisterDesignNotification(notification);
    for (const auto& name : DragTargetNames())
        if (IsOfThis(FindDragTarget(name)))
            UnregisterDragTarget(name);
    for (const auto aClass : RegisteredClasses())
        if (Holds(aClass.Info()))
            UnRegisterClass(aClass);
    const auto present = MenuItems(host);
    for (auto* item : std::as_const(FOwnItems))
        if (present.contains(item))
            delete item;
    FOwnItems.clear();
    host.Notifiers.RemoveIf([this](const IOTAIDENotifier* listener) { return IsOfThis(listener); });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    FLibrary.unload();
}
