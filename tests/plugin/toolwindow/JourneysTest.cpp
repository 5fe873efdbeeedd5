#include "classes/Controls.h"
#include "ide/MrvDragAndDropIntf.h"
#include "model/MrvFieldAttr.h"
#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <QMainWindow>

namespace {

class Journeys : public ToolWindowFixture {
protected:
    TFieldAttr* FieldOf(const QString& dataSet, const QString& field)
    {
        return List().GetDataSetAttrByObj(Component(dataSet))->FieldByName(field, smName);
    }
    // The session-unique values of the datasets: new ones mean that the model was built anew.
    static QList<int> Guids()
    {
        QList<int> guids;
        for (int i = 0; i < List().GetItemCount(); ++i)
            guids << List().GetItem(i)->FGuid;
        return guids;
    }
};

}

TEST_F(Journeys, AGroupOfThreeKindsOfProjectsIsClosedInEveryOrder)
{
    StartShown();
    QStringList order { u"Bank"_qs, u"Shop"_qs, u"Till"_qs };
    do {
        ScriptedProject shop(u"Shop"_qs);
        ScriptedProject till(u"Till"_qs, ScriptedProject::Kind::CppBuilder);
        ScriptedProject bank(u"Bank"_qs, ScriptedProject::Kind::Lazarus);
        for (auto* project : { &till, &bank })
            project->In(shop.Path());
        shop.DataModule(u"ShopData"_qs, u"object Books: TZAQuery\nend"_qs);
        till.DataModule(u"TillData"_qs, u"object Coins: TZAQuery\nend"_qs);
        bank.DataModule(u"BankData"_qs, u"object Accounts: TZAQuery\nend"_qs);
        ASSERT_TRUE(TheHost->Open(ScriptedProject::WriteGroup({ &shop, &till, &bank })));
        // Each was active once, so that all modules are open.
        for (auto* project : TheHost->Projects()) {
            TheHost->SetActiveProject(*project);
            Settle();
            EXPECT_EQ(Text(), FreshText());
            EXPECT_EQ(List().GetItemCount(), 1) << Text();
        }
        for (const auto& name : order) {
            for (auto* project : QList(TheHost->Projects()))
                if (project->GetFileName().contains(u'/' + name + u'.'))
                    TheHost->CloseProject(*project);
            Settle();
            EXPECT_EQ(Text().find(name.toStdString()), std::string::npos) << order.join(u' ').toStdString();
            if (TheHost->ActiveProject()) {
                EXPECT_EQ(Text(), FreshText()) << order.join(u' ').toStdString();
            }
        }
        EXPECT_EQ(Text(), "<No active projects>\n") << order.join(u' ').toStdString();
        EXPECT_EQ(Exceptions, QStringList());
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(Journeys, OfThreeFieldsThatAreDroppedTheOneInTheMiddleMakesNothing)
{
    StartShown();
    OpenShop();
    AddField(u"Data.Books"_qs, u"Isbn"_qs);
    Settle();
    auto* middle = FieldOf(u"Data.Books"_qs, u"BooksTitle"_qs);
    middle->IntfSetCtrlIndex(2025);
    middle->IntfSetCtrlCreationMode(ccmNone);
    TMrvDragList items;
    for (const auto& name : { u"BooksId"_qs, u"BooksTitle"_qs, u"BooksIsbn"_qs })
        items << InterfacePtr<IMrvCustomComponentAttr>(FieldOf(u"Data.Books"_qs, name));
    TMrvDragDBControl drag(nullptr, items);
    ASSERT_TRUE(TheHost->DropOnDesigner(DesignerOf(u"MainForm"_qs), nullptr, drag, 40, 30));
    QStringList fields;
    for (auto* component : DesignerOf(u"MainForm"_qs).Root()->Components())
        if (GetPropInfo(component, u"DataField"_qs))
            fields << GetStrProp(component, u"DataField"_qs);
    EXPECT_EQ(fields, QStringList({ u"Id"_qs, u"Isbn"_qs }));
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(Journeys, LoadingAndRefreshingEverythingModifiesNoForm)
{
    Shop.DataModule(
        u"Base"_qs, u"object Stock: TZAQuery\nobject StockNo: TIntegerField\nFieldName = 'No'\nend\nend"_qs);
    Shop.InheritedForm(u"Heir"_qs, u"Base"_qs);
    Shop.DataModule(u"Closed"_qs, u"object Hidden: TZAQuery\nend"_qs).KeepClosed(u"Closed"_qs);
    StartShown();
    OpenShop();
    for (const auto mode : { gmForm, gmSession, gmNone }) {
        Group(mode);
        Window().acRefresh->Execute();
        Window().acScanAll->Execute();
        for (auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext()) {
            Tree().Select(node);
            Window().SelectComponent();
        }
        Window().hide();
        Settle();
        Window().show();
        Settle();
        EXPECT_EQ(Text(), FreshText());
    }
    EXPECT_NE(Node(u"Closed.Hidden"_qs), nullptr);
    EXPECT_FALSE(TheHost->IsModified());
}

TEST_F(Journeys, MinimisingTabsDockingAndFlagsLeaveTheModelAlone)
{
    StartPlugin();
    QMainWindow main;
    main.setCentralWidget(new QWidget);
    main.addDockWidget(Qt::RightDockWidgetArea, &Window());
    QDockWidget other;
    main.addDockWidget(Qt::RightDockWidgetArea, &other);
    main.show();
    Window().show();
    OpenShop();
    const auto guids = Guids();
    const auto unchanged = [&](const char* what) {
        QCoreApplication::processEvents();
        EXPECT_EQ(Guids(), guids) << what;
        EXPECT_FALSE(List().FDormant) << what;
        EXPECT_TRUE(Window().IsWindowVisible()) << what;
    };
    main.tabifyDockWidget(&Window(), &other);
    other.raise();
    unchanged("behind another tab");
    Window().raise();
    unchanged("in front again");
    Window().setFloating(true);
    unchanged("floating");
    Window().acStayOnTop->Execute();
    unchanged("on top");
    Window().acStayOnTop->Execute();
    Window().setFloating(false);
    unchanged("docked");
    Window().acDockable->Execute();
    unchanged("not dockable");
    Window().acDockable->Execute();
    main.showMinimized();
    unchanged("minimised");
    main.showNormal();
    unchanged("restored");
    main.hide();
    main.show();
    unchanged("with its main window");
    main.removeDockWidget(&other);
    Window().setParent(nullptr);
    Window().hide();
    Settle();
    EXPECT_TRUE(List().FDormant);
}
