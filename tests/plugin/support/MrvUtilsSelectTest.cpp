#include "data/TextFields.h"
#include "rtl/SysUtils.h"
#include "support/MrvDesignerSelections.h"
#include "support/MrvUtils.h"

#include <gtest/gtest.h>

namespace {

// A designer that only selects. While it does, OnSelect looks at the object.
class SelectingDesigner : public Facade<IDesigner> {
public:
    void Activate() override { }
    void Modified() override { }
    void Resurrect() override { }
    void GetSelections(const InterfacePtr<IDesignerSelections>& list) override
    {
        for (auto* item : std::as_const(Selected))
            list->Add(item);
    }
    void SetSelections(const InterfacePtr<IDesignerSelections>& list) override
    {
        if (OnSelect)
            OnSelect();
        Selected.clear();
        for (int i = 0; i < list->GetCount(); ++i)
            Selected << list->Get(i);
    }
    void SelectComponent(TPersistent*) override { }
    void ClearSelection() override { }
    TComponent* GetComponent(const QString&) override { return nullptr; }
    TComponent* GetRoot() override { return nullptr; }
    TComponent* CreateComponent(TClass, TComponent*, int, int, int, int) override { return nullptr; }
    InterfacePtr<IDesigner> GetAncestorDesigner() override { return nullptr; }
    void ModuleFileNames(QString&, QString&, QString&) override { }
    bool IsComponentLinkable(TComponent*) override { return true; }
    void MakeComponentLinkable(TComponent*) override { }

    std::function<void()> OnSelect;
    QList<TPersistent*> Selected;
};

class TMrvUtilsSelect : public testing::Test {
protected:
    TComponent Root;
    TStringField* Field = new TStringField(&Root);
    SelectingDesigner TheDesigner;
    InterfacePtr<IDesigner> Designer { &TheDesigner };
};

}

TEST_F(TMrvUtilsSelect, SelectsNothingWithoutADesigner)
{
    TMrvUtils::SelectComponent(nullptr, Field, false);
    EXPECT_EQ(Field->Owner(), &Root);
}

TEST_F(TMrvUtilsSelect, ShowsTheDesignerAComponentWithoutAnOwner)
{
    const TComponent* seen = &Root;
    TheDesigner.OnSelect = [&] { seen = Field->Owner(); };
    TMrvUtils::SelectComponent(Designer, Field, false);
    EXPECT_EQ(seen, nullptr);
    EXPECT_EQ(Field->Owner(), &Root);
    EXPECT_EQ(TheDesigner.Selected, (QList<TPersistent*> { Field }));
}

TEST_F(TMrvUtilsSelect, ShowsTheDesignerAnInheritedFieldAsOneOfTheFormsOwn)
{
    Field->SetComponentState(TComponentState(csDesigning) | csAncestor);
    TComponentState seen;
    TheDesigner.OnSelect = [&] { seen = Field->ComponentState(); };
    TMrvUtils::SelectComponent(Designer, Field, false);
    EXPECT_EQ(seen, TComponentState(csDesigning));
    EXPECT_EQ(Field->ComponentState(), TComponentState(csDesigning) | csAncestor);
}

TEST_F(TMrvUtilsSelect, PutsTheOwnerBackWhenTheDesignerRaises)
{
    Field->SetComponentState(TComponentState(csDesigning) | csAncestor);
    TheDesigner.OnSelect = [] { throw Exception(u"no"_qs); };
    EXPECT_THROW(TMrvUtils::SelectComponent(Designer, Field, false), Exception);
    EXPECT_EQ(Field->Owner(), &Root);
    EXPECT_TRUE(Field->HasState(csAncestor));
}

TEST_F(TMrvUtilsSelect, AddsBehindWhatTheDesignerHasSelected)
{
    TheDesigner.Selected = { &Root };
    TMrvUtils::SelectComponent(Designer, Field, true);
    EXPECT_EQ(TheDesigner.Selected, (QList<TPersistent*> { &Root, Field }));
    TMrvUtils::SelectComponent(Designer, Field, false);
    EXPECT_EQ(TheDesigner.Selected, (QList<TPersistent*> { Field }));
}

TEST_F(TMrvUtilsSelect, SelectsAnObjectThatIsNoComponent)
{
    TStrings lines;
    TMrvUtils::SelectComponent(Designer, &lines, false);
    EXPECT_EQ(TheDesigner.Selected, (QList<TPersistent*> { &lines }));
}

TEST(TDesignerSelections, EqualsOnlyItself)
{
    const auto list = New<TDesignerSelections>();
    const auto other = New<TDesignerSelections>();
    EXPECT_TRUE(list->Equals(list.get()));
    EXPECT_FALSE(list->Equals(other.get()));
}

TEST(TDesignerSelections, HoldsItsObjectsWeakly)
{
    const auto list = New<TDesignerSelections>();
    auto component = std::make_unique<TComponent>();
    EXPECT_EQ(list->Add(component.get()), 0);
    EXPECT_EQ(list->GetDesignObject(0)->GetObject(), component.get());
    component.reset();
    EXPECT_EQ(list->GetCount(), 1);
    EXPECT_EQ(list->Get(0), nullptr);
}
