#include "classes/Controls.h"
#include "support/HostFixture.h"

// Frames on forms follow their own form, and come back with what is on them.

namespace {

class FramesOnForms : public PackagedHostFixture {
protected:
    void OpenShop()
    {
        Shop.Form(u"MainForm"_qs,
                u"object Panel: TPanel\nLeft = 0\nTop = 0\nWidth = 300\nHeight = 200\n"
                "inline Search1: TSearch\nLeft = 10\nTop = 20\nWidth = 200\nHeight = 50\n"
                "inherited Text: TEdit\nWidth = 150\nend\nend\nend"_qs)
            .Frame(u"Search"_qs, u"object Text: TEdit\nLeft = 4\nTop = 4\nWidth = 100\nHeight = 23\nend"_qs)
            .InheritedForm(u"Orders"_qs, u"MainForm"_qs, u"inherited Panel: TPanel\nWidth = 310\nend"_qs);
        Shop.Uses(u"Orders"_qs, u"MainFormUnit"_qs);
        Open(Shop);
        TheHost->ShowModule(Shop.UnitOf(u"Search"_qs));
        Recorder.Take();
    }
    TComponent* OnFrame(const QString& form, const QString& name)
    {
        auto* frame = Component(form + u".Search1"_qs);
        return frame ? frame->FindComponent(name) : nullptr;
    }

    ScriptedProject Shop;
    HostRecorder Recorder { *TheHost };
};

}

TEST_F(FramesOnForms, FollowTheirFormWhenTheOtherFormComesToTheFront)
{
    OpenShop();
    const auto form = FormText(u"MainForm"_qs);
    DesignerOf(u"Search"_qs).CreateComponent(GetClass(u"TButton"_qs), nullptr, 120, 4, 0, 0);
    dynamic_cast<TControl*>(Component(u"Search.Text"_qs))->SetTop(9);
    Recorder.Take();
    TheHost->ShowModule(Shop.UnitOf(u"MainForm"_qs));
    EXPECT_EQ(Recorder.Take(),
        "renamed MainFormUnit.dfm Search1 -> ''\n"
        "deleted MainForm.Search1\n"
        "selection MainForm:\n"
        "renamed MainFormUnit.dfm '' -> Search1\n"
        "inserted MainForm.Search1\n"
        "modified MainForm\n"
        "activated MainFormUnit.dfm\n");
    EXPECT_NE(OnFrame(u"MainForm"_qs, u"Button1"_qs), nullptr);
    EXPECT_EQ(dynamic_cast<TControl*>(OnFrame(u"MainForm"_qs, u"Text"_qs))->Bounds(), QRect(4, 9, 150, 23));
    EXPECT_EQ(dynamic_cast<TControl*>(Component(u"MainForm.Search1"_qs))->Parent(), Component(u"MainForm.Panel"_qs));
    EXPECT_EQ(FormText(u"MainForm"_qs), form);
    EXPECT_FALSE(FormOf(u"MainForm"_qs).IsModified());
    EXPECT_EQ(TheHost->Undo().UndoTitle(), u"Change Top"_qs);
}

TEST_F(FramesOnForms, StayAsTheyAreWhereTheirFormDid)
{
    OpenShop();
    auto* frame = Component(u"MainForm.Search1"_qs);
    TheHost->ShowModule(Shop.UnitOf(u"MainForm"_qs));
    TheHost->ShowModule(Shop.UnitOf(u"Search"_qs));
    TheHost->ShowModule(Shop.UnitOf(u"MainForm"_qs));
    EXPECT_EQ(Component(u"MainForm.Search1"_qs), frame);
    EXPECT_EQ(Recorder.Take(), "activated MainFormUnit.dfm\nactivated SearchUnit.dfm\nactivated MainFormUnit.dfm\n");
}

TEST_F(FramesOnForms, CanBeChangedAndUndoneAfterTheyFollowed)
{
    OpenShop();
    DesignerOf(u"Search"_qs).CreateComponent(GetClass(u"TButton"_qs), nullptr, 120, 4, 0, 0);
    TheHost->ShowModule(Shop.UnitOf(u"MainForm"_qs));
    const auto form = FormText(u"MainForm"_qs);
    dynamic_cast<TControl*>(OnFrame(u"MainForm"_qs, u"Button1"_qs))->SetLeft(130);
    EXPECT_EQ(LineDifference(form, FormText(u"MainForm"_qs)), "+inherited Button1: TButton\n+Left = 130\n+end\n");
    TheHost->Undo().Undo();
    EXPECT_EQ(FormText(u"MainForm"_qs), form);
    EXPECT_EQ(dynamic_cast<TControl*>(OnFrame(u"MainForm"_qs, u"Button1"_qs))->Left(), 120);
}

TEST_F(FramesOnForms, ComeBackByAnUndoInFormsThatInheritToo)
{
    OpenShop();
    const auto orders = FormText(u"Orders"_qs);
    DesignerOf(u"MainForm"_qs).DeleteComponents({ Component(u"MainForm.Search1"_qs) });
    EXPECT_EQ(Component(u"Orders.Search1"_qs), nullptr);
    TheHost->Undo().Undo();
    for (const auto& form : { u"MainForm"_qs, u"Orders"_qs }) {
        auto* text = dynamic_cast<TControl*>(OnFrame(form, u"Text"_qs));
        ASSERT_NE(text, nullptr) << form.toStdString();
        EXPECT_EQ(text->Bounds(), QRect(4, 4, 150, 23));
        EXPECT_FALSE(text->HasState(csLoading));
        EXPECT_EQ(text->Parent(), Component(form + u".Search1"_qs));
        EXPECT_EQ(dynamic_cast<TControl*>(Component(form + u".Search1"_qs))->Parent(), Component(form + u".Panel"_qs));
    }
    EXPECT_TRUE(Component(u"Orders.Search1"_qs)->HasState(csAncestor));
    EXPECT_EQ(FormText(u"Orders"_qs), orders);
    dynamic_cast<TControl*>(OnFrame(u"Orders"_qs, u"Text"_qs))->SetLeft(5);
    EXPECT_EQ(LineDifference(orders, FormText(u"Orders"_qs)),
        "+inherited Search1: TSearch\n+inherited Text: TEdit\n+Left = 5\n+end\n+end\n");
}
