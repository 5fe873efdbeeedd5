#pragma once

#include "model/MrvInterfaces.h"

// What the event sink calls on the tool window. The window implements it; the sink casts the registered form to it and
// so needs to know no window class.
class TMrvToolWindowTarget {
public:
    virtual void OnProjectOpened(IMrvEvents* sender) = 0;
    virtual void OnProjectClosed() = 0;
    virtual void ComponentDeleted(IMrvEvents* sender) = 0;
    virtual void ComponentInserted(IMrvEvents* sender, const InterfacePtr<IMrvCustomComponentAttr>& attr) = 0;
    virtual void ComponentRenamed(IMrvEvents* sender, const QString& oldName, const QString& newName,
        const InterfacePtr<IMrvDataSetAttr>& dataSet)
        = 0;
    virtual void RefreshDataSetList(IMrvEvents* sender, const QString& formName, TMrvRefreshMode mode, bool reload) = 0;
    virtual void RefreshFields(
        IMrvEvents* sender, const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& fieldName, int action)
        = 0;
    virtual void RefreshFieldDefs(IMrvEvents* sender, const InterfacePtr<IMrvDataSetAttr>& dataSet) = 0;
    virtual void OnFieldIndexModified(IMrvEvents* sender, const InterfacePtr<IMrvDataSetAttr>& dataSet,
        const InterfacePtr<IMrvFieldAttr>& field, int oldIndex, int newIndex)
        = 0;
    virtual void OnProjectRenamed(IMrvEvents* sender, const QString& newName) = 0;
    virtual void OnSessionChanged() = 0;
    virtual void OnFormRenamed(const QString& oldName, const QString& newName) = 0;
    virtual void OnSessionRenamed(const QString& oldName, const QString& newName) = 0;
    virtual void OnSelectionChanged() = 0;
    virtual void OnFormSelected(const QString& name) = 0;
    virtual void BeginUpdate() = 0;
    virtual void EndUpdate(WordBool sort) = 0;
    virtual void BeginDelete() = 0;
    virtual void EndDelete() = 0;

protected:
    ~TMrvToolWindowTarget() = default;
};
