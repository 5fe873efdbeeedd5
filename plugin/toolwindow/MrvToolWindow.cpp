#include "toolwindow/MrvToolWindow.h"

#include "ide/MrvEvents.h"
#include "ide/MrvServicesProxy.h"
#include "model/MrvPreviewForm.h"
#include "rtl/Guard.h"
#include "rtl/Messages.h"
#include "rtl/TResourceStream.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"
#include "toolwindow/MrvToolWindowIntf.h"
#include "visual/TIcon.h"

#include <QContextMenuEvent>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

using namespace MrvToolWindow;

TDockableForm* FormInstance = nullptr;
bool ShowOnStart = false;

void MrvToolWindow::Initialization()
{
    FormInstance = nullptr;
    ShowOnStart = false;
}

void MrvToolWindow::CreateForm()
{
    TMrvToolWindow::CreateForm();
}

void MrvToolWindow::ShowForm()
{
    TMrvToolWindow::ShowForm();
}

void MrvToolWindow::RemoveForm()
{
    TMrvToolWindow::RemoveForm();
}

void MrvToolWindow::ShowMorvane(const QString& formName, const QString& componentName)
{
    if (!GetDataSetList())
        return;
    CreateForm();
    static_cast<TMrvToolWindow*>(FormInstance)->ShowMorvane(formName, componentName);
}

void MrvToolWindow::CreateDefaultControl(const QString& formName, const QString& componentName)
{
    if (const auto list = GetDataSetList())
        list->CreateDefaultControl(formName, componentName);
}

void TMrvToolWindow::CreateForm()
{
    if (FormInstance)
        return;
    FormInstance = new TMrvToolWindow;
    RegisterDockableForm();
}

void TMrvToolWindow::ShowForm()
{
    CreateForm();
    if (FormInstance->Floating()) {
        FormInstance->show();
        return;
    }
    FormInstance->ForceShow();
    Deskutil::FocusWindow(FormInstance);
}

void TMrvToolWindow::RemoveForm()
{
    UnRegisterDockableForm();
    delete FormInstance;
    FormInstance = nullptr;
}

void TMrvToolWindow::RegisterDockableForm()
{
    Deskutil::RegisterFieldAddress(FormInstance->Name(), &FormInstance);
    Deskutil::RegisterDesktopFormClass(FormInstance->Name(), FormInstance->Name());
}

void TMrvToolWindow::UnRegisterDockableForm()
{
    if (FormInstance)
        Deskutil::UnregisterFieldAddress(&FormInstance);
}

TMrvToolWindow::TMrvToolWindow()
{
    TForm::SetName(QStringLiteral("MrvToolWindow"));
    setObjectName(TForm::Name());
    setWindowTitle(QStringLiteral("Morvane"));
    resize(334, 515);
    TIcon icon;
    TMrvUtils::SetIcon(icon);
    setWindowIcon(QPixmap::fromImage(icon.ToImage()));
    AutoSave = true;
    DeskSection = TForm::Name();
    SaveStateNecessary = true;
    MrvApiProxy->RegisterForm(this);
    MakeImages();
    MakeActions();
    if (MrvApiProxy->GetIsProjectOpened())
        acProperties->SetEnabled(true);
    MakeTree();
    MakeToolBar();
    MakeMenus();
    FormCreate();
    connect(this, &QDockWidget::topLevelChanged, this, &TMrvToolWindow::DoDock);
}

TMrvToolWindow::~TMrvToolWindow()
{
    if (MrvApiProxy)
        MrvApiProxy->UnRegisterForm();
    delete FMenu;
    delete FItemMenu;
    delete FDataSetView;
    FormInstance = nullptr;
}

void TMrvToolWindow::MakeImages()
{
    ImageList = new TImageList(16, 16, this);
    for (int i = 0; i < 15; ++i) {
        TBitmap bitmap;
        bitmap.LoadFromResourceName(
            QStringLiteral(":/package/%1").arg(int(RT_BITMAP)), QStringLiteral("toolwindow%1").arg(i));
        ImageList->Add(bitmap);
    }
    FImageList = new TMrvImageList(this);
    FImageList->Assign(*ImageList);
    FImageList->SetDrawingStyle(dsTransparent);
}

struct TMrvToolWindow::ActionRow {
    TAction* TMrvToolWindow::*Field;
    const char* Name;
    const char* Caption;
    const char* Hint;
    int Image;
    void (TMrvToolWindow::*Execute)();
};

void TMrvToolWindow::MakeActions()
{
    using W = TMrvToolWindow;
    static const ActionRow rows[] = {
        { &W::acGroupByForm, "acGroupByForm", "Group DataSets by Form", "Group DataSets by form", 10, nullptr },
        { &W::acGroupByConnection, "acGroupByConnection", "Group DataSets by Connection",
            "Group DataSets by connection", 11, nullptr },
        { &W::acGroupByNone, "acGroupByNone", "No grouping", "No grouping", 12, nullptr },
        { &W::acProperties, "acProperties", "Options", "Options", 7, &W::ShowPreferences },
        { &W::acRefresh, "acRefresh", "Refresh", "Refresh", 2, &W::acRefreshExecute },
        { &W::acCreateField, "acCreateField", "Create field", "", 7, &W::acCreateFieldExecute },
        { &W::acDeleteField, "acDeleteField", "Delete field", "", 9, &W::acDeleteFieldExecute },
        { &W::acDataPreview, "acDataPreview", "Preview Data", "Preview data", 8, &W::acDataPreviewExecute },
        { &W::acShowForm, "acShowForm", "Show Form", "", 13, &W::acShowFormExecute },
        { &W::acScanAll, "acScanAll", "Scan All", "Extract DataSets from all forms in project", 14,
            &W::acScanAllExecute },
        { &W::acSeparator, "acSeparator", "-", "", -1, nullptr },
        { &W::acNewField, "acNewField", "New field", "Add new field", -1, nullptr },
        { &W::acAddAllField, "acAddAllField", "Add all fields", "Add all fields", -1, nullptr },
        { &W::acSeparator1, "acSeparator1", "-", "", -1, nullptr },
        { &W::acStayOnTop, "acStayOnTop", "Stay on Top", "", -1, &W::acStayOnTopExecute },
        { &W::acHide, "acHide", "Hide", "", -1, &W::acHideExecute },
        { &W::acHelp, "acHelp", "Help", "", -1, &W::acHelpExecute },
        { &W::acDockable, "acDockable", "Dockable", "", -1, &W::acDockableExecute },
        { &W::acDescribeFields, "acDescribeFields", "Describe fields", "", -1, &W::acDescribeFieldsExecute },
    };
    for (const auto& row : rows) {
        auto* action = new TAction(this);
        action->SetName(QString::fromLatin1(row.Name));
        action->SetCaption(QString::fromLatin1(row.Caption));
        action->SetHint(QString::fromLatin1(row.Hint));
        action->SetImageIndex(row.Image);
        if (const auto execute = row.Execute)
            action->OnExecute = [this, execute](QObject*) { AtEventBorder([&] { (this->*execute)(); }); };
        this->*row.Field = action;
    }
    for (const auto mode : { gmNone, gmForm, gmSession }) {
        auto* action = GroupAction(mode);
        action->OnExecute
            = [this, action, mode](QObject*) { AtEventBorder([&] { InitGroupAction(action, mode, true); }); };
    }
    acNewField->SetTag(1);
    acAddAllField->SetTag(2);
    for (auto* action : { acNewField, acAddAllField })
        action->OnExecute = [this, action](QObject*) { AtEventBorder([&] { AddOrCreateField(action->Tag()); }); };
    acGroupByNone->SetChecked(true);
    acDockable->SetChecked(true);
    acProperties->SetEnabled(false);
    // The options dialog is not part of the package yet.
    acProperties->SetVisible(false);
}

TAction* TMrvToolWindow::GroupAction(TGroupMode mode) const
{
    switch (mode) {
    case gmForm:
        return acGroupByForm;
    case gmSession:
        return acGroupByConnection;
    default:
        return acGroupByNone;
    }
}

void TMrvToolWindow::MakeTree()
{
    auto* pnlWorkspace = new QWidget(this);
    pnlWorkspace->setObjectName(QStringLiteral("pnlWorkspace"));
    auto* layout = new QVBoxLayout(pnlWorkspace);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    FDataSetView = new TMrvTreeView(pnlWorkspace);
    FDataSetView->setObjectName(QStringLiteral("DataSetView"));
    FDataSetView->setAccessibleName(QStringLiteral("Morvane"));
    ToolBar = new QToolBar(pnlWorkspace);
    twStatusBar = new QStatusBar(pnlWorkspace);
    twStatusBar->setSizeGripEnabled(false);
    layout->addWidget(ToolBar);
    layout->addWidget(FDataSetView, 1);
    layout->addWidget(twStatusBar);
    setWidget(pnlWorkspace);
    setFocusProxy(FDataSetView);
    FDataSetView->SetImages(FImageList);
    FDataSetView->OnContextPopup = [this](QPoint at, bool& handled) { OnTreeViewContextPopup(at, handled); };
    FDataSetView->FOnDblClickEvent = [this](QObject*) { OnTreeViewDblClick(); };
    FDataSetView->FOnItemMoved
        = [this](TMrvTreeView*, TTreeNode* source, TTreeNode* dest) { OnItemMoved(source, dest); };
    FDataSetView->FOnAcceptDragging = [this](TMrvTreeView*, TTreeNode* dragged, TTreeNode* over) {
        return OnDataSetViewAcceptDragging(dragged, over);
    };
    FDataSetView->FOnItemButtonClick = [this](QObject*, TTreeNode* node) { OnDataSetViewItemButtonClick(node); };
    FDataSetView->FOnBeforeChange = [this](TMrvTreeView* sender, TTreeNode* oldNode, TTreeNode* newNode) {
        OnTreeViewBeforeChange(sender, oldNode, newNode);
    };
    FDataSetView->FOnNodeDeletion = [this](TTreeNode* node) {
        if (node == FSelectedNode)
            FSelectedNode = nullptr;
    };
    FDataSetView->FOnSelectComponent = [this](QObject*) { SelectComponent(); };
    FDataSetView->FOnActions
        = [this](TMrvTreeView*, int charCode, Qt::KeyboardModifiers) { OnTreeViewActions(charCode); };
    FRootNode = FDataSetView->AddNode(nullptr, sNoActiveProject, ndtRoot, nullptr);
    SetImages(FRootNode, 1);
}

void TMrvToolWindow::MakeToolBar()
{
    ToolBar->setIconSize({ 16, 16 });
    const auto add = [this](TAction* action, const char* name) {
        action->setIcon(ImageList->Icon(action->ImageIndex()));
        ToolBar->addAction(action);
        ToolBar->widgetForAction(action)->setObjectName(QString::fromLatin1(name));
    };
    add(acRefresh, "tbRefresh");
    add(acScanAll, "tbPreview");
    ToolBar->addSeparator();
    tbGrouping = new QToolButton(ToolBar);
    tbGrouping->setObjectName(QStringLiteral("tbGrouping"));
    tbGrouping->setToolTip(QStringLiteral("Grouping mode"));
    tbGrouping->setPopupMode(QToolButton::MenuButtonPopup);
    tbGrouping->setAutoRaise(true);
    tbGrouping->setIcon(ImageList->Icon(12));
    connect(
        tbGrouping, &QToolButton::clicked, this, [this] { AtEventBorder([this] { tbGroupingClick(tbGrouping); }); });
    ToolBar->addWidget(tbGrouping);
    ToolBar->addSeparator();
    add(acProperties, "tbPreferences");
}

// The grouping is read strictly: a preference that is no number stops the window's making.
void TMrvToolWindow::FormCreate()
{
    QString value;
    GetPreferences()->GetValueByName(QStringLiteral("GroupMode"), value);
    const auto mode = TGroupMode(StrToInt(value));
    auto* item = FGroupingPopupMenu->Items().Items(mode);
    if (!item)
        throw EConvertError(QStringLiteral("'%1' is not a valid grouping mode").arg(value));
    InitGroupAction(item->Action(), mode, false);
}

void TMrvToolWindow::FormShow()
{
    ChangeDataSetListState(drmShow);
}

void TMrvToolWindow::FormHide()
{
    ChangeDataSetListState(drmHide);
}

void TMrvToolWindow::ChangeDataSetListState(TDataSetListState state)
{
    const auto list = GetDataSetList();
    if (!list)
        return;
    Assert(state == drmShow || state == drmHide, QStringLiteral("MrvToolWindow"));
    if (state == drmShow)
        list->Resurrect();
    else
        list->GoDormant();
}

void TMrvToolWindow::customEvent(QEvent* event)
{
    if (event->type() != TMessageEvent::EventType())
        return TDockableForm::customEvent(event);
    AtEventBorder([&] {
        const auto message = static_cast<TMessageEvent*>(event)->Msg;
        if (message == MrvRefreshMessage)
            RefreshDataSetList(nullptr, QString(), rmFullRefresh, false);
        if (message == MrvShowFormMessage && ShowOnStart) {
            show();
            ShowOnStart = false;
        }
    });
}

void TMrvToolWindow::DoDock(bool floating)
{
    FDataSetView->FIsDocking = true;
    AtEventBorder([&] { FDataSetView->ButtonMoveTo(floating ? FDataSetView->GetSelectedNode() : nullptr); });
    FDataSetView->FIsDocking = false;
}

void TMrvToolWindow::contextMenuEvent(QContextMenuEvent* event)
{
    AtEventBorder([&] { FPopupMenu->Popup(event->globalX(), event->globalY()); });
    event->accept();
}

TTreeNode* TMrvToolWindow::NodeOfComponent(const QString& formName, const QString& componentName) const
{
    if (FGroupMode != gmForm)
        return FDataSetView->FindNodeByName(formName + u'.' + componentName);
    auto* form = FDataSetView->FindGroupNode(formName);
    return form ? FDataSetView->FindChildNodeByName(form, componentName) : nullptr;
}

void TMrvToolWindow::ShowMorvane(const QString& formName, const QString& componentName)
{
    const auto select = [&] {
        if (auto* node = NodeOfComponent(formName, componentName))
            FDataSetView->Select(node);
    };
    select();
    ShowForm();
    // A window that was hidden has drawn its tree anew.
    select();
}
