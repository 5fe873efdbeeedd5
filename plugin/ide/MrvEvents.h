#pragma once

#include "ide/MrvToolWindowTarget.h"
#include "rtl/TInterfacedObject.h"

#include <functional>

// Window messages of the plug-in's own.
constexpr unsigned MrvRefreshMessage = 2025;
constexpr unsigned MrvShowFormMessage = 2027;

// The one door from the model to the user interface. The model may run with no window at all, and a failure in the
// window never travels back into the model or the IDE. One lives as long as the package, while models come and go.
class TEvents : public Implements<TInterfacedObject, IMrvEvents> {
public:
    void OnProjectOpened() override;
    void OnProjectClosed() override;
    void OnComponentDelete() override;
    void OnComponentInsert(const InterfacePtr<IMrvCustomComponentAttr>& attr) override;
    void OnComponentRename(
        const QString& oldName, const QString& newName, const InterfacePtr<IMrvDataSetAttr>& attr) override;
    void OnRefreshDatasetList(const QString& name, TMrvRefreshMode mode) override;
    void OnRefershChildObject(const InterfacePtr<IMrvDataSetAttr>& attr, const QString& name, int action) override;
    void OnRefreshFieldDefs(const InterfacePtr<IMrvDataSetAttr>& attr) override;
    void OnFieldIndexModified(const InterfacePtr<IMrvDataSetAttr>& attr, const InterfacePtr<IMrvFieldAttr>& field,
        int oldIndex, int newIndex) override;
    void OnProjectRenamed(const QString& newName) override;
    void RegisterForm(TForm* form) override;
    void UnRegisterForm() override;
    void OnSessionChanged() override;
    void OnFormRenamed(const QString& oldName, const QString& newName) override;
    void OnSessionRenamed(const QString& oldName, const QString& newName) override;
    void OnSelectionChanged() override;
    void OnFormSelected(const QString& name) override;
    void SendRefreshMessage(const QString& name, TMrvRefreshMode mode) override;
    void ShowMainForm() override;
    void DisableEvents(TDisableEvent event) override;
    void EnableEvents(TDisableEvent event) override;
    void BeginUpdate() override;
    void EndUpdate(WordBool sort) override;
    void BeginDelete() override;
    void EndDelete() override;

    // A value above 7 is always enabled.
    bool IsEventEnabled(TDisableEvent event) const;

    // The tool window; nil before RegisterForm and after UnRegisterForm.
    TForm* FOwner = nullptr;
    // One byte: bit n is the event with number n.
    quint8 FDisabledEvents = 0;

private:
    using Call = std::function<void(TMrvToolWindowTarget&)>;
    void IfOwner(const char* failureText, const Call& call);
    void IfEnabled(TDisableEvent event, const char* failureText, const Call& call);
    void Forward(const char* failureText, const Call& call);
    void Post(const char* failureText, unsigned message);
};
