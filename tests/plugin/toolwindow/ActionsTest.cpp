#include "data/TField.h"
#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <QContextMenuEvent>
#include <QCoreApplication>

namespace {

class TheWindowsActions : public ToolWindowFixture {
protected:
    void SetUp() override
    {
        StartShown();
        OpenShop();
    }
    // A project with one table that keeps its definitions in its form file: City and Name, and these fields.
    void OpenScratch(const QString& fields = {})
    {
        Scratch.DataModule(u"Data"_qs,
            u"object Scratch: TZAScratchTable\nFieldDefs = <\nitem\nName = 'City'\nDataType = ftString\nSize = "
            u"20\nend\n"
            "item\nName = 'Name'\nDataType = ftString\nSize = 20\nend>\n"_qs
                + fields + u"end"_qs);
        Open(Scratch);
        Settle();
    }
    // What a right click on the node shows: its menu's items that can be seen,
    // one a line, sub-items indented.
    std::string MenuAt(const QString& path)
    {
        Select(path);
        return MenuOfSelection();
    }
    std::string MenuOfSelection()
    {
        delete Window().FMenu;
        QContextMenuEvent event(QContextMenuEvent::Mouse, { 5, 5 }, { 5, 5 });
        event.setAccepted(false);
        bool handled = false;
        Tree().OnContextPopup({ 5, 5 }, handled);
        if (Window().FMenu) {
            Window().FMenu->close();
            return ItemsOf(Window().FMenu->Items(), 0);
        }
        return handled ? "none\n" : ItemsOf(Window().FPopupMenu->Items(), 0);
    }
    static std::string ItemsOf(const TMenuItem& items, int level)
    {
        std::string text;
        for (int i = 0; i < items.Count(); ++i) {
            const auto* item = items.Items(i);
            if (!item->Visible())
                continue;
            text += std::string(size_t(level) * 2, ' ') + item->Caption().toStdString() + '\n';
            text += ItemsOf(*item, level + 1);
        }
        return text;
    }
    ScriptedProject Scratch { u"Scratch"_qs };
    const QString Books = u"Data.Books"_qs;
    const QString Fields = u"Data.Books/Fields"_qs;
    const QString Title = u"Data.Books/Fields/1 - Title{BooksTitle}"_qs;
    const std::string Common = "Group by\n  No grouping\n  Group DataSets by "
                               "Form\n  Group DataSets by Connection\n-\n"
                               "Stay on Top\nHide\nHelp\nDockable\n-\n";
};

} // namespace

TEST_F(TheWindowsActions, HaveTheirTexts)
{
    QStringList lines;
    for (const auto* action : { Window().acGroupByForm, Window().acGroupByConnection, Window().acGroupByNone,
             Window().acProperties, Window().acRefresh, Window().acCreateField, Window().acDeleteField,
             Window().acDataPreview, Window().acShowForm, Window().acScanAll, Window().acSeparator, Window().acNewField,
             Window().acAddAllField, Window().acSeparator1, Window().acStayOnTop, Window().acHide, Window().acHelp,
             Window().acDockable, Window().acDescribeFields })
        lines << u"%1|%2|%3|%4"_qs.arg(action->Name(), action->Caption(), action->Hint()).arg(action->ImageIndex());
    EXPECT_EQ(lines.join(u'\n').toStdString(),
        "acGroupByForm|Group DataSets by Form|Group DataSets by form|10\n"
        "acGroupByConnection|Group DataSets by Connection|Group DataSets by "
        "connection|11\n"
        "acGroupByNone|No grouping|No "
        "grouping|12\nacProperties|Options|Options|7\nacRefresh|Refresh|Refresh|"
        "2\n"
        "acCreateField|Create field||7\nacDeleteField|Delete "
        "field||9\nacDataPreview|Preview Data|Preview data|8\n"
        "acShowForm|Show Form||13\nacScanAll|Scan All|Extract DataSets from all "
        "forms in project|14\n"
        "acSeparator|-||-1\nacNewField|New field|Add new "
        "field|-1\nacAddAllField|Add all fields|Add all fields|-1\n"
        "acSeparator1|-||-1\nacStayOnTop|Stay on "
        "Top||-1\nacHide|Hide||-1\nacHelp|Help||-1\nacDockable|Dockable||-1\n"
        "acDescribeFields|Describe fields||-1");
    EXPECT_EQ(Window().acNewField->Tag(), 1);
    EXPECT_EQ(Window().acAddAllField->Tag(), 2);
    EXPECT_TRUE(Window().acDockable->Checked());
    EXPECT_EQ(Window().windowTitle(), u"Morvane"_qs);
    EXPECT_EQ(Window().TForm::Name(), u"MrvToolWindow"_qs);
    EXPECT_EQ(Window().DeskSection, u"MrvToolWindow"_qs);
}

TEST_F(TheWindowsActions, ShowTheMenuOfTheRoot)
{
    EXPECT_EQ(MenuAt({}), Common);
}

TEST_F(TheWindowsActions, ShowTheMenuOfAForm)
{
    Group(gmForm);
    EXPECT_EQ(MenuAt(u"Data"_qs), "Show Form\n" + Common);
}

TEST_F(TheWindowsActions, ShowTheMenuOfAFieldsNodeWithOneSeparator)
{
    EXPECT_EQ(MenuAt(Fields), "Add all fields\nNew field\n-\nDescribe fields\n" + Common);
}

TEST_F(TheWindowsActions, ShowTheMenuOfAFieldWithOneSeparator)
{
    EXPECT_EQ(MenuAt(Title), "Delete field\n-\n" + Common);
}

TEST_F(TheWindowsActions, ShowTheMenuOfADefinitionWithTwoSeparators)
{
    OpenScratch();
    EXPECT_EQ(MenuAt(u"Data.Scratch/Fields/Name"_qs), "Create field\n-\nAdd all fields\nNew field\n-\n" + Common);
}

TEST_F(TheWindowsActions, ShowNoMenuOnPlainNodes)
{
    EXPECT_EQ(MenuAt(u"Data.Authors/Master DataSet"_qs), "none\n");
    Group(gmSession);
    EXPECT_EQ(MenuAt(u"{Unassigned}"_qs), "none\n");
}

TEST_F(TheWindowsActions, ShowTheLocalMenuOfADatasetAndAConnection)
{
    const auto menu = MenuAt(Books);
    EXPECT_NE(menu.find("-\nDescribe fields\nShow Form\n" + Common), std::string::npos) << menu;
    EXPECT_EQ(menu.find("Show in Morvane"), std::string::npos);
    Group(gmSession);
    const auto connection = MenuAt(u"Shop {Data}"_qs);
    EXPECT_NE(connection.find("-\nShow Form\n" + Common), std::string::npos) << connection;
}

TEST_F(TheWindowsActions, OfferNoFieldActionsWithoutASelectedNode)
{
    Select(Title);
    Tree().ClearSelection(false);
    bool handled = true;
    Tree().OnContextPopup({ 5, 5 }, handled);
    EXPECT_TRUE(handled);
    EXPECT_FALSE(Window().acDeleteField->Visible());
    EXPECT_FALSE(Window().acSeparator->Visible() && Window().acShowForm->Visible());
}

TEST_F(TheWindowsActions, StartWithTheShortCutsOfTheFieldItems)
{
    const auto& items = Window().PopupMenuPrototype->Items();
    EXPECT_EQ(items.Items(0)->ShortCut(), TShortCut(45));
    EXPECT_EQ(items.Items(1)->ShortCut(), TShortCut(46));
    EXPECT_EQ(items.Items(4)->ShortCut(), TShortCut(16429));
}

TEST_F(TheWindowsActions, ScanAllReadsClosedFormsAndForgetsTheWish)
{
    TheHost->CloseModule(FormOf(u"MainForm"_qs));
    Settle();
    EXPECT_EQ(Node(u"MainForm.Local"_qs), nullptr);
    Window().acScanAll->Execute();
    EXPECT_NE(Node(u"MainForm.Local"_qs), nullptr);
    EXPECT_EQ(Preference(u"ScanAllForms"_qs), u"False"_qs);
}

TEST_F(TheWindowsActions, HideAndShowSendTheListToSleepAndBack)
{
    Window().acHide->Execute();
    EXPECT_FALSE(Window().isVisible());
    Settle();
    EXPECT_TRUE(List().FDormant);
    TMrvToolWindow::ShowForm();
    EXPECT_TRUE(Window().isVisible());
    EXPECT_FALSE(List().FDormant);
}

TEST_F(TheWindowsActions, StayOnTopAndDockableToggle)
{
    Window().acStayOnTop->Execute();
    EXPECT_TRUE(Window().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(Window().acStayOnTop->Checked());
    Window().acStayOnTop->Execute();
    EXPECT_FALSE(Window().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    Window().acDockable->Execute();
    EXPECT_EQ(Window().allowedAreas(), Qt::NoDockWidgetArea);
    Window().acDockable->Execute();
    EXPECT_EQ(Window().allowedAreas(), Qt::AllDockWidgetAreas);
}

TEST_F(TheWindowsActions, RunOnceWhenAButtonTriggersThem)
{
    const auto run = Window().acStayOnTop->OnExecute;
    int runs = 0;
    Window().acStayOnTop->OnExecute = [&](QObject*) { ++runs; };
    Window().acStayOnTop->trigger();
    EXPECT_EQ(runs, 1);
    Window().acStayOnTop->OnExecute = run;
}

TEST_F(TheWindowsActions, FollowTheSelectedNode)
{
    Select(Books);
    EXPECT_TRUE(Window().acShowForm->Enabled());
    EXPECT_TRUE(Window().acDataPreview->Enabled());
    Select(Title);
    EXPECT_FALSE(Window().acShowForm->Enabled());
    EXPECT_FALSE(Window().acDataPreview->Enabled());
    Tree().ClearSelection(false);
    EXPECT_EQ(Window().FSelectedNode, nullptr);
}

TEST_F(TheWindowsActions, DataPreviewIsNotOfferedWithoutAMaker)
{
    EXPECT_EQ(MenuAt(Books).find("Preview Data"), std::string::npos);
}

TEST_F(TheWindowsActions, ShowFormBringsTheFormToTheFrontAndKeepsTheGroup)
{
    Group(gmForm);
    Select(u"MainForm"_qs);
    Window().acShowForm->Execute();
    EXPECT_EQ(TheHost->CurrentModule(), &FormOf(u"MainForm"_qs));
    EXPECT_TRUE(Node(u"MainForm"_qs)->Selected());
    Select(u"Data/Books"_qs);
    Window().acShowForm->Execute();
    EXPECT_EQ(TheHost->CurrentModule(), &FormOf(u"Data"_qs));
}

TEST_F(TheWindowsActions, TellTheControlOfTheSelectedNode)
{
    Select(Title);
    Window().SelectComponent();
    EXPECT_EQ(StatusText(), u"Drag'n'Drop control: TDBEdit"_qs);
    Window().AddStatusText(u"Details"_qs);
    EXPECT_EQ(StatusText(), u"Drag'n'Drop control: <Details>"_qs);
    Window().AddStatusText(u"TNobodyKnows"_qs);
    EXPECT_EQ(StatusText(), u"Drag'n'Drop control: <None>"_qs);
    Select({});
    Window().SelectComponent();
    EXPECT_EQ(StatusText(), QString());
}

TEST_F(TheWindowsActions, MirrorTheDesignersSelection)
{
    const auto list = CreateSelectionList();
    list->Add(Component(u"Data.BooksTitle"_qs));
    list->Add(Component(u"Data.Loose"_qs));
    DesignerOf(u"Data"_qs).SetSelections(list);
    EXPECT_TRUE(Node(Title)->Selected());
    EXPECT_TRUE(Node(u"Data.Loose"_qs)->Selected());
    // The field stands below the detail of its dataset too.
    EXPECT_EQ(Tree().SelectionCount(), 3);
    EXPECT_FALSE(Tree().Items().Updating());
    DesignerOf(u"Data"_qs).ClearSelection();
    EXPECT_EQ(Tree().SelectionCount(), 0);
}

TEST_F(TheWindowsActions, DeleteASelectedFieldAndSelectTheNext)
{
    Select(u"Data.Books/Fields/0 - Id{BooksId}"_qs);
    Window().acDeleteField->Execute();
    Settle();
    EXPECT_EQ(Component(u"Data.BooksId"_qs), nullptr);
    EXPECT_EQ(Text(), FreshText());
    EXPECT_EQ(Node(Fields)->Count(), 1);
}

TEST_F(TheWindowsActions, DeletingTheOnlyFieldSelectsTheFirstDefinition)
{
    OpenScratch(u"object ScratchName: TStringField\nFieldName = 'Name'\nend\n"_qs);
    EXPECT_EQ(Text(), "Scratch.dproj\n  Data.Scratch\n    Fields\n      0 - Name{ScratchName}\n      City\n");
    Select(u"Data.Scratch/Fields/0 - Name{ScratchName}"_qs);
    Window().acDeleteField->Execute();
    Settle();
    EXPECT_EQ(Component(u"Data.ScratchName"_qs), nullptr);
    EXPECT_EQ(Text(), "Scratch.dproj\n  Data.Scratch\n    Fields\n      City\n      Name\n");
    ASSERT_NE(Tree().GetSelectedNode(), nullptr);
    EXPECT_EQ(Tree().GetSelectedNode()->Text(), u"City"_qs);
}

TEST_F(TheWindowsActions, CreatingAFieldTakesItsDefinitionAway)
{
    OpenScratch();
    Select(u"Data.Scratch/Fields/City"_qs);
    Window().acCreateField->Execute();
    Settle();
    EXPECT_NE(Component(u"Data.ScratchCity"_qs), nullptr);
    EXPECT_EQ(Node(u"Data.Scratch/Fields/City"_qs), nullptr);
    ASSERT_NE(Node(u"Data.Scratch/Fields/0 - City{ScratchCity}"_qs), nullptr) << Text();
    EXPECT_TRUE(Node(u"Data.Scratch/Fields/0 - City{ScratchCity}"_qs)->Selected());
    EXPECT_TRUE(Tree().FEnabledMoveButton);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(TheWindowsActions, AddAllFieldsMakesOneOfEachDefinition)
{
    OpenScratch();
    Select(u"Data.Scratch/Fields"_qs);
    Window().acAddAllField->Execute();
    Settle();
    EXPECT_EQ(Text(), FreshText());
    EXPECT_NE(Node(u"Data.Scratch/Fields/0 - City{ScratchCity}"_qs), nullptr) << Text();
    EXPECT_NE(Node(u"Data.Scratch/Fields/1 - Name{ScratchName}"_qs), nullptr);
    EXPECT_TRUE(Tree().FEnabledMoveButton);
    EXPECT_FALSE(Tree().Items().Updating());
}

TEST_F(TheWindowsActions, AFieldOfAnAncestorStaysAndTheMessageIsShown)
{
    ScriptedProject project(u"Heirs"_qs);
    project.DataModule(
        u"Base"_qs, u"object Books: TZAQuery\nobject BooksTitle: TStringField\nFieldName = 'Title'\nend\nend"_qs);
    project.InheritedForm(u"Child"_qs, u"Base"_qs);
    Open(project);
    Settle();
    const auto path = u"Child.Books/Fields/0 - Title{BooksTitle}"_qs;
    ASSERT_NE(Node(path), nullptr) << Text();
    Select(path);
    Window().acDeleteField->Execute();
    Settle();
    EXPECT_EQ(Questions.size(), 1);
    ASSERT_NE(Node(path), nullptr);
    EXPECT_TRUE(Node(path)->Selected());
}

TEST_F(TheWindowsActions, AnItemOfTheControlMenuSetsTheControl)
{
    Select(Title);
    EXPECT_TRUE(Window().ChooseControl(u"tdbmemo"_qs));
    EXPECT_EQ(StatusText(), u"Drag'n'Drop control: TDBMemo"_qs);
    EXPECT_FALSE(Window().ChooseControl(u"TNobodyKnows"_qs));
    Select(Books);
    EXPECT_TRUE(Window().ChooseControl(u"Details"_qs));
    TCtrlCreationMode mode = ccmNone;
    TMrvTreeView::NodeAttr(Node(Books))->IntfGetCtrlCreationMode(mode);
    EXPECT_EQ(mode, ccmDetails);
    EXPECT_TRUE(Window().ChooseControl(u"TDBGrid"_qs));
    TMrvTreeView::NodeAttr(Node(Books))->IntfGetCtrlCreationMode(mode);
    EXPECT_EQ(mode, ccmDataGridView);
}

TEST_F(TheWindowsActions, ADatasetMayBeDraggedOntoAnotherConnectionAlone)
{
    const auto accepts = [](const QString& from, const QString& to) {
        return Tree().FOnAcceptDragging(&Tree(), Node(from), Node(to));
    };
    EXPECT_FALSE(accepts(u"Data.Loose"_qs, Books));
    Group(gmSession);
    const auto loose = u"{Unassigned}/Data.Loose"_qs;
    EXPECT_TRUE(accepts(loose, u"Archive {Data}"_qs));
    EXPECT_TRUE(accepts(loose, u"Shop {Data}/Data.Books"_qs));
    EXPECT_FALSE(accepts(loose, {}));
    EXPECT_FALSE(accepts(loose, loose));
    EXPECT_FALSE(accepts(u"Others/Data.Memory"_qs, u"Archive {Data}"_qs));
    const auto fields = u"Shop {Data}/Data.Books/Fields/"_qs;
    EXPECT_TRUE(accepts(fields + u"0 - Id{BooksId}"_qs, fields + u"1 - Title{BooksTitle}"_qs));
    EXPECT_FALSE(accepts(fields + u"0 - Id{BooksId}"_qs, u"Shop {Data}/Data.Books"_qs));
    EXPECT_FALSE(accepts(u"Archive {Data}"_qs, u"Shop {Data}"_qs));
}

TEST_F(TheWindowsActions, ADraggedDatasetTakesTheConnection)
{
    Group(gmSession);
    Tree().FOnItemMoved(&Tree(), Node(u"{Unassigned}/Data.Loose"_qs), Node(u"Archive {Data}"_qs));
    Settle();
    EXPECT_NE(Node(u"Archive {Data}/Data.Loose"_qs), nullptr) << Text();
    EXPECT_EQ(Node(u"{Unassigned}"_qs), nullptr);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(TheWindowsActions, ADraggedFieldMovesInEveryPlace)
{
    auto* id = Node(u"Data.Books/Fields/0 - Id{BooksId}"_qs);
    auto* title = Node(Title);
    Tree().MoveItem(title, id);
    Tree().FOnItemMoved(&Tree(), title, id);
    Settle();
    EXPECT_EQ(dynamic_cast<TField*>(Component(u"Data.BooksTitle"_qs))->Index(), 0);
    EXPECT_EQ(Text(), FreshText());
    EXPECT_NE(Node(u"Data.Books/Fields/0 - Title{BooksTitle}"_qs), nullptr) << Text();
    EXPECT_TRUE(Window().IsEventEnabled(deRefreshFields));
    EXPECT_TRUE(Window().IsEventEnabled(deOnFieldIndexModified));
    EXPECT_TRUE(TheHost->IsModified());
}

TEST_F(TheWindowsActions, ShowMorvaneSelectsTheComponentsNode)
{
    Window().hide();
    MrvToolWindow::ShowMorvane(u"Data"_qs, u"Loose"_qs);
    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(Node(u"Data.Loose"_qs)->Selected());
    Group(gmForm);
    MrvToolWindow::ShowMorvane(u"Data"_qs, u"Books"_qs);
    EXPECT_TRUE(Node(u"Data/Books"_qs)->Selected());
    TheHost->CloseAll();
    Window().hide();
    MrvToolWindow::ShowMorvane(u"Data"_qs, u"Books"_qs);
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(TheWindowsActions, ValuesAboveSevenAreNoEvents)
{
    Window().DisableEvents(TMainFormEvent(8));
    EXPECT_EQ(Window().FDisabledEvents, 0);
    EXPECT_TRUE(Window().IsEventEnabled(TMainFormEvent(8)));
    Window().DisableEvents(deRefreshFields);
    AddField(u"Data.Loose"_qs, u"Name"_qs);
    Settle();
    EXPECT_EQ(Node(u"Data.Loose/Fields"_qs), nullptr);
    Window().EnableEvents(deRefreshFields);
}
