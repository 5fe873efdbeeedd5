#pragma once

#include "model/MrvCommonFieldAttr.h"
#include "model/MrvPreviewForm.h"
#include "support/MrvObjectList.h"

#include <QSet>

class TControl;
class TCustomZAConnection;
class TDataSet;
class TDSDesigner;
class TField;
class TFieldAttr;
class TFieldDef;
class TFieldDefs;
class TFieldDefsAttr;
class TFields;

using TDataSetAttrClass = TCustomComponentAttrClass;

// A definition's display name and its control index, kept while definitions are dropped and made again.
struct TFieldDefsCache {
    QString Name;
    int CtrlIndex;
};

// A TDataSet, TCustomZASQL or TZAScript. It mirrors the persistent fields and the field definitions of its dataset as
// wrappers, creates and deletes persistent fields through the IDE's dataset designer, follows inherited forms, and
// keeps the connection that it is grouped under.
class TDataSetAttr : public Implements<TCustomComponentAttr, IMrvDataSetAttr> {
public:
    TDataSetAttr(TCustomComponentAttr* owner, TClass classType, TSvcManager* svcManager, TDataSetList* dataSetList);
    ~TDataSetAttr() override;

    // Links the wrapper to that of the same dataset on the form that its form inherits from.
    void SetComponentName(const QString& name) override;
    // Brings the wrappers of form and connection into being.
    void SetComponent(TComponent* component) override;
    void EnumDBControlList(bool reset) override;
    void SetFormName(const QString& name) override;
    void IntfComponentName(WordBool full, QString& name) override;
    int IntfCreateControl(
        const QString& targetName, const QString& formName, int x, int y, WordBool withLabel) override;

    void IntfGetSessionName(QString& name) override;
    void IntfFieldByName(const QString& name, TSearchMode mode, InterfacePtr<IMrvFieldAttr>& field) override;
    void IntfFieldDefsByName(const QString& name, InterfacePtr<IMrvFieldDefAttr>& fieldDef) override;
    void IntfGetFieldByIndex(int fieldIndex, InterfacePtr<IMrvFieldAttr>& field) override;
    void IntfCreateFieldComponent(const QString& fieldName, InterfacePtr<IMrvFieldAttr>& field) override;
    WordBool AllowCreateField() override { return true; }
    int IntfDeleteFieldComponent(const QString& name) override;
    void IntfUpdateFieldDefs() override { UpdateFieldDefs(false); }
    void IntfGetField(int position, InterfacePtr<IMrvFieldAttr>& field) override;
    int IntfGetFieldCount() override { return GetFieldCount(); }
    void IntfGetFieldDef(int position, InterfacePtr<IMrvFieldDefAttr>& fieldDef) override;
    int IntfGetFieldDefCount() override { return GetFieldDefsCount(); }
    void IntfPreviewData() override;
    void IntfUpdateFields() override;
    void IntfShowForm() override;
    void IntfSelectParent(WordBool showForm) override;
    void IntfSelectConnection() override;
    void IntfExecuteConnectionVerb(int verb) override;
    void IntfGetConnectionMenu(const InterfacePtr<IMrvMenu>& menu) override;
    void IntfAddAllFields() override;
    void IntfCreateNewField() override;
    void IntfGetConnectionAttr(InterfacePtr<IMrvConnectionAttr>& connection) override;
    void IntfGetFormAttr(InterfacePtr<IMrvFormAttr>& form) override;
    void GetFieldDefByFieldName(const QString& name, InterfacePtr<IMrvFieldDefAttr>& fieldDef) override;
    void ForceUpdateFieldDefs() override;
    void SetConnection(const QString& formName, const QString& connectionName) override;
    WordBool IsSessionChanged() override { return FSessionChanged; }
    void SetSessionChanged(WordBool value) override { FSessionChanged = value; }

    // Nil for a component that is no dataset, and without one.
    TDataSet* GetDataSetComponent();
    void GetSessionName(QString& name);
    TDataSetAttr* GetDescendant() const { return FDescendant.get(); }

    // Fields. Positions are of the flat list.
    TFieldAttr* GetField(int position) const;
    int GetFieldCount() const { return FFieldsList.Count(); }
    TFieldAttr* InternalAddField(TCustomComponentAttr* owner, TField* field, const QString& name);
    TFieldAttr* AddField(TField* field, const QString& name);
    void AddFields(TFieldAttr* parent, TFields& fields, TDataSet* dataSet);
    void ClearFields();
    TFieldAttr* GetParentFieldAttr(TField* field);
    // A wrapper that is marked deleted compares as "Object was deleted!" in every mode.
    TFieldAttr* FieldByName(const QString& name, TSearchMode mode);
    TFieldAttr* FieldAttrByObject(TField* field);
    // Position of the entry whose index is the field's; -1.
    int FieldIndexByObject(TField* field);
    // By the field's own index. Raises EMorvaneException for an index below 0 or above the count.
    TFieldAttr* GetFieldByIndex(int index);
    // Replaces a top-level entry; the same range.
    void SetField(int index, TFieldAttr* field);
    TFieldAttr* GetFieldAttrByFieldName(const QString& fieldName);
    void DeleteField(TField* field);
    void DeleteField(int index);

    // Field definitions. Positions are of the list now shown.
    TFieldDefsAttr* GetFieldDefs(int position) const;
    int GetFieldDefsCount();
    TFieldDefsAttr* GetParentFieldDefAttr(TFieldDef* fieldDef);
    TFieldDefsAttr* GetFieldDefAttrByFieldName(const QString& fieldName);
    // By the text that the tree shows.
    TFieldDefsAttr* FieldDefsByName(const QString& displayName);
    // Mirrors the definitions that the dataset has now, without the database. True when something changed. `force` has
    // no effect.
    bool UpdateFieldDefs(bool force);
    // Drops the wrappers that lost their definition, and says so.
    void ValidateFieldDefs();
    void ClearFieldDefs();
    void SaveFieldDefsInfo();
    void RestoreFieldDefsInfo();

    // The wrapper of the new field, or nil. A failure is shown, or collected into `error`.
    InterfacePtr<IMrvFieldAttr> CreateFieldComponent(const QString& name, bool collectError, QString& error);
    // 0 when it is done, 1 when refused: a field of the parent form.
    int DeleteFieldComponent(TField* field);
    void SetIsMasterSourcePresent(bool value);
    // Remembers the connection that the component has.
    void TakeSession(TComponent* component);
    int InternalCreateControl(
        TComponent* target, const InterfacePtr<IDesigner>& designer, int x, int y, bool withLabel);

    // Top-level wrappers.
    TMrvObjectList FFields;
    // Every definition's wrapper that was made and not dropped by ValidateFieldDefs.
    TMrvObjectList FFieldDefs;
    // All field wrappers, child fields too.
    TMrvObjectList FFieldsList;
    // The definitions now shown.
    TMrvObjectList FFieldDefsList;
    // Name of the connection component.
    QString FSessionName;
    // The connection that the name is of: two forms may have one of a name.
    WeakRef<TComponent> FSessionConnection;
    // Made on demand.
    std::unique_ptr<TfmDataPreview> FDataPreview;
    bool FIsMasterSourcePresent = false;
    // The master that the sink knows of.
    TBackRef<TDataSetAttr> FMaster;
    // The same dataset on the inheriting form: the last that linked.
    TBackRef<TDataSetAttr> FDescendant;
    // The same dataset on every inheriting form that linked; some may be gone.
    QList<TBackRef<TDataSetAttr>> FDescendants;
    // The same dataset on the parent form.
    TBackRef<TDataSetAttr> FAncestor;
    // Saved values of SaveFieldDefsInfo.
    QList<TFieldDefsCache> FList;
    // Until the session name has been taken from the ancestor.
    bool FTryExtractAcnestorProp = true;
    // A deferred connection change is pending.
    bool FSessionChanged = false;

private:
    using TDefsVisit = QSet<const TCustomComponentAttr*>;
    bool AddFieldDefsAttr(const QString& prefix, TFieldDefs& defs);
    bool VisitFieldDef(const QString& name, TFieldDef* fieldDef, TDefsVisit& visited);
    void VisitArray(const QString& name, TFieldDef* array, TDefsVisit& visited, bool& changed);
    bool IsZADataSet();
    void InitFieldIndex(TFieldAttr* attr, TField* field);
    TCustomZAConnection* GetConnection();
    int CreateGrid(TComponent* target, const InterfacePtr<IDesigner>& designer, int x, int y);
    int CreateDetails(TComponent* target, const InterfacePtr<IDesigner>& designer, int x, int y, bool withLabel);
};
