#pragma once

#include "design/IDesigner.h"
#include "model/MrvInterfaces.h"
#include "rtl/TInterfacedObject.h"
#include "support/MrvBackRef.h"
#include "support/MrvObjectList.h"
#include "toolsapi/ToolsAPI.h"

#include <memory>

class TComponent;
class TComponentList;
class TConnectionAttr;
class TCustomZAConnection;
class TDataSet;
class TDataSetAttr;
class TDataSource;
class TDefferdDeleteDataSet;
class TDefferedDescendantFieldCallBack;
class TDefferedFieldCallback;
class TDefferedOnSessionChange;
class TField;
class TFieldAttr;
class TFieldDef;
class TFormAttr;
class TSvcManager;

// The registry of everything that the tool window shows: a wrapper for each dataset-like component, each connection and
// each form of the active project, kept in step with the form designer by the handlers below.
//
// It lives while a project is attached, held by the interop services. It owns the IDE tracker and the deferred
// callbacks. The wrappers live on where somebody else holds them; their way back to the list is cut then.
class TDataSetList : public Implements<TInterfacedObject, IMrvDataSetList>, public TBackRefTarget {
public:
    TDataSetList();
    ~TDataSetList() override;

    void IntfGetItem(int index, InterfacePtr<IMrvDataSetAttr>& item) override;
    int GetCount() override { return GetItemCount(); }
    // A sink serves one list: the list that had it before sends nothing more.
    void RegisterEvents(const InterfacePtr<IMrvEvents>& events) override;
    void BuildDataSetList(WordBool clearFirst) override;
    int SetActiveDesignerModified() override;
    void EnableEvents(TDsListDisabledEvent event) override { FDisabledEvents.Exclude(event); }
    void DisableEvents(TDsListDisabledEvent event) override { FDisabledEvents.Include(event); }
    void IntfRegisterProjectNotifier() override;
    int IntfGetMasterDataSet(
        const InterfacePtr<IMrvDataSetAttr>& detail, InterfacePtr<IMrvDataSetAttr>& master) override;
    void SelectFieldDefs(const InterfacePtr<IMrvFieldDefAttr>& fieldDef, WordBool append) override;
    void IntfDestroyObject() override;
    void IntfPreferencesWasChanged() override;
    void IntfGetClassTypeByName(const QString& className, TControlType& type) override;
    void IntfRegisterConfigurationService(const InterfacePtr<IMrvConfigurationService>& service) override;
    void IntfCreateSelectionList(InterfacePtr<IMrvSelectionList>& list) override;
    void IntfSetSelections(const InterfacePtr<IMrvSelectionList>& list) override;
    void GetActiveProjectName(QString& name) override;
    WordBool IsModuleFromProject(const QString& fileName) override;
    void GoDormant() override { FDormant = true; }
    void Resurrect() override;
    void CreateDefaultControl(const QString& targetName, const QString& dataSetName) override;
    int GetConnectionCount() override { return FConnectionItem.Count(); }
    void GetConnectionItem(int index, InterfacePtr<IMrvConnectionAttr>& item) override;

    void Clear();
    TDataSetAttr* GetItem(int index) const;
    int GetItemCount() const { return FItem.Count(); }
    TConnectionAttr* GetConnection(int index) const;

    // Lookups: the first that fits, else nil or -1; none of them looks a component up anew.
    TDataSetAttr* GetDataSetAttrByObj(const TComponent* component) const;
    TDataSetAttr* GetDataSetAttrByFieldDefObj(const TFieldDef* fieldDef) const;
    TConnectionAttr* GetConnectionAttrByObj(const TComponent* component) const;
    TFieldAttr* GetFieldAttrByObj(TComponent* field) const;
    // Gives the position of the field in the dataset's flat list too; -1 with nil.
    TDataSetAttr* FindDataSetByFieldObj(TComponent* field, int& index) const;
    // Without regard to case.
    TConnectionAttr* GetConnectionAttr(const QString& formName, const QString& componentName) const;
    TFormAttr* GetFormAttr(const QString& formName) const;
    TFormAttr* GetFormAttr(const TComponent* component) const;
    // With regard to case.
    int IndexOfName(const QString& formName, const QString& componentName) const;
    int IndexOfObject(const TComponent* component) const;
    TDataSetAttr* IndexOfIntf(const InterfacePtr<IMrvDataSetAttr>& intf) const;
    InterfacePtr<IMrvDataSetAttr> GetMasterDataSet(const InterfacePtr<IMrvDataSetAttr>& detail) const;
    // What the published property "MasterSource" holds; nil without one.
    static TDataSource* GetMasterSource(TComponent* component);
    // The wrapper of the same dataset on the form that the component's form inherits from, or nil.
    TDataSetAttr* FindDataSetAncestor(TComponent* component, const QString& name) const;

    // The same dataset on every form that inherits from its form, and on those that inherit from these.
    QList<InterfacePtr<TDataSetAttr>> DescendantsOf(const TDataSetAttr& attr) const;

    // A new wrapper; nil for nil.
    TFormAttr* CreateFormAttr(TComponent* component);
    TConnectionAttr* CreateConnectionAttr(TComponent* component);

    void GetDsListFromModule(const InterfacePtr<IOTAModule>& module, TComponentList& list);
    InterfacePtr<IOTAModule> OpenModule(const InterfacePtr<IOTAModuleInfo>& info);
    InterfacePtr<IOTAModule> OpenModule(const QString& fileName);
    bool IsEventEnabled(TDsListDisabledEvent event) const { return !FDisabledEvents.Contains(event); }
    // "name {owner}"; empty for nil, and where one of the two names is empty.
    static QString MakeSessionName(TCustomZAConnection* connection);
    static QString MakeSessionName(const QString& connectionName, const QString& ownerName);
    // Selects in the designer, unheard by the selection handler.
    void Select(TPersistent* persistent, bool append);
    // The data source of the dataset: on the dataset's own form, else on the designer's, else a new one.
    TDataSource* GetDataSource(
        const InterfacePtr<IDesigner>& designer, TDataSet* dataSet, TComponent* control, int x, int y);

    // Handlers of the IDE's notifications. Those that catch log and return; nothing is rolled back.
    void OnComponentRenamed(TObject* sender, TOTAHandle component, const QString& oldName, const QString& newName);
    void OnItemDeleted(TObject* sender, const InterfacePtr<IDesigner>& designer, TPersistent* item);
    void OnItemInserted(TObject* sender, const InterfacePtr<IDesigner>& designer, TPersistent* item);
    void OnItemModified(TObject* sender, const InterfacePtr<IDesigner>& designer);
    void OnSelectionChanged(TObject* sender, const InterfacePtr<IDesignerSelections>& selections);
    void OnModuleRenamed(TObject* sender, const QString& oldName, const QString& newName);
    void OnFileNotification(TObject* sender, TOTAFileNotification code, const QString& fileName, bool& cancel);
    void OnPackageInstalled(TObject* sender);
    void OnProjectClose(TObject* sender);

    // The new wrapper, or nil.
    InterfacePtr<IMrvCustomComponentAttr> DoComponentInserted(
        TObject* sender, TComponent* component, const QString& name, const QString& unitName);
    void DoComponentDelete(TObject* sender, TComponent* component);
    void DoComponentRename(TObject* sender, TComponent* component, const QString& oldName, const QString& newName);
    // The actions: 0 field added, 1 renamed, 2 deleted, 5 added on an inherited form.
    void DoRefreshChildObject(
        TObject* sender, TDataSetAttr* dataSet, TComponent* component, const QString& name, int action);
    void RefreshFieldAttr(TDataSet* dataSet, TDataSetAttr* attr, TRefreshMode mode);
    void UpdateFieldsInfo(TDataSetAttr* attr);
    void InternalUpdateFieldDefs(TDataSetAttr* attr, bool notify, bool force);
    void InternalOnItemModified(
        const InterfacePtr<IDesigner>& designer, const InterfacePtr<IDesignerSelections>& selections);
    // Tells the sink of the units with datasets that have another master than it knows of, but the one that it has just
    // drawn.
    void RefreshMasters(const QString& drawnUnit);
    // Notes the dataset's present master; whether it is another one.
    bool TakeMaster(TDataSetAttr& attr) const;
    // Mark for removal: all datasets of a unit, or one wrapper.
    void PrepareDelete(const QString& unitName);
    void PrepareDelete(TCustomComponentAttr* attr);
    // Removes the marked wrappers of datasets and connections.
    void DeleteItems();

    // Datasets, kept sorted by component address.
    TMrvObjectList FItem;
    // Forms and connections, in order of creation.
    TMrvObjectList FFormItem;
    TMrvObjectList FConnectionItem;
    std::unique_ptr<TSvcManager> FSvcManager;
    TDsListDisabledEvents FDisabledEvents;
    // The sink; nil until RegisterEvents.
    InterfacePtr<IMrvEvents> FEvents;
    // During the module loop of BuildDataSetList.
    bool FBuildInProgress = false;
    InterfacePtr<IMrvConfigurationService> FConfigurationService;
    // Wrappers now selected in the designer.
    TMrvObjectList FSelectionChache;
    // Between GoDormant and Resurrect.
    bool FDormant = false;
    std::unique_ptr<TDefferdDeleteDataSet> FDefferdDeleteDataSet;
    std::unique_ptr<TDefferedFieldCallback> FDefferedAddField;
    std::unique_ptr<TDefferedFieldCallback> FDefferedDeleteField;
    std::unique_ptr<TDefferedOnSessionChange> FDefferedOnSessionChange;
    std::unique_ptr<TDefferedDescendantFieldCallBack> FDefferedDescendantFieldCallBack;
    // A BeginUpdate that OnItemDeleted sent awaits its EndUpdate.
    bool FNeedEndUpdate = false;
    // A data source came, went or changed; looked after with the modification that follows.
    bool FMastersMayDiffer = false;

private:
    class TModifiedItems;
    bool _GetScanAll() const;
    InterfacePtr<IMrvPreferences> _GetPreferences() const;
    void WireHandlers();
    void BuildFromProject(const InterfacePtr<IOTAProject>& project, TComponentList& list);
    void BuildFromOpenModules(const InterfacePtr<IOTAProject>& project, TComponentList& list);
    void EndMultiDelete();
    void ForgetSelection();
    void GuardMultiDelete(const InterfacePtr<IDesigner>& designer);
    void TakeFieldDeletion(TObject* sender, TField* field);
    InterfacePtr<IMrvCustomComponentAttr> InsertDataSet(
        TComponent* component, const QString& name, const QString& unitName);
    InterfacePtr<IMrvCustomComponentAttr> InsertConnection(
        TComponent* component, const QString& name, const QString& unitName);
    void DeleteConnection(TComponent* component);
    void RenameConnection(TConnectionAttr& attr, TCustomZAConnection* connection);
    void LinkInherited();
    void RegroupUsersOf(const QSet<const TComponent*>& connections);
    void DeleteMarkedField(TDataSetAttr* dataSet, TField* field);
    void SelectOne(IMrvCustomComponentAttr& item, const InterfacePtr<IDesigner>& activeDesigner);
};
