#include "model/MrvPreviewForm.h"
#include "rtl/Guard.h"
#include "support/MrvConst.h"
#include "support/MrvUtils.h"
#include "toolwindow/MrvMenuItemList.h"
#include "toolwindow/MrvToolWindow.h"
#include "toolwindow/MrvToolWindowIntf.h"

#include <QToolButton>

using namespace MrvToolWindow;

namespace {

constexpr int DetailsTag = 2024;
constexpr int NoneTag = 2025;

TMenuItem* AddMenuItem(QObject* owner, TMenuItem& parent, TAction* action, TShortCut shortCut = scNone)
{
    auto* item = new TMenuItem(owner);
    item->SetAction(action);
    item->SetShortCut(shortCut);
    parent.Add(item);
    return item;
}

TMenuItem* AddLine(QObject* owner, TMenuItem& parent)
{
    auto* item = new TMenuItem(owner);
    item->SetCaption(QStringLiteral("-"));
    parent.Add(item);
    return item;
}

TCtrlCreationMode ModeOf(std::intptr_t tag)
{
    if (tag == DetailsTag)
        return ccmDetails;
    return tag == NoneTag ? ccmNone : ccmDataGridView;
}

}

void TMrvToolWindow::MakeMenus()
{
    constexpr TShortCut InsertKey = 45;
    constexpr TShortCut DeleteKey = 46;
    constexpr TShortCut CtrlInsert = 16429;
    PopupMenuPrototype = new TPopupMenu(this);
    auto& items = PopupMenuPrototype->Items();
    auto* owner = PopupMenuPrototype->AsObject();
    AddMenuItem(owner, items, acCreateField, InsertKey)->SetName(QStringLiteral("miCreateField"));
    AddMenuItem(owner, items, acDeleteField, DeleteKey)->SetName(QStringLiteral("miDeletefield"));
    AddMenuItem(owner, items, acSeparator1)->SetName(QStringLiteral("N2"));
    AddMenuItem(owner, items, acAddAllField)->SetName(QStringLiteral("Addallfields1"));
    AddMenuItem(owner, items, acNewField, CtrlInsert)->SetName(QStringLiteral("NewField1"));
    AddMenuItem(owner, items, acSeparator)->SetName(QStringLiteral("miSeparator"));
    AddMenuItem(owner, items, acDescribeFields)->SetName(QStringLiteral("RetrieveFields1"));
    AddMenuItem(owner, items, acDataPreview)->SetName(QStringLiteral("miDatapreview"));
    AddMenuItem(owner, items, acShowForm)->SetName(QStringLiteral("miShowForm"));
    auto* groupBy = new TMenuItem(owner);
    groupBy->SetName(QStringLiteral("miGroupby"));
    groupBy->SetCaption(QStringLiteral("Group by"));
    groupBy->SetImageIndex(6);
    items.Add(groupBy);
    AddMenuItem(owner, *groupBy, acGroupByNone)->SetName(QStringLiteral("miNone"));
    AddMenuItem(owner, *groupBy, acGroupByForm)->SetName(QStringLiteral("miForm"));
    AddMenuItem(owner, *groupBy, acGroupByConnection)->SetName(QStringLiteral("miConnection"));
    AddLine(owner, items)->SetName(QStringLiteral("N3"));
    AddMenuItem(owner, items, acStayOnTop)->SetName(QStringLiteral("StayonTop1"));
    AddMenuItem(owner, items, acHide)->SetName(QStringLiteral("Hide1"));
    AddMenuItem(owner, items, acHelp)->SetName(QStringLiteral("Help1"));
    AddMenuItem(owner, items, acDockable)->SetName(QStringLiteral("Dockable1"));
    AddLine(owner, items)->SetName(QStringLiteral("N1"));
    AddMenuItem(owner, items, acProperties)->SetName(QStringLiteral("miProperties"));

    pmGrouping = new TPopupMenu(this);
    for (auto* action : { acGroupByNone, acGroupByForm, acGroupByConnection })
        AddMenuItem(pmGrouping->AsObject(), pmGrouping->Items(), action);

    FPopupMenu = new TPopupMenu(this);
    FPopupMenu->SetImages(ImageList);
    BuildPopupMenu(FPopupMenu, PopupMenuPrototype);
    FGroupingPopupMenu = new TPopupMenu(this);
    FGroupingPopupMenu->SetImages(ImageList);
    BuildPopupMenu(FGroupingPopupMenu, pmGrouping);
    tbGrouping->setMenu(FGroupingPopupMenu);
}

void TMrvToolWindow::BuildPopupMenu(TPopupMenu* dest, TPopupMenu* source)
{
    TMrvUtils::AssignMenuItems(source, dest, nullptr, nullptr);
}

void TMrvToolWindow::HideFieldActions()
{
    for (auto* action : { acCreateField, acDeleteField, acNewField, acAddAllField, acSeparator, acSeparator1,
             acDataPreview, acShowForm, acDescribeFields })
        action->SetVisible(false);
}

// Shows what serves the node's kind; false for a node that has no menu at all.
bool TMrvToolWindow::ShowActionsFor(TTreeNode* node)
{
    const auto attr = TMrvTreeView::NodeAttr(node);
    switch (TMrvTreeView::NodeType(node)) {
    case ndtForm:
        acShowForm->SetVisible(true);
        return true;
    case ndtBlank:
        if (node->Text() != QString(sFields))
            return false;
        for (auto* action : { acNewField, acAddAllField, acDescribeFields })
            action->SetVisible(true);
        return true;
    case ndtField:
        acDeleteField->SetVisible(true);
        return true;
    case ndtFieldDef:
        for (auto* action : { acCreateField, acNewField, acAddAllField })
            action->SetVisible(true);
        return true;
    case ndtDataSet:
    case ndtConnection:
        acShowForm->SetVisible(true);
        acDataPreview->SetVisible(
            InterfaceCast<IMrvDataSetAttr>(attr) && HasDataPreview() && TMrvUtils::IsDataSetDescendant(attr));
        acDescribeFields->SetVisible(InterfaceCast<IMrvDataSetAttr>(attr) && IsDataSetClass(attr));
        return true;
    default:
        return true;
    }
}

void TMrvToolWindow::OnTreeViewContextPopup(QPoint position, bool& handled)
{
    HideFieldActions();
    auto* node = FDataSetView->GetSelectedNode();
    if (!node)
        return;
    FSelectedNode = node;
    const auto type = TMrvTreeView::NodeType(node);
    const bool hasMenu = ShowActionsFor(node);
    const bool isLocal = type == ndtDataSet || type == ndtConnection;
    handled = !hasMenu || isLocal;
    acSeparator->SetVisible(acCreateField->Visible() || acDeleteField->Visible() || acNewField->Visible());
    acSeparator1->SetVisible(acCreateField->Visible() && acNewField->Visible());
    if (!isLocal)
        return;
    delete FMenu;
    FMenu = BuildLocalMenu(TMrvTreeView::NodeData(node));
    FMenu->SetPopupComponent(FDataSetView);
    const auto at = mapToGlobal(position);
    FMenu->Popup(at.x(), at.y() + 25);
}

TPopupMenu* TMrvToolWindow::BuildLocalMenu(const TNodeData* data)
{
    const auto type = data->GetNodeType();
    Assert(type == ndtDataSet || type == ndtConnection, QStringLiteral("MrvToolWindow"));
    auto* menu = new TPopupMenu(this);
    const auto list = New<TMenuItemList>();
    InterfaceCast<IMrvCustomComponentAttr>(data->GetDataRef())->IntfGetMenu(list);
    const auto add = [this, menu](TMenuItem& parent, const QString& caption, int tag, bool runs) {
        auto* item = new TMenuItem(menu);
        item->SetCaption(caption);
        item->SetTag(tag);
        if (runs)
            item->OnClick = [this](QObject* sender) { AtEventBorder([&] { OnExecuteLocalMenu(sender); }); };
        parent.Add(item);
        return item;
    };
    for (int i = 0; i < list->Count(); ++i) {
        const int subItems = list->SubItemsCount(i);
        auto* item = add(menu->Items(), list->InternalGetCaptions(i), i, subItems == 0);
        for (int sub = 0; sub < subItems; ++sub) {
            QString caption;
            list->GetSubItem(i, sub, caption);
            add(*item, caption, i, true);
        }
    }
    MergeWithPrototype(menu);
    return menu;
}

namespace {

void CopyItem(const TMenuItem& from, TMenuItem& parent, QObject* owner, bool withShortCut)
{
    auto* item = new TMenuItem(owner);
    item->SetCaption(from.Caption());
    item->SetImageIndex(from.ImageIndex());
    item->SetAction(from.Action());
    if (withShortCut)
        item->SetShortCut(from.ShortCut());
    parent.Add(item);
    for (int i = 0; i < from.Count(); ++i)
        CopyItem(*from.Items(i), *item, owner, false);
}

}

void TMrvToolWindow::MergeWithPrototype(TPopupMenu* menu)
{
    menu->SetImages(FPopupMenu->Images());
    AddLine(menu, menu->Items());
    for (int i = 0; i < FPopupMenu->Items().Count(); ++i)
        CopyItem(*FPopupMenu->Items().Items(i), menu->Items(), menu, true);
}

void TMrvToolWindow::OnExecuteLocalMenu(QObject* sender)
{
    auto* item = qobject_cast<TMenuItem*>(sender);
    auto* node = FDataSetView->GetSelectedNode();
    const auto attr = TMrvTreeView::NodeAttr(node);
    if (!item || !attr)
        return;
    const bool isSubItem = item->Parent() && item->Parent()->Parent();
    attr->IntfExecuteVerb(int(item->Tag()), isSubItem ? item->MenuIndex() : -1);
    // A verb may disturb the selection, and may take the node away.
    if (auto* now = FDataSetView->FindNodeByDataRef(attr))
        FDataSetView->Select(now);
}

// No item is wired to it: the verbs of a connection reach the user through its own node's menu.
void TMrvToolWindow::OnConnectionLocalMenu(QObject* sender)
{
    auto* item = qobject_cast<TMenuItem*>(sender);
    auto* node = FDataSetView->GetSelectedNode();
    const auto dataSet = node ? InterfaceCast<IMrvDataSetAttr>(TMrvTreeView::NodeAttr(node->GetFirstChild())) : nullptr;
    if (item && dataSet)
        dataSet->IntfExecuteConnectionVerb(int(item->Tag()));
}

void TMrvToolWindow::OnDataSetViewItemButtonClick(TTreeNode* node)
{
    delete FItemMenu;
    FItemMenu = node ? BuildCtrlPopupMenu(TMrvTreeView::NodeAttr(node)) : nullptr;
    if (!FItemMenu)
        return;
    const auto text = node->DisplayRect(true);
    const int textHeight = FDataSetView->fontMetrics().height();
    const auto at = FDataSetView->viewport()->mapToGlobal(QPoint(text.left() + 1, text.top() + textHeight));
    FItemMenu->SetPopupComponent(FDataSetView);
    FItemMenu->Popup(at.x(), at.y());
}

TPopupMenu* TMrvToolWindow::BuildCtrlPopupMenu(const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    const auto controls = GetIDECtrlList();
    if (!TMrvUtils::IsDataSetDescendant(attr) || !controls)
        return nullptr;
    const auto type = InterfaceCast<IMrvDataSetAttr>(attr) ? ctDataSet : ctField;
    const auto list = New<TMenuItemList>();
    attr->IntfGetCtrlMenu(list);
    auto* menu = new TPopupMenu(this);
    auto* images = new TMrvImageList(controls->ImageWidth(), controls->ImageHeight(), menu);
    images->SetDrawingStyle(dsTransparent);
    menu->SetImages(images);
    int current = 0;
    attr->IntfGetCtrlIndex(current);
    for (int i = 0; i < list->Count(); ++i) {
        const auto className = list->InternalGetClassNames(i);
        TBitmap bitmap;
        bitmap.SetHandle(controls->GetImageByClassName(className, type));
        auto* item = new TMenuItem(menu);
        item->SetCaption(className);
        item->SetTag(list->GetTag(i));
        item->SetImageIndex(images->AddMasked(bitmap, bitmap.TransparentColor(), className));
        item->SetChecked(list->GetTag(i) == current);
        item->OnClick = [this, attr](QObject* sender) { AtEventBorder([&] { OnItemMenuClick(sender, attr); }); };
        menu->Items().Add(item);
    }
    return menu;
}

void TMrvToolWindow::OnItemMenuClick(QObject* sender, const InterfacePtr<IMrvCustomComponentAttr>& attr)
{
    auto* item = qobject_cast<TMenuItem*>(sender);
    if (!item)
        return;
    attr->IntfSetCtrlIndex(int(item->Tag()));
    attr->IntfSetCtrlCreationMode(ModeOf(item->Tag()));
    SetNodeImage(attr);
}

bool TMrvToolWindow::ChooseControl(const QString& className)
{
    const auto attr = TMrvTreeView::NodeAttr(FDataSetView->GetSelectedNode());
    const std::unique_ptr<TPopupMenu> menu(attr ? BuildCtrlPopupMenu(attr) : nullptr);
    for (int i = 0; menu && i < menu->Items().Count(); ++i) {
        auto* item = menu->Items().Items(i);
        if (!SameText(item->Caption(), className))
            continue;
        item->Click();
        return true;
    }
    return false;
}
