#pragma once

#include "config/MrvCfgIntf.h"
#include "ide/MrvDeferredCallbacks.h"
#include "ide/MrvSvcManager.h"
#include "model/MrvClasses.h"
#include "rtl/TInterfacedObject.h"
#include "support/HostFixture.h"
#include "support/PrintQt.h"

// A sink that writes down what the model tells, one line each: "OnComponentInsert Data.Books". Lists are named by what
// they hold: a dataset by its full name, a field by its component's.
class EventRecorder : public Implements<TInterfacedObject, IMrvEvents> {
public:
    void OnProjectOpened() override { Note(u"OnProjectOpened"_qs); }
    void OnProjectClosed() override { Note(u"OnProjectClosed"_qs); }
    void OnComponentDelete() override { Note(u"OnComponentDelete"_qs); }
    void OnComponentInsert(const InterfacePtr<IMrvCustomComponentAttr>& attr) override;
    void OnComponentRename(
        const QString& oldName, const QString& newName, const InterfacePtr<IMrvDataSetAttr>& attr) override;
    void OnRefreshDatasetList(const QString& name, TMrvRefreshMode mode) override;
    void OnRefershChildObject(const InterfacePtr<IMrvDataSetAttr>& attr, const QString& name, int action) override;
    void OnRefreshFieldDefs(const InterfacePtr<IMrvDataSetAttr>& attr) override;
    void OnFieldIndexModified(const InterfacePtr<IMrvDataSetAttr>& attr, const InterfacePtr<IMrvFieldAttr>& field,
        int oldIndex, int newIndex) override;
    void OnProjectRenamed(const QString& newName) override { Note(u"OnProjectRenamed "_qs + newName); }
    void RegisterForm(TForm*) override { }
    void UnRegisterForm() override { }
    void OnSessionChanged() override { Note(u"OnSessionChanged"_qs); }
    void OnFormRenamed(const QString& oldName, const QString& newName) override;
    void OnSessionRenamed(const QString& oldName, const QString& newName) override;
    void OnSelectionChanged() override { Note(u"OnSelectionChanged"_qs); }
    void OnFormSelected(const QString&) override { }
    void SendRefreshMessage(const QString&, TMrvRefreshMode) override { }
    void ShowMainForm() override { }
    void DisableEvents(TDisableEvent event) override { Note(u"DisableEvents %1"_qs.arg(event)); }
    void EnableEvents(TDisableEvent event) override { Note(u"EnableEvents %1"_qs.arg(event)); }
    void BeginUpdate() override { Note(u"BeginUpdate"_qs); }
    void EndUpdate(WordBool sort) override { Note(u"EndUpdate "_qs + (sort ? u"True"_qs : u"False"_qs)); }
    void BeginDelete() override { Note(u"BeginDelete"_qs); }
    void EndDelete() override { Note(u"EndDelete"_qs); }

    // What was told since the last call, each line closed.
    std::string Take();
    std::function<void(const QString& line)> OnLine;

private:
    void Note(const QString& line);
    QStringList FLines;
};

// A menu that keeps what the model puts into it as text: "0 Edit Lines", sub-items indented.
class MenuText : public Implements<TInterfacedObject, IMrvMenu> {
public:
    void Clear() override { Lines.clear(); }
    void AddItem(const QString& caption, const QString& className, int index) override
    {
        Lines << u"%1 %2 %3"_qs.arg(index).arg(caption, className).trimmed();
    }
    void AddSubItem(const QString& caption, const QString&, int subIndex, int parentIndex) override
    {
        Lines << u"  %1.%2 %3"_qs.arg(parentIndex).arg(subIndex).arg(caption);
    }
    void InsertItem(int, const QString&, const QString&) override { }
    int Count() override { return int(Lines.size()); }
    int SubItemsCount(int) override { return 0; }
    void GetItem(int index, QString& caption) override { caption = Lines[index]; }
    void GetSubItem(int, int, QString&) override { }

    QStringList Lines;
};

// The model over a real host without a window. The configuration is one of the test's own: TDBGrid and TDBCtrlGrid for
// datasets, TDBEdit and TDBMemo for strings, TDBEdit for integers, "Details" and "None" behind those of datasets.
class ModelFixture : public HostFixture {
protected:
    ModelFixture();
    ~ModelFixture() override;

    // Makes the list for the active project, as an attach does.
    void Attach();
    // The usual shop: a data module with a connection, two queries and their fields, and an empty main form.
    void OpenShop();

    TDataSetAttr* DataSet(const QString& formDotName);
    TConnectionAttr* ConnectionOf(const QString& formDotName);
    TFieldAttr* Field(const QString& formDotName, const QString& field);
    void SetPreference(const QString& name, const QString& value);
    InterfacePtr<IMrvPersonalityUISettings> Personality();

    // The list as text, in name order: each dataset with its group, its fields and its definitions, each connection.
    std::string Text() { return TextOf(*List); }
    static std::string TextOf(TDataSetList& list);
    // A list that is built from nothing, as text.
    std::string FreshText();

    ScriptedProject Shop;
    InterfacePtr<TMrvConfigurationService> Service;
    InterfacePtr<EventRecorder> Events = New<EventRecorder>();
    InterfacePtr<TDataSetList> List;
};

// Registers plain data controls, once: TLabel, TDBEdit, TDBMemo, TDBGrid, TDBCtrlGrid; TUnbound, which binds to
// nothing; TViewGrid, which a TGridView binds; TBoundEdit, whose DataBinding binds.
void RegisterTestControls();
