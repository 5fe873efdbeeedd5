#pragma once

#include "model/MrvTypes.h"
#include "rtl/InterfacePtr.h"
#include "rtl/WordBool.h"

#include <QString>

class IDesigner;
class QImage;
class QObject;
class TForm;
class TPersistent;

class IMrvBindableControlInfo;
class IMrvBindableControlInfoList;
class IMrvCommonFieldAttr;
class IMrvConfigurationService;
class IMrvConnectionAttr;
class IMrvCustomComponentAttr;
class IMrvDataSetAttr;
class IMrvFieldAttr;
class IMrvFieldDefAttr;
class IMrvFormAttr;
class IMrvIDEControlItem;
class IMrvIDEControlList;
class IMrvMenu;
class IMrvPersonalityUISettings;
class IMrvPreferences;
class IMrvSelectionList;

// The interfaces through which the subsystems talk. The tool window sees the model as IMrvDataSetList and hands back
// IMrvEvents and nothing else; everybody reaches the configuration as IMrvConfigurationService.
//
// For all of them:
// - The identifier and the order of the operations are the contract. Every interface derives from IInterface; one
//   object answers to all interfaces of its class, and InterfaceCast goes from one to another.
// - An out argument is a reference. The callee sets an interface to nil, and a text to empty, when nothing was found;
//   "not found" never raises.
// - An operation that delivers by an out argument and returns an int returns a status, 0 unless told otherwise.
// - All calls are made on the main thread.

// How the model tells the user interface what changed. TEvents implements it, the model calls it.
class IMrvEvents : public IInterface {
public:
    static constexpr TGUID IID = Guid("{05F552FB-F90A-4CE2-81A4-80A4F3784A5A}");

    virtual void OnProjectOpened() = 0;
    // The project is gone and the tree must empty.
    virtual void OnProjectClosed() = 0;
    // Wrappers marked deleted are about to be removed.
    virtual void OnComponentDelete() = 0;
    // A dataset or connection wrapper was created.
    virtual void OnComponentInsert(const InterfacePtr<IMrvCustomComponentAttr>& attr) = 0;
    virtual void OnComponentRename(
        const QString& oldName, const QString& newName, const InterfacePtr<IMrvDataSetAttr>& attr)
        = 0;
    // Update the tree for the module of that name, or in full.
    virtual void OnRefreshDatasetList(const QString& name, TMrvRefreshMode mode) = 0;
    // A field-level change on a dataset; the action codes are the tool window's.
    virtual void OnRefershChildObject(const InterfacePtr<IMrvDataSetAttr>& attr, const QString& name, int action) = 0;
    virtual void OnRefreshFieldDefs(const InterfacePtr<IMrvDataSetAttr>& attr) = 0;
    // A field moved in its dataset.
    virtual void OnFieldIndexModified(
        const InterfacePtr<IMrvDataSetAttr>& attr, const InterfacePtr<IMrvFieldAttr>& field, int oldIndex, int newIndex)
        = 0;
    virtual void OnProjectRenamed(const QString& newName) = 0;
    // Hands the tool window to the sink, which borrows it until UnRegisterForm.
    virtual void RegisterForm(TForm* form) = 0;
    virtual void UnRegisterForm() = 0;
    // A dataset's connection changed; the tree regroups.
    virtual void OnSessionChanged() = 0;
    // A form or data module was renamed.
    virtual void OnFormRenamed(const QString& oldName, const QString& newName) = 0;
    // A connection group was renamed.
    virtual void OnSessionRenamed(const QString& oldName, const QString& newName) = 0;
    // The selection flags of the wrappers changed.
    virtual void OnSelectionChanged() = 0;
    // The designer made a form current.
    virtual void OnFormSelected(const QString& name) = 0;
    // OnRefreshDatasetList, posted: it runs later, from the message loop.
    virtual void SendRefreshMessage(const QString& name, TMrvRefreshMode mode) = 0;
    // Brings the tool window up, by a posted message.
    virtual void ShowMainForm() = 0;
    virtual void DisableEvents(TDisableEvent event) = 0;
    virtual void EnableEvents(TDisableEvent event) = 0;
    virtual void BeginUpdate() = 0;
    // True asks for a full repaint of what changed.
    virtual void EndUpdate(WordBool fullRepaint) = 0;
    // Brackets the removal of field wrappers.
    virtual void BeginDelete() = 0;
    virtual void EndDelete() = 0;
};

// A wrapper: the model's image of one design-time object. Every wrapper answers to it.
class IMrvCustomComponentAttr : public IInterface {
public:
    static constexpr TGUID IID = Guid("{DBBF71C3-B6EE-44F3-8427-8165F265FF94}");

    // Whether the wrapped component's class inherits from the class of that name; false for a name nobody knows.
    virtual WordBool IntfInheritsFrom(const QString& className) = 0;
    virtual void IntfComponentClassName(QString& name) = 0;
    // With `full`, qualified where the class says so.
    virtual void IntfComponentName(WordBool full, QString& name) = 0;
    virtual void IntfFormName(QString& name) = 0;
    // The file name of the unit.
    virtual void IntfUnitName(QString& name) = 0;
    // The wrapper of the owner in the tree, or nil.
    virtual void IntfGetOwner(InterfacePtr<IMrvCustomComponentAttr>& owner) = 0;
    // Selects the component in the designer, beside what is selected or instead of it.
    virtual void IntfSelect(WordBool append) = 0;
    // Fills the menu with the controls that can be bound.
    virtual void IntfGetCtrlMenu(const InterfacePtr<IMrvMenu>& menu) = 0;
    // The position of the current control in the menu's list, DetailsCtrlIndex or NoneCtrlIndex.
    virtual void IntfGetCtrlIndex(int& index) = 0;
    // The class name of the current control, "Details" or "None".
    virtual void IntfGetCurrentCtrlClassName(QString& name) = 0;
    virtual void IntfSetCtrlIndex(int index) = 0;
    virtual void IntfSetCtrlCreationMode(TCtrlCreationMode mode) = 0;
    virtual void IntfGetCtrlCreationMode(TCtrlCreationMode& mode) = 0;
    // Creates the bound control on the target at a place in designer pixels; gives the bottom position or the height.
    virtual int IntfCreateControl(const QString& targetName, const QString& formName, int x, int y, WordBool withLabel)
        = 0;
    // The road of a personality that is not served: false and 0 in every class.
    virtual WordBool IntfDotNetAcceptedDragAndDrop(QObject* window) = 0;
    virtual int IntfDotNetCreateControl(QObject* window, int x, int y, WordBool withLabel) = 0;
    virtual TControlType IntfGetControlType() = 0;
    // Fills the menu with the verbs of the component's editor.
    virtual void IntfGetMenu(const InterfacePtr<IMrvMenu>& menu) = 0;
    // Runs the sub-item of a verb.
    virtual void IntfExecuteVerb(int verb, int subVerb) = 0;
    // Runs the default action of the component's editor.
    virtual void IntfEdit() = 0;
    // The object to show in the object inspector; borrowed, may be nil.
    virtual void IntfGetPersistent(TPersistent*& persistent) = 0;
    // The wrapper's session-unique value: nodes of one wrapper are found by it and never by pointer.
    virtual void GetGuid(int& guid) = 0;
    // Selected in the designer.
    virtual WordBool GetSelected() = 0;
    // Marked deleted, waiting for removal.
    virtual WordBool IsDeleted() = 0;
    // Created by a live insertion.
    virtual WordBool IsInserted() = 0;
    virtual void SetIsInserted(WordBool value) = 0;
};

// A dataset. TDataSetAttr implements it.
class IMrvDataSetAttr : public IInterface {
public:
    static constexpr TGUID IID = Guid("{05372C3E-4623-479C-AC56-55E391A0D6DF}");

    // The display name of the dataset's connection group.
    virtual void IntfGetSessionName(QString& name) = 0;
    virtual void IntfFieldByName(const QString& name, TSearchMode mode, InterfacePtr<IMrvFieldAttr>& field) = 0;
    virtual void IntfFieldDefsByName(const QString& name, InterfacePtr<IMrvFieldDefAttr>& fieldDef) = 0;
    // By the field's own index.
    virtual void IntfGetFieldByIndex(int fieldIndex, InterfacePtr<IMrvFieldAttr>& field) = 0;
    // Creates a persistent field.
    virtual void IntfCreateFieldComponent(const QString& fieldName, InterfacePtr<IMrvFieldAttr>& field) = 0;
    // Always true.
    virtual WordBool AllowCreateField() = 0;
    // 0 when the field is deleted or was not there, 1 when that was refused.
    virtual int IntfDeleteFieldComponent(const QString& name) = 0;
    // Refreshes the wrappers of the field definitions.
    virtual void IntfUpdateFieldDefs() = 0;
    // By position in the flat list of all field wrappers, child fields included.
    virtual void IntfGetField(int position, InterfacePtr<IMrvFieldAttr>& field) = 0;
    virtual int IntfGetFieldCount() = 0;
    // By position in the flat list.
    virtual void IntfGetFieldDef(int position, InterfacePtr<IMrvFieldDefAttr>& fieldDef) = 0;
    virtual int IntfGetFieldDefCount() = 0;
    virtual void IntfPreviewData() = 0;
    // Rebuilds the field wrappers.
    virtual void IntfUpdateFields() = 0;
    // Brings the owner's editors up.
    virtual void IntfShowForm() = 0;
    // Selects the owner in the designer.
    virtual void IntfSelectParent(WordBool showForm) = 0;
    virtual void IntfSelectConnection() = 0;
    virtual void IntfExecuteConnectionVerb(int verb) = 0;
    virtual void IntfGetConnectionMenu(const InterfacePtr<IMrvMenu>& menu) = 0;
    // Creates persistent fields for all field definitions.
    virtual void IntfAddAllFields() = 0;
    // Opens the new-field dialog.
    virtual void IntfCreateNewField() = 0;
    // The connection's wrapper, created if missing.
    virtual void IntfGetConnectionAttr(InterfacePtr<IMrvConnectionAttr>& connection) = 0;
    // The form's wrapper, created if missing.
    virtual void IntfGetFormAttr(InterfacePtr<IMrvFormAttr>& form) = 0;
    // By exact stored name.
    virtual void GetFieldDefByFieldName(const QString& name, InterfacePtr<IMrvFieldDefAttr>& fieldDef) = 0;
    // Updates the definitions from the database and refreshes their wrappers.
    virtual void ForceUpdateFieldDefs() = 0;
    virtual void SetConnection(const QString& formName, const QString& connectionName) = 0;
    virtual WordBool IsSessionChanged() = 0;
    virtual void SetSessionChanged(WordBool value) = 0;
};

// What a field and a field definition have in common. TCommonFieldAttr implements it.
class IMrvCommonFieldAttr : public IInterface {
public:
    static constexpr TGUID IID = Guid("{9A2839E0-9074-4C83-BC52-AF8F078F4592}");

    virtual TFieldType GetFieldType() = 0;
    virtual WordBool HasChild() = 0;
    // Whether there is a parent, and the parent (nil without one).
    virtual WordBool HasParent(InterfacePtr<IMrvCommonFieldAttr>& parent) = 0;
    virtual int GetChildCount() = 0;
    virtual void GetChild(int index, InterfacePtr<IMrvCommonFieldAttr>& child) = 0;
    virtual void GetDataSet(InterfacePtr<IMrvDataSetAttr>& dataSet) = 0;
    // The field number, or -1 without a component.
    virtual int FieldNo() = 0;
};

// A persistent field. TFieldAttr implements it.
class IMrvFieldAttr : public IInterface {
public:
    static constexpr TGUID IID = Guid("{DDF54C59-DB9E-4E1C-B439-1B574A56D66F}");

    virtual int IntfGetDisplayName(QString& name) = 0;
    virtual int IntfGetFieldIndex() = 0;
    // The name of the database field.
    virtual void IntfGetFieldName(QString& name) = 0;
    // Moves the field.
    virtual int IntfSetFieldIndex(int index) = 0;
};

// A field definition. TFieldDefsAttr implements it.
class IMrvFieldDefAttr : public IInterface {
public:
    static constexpr TGUID IID = Guid("{46C9D4CC-D800-4D4E-B6CD-989BF20AABDB}");

    // The path name, with the type behind it unless `plain`.
    virtual void GetDisplayName(QString& name, WordBool plain) = 0;
    virtual void SetDisplayName(const QString& name) = 0;
    virtual TFieldType GetFieldType() = 0;
    virtual void GetPrecision(int& precision) = 0;
    virtual void GetSize(int& size) = 0;
    virtual int GetFieldNo() = 0;
    // Always nil.
    virtual void IntfGetFormDesigner(InterfacePtr<IDesigner>& designer) = 0;
    // The TFieldPrototype, filled with the definition's values; borrowed.
    virtual void GetFieldDefsProxy(TPersistent*& proxy) = 0;
    // True when the dataset has no field wrappers.
    virtual WordBool EnableCreateControl() = 0;
};

// Says of a wrapper that it is a form's or data module's; it has no operations of its own. TFormAttr implements it.
class IMrvFormAttr : public IInterface {
public:
    static constexpr TGUID IID = Guid("{A3771107-ECB4-448E-853C-85F8026B09EF}");
};

// A connection. TConnectionAttr implements it.
class IMrvConnectionAttr : public IInterface {
public:
    static constexpr TGUID IID = Guid("{22F27F55-B982-4C67-AEA4-BCC117264CAF}");

    // The group name of the connection, in the form of MakeSessionName.
    virtual void GetSessionName(QString& name) = 0;
};

// The model of the active project. TDataSetList implements it; the tool window and the IDE integration call it.
class IMrvDataSetList : public IInterface {
public:
    static constexpr TGUID IID = Guid("{B2619360-C353-4A73-AD30-FC81315C344C}");

    virtual void IntfGetItem(int index, InterfacePtr<IMrvDataSetAttr>& item) = 0;
    virtual int GetCount() = 0;
    // Attaches the event sink.
    virtual void RegisterEvents(const InterfacePtr<IMrvEvents>& events) = 0;
    virtual void BuildDataSetList(WordBool clearFirst) = 0;
    virtual int SetActiveDesignerModified() = 0;
    // Clears or sets the bit of a handler; a number above 31 changes nothing.
    virtual void EnableEvents(TDsListDisabledEvent event) = 0;
    virtual void DisableEvents(TDsListDisabledEvent event) = 0;
    virtual void IntfRegisterProjectNotifier() = 0;
    virtual int IntfGetMasterDataSet(const InterfacePtr<IMrvDataSetAttr>& detail, InterfacePtr<IMrvDataSetAttr>& master)
        = 0;
    // Selects the definition's prototype.
    virtual void SelectFieldDefs(const InterfacePtr<IMrvFieldDefAttr>& fieldDef, WordBool append) = 0;
    // Frees the list.
    virtual void IntfDestroyObject() = 0;
    // Recomputes the control lists of all wrappers.
    virtual void IntfPreferencesWasChanged() = 0;
    // Classifies a class by its ancestors.
    virtual void IntfGetClassTypeByName(const QString& className, TControlType& type) = 0;
    virtual void IntfRegisterConfigurationService(const InterfacePtr<IMrvConfigurationService>& service) = 0;
    // A new empty list.
    virtual void IntfCreateSelectionList(InterfacePtr<IMrvSelectionList>& list) = 0;
    // Selects the listed wrappers in the designer.
    virtual void IntfSetSelections(const InterfacePtr<IMrvSelectionList>& list) = 0;
    virtual void GetActiveProjectName(QString& name) = 0;
    virtual WordBool IsModuleFromProject(const QString& fileName) = 0;
    // Stops all reaction to the IDE.
    virtual void GoDormant() = 0;
    // Wakes the list and rebuilds it.
    virtual void Resurrect() = 0;
    virtual void CreateDefaultControl(const QString& targetName, const QString& dataSetName) = 0;
    virtual int GetConnectionCount() = 0;
    virtual void GetConnectionItem(int index, InterfacePtr<IMrvConnectionAttr>& item) = 0;
};

// Wrappers to select together. TMrvSelectionList implements it.
class IMrvSelectionList : public IInterface {
public:
    static constexpr TGUID IID = Guid("{53907A1B-85B8-4B12-BA9E-80E135C8B621}");

    virtual void GetItem(int index, InterfacePtr<IMrvCustomComponentAttr>& item) = 0;
    virtual void Add(const InterfacePtr<IMrvCustomComponentAttr>& item) = 0;
    virtual int Count() = 0;
    virtual void Clear() = 0;
};

// A two-level list of captions, class names and tags, which the model fills without knowing any menu class. The tool
// window's TMenuItemList implements it.
class IMrvMenu : public IInterface {
public:
    static constexpr TGUID IID = Guid("{2010B1C4-4BC0-4995-BA7A-27C000E2CA61}");

    virtual void Clear() = 0;
    virtual void AddItem(const QString& caption, const QString& className, int index) = 0;
    virtual void AddSubItem(const QString& caption, const QString& className, int subIndex, int parentIndex) = 0;
    virtual void InsertItem(int position, const QString& caption, const QString& className) = 0;
    virtual int Count() = 0;
    virtual int SubItemsCount(int index) = 0;
    virtual void GetItem(int index, QString& caption) = 0;
    virtual void GetSubItem(int index, int subIndex, QString& caption) = 0;
};

// A data-bound control that the IDE has installed.
class IMrvIDEControlItem : public IInterface {
public:
    static constexpr TGUID IID = Guid("{E5EFF654-522E-4172-BC97-886F17B28516}");

    virtual QImage GetImage() = 0;
    virtual void GetControlName(QString& name) = 0;
    virtual void GetPackageName(QString& name) = 0;
};

// The data-bound controls that the IDE has installed. TIDEControlList implements it.
class IMrvIDEControlList : public IInterface {
public:
    static constexpr TGUID IID = Guid("{E7477215-9624-4CDE-BE1F-10B1201C0D40}");

    virtual void Load() = 0;
    virtual void Clear() = 0;
    // A null image when there is none.
    virtual QImage GetImageByClassName(const QString& className, TControlType type) = 0;
    virtual void GetFieldCtrl(int index, InterfacePtr<IMrvIDEControlItem>& item) = 0;
    virtual int GetFieldCtrlCount() = 0;
    virtual void GetDataSetCtrl(int index, InterfacePtr<IMrvIDEControlItem>& item) = 0;
    virtual int GetDataSetCtrlCount() = 0;
    virtual WordBool IsLoaded() = 0;
    // Of every image, in pixels.
    virtual int ImageHeight() = 0;
    virtual int ImageWidth() = 0;
    virtual WordBool IsVisualControl(const QString& className) = 0;
};

// What exists per project: the model and the installed controls, with the configuration that both are given.
class IMrvInteropServices : public IInterface {
public:
    static constexpr TGUID IID = Guid("{9D29FEB2-BE9D-4112-ABA1-F5F831E6F2C9}");

    // Nil before CreateObjects.
    virtual void GetDataSetList(InterfacePtr<IMrvDataSetList>& list) = 0;
    virtual void GetIDECtrlList(InterfacePtr<IMrvIDEControlList>& list) = 0;
    virtual void GetConfigurationService(InterfacePtr<IMrvConfigurationService>& service) = 0;
    virtual void RegisterConfigurationService(const InterfacePtr<IMrvConfigurationService>& service) = 0;
    // Comes after RegisterConfigurationService.
    virtual void CreateObjects() = 0;
};

// One control class that is offered: what the user sees and what gets created. TBindableControlInfo implements it.
class IMrvBindableControlInfo : public IInterface {
public:
    static constexpr TGUID IID = Guid("{2D08AF96-C32F-41DB-B942-1DF121E12F69}");

    virtual void GetClassName(QString& className) = 0;
    virtual void GetCaption(QString& caption) = 0;
    virtual void SetClassName(const QString& className) = 0;
    virtual void SetCaption(const QString& caption) = 0;
    // Copies caption and class name.
    virtual void Assign(const InterfacePtr<IMrvBindableControlInfo>& source) = 0;
};

// The ordered control classes of one dataset section or field group: the default first, "Details" and "None" last.
// TBindableControlInfoList implements it. A personality hands out its own list: whoever changes it changes the
// configuration, and whoever is done with it lets go of the reference and does not clear it.
class IMrvBindableControlInfoList : public IInterface {
public:
    static constexpr TGUID IID = Guid("{E486592A-4CEC-4DC4-8283-995AEF3B4802}");

    // An index out of range raises EListError.
    virtual void GetItem(int index, InterfacePtr<IMrvBindableControlInfo>& item) = 0;
    // Nil for an empty list without a default. The first look fixes item 0 as the default of a list that has none.
    virtual void GetDefaultItem(InterfacePtr<IMrvBindableControlInfo>& item) = 0;
    // The item must not be nil.
    virtual void SetDefaultItem(const InterfacePtr<IMrvBindableControlInfo>& item) = 0;
    // Takes the items of the source, shared and not copied, and its default.
    virtual void Assign(const InterfacePtr<IMrvBindableControlInfoList>& source) = 0;
    // By the item's class name, with regard to case; -1 when there is none.
    virtual int IndexOf(const InterfacePtr<IMrvBindableControlInfo>& item) = 0;
    // Without regard to case.
    virtual int IndexOf(const QString& className) = 0;
    virtual int GetCount() = 0;
    // Where the item landed: before the pseudo-controls when there are any.
    virtual int Add(const InterfacePtr<IMrvBindableControlInfo>& item) = 0;
    virtual void Delete(int index) = 0;
    virtual void Delete(const QString& className) = 0;
    virtual void Clear() = 0;
    // Without regard to case; nil when there is none.
    virtual void ItemByClassName(const QString& className, InterfacePtr<IMrvBindableControlInfo>& item) = 0;
};

// A flat store of texts by name. TMrvPreferences implements it. Names are found without regard to case.
class IMrvPreferences : public IInterface {
public:
    static constexpr TGUID IID = Guid("{25528AAD-BDA0-4478-B4A5-0BCAE6FD31B8}");

    // Empty for an absent name. Never fails.
    virtual void GetValueByName(const QString& name, QString& value) = 0;
    // An empty value removes the entry. Marks the store modified, also when nothing changed.
    virtual void SetValueByName(const QString& name, const QString& value) = 0;
    virtual WordBool Modified() = 0;
    // From the file; raises what opening it or its XML raises.
    virtual void Load() = 0;
    // From the package's default; leaves the store modified.
    virtual void LoadDefault() = 0;
    // The writer is an XmlTextWriter; anything else raises EInvalidCast.
    virtual void InternalSave(QObject* writer) = 0;
    virtual void Clear() = 0;
};

// Which control classes can be bound to a dataset and to each kind of field, for one personality. TMrvPersonality
// implements it. `group` is an index of the field groups; one out of range raises EListError.
class IMrvPersonalityUISettings : public IInterface {
public:
    static constexpr TGUID IID = Guid("{2D6613F5-7E43-4CFB-A9DB-CEE280A24460}");

    virtual void GetDefaultBindClassName(
        const InterfacePtr<IMrvCustomComponentAttr>& attr, InterfacePtr<IMrvBindableControlInfo>& item)
        = 0;
    // The personality's own list; nil for a field whose type has no group.
    virtual void EnumBindClassList(
        const InterfacePtr<IMrvCustomComponentAttr>& attr, InterfacePtr<IMrvBindableControlInfoList>& list)
        = 0;
    virtual int GetDataSetCtrlCount() = 0;
    // 0 when the field's type has no group.
    virtual int GetFieldCtrlCount(const InterfacePtr<IMrvFieldAttr>& attr) = 0;
    virtual int FieldGroupCount() = 0;
    virtual void GetFieldGroup(int group, QString& name) = 0;
    virtual void GetDataSetBindCtrlInfoList(InterfacePtr<IMrvBindableControlInfoList>& list) = 0;
    virtual void GetFieldBindCtrlInfoList(InterfacePtr<IMrvBindableControlInfoList>& list, int group) = 0;
    // The operations from here to SetDefaultFieldInfo mark the personality modified.
    virtual void DeleteDataSetInfo(const QString& className) = 0;
    virtual void DeleteFieldInfo(int group, const QString& className) = 0;
    virtual void AddDataSetInfo(const QString& caption, const QString& className) = 0;
    virtual void AddFieldInfo(int group, const QString& caption, const QString& className) = 0;
    // The class must be listed.
    virtual void SetDefaultDataSetInfo(const QString& className) = 0;
    virtual void SetDefaultFieldInfo(int group, const QString& className) = 0;
    virtual WordBool Modified() = 0;
    virtual void Load() = 0;
    // From the package's default; leaves the personality modified.
    virtual void LoadDefault() = 0;
    // Without regard to case. Raises EAssertionFailed for a name that is no group.
    virtual int GetFieldGroupIndex(const QString& name) = 0;
    // The writer is an XmlTextWriter; anything else raises EInvalidCast.
    virtual void InternalSave(QObject* writer) = 0;
    virtual void Clear() = 0;
};

// The root of the configuration. TMrvConfigurationService implements it; MrvConfigurationService holds the one of the
// process.
class IMrvConfigurationService : public IInterface {
public:
    static constexpr TGUID IID = Guid("{B45E38A3-44FC-4514-80A1-82C912510BD6}");

    virtual void GetPreferences(InterfacePtr<IMrvPreferences>& preferences) = 0;
    virtual void GetCurrentPersonality(InterfacePtr<IMrvPersonalityUISettings>& personality) = 0;
    // Reads the file anew. Raises what opening it or its XML raises.
    virtual void Load() = 0;
    // Resets the current personality and the preferences to the package's default.
    virtual void LoadDefault() = 0;
    // Writes the file, all personalities. Raises when it cannot be written.
    virtual void Save() = 0;
    // Whether the current personality or the preferences changed.
    virtual WordBool Modified() = 0;
    // Stores the low byte, whatever it is.
    virtual void SetAcitvePersonality(int value) = 0;
    virtual TPersonality GetActivePersonality() = 0;
};

// A designer's menu item that can be clicked from a menu of ours. TDesignerMenuItem implements it.
class IMrvMenuItem2 : public IInterface {
public:
    static constexpr TGUID IID = Guid("{F158180E-1723-41CB-8DA7-387E481B0679}");

    // Runs the item's action; nothing without one.
    virtual void ClickItem() = 0;
};
