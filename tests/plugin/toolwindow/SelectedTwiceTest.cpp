#include "data/TField.h"
#include "plugin/config/FakeWrappers.h"
#include "services/ComponentEditors.h"
#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

// A field of a dataset that is a master stands twice in the tree and is selected in both places.
class SelectedTwice : public ToolWindowFixture {
protected:
    void SetUp() override
    {
        StartShown();
        Shop.DataModule(u"Store"_qs,
            u"object Scratch: TZAScratchTable\nFieldDefs = <\nitem\nName = 'City'\nDataType = ftString\nSize = "
            u"20\nend\n"
            "item\nName = 'Name'\nDataType = ftString\nSize = 20\nend>\nend\n"
            "object Source: TDataSource\nDataSet = Scratch\nend\n"
            "object Detail: TZAQuery\nMasterSource = Source\nend"_qs);
        OpenShop();
    }
    int FieldsOf(const QString& formDotName) { return DataSet(formDotName).Fields().Count(); }
};

class TheWindowInUse : public SelectedTwice { };

}

TEST_F(SelectedTwice, AFieldIsDeletedOnce)
{
    DesignerOf(u"Data"_qs).SelectComponent(Component(u"Data.BooksTitle"_qs));
    ASSERT_EQ(Tree().SelectionCount(), 2);
    Window().acDeleteField->Execute();
    Settle();
    EXPECT_EQ(FieldsOf(u"Data.Books"_qs), 1);
    EXPECT_EQ(Text(), FreshText());
    EXPECT_EQ(Questions, QStringList());
    EXPECT_EQ(Exceptions, QStringList());
}

TEST_F(SelectedTwice, ADefinitionMakesOneField)
{
    Tree().Select(NodesOf(List().GetDataSetAttrByObj(Component(u"Store.Scratch"_qs)))[0]->GetFirstChild()->Item(0));
    Window().acRefresh->Execute();
    ASSERT_EQ(Tree().SelectionCount(), 2);
    Window().acCreateField->Execute();
    Settle();
    EXPECT_EQ(FieldsOf(u"Store.Scratch"_qs), 1);
    EXPECT_EQ(Text(), FreshText());
    EXPECT_EQ(Exceptions, QStringList());
    EXPECT_TRUE(Tree().FEnabledMoveButton);
}

TEST_F(SelectedTwice, AFieldIsDraggedOnce)
{
    DesignerOf(u"Data"_qs).SelectComponent(Component(u"Data.BooksTitle"_qs));
    ASSERT_EQ(Tree().SelectionCount(), 2);
    EXPECT_EQ(static_cast<TMrvDragDBControl*>(Tree().StartDragObject())->FSelList.size(), 1);
}

TEST_F(SelectedTwice, FieldsOfTwoDatasetsAreDeletedTogether)
{
    AddField(u"Data.Loose"_qs, u"Name"_qs);
    Settle();
    Tree().Select({ Node(u"Data.Books/Fields/0 - Id{BooksId}"_qs), Node(u"Data.Loose/Fields/0 - Name{LooseName}"_qs) });
    Window().acDeleteField->Execute();
    Settle();
    EXPECT_EQ(FieldsOf(u"Data.Books"_qs), 1);
    EXPECT_EQ(FieldsOf(u"Data.Loose"_qs), 0);
    EXPECT_EQ(Text(), FreshText());
    EXPECT_EQ(Exceptions, QStringList());
}

TEST_F(TheWindowInUse, AVerbWithSubItemsRunsWithTheirPositionAndOthersWithout)
{
    QStringList told;
    TheHost->Editors().Register(u"TZAQuery"_qs,
        { u"Plain"_qs, [&told](TComponent&, const InterfacePtr<IDesigner>&) { told << u"plain"_qs; }, {} });
    QList<TAction*> actions;
    TheHost->Editors().Register(u"TZAQuery"_qs,
        { u"More"_qs, [](TComponent&, const InterfacePtr<IDesigner>&) {},
            [&](TComponent&, const InterfacePtr<IDesigner>&, const InterfacePtr<IMenuItem>& item) {
                for (const auto& caption : { u"First"_qs, u"Second"_qs }) {
                    auto* action = new TAction(&Window());
                    action->SetCaption(caption);
                    action->OnExecute = [&told, caption](QObject*) { told << caption; };
                    item->AddItem(action, {});
                }
            } });
    Select(u"Data.Loose"_qs);
    bool handled = false;
    Tree().OnContextPopup({ 5, 5 }, handled);
    ASSERT_TRUE(handled && Window().FMenu);
    const QPointer<TPopupMenu> menu = Window().FMenu;
    const auto item = [&menu](const QString& caption) {
        TMenuItem* found = nullptr;
        for (int i = 0; i < menu->Items().Count(); ++i)
            if (menu->Items().Items(i)->Caption() == caption)
                found = menu->Items().Items(i);
        return found;
    };
    ASSERT_TRUE(item(u"Plain"_qs) && item(u"More"_qs));
    ASSERT_EQ(item(u"More"_qs)->Count(), 2);
    item(u"Plain"_qs)->Click();
    item(u"More"_qs)->Items(1)->Click();
    EXPECT_EQ(told, QStringList({ u"plain"_qs, u"Second"_qs }));
    EXPECT_TRUE(Node(u"Data.Loose"_qs)->Selected());
    // The next popup frees it.
    Tree().OnContextPopup({ 5, 5 }, handled);
    EXPECT_FALSE(menu);
    delete Window().FMenu;
}

TEST_F(TheWindowInUse, TheMenuOfADatasetWithoutVerbsStartsWithTheSeparator)
{
    Select(u"Data.Memory"_qs);
    bool handled = false;
    Tree().OnContextPopup({ 5, 5 }, handled);
    ASSERT_TRUE(Window().FMenu);
    EXPECT_EQ(Window().FMenu->Items().Items(0)->Caption(), u"-"_qs);
    EXPECT_EQ(Window().FMenu->Items().Items(1)->Action(), Window().acCreateField);
    delete Window().FMenu;
}

TEST_F(TheWindowInUse, ScanAllForgetsTheWishAlsoWhenTheRefreshFails)
{
    List().FConfigurationService = nullptr;
    Window().acScanAll->Execute();
    EXPECT_EQ(Exceptions.size(), 1);
    EXPECT_EQ(Preference(u"ScanAllForms"_qs), u"False"_qs);
    EXPECT_FALSE(Tree().Items().Updating());
    EXPECT_TRUE(List().IsEventEnabled(deDataSetListLoad));
}

TEST_F(TheWindowInUse, AFailureWhileTheTreeIsPaintedResizedOrScrolledStopsThere)
{
    class Failing : public FakeComponent {
    public:
        using FakeComponent::FakeComponent;
        WordBool IntfInheritsFrom(const QString&) override { throw Exception(u"no luck"_qs); }
    };
    Window().resize(400, 300);
    for (int i = 0; i < 50; ++i)
        Tree().AddNode(Node({}), u"Other%1"_qs.arg(i), ndtDataSet, nullptr);
    auto* node = Tree().AddNode(Node({}), u"Failing"_qs, ndtDataSet,
        InterfacePtr<IMrvCustomComponentAttr>(New<Failing>(QStringList(u"TDataSet"_qs))));
    AtEventBorder([&] { Tree().Select(node); });
    QCoreApplication::processEvents();
    const auto fails = [this](const std::function<void()>& act) {
        Exceptions.clear();
        EXPECT_NO_THROW(act());
        return Exceptions.contains(u"no luck"_qs);
    };
    EXPECT_TRUE(fails([] { Tree().viewport()->grab(); }));
    EXPECT_TRUE(fails([] { Tree().resize(Tree().width() - 20, Tree().height()); }));
    EXPECT_TRUE(fails([] { Tree().scrollTo(Tree().model()->index(0, 0)); }));
    EXPECT_TRUE(fails([] { Tree().scrollToBottom(); }));
}
