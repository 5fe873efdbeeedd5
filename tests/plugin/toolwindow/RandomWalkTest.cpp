#include "data/TCustomZAConnection.h"
#include "data/TField.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <random>

namespace {

// What a person may do to two projects of a group, in any order. After each step the tree holds what it would hold if
// it were drawn from nothing.
class ARandomWalk : public ToolWindowFixture, public testing::WithParamInterface<unsigned> {
protected:
    void SetUp() override
    {
        Random.seed(GetParam());
        StartShown();
        OpenShop();
        Bank.In(Shop.Path());
        Bank.DataModule(u"Money"_qs,
            u"object Server: TZAConnection\nend\nobject Accounts: TZAQuery\nConnection = Server\n"
            "object AccountsNo: TIntegerField\nFieldName = 'No'\nend\nend"_qs);
        Bank.Form(u"Teller"_qs);
        Bank.Write();
        ASSERT_TRUE(TheHost->Open(ScriptedProject::WriteGroup({ &Shop, &Bank })));
        Settle();
    }

    int Below(int limit) { return int(Random() % unsigned(limit)); }
    Module* AnyForm()
    {
        QList<Module*> forms;
        for (auto* module : TheHost->Modules())
            if (module->HasDesigner() && module->OwningProject() == TheHost->ActiveProject())
                forms << module;
        return forms.isEmpty() ? nullptr : forms[Below(int(forms.size()))];
    }
    QList<TComponent*> Of(Module& module, TClass aClass)
    {
        QList<TComponent*> found;
        for (auto* component : module.TheDesigner().Root()->Components())
            if (component->InheritsFrom(aClass))
                found << component;
        return found;
    }
    TComponent* Any(Module& module, TClass aClass)
    {
        const auto found = Of(module, aClass);
        return found.isEmpty() ? nullptr : found[Below(int(found.size()))];
    }
    void Insert(Module& module)
    {
        static const QStringList classes { u"TZAQuery"_qs, u"TZATable"_qs, u"TClientDataSet"_qs, u"TZAConnection"_qs };
        module.TheDesigner().CreateComponent(GetClass(classes[Below(int(classes.size()))]), nullptr, 8, 8, 0, 0);
    }
    void Delete(Module& module)
    {
        static const QList<TClass> classes { TDataSet::Class(), TField::Class(), TCustomZAConnection::Class() };
        QList<TComponent*> doomed;
        for (int i = Below(2); i >= 0; --i)
            if (auto* component = Any(module, classes[Below(3)]); component && !doomed.contains(component))
                doomed << component;
        if (!doomed.isEmpty())
            module.TheDesigner().DeleteComponents(doomed);
    }
    void Rename(Module& module)
    {
        static const QList<TClass> classes { TDataSet::Class(), TField::Class(), TCustomZAConnection::Class() };
        if (auto* component = Any(module, classes[Below(3)]))
            module.TheDesigner().RenameComponent(*component, u"Name%1"_qs.arg(++FNames));
    }
    void AddFields(Module& module)
    {
        auto* dataSet = Any(module, TDataSet::Class());
        for (int i = Below(3); dataSet && i >= 0; --i)
            AddField(module.FormName() + u'.' + dataSet->Name(), u"F%1"_qs.arg(++FNames));
    }
    void MoveField(Module& module)
    {
        auto* field = dynamic_cast<TField*>(Any(module, TField::Class()));
        if (!field || !field->DataSet())
            return;
        module.TheDesigner().SelectComponent(field);
        field->SetIndex(Below(field->DataSet()->Fields().Count()));
        module.TheDesigner().Modified();
    }
    void Connect(Module& module)
    {
        auto* dataSet = Any(module, TDataSet::Class());
        if (!dataSet || !GetPropInfo(dataSet, u"Connection"_qs))
            return;
        module.TheDesigner().SelectComponent(dataSet);
        SetObjectProp(dataSet, u"Connection"_qs, Below(3) ? Any(module, TCustomZAConnection::Class()) : nullptr);
        module.TheDesigner().Modified();
    }
    void CloseOrOpen(Module& module)
    {
        const auto unit = module.UnitFile();
        TheHost->SaveAll();
        TheHost->CloseModule(module);
        Settle();
        Check(u"closed"_qs);
        TheHost->OpenModuleFile(unit, TheHost->ActiveProject());
    }
    QString Step()
    {
        auto* form = AnyForm();
        if (!form)
            return u"nothing"_qs;
        switch (Below(14)) {
        case 0:
        case 1:
            Insert(*form);
            return u"insert"_qs;
        case 2:
        case 3:
            Delete(*form);
            return u"delete"_qs;
        case 4:
            Rename(*form);
            return u"rename"_qs;
        case 5:
        case 6:
            AddFields(*form);
            return u"fields"_qs;
        case 7:
            MoveField(*form);
            return u"move"_qs;
        case 8:
        case 9:
            Connect(*form);
            return u"connect"_qs;
        case 10:
            CloseOrOpen(*form);
            return u"close and open"_qs;
        case 11:
            TheHost->SaveAll();
            TheHost->SetActiveProject(*TheHost->Projects()[Below(2)]);
            return u"switch"_qs;
        case 12:
            Window().setVisible(!Window().isVisible());
            return u"show or hide"_qs;
        default:
            Group(TGroupMode(Below(3)));
            return u"group"_qs;
        }
    }
    void Check(const QString& step)
    {
        if (!Window().isVisible())
            return;
        ASSERT_EQ(Text(), FreshText()) << step.toStdString() << " grouped " << Window().FGroupMode;
    }

    ScriptedProject Bank { u"Bank"_qs };
    std::mt19937 Random;
    int FNames = 0;
};

}

INSTANTIATE_TEST_SUITE_P(Seeds, ARandomWalk, testing::Values(1u, 2u, 3u, 4u));

TEST_P(ARandomWalk, LeavesTheTreeAsIfDrawnAnew)
{
    QStringList steps;
    for (int i = 0; i < 150 && !HasFatalFailure(); ++i) {
        steps << Step();
        Settle();
        Check(u"seed %1, after: %2"_qs.arg(GetParam())
                  .arg(steps.mid(std::max<qsizetype>(0, steps.size() - 5)).join(u", ")));
    }
    EXPECT_EQ(Exceptions, QStringList());
}
