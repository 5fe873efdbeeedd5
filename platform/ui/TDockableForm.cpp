#include "ui/TDockableForm.h"

#include "rtl/Guard.h"

#include <QHash>
#include <QMainWindow>
#include <QSettings>

TDesktopForm::TDesktopForm(QWidget* parent)
    : QDockWidget(parent)
    , TForm(nullptr)
{
}

void TDesktopForm::SaveWindowState(QSettings& desktop) const
{
    desktop.beginGroup(DeskSection);
    desktop.setValue(QStringLiteral("Geometry"), saveGeometry());
    desktop.setValue(QStringLiteral("Floating"), isFloating());
    desktop.setValue(QStringLiteral("Visible"), !isHidden());
    if (const auto* window = qobject_cast<QMainWindow*>(parentWidget()))
        desktop.setValue(QStringLiteral("Area"), int(window->dockWidgetArea(const_cast<TDesktopForm*>(this))));
    desktop.endGroup();
}

void TDesktopForm::LoadWindowState(QSettings& desktop)
{
    desktop.beginGroup(DeskSection);
    if (desktop.contains(QStringLiteral("Visible"))) {
        const auto area = desktop.value(QStringLiteral("Area")).toInt();
        if (auto* window = qobject_cast<QMainWindow*>(parentWidget()); window && area)
            window->addDockWidget(Qt::DockWidgetArea(area), this);
        setFloating(desktop.value(QStringLiteral("Floating")).toBool());
        restoreGeometry(desktop.value(QStringLiteral("Geometry")).toByteArray());
        setVisible(desktop.value(QStringLiteral("Visible")).toBool());
    }
    desktop.endGroup();
}

void TDockableForm::SetDockable(bool dockable)
{
    setAllowedAreas(dockable ? Qt::AllDockWidgetAreas : Qt::NoDockWidgetArea);
    if (!dockable && !isFloating())
        setFloating(true);
}

void TDockableForm::ForceShow()
{
    show();
    raise();
}

void TDockableForm::setVisible(bool visible)
{
    TDesktopForm::setVisible(visible);
    if (std::exchange(FShown, visible) == visible)
        return;
    if (visible) {
        AtEventBorder([this] { FormShow(); });
        return;
    }
    // Floating, docking and new window flags hide and show it at once; hidden is what still is when events are handled.
    const auto tellHidden = [this] {
        if (!FShown)
            AtEventBorder([this] { FormHide(); });
    };
    QMetaObject::invokeMethod(this, tellHidden, Qt::QueuedConnection);
}

namespace {

IDesktop* GDesktop = nullptr;

QHash<QString, TDockableForm**>& Addresses()
{
    static QHash<QString, TDockableForm**> addresses;
    return addresses;
}

}

void Deskutil::SetDesktop(IDesktop* desktop)
{
    GDesktop = desktop;
    if (!desktop)
        return;
    for (auto** address : std::as_const(Addresses()))
        if (*address)
            desktop->FormRegistered(*address);
}

void Deskutil::RegisterFieldAddress(const QString& name, TDockableForm** address)
{
    Addresses().insert(name, address);
}

void Deskutil::UnregisterFieldAddress(TDockableForm** address)
{
    if (GDesktop && *address)
        GDesktop->FormUnregistered(*address);
    Addresses().removeIf([address](auto entry) { return entry.value() == address; });
}

void Deskutil::RegisterDesktopFormClass(const QString& formName, const QString& deskSection)
{
    auto** address = Addresses().value(formName);
    if (!address || !*address)
        return;
    (*address)->DeskSection = deskSection;
    if (GDesktop)
        GDesktop->FormRegistered(*address);
}

void Deskutil::FocusWindow(QWidget* window)
{
    window->activateWindow();
    window->raise();
    window->setFocus(Qt::OtherFocusReason);
}
