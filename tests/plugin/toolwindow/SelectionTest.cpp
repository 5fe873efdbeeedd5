#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

namespace {

// The designer's selection in the tree.
class SelectingOnAForm : public ToolWindowFixture {
protected:
    void SelectOn(const QString& form, const QStringList& names)
    {
        const auto list = CreateSelectionList();
        for (const auto& name : names)
            list->Add(Component(form + u'.' + name));
        DesignerOf(form).SetSelections(list);
    }
    static QStringList Selected()
    {
        QStringList names;
        for (const auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            if (node->Selected())
                names << node->Text();
        return names;
    }
};

}

TEST_F(SelectingOnAForm, ForgetsWhatWasSelectedBeforeADeletion)
{
    StartShown();
    OpenShop();
    SelectOn(u"Data"_qs, { u"Loose"_qs, u"Memory"_qs });
    EXPECT_EQ(Selected(), QStringList({ u"Data.Loose"_qs, u"Data.Memory"_qs }));
    DesignerOf(u"MainForm"_qs).DeleteComponents({ Component(u"MainForm.Local"_qs) });
    Settle();
    SelectOn(u"Data"_qs, { u"Authors"_qs });
    EXPECT_EQ(Selected(), QStringList(u"Data.Authors"_qs));
}

TEST_F(SelectingOnAForm, ForgetsWhatWasInsertedWithoutBeingSelected)
{
    Shop.DataModule(u"Base"_qs, u"object Stock: TZAQuery\nend\n"_qs);
    Shop.InheritedForm(u"Heir"_qs, u"Base"_qs);
    StartShown();
    OpenShop();
    Group(gmSession);
    for (const auto& name : { u"TZATable"_qs, u"TZAConnection"_qs })
        DesignerOf(u"Base"_qs).CreateComponent(GetClass(name), nullptr, 8, 8, 0, 0);
    Settle();
    ASSERT_NE(Node(u"{Unassigned}/Heir.ZATable1"_qs), nullptr) << Text();
    SelectOn(u"Data"_qs, { u"Authors"_qs });
    EXPECT_EQ(Selected(), QStringList(u"Data.Authors"_qs));
}

TEST_F(SelectingOnAForm, ForgetsWhatAnUndoBroughtBack)
{
    StartShown();
    OpenShop();
    Delete({ u"Data.Loose"_qs });
    Settle();
    TheHost->Undo().Undo();
    Settle();
    ASSERT_NE(Node(u"Data.Loose"_qs), nullptr);
    SelectOn(u"Data"_qs, { u"Authors"_qs });
    EXPECT_EQ(Selected(), QStringList(u"Data.Authors"_qs));
}
