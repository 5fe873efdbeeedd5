#pragma once

#include "model/MrvInterfaces.h"

// What the window's sources ask of the rest of the plug-in.
namespace MrvToolWindow {

// The model's list; nil while no project is attached.
InterfacePtr<IMrvDataSetList> GetDataSetList();
InterfacePtr<IMrvIDEControlList> GetIDECtrlList();
InterfacePtr<IMrvPreferences> GetPreferences();

// Mutes one handler of the list while it lives; a nil list is fine.
class EventsOff {
public:
    EventsOff(const InterfacePtr<IMrvDataSetList>& list, TDsListDisabledEvent event)
        : FList(list)
        , FEvent(event)
    {
        if (FList)
            FList->DisableEvents(FEvent);
    }
    EventsOff(const EventsOff&) = delete;
    EventsOff& operator=(const EventsOff&) = delete;
    ~EventsOff()
    {
        if (FList)
            FList->EnableEvents(FEvent);
    }

private:
    InterfacePtr<IMrvDataSetList> FList;
    TDsListDisabledEvent FEvent;
};

// Holds the tree's drawing while it lives.
template <class Nodes>
class UpdateScope {
public:
    explicit UpdateScope(Nodes& nodes)
        : FNodes(nodes)
    {
        FNodes.BeginUpdate();
    }
    UpdateScope(const UpdateScope&) = delete;
    UpdateScope& operator=(const UpdateScope&) = delete;
    ~UpdateScope() { FNodes.EndUpdate(); }

private:
    Nodes& FNodes;
};

// The texts that wrappers deliver through out arguments.
QString FormName(const InterfacePtr<IMrvCustomComponentAttr>& attr);
QString UnitName(const InterfacePtr<IMrvCustomComponentAttr>& attr);
QString ComponentName(const InterfacePtr<IMrvCustomComponentAttr>& attr, bool full);
QString SessionName(const InterfacePtr<IMrvDataSetAttr>& dataSet);
QString DisplayName(const InterfacePtr<IMrvFieldAttr>& field);
QString DisplayName(const InterfacePtr<IMrvFieldDefAttr>& fieldDef, bool plain);

InterfacePtr<IMrvCustomComponentAttr> Component(const InterfacePtr<IMrvDataSetAttr>& dataSet);
bool IsDataSetClass(const InterfacePtr<IMrvCustomComponentAttr>& attr);
// Whether the name is one of the two groups that stand for no connection.
bool IsPlainGroup(const QString& name);

}
