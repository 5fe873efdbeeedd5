#pragma once

#include "ide/MrvToolWindowTarget.h"
#include "toolwindow/MrvImageList.h"
#include "toolwindow/MrvToolWindowUnit.h"
#include "toolwindow/MrvTreeView.h"
#include "ui/TDockableForm.h"
#include "ui/TPopupMenu.h"
#include "visual/TAction.h"

#include <QPointer>

#include <array>

class QStatusBar;
class QToolBar;
class QToolButton;

enum TGroupMode { gmNone, gmForm, gmSession };
enum TDsTreeDrawMode { dmLoad, dmRefresh };
enum TDataSetListState { drmShow, drmHide };

// Events of the window that can be muted; bit n of the set is the event with number n.
enum TMainFormEvent { deRefreshFields, deOnFieldIndexModified, deSelect };
using TMainFormEvents = quint8;

// Action codes of RefreshFields.
enum TFieldAction {
    FieldActionInsert = 0, // one field appeared, or a refresh with no field name
    FieldActionUpdate = 1, // one field changed
    FieldActionDelete = 2, // one field went away
    FieldActionDeferredAdd = 3, // end of a batch of added fields, which carry IsInserted
    FieldActionDeferredDelete = 4, // end of a batch of deleted fields
};

// The one dockable window of the plug-in: the project's forms, connections, datasets, fields and definitions as a tree,
// and the actions on them. There is at most one; it lives as long as the package and outlives the models it shows.
//
// It reaches the model only through IMrvDataSetList and the wrappers' interfaces, and hears of changes through the
// event sink. A change that the model will report is not made in the tree here. While hidden it sends the list to
// sleep.
//
// The sources: construction and life (MrvToolWindow.cpp), population (...Tree.cpp, ...Fields.cpp), what the sink tells
// (...Events.cpp), actions (...Actions.cpp, ...FieldActions.cpp), menus (...Menus.cpp).
class TMrvToolWindow : public TDockableForm, public TMrvToolWindowTarget {
    Q_OBJECT
public:
    TMrvToolWindow();
    ~TMrvToolWindow() override;

    static void CreateForm();
    static void ShowForm();
    static void RemoveForm();
    static void RegisterDockableForm();
    static void UnRegisterDockableForm();

    // Population.
    void DrawDataSetView(TDsTreeDrawMode mode);
    void CleanDataSetView();
    void AddRootNode();
    void AddItem(
        const InterfacePtr<IMrvDataSetAttr>& dataSet, TDsTreeDrawMode mode, QString& lastName, TTreeNode*& parent);
    TTreeNode* AddDataSetNode(TTreeNode* parent, const InterfacePtr<IMrvDataSetAttr>& dataSet, TDsTreeDrawMode mode);
    void AddFieldsAndFieldDefs(TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet, TDsTreeDrawMode mode);
    void AddDataSetFields(TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet, TDsTreeDrawMode mode);
    void AddDataSetFieldDefs(TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet);
    void AddFieldDefsNode(TTreeNode* fieldsNode, const InterfacePtr<IMrvFieldDefAttr>& fieldDef,
        const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& selectedName);
    void AddChildFieldDefs(const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& fieldName,
        TTreeNode* fieldsNode, const QString& selectedName);
    TTreeNode* CreateParentNode(
        const QString& caption, const QString& beforeName, TNodeDataType kind, const InterfacePtr<IInterface>& ref);
    int GetImageIndex(const InterfacePtr<IMrvCustomComponentAttr>& attr);
    void SetNodeImage(const InterfacePtr<IMrvCustomComponentAttr>& attr);
    bool IsShowFormName() const { return FGroupMode != gmForm; }
    void DoRefreshObjects(TTreeNode* node);

    // What the sink tells.
    void OnProjectOpened(IMrvEvents* sender) override;
    void OnProjectClosed() override;
    void ComponentDeleted(IMrvEvents* sender) override;
    void ComponentInserted(IMrvEvents* sender, const InterfacePtr<IMrvCustomComponentAttr>& attr) override;
    void ComponentRenamed(IMrvEvents* sender, const QString& oldName, const QString& newName,
        const InterfacePtr<IMrvDataSetAttr>& dataSet) override;
    void RefreshDataSetList(IMrvEvents* sender, const QString& formName, TMrvRefreshMode mode, bool reload) override;
    void RefreshFields(IMrvEvents* sender, const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& fieldName,
        int action) override;
    void RefreshFieldDefs(IMrvEvents* sender, const InterfacePtr<IMrvDataSetAttr>& dataSet) override;
    void RefreshFieldDefs(IMrvEvents* sender, int index);
    void OnFieldIndexModified(IMrvEvents* sender, const InterfacePtr<IMrvDataSetAttr>& dataSet,
        const InterfacePtr<IMrvFieldAttr>& field, int oldIndex, int newIndex) override;
    void OnProjectRenamed(IMrvEvents* sender, const QString& newName) override;
    void OnSessionChanged() override;
    void OnFormRenamed(const QString& oldName, const QString& newName) override;
    void OnSessionRenamed(const QString& oldName, const QString& newName) override;
    void OnSelectionChanged() override;
    void OnFormSelected(const QString& name) override;
    void BeginUpdate() override;
    void EndUpdate(WordBool sort) override;
    void BeginDelete() override { FNeedExpand = true; }
    void EndDelete() override { FNeedExpand = false; }
    void DisableEvents(TMainFormEvent event);
    void EnableEvents(TMainFormEvent event);
    // A value above 7 is always enabled.
    bool IsEventEnabled(TMainFormEvent event) const;

    // Actions.
    void InitGroupAction(TAction* sender, TGroupMode mode, bool save);
    void SetGroupMode(TGroupMode mode);
    void tbGroupingClick(QObject* sender);
    void SelectComponent();
    void AddStatusText(const QString& text);
    void CreateFieldComponent(InterfacePtr<IMrvFieldAttr>& field);
    void AddOrCreateField(std::intptr_t tag);
    void ShowPreferences();
    void ShowMorvane(const QString& formName, const QString& componentName);
    // What choosing that control in the selected node's menu does; false when the menu does not offer it.
    Q_INVOKABLE bool ChooseControl(const QString& className);
    void ChangeDataSetListState(TDataSetListState state);

    QToolBar* ToolBar = nullptr;
    QStatusBar* twStatusBar = nullptr;
    QToolButton* tbGrouping = nullptr;
    TImageList* ImageList = nullptr;
    TAction* acGroupByForm = nullptr;
    TAction* acGroupByConnection = nullptr;
    TAction* acGroupByNone = nullptr;
    TAction* acProperties = nullptr;
    TAction* acRefresh = nullptr;
    TAction* acCreateField = nullptr;
    TAction* acDeleteField = nullptr;
    TAction* acDataPreview = nullptr;
    TAction* acShowForm = nullptr;
    TAction* acScanAll = nullptr;
    TAction* acSeparator = nullptr;
    TAction* acNewField = nullptr;
    TAction* acAddAllField = nullptr;
    TAction* acSeparator1 = nullptr;
    TAction* acStayOnTop = nullptr;
    TAction* acHide = nullptr;
    TAction* acHelp = nullptr;
    TAction* acDockable = nullptr;
    TAction* acDescribeFields = nullptr;
    TPopupMenu* PopupMenuPrototype = nullptr;
    TPopupMenu* pmGrouping = nullptr;

    TMrvTreeView* FDataSetView = nullptr;
    TGroupMode FGroupMode = gmNone;
    TTreeNode* FRootNode = nullptr;
    TMainFormEvents FDisabledEvents = 0;
    QPointer<TPopupMenu> FItemMenu;
    QPointer<TPopupMenu> FMenu;
    TPopupMenu* FPopupMenu = nullptr;
    TMrvImageList* FImageList = nullptr;
    TTreeNode* FSelectedNode = nullptr;
    TPopupMenu* FGroupingPopupMenu = nullptr;
    bool FNeedSelectNode = false;
    bool FNeedExpand = false;

protected:
    void FormShow() override;
    void FormHide() override;
    void customEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct ActionRow;
    void MakeImages();
    void MakeActions();
    void MakeToolBar();
    void MakeMenus();
    void MakeTree();
    void FormCreate();
    void DoDock(bool floating);

    TTreeNode* NodeOfComponent(const QString& formName, const QString& componentName) const;
    TAction* GroupAction(TGroupMode mode) const;
    int GroupNodeImage() const;
    void AddConnections(const InterfacePtr<IMrvDataSetList>& list);
    QString GroupName(const InterfacePtr<IMrvDataSetAttr>& dataSet) const;
    TTreeNode* CreateGroup(const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& name);
    TTreeNode* OwnNode(const InterfacePtr<IMrvDataSetAttr>& dataSet) const;
    bool MoveToGroup(TTreeNode* node, TTreeNode* group);
    void AddMasterNode(TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet, TDsTreeDrawMode mode);
    void AddField(TTreeNode* fieldsNode, const InterfacePtr<IMrvFieldAttr>& field);
    void SetImages(TTreeNode* node, int image);
    void SetFieldDefImage(TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet);
    void DeleteFieldDefs(TTreeNode* fieldsNode);
    void DeleteFieldDefsNodes(TTreeNode* fieldsNode);
    void SyncFieldDefs(
        TTreeNode* fieldsNode, const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& selectedName);
    void InsertField(TTreeNode* fieldsNode, const InterfacePtr<IMrvFieldAttr>& field, TTreeNode** made);
    void AddModule(const QString& unitName);
    void RemoveModule(const QString& unitName);
    void RemoveDeletedDataSets();
    void RefreshNode(
        TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet, const QString& fieldName, int action);
    void ApplyFieldAction(TTreeNode* node, TTreeNode* fieldsNode, const InterfacePtr<IMrvDataSetAttr>& dataSet,
        const QString& fieldName, int action);
    void InsertAddedFields(TTreeNode* fieldsNode, const InterfacePtr<IMrvDataSetAttr>& dataSet);
    void DoRefreshFieldDefs(TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet,
        const InterfacePtr<IMrvFieldAttr>& field, int action);
    void InternalFieldIndexModified(IMrvEvents* sender, TTreeNode* node, const InterfacePtr<IMrvDataSetAttr>& dataSet,
        const InterfacePtr<IMrvFieldAttr>& field, int oldIndex, int newIndex);
    void RenameGroup(const QString& oldName, const QString& newName);
    void MoveToSession(const InterfacePtr<IMrvDataSetAttr>& dataSet, QList<TTreeNode*>& reselect);
    TTreeNode* ParentToDrop(TTreeNode* node) const;
    TTreeNode* DeleteWithEmptiedParent(TTreeNode* node);

    void OnTreeViewBeforeChange(TMrvTreeView* sender, TTreeNode* oldNode, TTreeNode* newNode);
    void OnTreeViewContextPopup(QPoint position, bool& handled);
    void OnTreeViewDblClick();
    void OnTreeViewActions(int charCode);
    bool OnDataSetViewAcceptDragging(TTreeNode* draggedItem, TTreeNode* currentItem);
    void OnDataSetViewItemButtonClick(TTreeNode* node);
    void OnItemMoved(TTreeNode* source, TTreeNode* dest);
    void MoveDataSet(TTreeNode* source, TTreeNode* dest);
    void MoveField(TTreeNode* source, TTreeNode* dest);
    void RecaptionFields(TTreeNode* fieldsNode);
    void acRefreshExecute();
    void acScanAllExecute();
    void acDataPreviewExecute();
    void acShowFormExecute();
    void acDeleteFieldExecute();
    void acDescribeFieldsExecute();
    void acCreateFieldExecute();
    void acHideExecute();
    void acHelpExecute();
    void acDockableExecute();
    void acStayOnTopExecute();
    TTreeNode* DeleteFieldAt(int absoluteIndex, TTreeNode*& dataSetNode);
    void ShowControlOf(const TTreeNode* node);
    void SelectNode(TTreeNode* node);

    void BuildPopupMenu(TPopupMenu* dest, TPopupMenu* source);
    TPopupMenu* BuildLocalMenu(const TNodeData* data);
    void MergeWithPrototype(TPopupMenu* menu);
    void OnExecuteLocalMenu(QObject* sender);
    void OnConnectionLocalMenu(QObject* sender);
    TPopupMenu* BuildCtrlPopupMenu(const InterfacePtr<IMrvCustomComponentAttr>& attr);
    void OnItemMenuClick(QObject* sender, const InterfacePtr<IMrvCustomComponentAttr>& attr);
    void HideFieldActions();
    bool ShowActionsFor(TTreeNode* node);
};

// The one window; nil while there is none.
extern TDockableForm* FormInstance;
