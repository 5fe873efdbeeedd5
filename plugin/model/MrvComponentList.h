#pragma once

#include "model/MrvCustomComponentAttr.h"
#include "support/MrvObjectList.h"
#include "toolsapi/OTAModules.h"

// A scratch list that gathers the wrappers of one form at a time.
class TComponentList {
public:
    TComponentList(TSvcManager* svcManager, TDataSetList* dataSetList);

    void Clear() { FItem.Clear(); }
    // Makes a wrapper for each component that the form's root owns and whose class is one of these, in order. A dormant
    // form is resurrected for it.
    TMrvObjectList& BuildComponentList(const InterfacePtr<IOTAFormEditor>& formEditor, const QList<TClass>& classes);
    // Makes one.
    void StrProc(TComponent* component);
    // Adds the gathered wrappers that the target does not have by form and name; those that it has stay, with what the
    // tool window knows of them, and learn what is new.
    void AddOrReplace(TMrvObjectList& target);
    // Adds all of them.
    void AddToExisting(TMrvObjectList& target);

    TMrvObjectList FItem;
    TSvcManager* FSvcManager;
    TDataSetList* FDataSetList;
    // The form being read.
    InterfacePtr<IOTAFormEditor> FFormEditor;
    // The wrapper class that StrProc makes; must be set.
    TCustomComponentAttrClass FCustomComponentAttrClass = nullptr;

private:
    TComponent* RootComponent() const;
    void Keep(TCustomComponentAttr& old, TCustomComponentAttr& gathered);
    QString UnitName() const;
};
