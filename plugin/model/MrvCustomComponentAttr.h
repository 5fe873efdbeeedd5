#pragma once

#include "classes/TComponent.h"
#include "model/MrvInterfaces.h"
#include "rtl/TInterfacedObject.h"
#include "support/MrvBackRef.h"

#include <QVarLengthArray>

class IComponentEditor;
class IOTAComponent;
class TCustomComponentAttr;
class TDataSetList;
class TMrvObjectList;
class TSvcManager;

// A wrapper class as a value: what makes a wrapper of it.
using TCustomComponentAttrClass = InterfacePtr<TCustomComponentAttr> (*)(
    TCustomComponentAttr* owner, TClass classType, TSvcManager* svcManager, TDataSetList* dataSetList);

// The model's image of one design-time object.
//
// Designer objects die and come back while a form closes and opens, so the wrapper keeps names, finds the live object
// again on each use, and holds the last known one weakly. It lives as long as a list or somebody with an interface
// holds it; the back references to its list and its parents become nil where those go first. It also keeps the user's
// choice of control for a later drop.
class TCustomComponentAttr : public Implements<TInterfacedObject, IMrvCustomComponentAttr>, public TBackRefTarget {
public:
    // The owner is the parent wrapper (the dataset of a field) or nil. Made by Create.
    TCustomComponentAttr(TCustomComponentAttr* owner, TClass classType, TSvcManager* svcManager,
        TDataSetList* dataSetList, const char16_t* className = u"TCustomComponentAttr");
    ~TCustomComponentAttr() override;

    template <class Attr>
    static InterfacePtr<TCustomComponentAttr> Create(
        TCustomComponentAttr* owner, TClass classType, TSvcManager* svcManager, TDataSetList* dataSetList)
    {
        return New<Attr>(owner, classType, svcManager, dataSetList);
    }

    virtual void SetComponentName(const QString& name);
    virtual void SetComponent(TComponent* component);
    // The live object, looked up anew where the last known one no longer bears the wrapper's names: this opens the
    // module of a closed form. The last known one, or nil once it is gone, where nothing is found.
    virtual TComponent* GetComponent();
    virtual InterfacePtr<IOTAComponent> GetOTAComponent();
    // What the configuration gives as this wrapper's default control, or nil.
    virtual InterfacePtr<IMrvBindableControlInfo> GetDefaultMenuItem();
    // A new empty list; the caller's.
    virtual QList<TComponent*> GetControlList() { return {}; }
    virtual void SetCtrlCreationMode(TCtrlCreationMode mode) { FCtrlCreationMode = mode; }
    virtual QString GetComponentClassName();
    // Brings choice and mode in line with FCtrlMenuItems, which the overrides fill first. With `reset` the choice is
    // dropped for the default.
    virtual void EnumDBControlList(bool reset);
    virtual QString GetFormName() const { return FFormName; }
    virtual void SetFormName(const QString& name);
    virtual void GetCtrlMenu(const InterfacePtr<IMrvMenu>& menu);

    WordBool IntfInheritsFrom(const QString& className) override;
    void IntfComponentClassName(QString& name) override;
    void IntfComponentName(WordBool full, QString& name) override;
    void IntfFormName(QString& name) override;
    void IntfUnitName(QString& name) override;
    void IntfGetOwner(InterfacePtr<IMrvCustomComponentAttr>& owner) override;
    void IntfSelect(WordBool append) override;
    void IntfGetCtrlMenu(const InterfacePtr<IMrvMenu>& menu) override;
    void IntfGetCtrlIndex(int& index) override;
    void IntfGetCurrentCtrlClassName(QString& name) override;
    void IntfSetCtrlIndex(int index) override;
    void IntfSetCtrlCreationMode(TCtrlCreationMode mode) override;
    void IntfGetCtrlCreationMode(TCtrlCreationMode& mode) override;
    // Brings the target form to the front; 0. Every override does that first.
    int IntfCreateControl(
        const QString& targetName, const QString& formName, int x, int y, WordBool withLabel) override;
    WordBool IntfDotNetAcceptedDragAndDrop(QObject* window) override;
    int IntfDotNetCreateControl(QObject* window, int x, int y, WordBool withLabel) override;
    TControlType IntfGetControlType() override;
    void IntfGetMenu(const InterfacePtr<IMrvMenu>& menu) override;
    void IntfExecuteVerb(int verb, int subVerb) override;
    void IntfEdit() override;
    void IntfGetPersistent(TPersistent*& persistent) override;
    void GetGuid(int& guid) override { guid = FGuid; }
    WordBool GetSelected() override { return FSelected; }
    WordBool IsDeleted() override { return FDeleted; }
    WordBool IsInserted() override { return FIsInserted; }
    void SetIsInserted(WordBool value) override { FIsInserted = value; }

    QString ClassName() const { return QString::fromUtf16(FWrapperClass); }
    const QString& ComponentName() const { return FComponentName; }
    // The name that lists find the wrapper by.
    virtual const QString& LookupName() const { return FComponentName; }
    int Guid() const { return FGuid; }
    // Whether the component stands on its open form; opens nothing.
    bool IsValid();
    bool InheritsFrom(TClass aClass);
    InterfacePtr<IDesigner> GetComponentDesigner();
    InterfacePtr<IDesigner> GetDesigner() const;
    InterfacePtr<IComponentEditor> MrvGetComponentEditor();
    // EnumDBControlList without a reset; runs before every look at the choice.
    void NeedCtrlMenuItems() { EnumDBControlList(false); }
    // The same for a wrapper that nobody has asked for its choice yet; a mode that was set stays.
    void NeedChoice();
    // The chosen control as an item of the list; nil for none. A choice that the configuration no longer has falls back
    // to "None".
    void GetCurrentMenuItem(InterfacePtr<IMrvBindableControlInfo>& item);
    // Nil and false: what a personality that is not served would need.
    bool GetComponentFromWindowHandle(QObject* window, TComponent*& component);
    // The component of that name on that form, the form itself, or the root of the active form for neither.
    TComponent* GetTargetComponent(const QString& targetName, const QString& formName);

    // Nil once the list is gone.
    TDataSetList* DataSetList() const { return FDataSetList.get(); }
    TSvcManager* SvcManager() const { return FDataSetList ? FSvcManager : nullptr; }
    // The sink of the list; nil without one.
    InterfacePtr<IMrvEvents> Events() const;

    QString FComponentName;
    QString FFormName;
    // The key for finding the module.
    QString FUnitName;
    // Class of the component at creation.
    TClass FClassType;
    // Last known object. Changed through SetComponent and GetComponent, so that lists know.
    WeakRef<TComponent> FComponent;
    TSvcManager* FSvcManager;
    TBackRef<TDataSetList> FDataSetList;
    TBackRef<TCustomComponentAttr> FOwner;
    TCtrlCreationMode FCtrlCreationMode = ccmDataGridView;
    // The personality at creation.
    InterfacePtr<IMrvPersonalityUISettings> FPersonalityUISettions;
    // The controls that may be bound to the object, or nil. The personality's own list: let go, never cleared.
    InterfacePtr<IMrvBindableControlInfoList> FCtrlMenuItems;
    // A control class, "Details", "None", "TCustomZASQL" or "TZAScript".
    QString FCtrlClassName;
    // Position of the choice in FCtrlMenuItems, or DetailsCtrlIndex, or NoneCtrlIndex.
    int FCtrlIndex = 0;
    int FGuid = 0;
    // Position in the list that numbered it last.
    int FIndex = -1;
    bool FSelected = false;
    // Marked for removal.
    bool FDeleted = false;
    // Created by a live insertion and not yet looked at.
    bool FIsInserted = false;
    // The lists that hold it, once for each slot.
    QVarLengthArray<TMrvObjectList*, 2> FHolders;

protected:
    // Keeps the object as the last known one.
    void SetLastKnown(TComponent* component);

private:
    bool LastKnownIsCurrent() const;
    QString ListItemClassName(int index) const;
    int IndexOfChoice(const QString& className) const;

    const char16_t* FWrapperClass;
};
