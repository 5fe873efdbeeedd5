#include "ide/MrvEvents.h"

#include "classes/Forms.h"
#include "rtl/Messages.h"
#include "rtl/SysUtils.h"
#include "support/MrvUtils.h"

namespace {

void Guarded(const char* failureText, const std::function<void()>& work)
{
    try {
        work();
    } catch (const std::exception& exception) {
        TMrvUtils::LogFailure(QString::fromLatin1(failureText), exception);
    }
}

}

void TEvents::Forward(const char* failureText, const Call& call)
{
    Guarded(failureText, [&] {
        auto* window = dynamic_cast<TMrvToolWindowTarget*>(FOwner);
        if (!window)
            throw EInvalidCast(
                FOwner ? QStringLiteral("Invalid class typecast") : QStringLiteral("No tool window is registered"));
        call(*window);
    });
}

void TEvents::IfOwner(const char* failureText, const Call& call)
{
    if (FOwner)
        Forward(failureText, call);
}

// Tests the set alone, on purpose: without a window the call fails and the failure is logged.
void TEvents::IfEnabled(TDisableEvent event, const char* failureText, const Call& call)
{
    if (IsEventEnabled(event))
        Forward(failureText, call);
}

void TEvents::Post(const char* failureText, unsigned message)
{
    if (FOwner)
        Guarded(failureText, [&] { PostMessage(FOwner->Handle(), message); });
}

void TEvents::OnProjectOpened()
{
    IfOwner("TEvents.OnProjectOpened - failed!", [this](auto& window) { window.OnProjectOpened(this); });
}

void TEvents::OnProjectClosed()
{
    IfOwner("TEvents.OnProjectClosed - failed!", [](auto& window) { window.OnProjectClosed(); });
}

void TEvents::OnComponentDelete()
{
    IfEnabled(deComponentDeleted, "TEvents.OnComponentDelete - failed!",
        [this](auto& window) { window.ComponentDeleted(this); });
}

void TEvents::OnComponentInsert(const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    IfEnabled(deComponentInserted, "TEvents.OnComponentInsert - failed!",
        [this, &attr](auto& window) { window.ComponentInserted(this, attr); });
}

void TEvents::OnComponentRename(
    const QString& oldName, const QString& newName, const InterfacePtr<IMrvDataSetAttr>& attr)
{
    IfOwner("TEvents.OnComponentRename - failed!",
        [&](auto& window) { window.ComponentRenamed(this, oldName, newName, attr); });
}

void TEvents::OnRefreshDatasetList(const QString& name, TMrvRefreshMode mode)
{
    IfOwner("TEvents.OnRefreshDatasetList - failed!",
        [&](auto& window) { window.RefreshDataSetList(this, name, mode, false); });
}

void TEvents::OnRefershChildObject(const InterfacePtr<IMrvDataSetAttr>& attr, const QString& name, int action)
{
    IfEnabled(deOnRefreshChildObject, "TEvents.OnRefershChildObject - failed!",
        [&](auto& window) { window.RefreshFields(this, attr, name, action); });
}

void TEvents::OnRefreshFieldDefs(const InterfacePtr<IMrvDataSetAttr>& attr)
{
    IfOwner("TEvents.OnRefreshFieldDefs - failed!", [&](auto& window) { window.RefreshFieldDefs(this, attr); });
}

void TEvents::OnFieldIndexModified(
    const InterfacePtr<IMrvDataSetAttr>& attr, const InterfacePtr<IMrvFieldAttr>& field, int oldIndex, int newIndex)
{
    IfOwner("TEvents.OnFieldIndexModified - failed!",
        [&](auto& window) { window.OnFieldIndexModified(this, attr, field, oldIndex, newIndex); });
}

void TEvents::OnProjectRenamed(const QString& newName)
{
    IfOwner("TEvents.OnProjectRenamed - failed!", [&](auto& window) { window.OnProjectRenamed(this, newName); });
}

void TEvents::RegisterForm(TForm* form)
{
    FOwner = form;
}

void TEvents::UnRegisterForm()
{
    FOwner = nullptr;
}

void TEvents::OnSessionChanged()
{
    IfOwner("TEvents.OnSessionChanged - failed!", [](auto& window) { window.OnSessionChanged(); });
}

void TEvents::OnFormRenamed(const QString& oldName, const QString& newName)
{
    IfOwner("TEvents.OnFormRenamed - failed!", [&](auto& window) { window.OnFormRenamed(oldName, newName); });
}

void TEvents::OnSessionRenamed(const QString& oldName, const QString& newName)
{
    IfOwner("TEvents.OnSessionRenamed - failed!", [&](auto& window) { window.OnSessionRenamed(oldName, newName); });
}

void TEvents::OnSelectionChanged()
{
    IfOwner("TEvents.OnSelectionChanged - failed!", [](auto& window) { window.OnSelectionChanged(); });
}

void TEvents::OnFormSelected(const QString& name)
{
    IfOwner("TEvents.OnFormSelected - failed!", [&](auto& window) { window.OnFormSelected(name); });
}

void TEvents::SendRefreshMessage(const QString&, TMrvRefreshMode)
{
    Post("TEvents.SendRefreshMessage - failed!", MrvRefreshMessage);
}

void TEvents::ShowMainForm()
{
    Post("TEvents.ShowMainForm - failed!", MrvShowFormMessage);
}

void TEvents::DisableEvents(TDisableEvent event)
{
    if (event < 8)
        FDisabledEvents |= quint8(1 << event);
}

void TEvents::EnableEvents(TDisableEvent event)
{
    if (event < 8)
        FDisabledEvents &= quint8(~(1 << event));
}

bool TEvents::IsEventEnabled(TDisableEvent event) const
{
    return event > 7 || !(FDisabledEvents & (1 << event));
}

void TEvents::BeginUpdate()
{
    IfOwner("TEvents.BeginUpdate - failed!", [](auto& window) { window.BeginUpdate(); });
}

void TEvents::EndUpdate(WordBool sort)
{
    IfOwner("TEvents.EndUpdate - failed!", [sort](auto& window) { window.EndUpdate(sort); });
}

void TEvents::BeginDelete()
{
    IfOwner("TEvents.BeginDelete - failed!", [](auto& window) { window.BeginDelete(); });
}

void TEvents::EndDelete()
{
    IfOwner("TEvents.EndDelete - failed!", [](auto& window) { window.EndDelete(); });
}
