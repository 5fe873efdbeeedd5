#include "data/TCustomZAConnection.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "support/MrvConst.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <random>

namespace {

using TOpenNodes = QMap<QString, bool>;

// What a person may do to the projects of a group, in any order: in the designer, in the tree and in the IDE. After
// each step the tree holds what it would hold if it were drawn from nothing, and what was expanded still is.
class ARandomWalk : public ToolWindowFixture, public testing::WithParamInterface<unsigned> {
protected:
    void SetUp() override
    {
        Random.seed(GetParam());
        Probe.seed(GetParam());
        StartShown();
        Shop.DataModule(u"Base"_qs,
            u"object Store: TZAConnection\nend\nobject Stock: TZAQuery\nConnection = Store\n"
            "object StockNo: TIntegerField\nFieldName = 'No'\nend\nend"_qs);
        Shop.InheritedForm(u"Heir"_qs, u"Base"_qs);
        Shop.InheritedForm(u"Twin"_qs, u"Base"_qs);
        Shop.Form(u"Details"_qs, u"object Lines: TZAQuery\nMasterSource = Data.BooksSource\nend"_qs);
        OpenShop();
        Bank.In(Shop.Path());
        Bank.DataModule(u"Money"_qs,
            u"object Server: TZAConnection\nend\nobject Accounts: TZAScratchTable\nConnection = Server\n"
            "FieldDefs = <\nitem\nName = 'No'\nDataType = ftInteger\nend\nitem\nName = 'Owner'\n"
            "DataType = ftString\nSize = 20\nend>\n"
            "object AccountsNo: TIntegerField\nFieldName = 'No'\nend\nend"_qs);
        Bank.Form(u"Teller"_qs);
        Bank.Write();
        Till.In(Shop.Path());
        Till.DataModule(u"Cash"_qs, u"object Coins: TZAQuery\nend"_qs);
        Till.Write();
        ASSERT_TRUE(TheHost->Open(ScriptedProject::WriteGroup({ &Shop, &Bank, &Till })));
        Settle();
        Fresh = std::make_unique<TMrvToolWindow>();
        MrvApiProxy->RegisterForm(FormInstance);
    }
    void TearDown() override
    {
        auto* own = FormInstance;
        Fresh.reset();
        FormInstance = own;
        MrvApiProxy->RegisterForm(own);
    }

    int Below(int limit) { return int(Random() % unsigned(limit)); }
    template <class T>
    T Any(const QList<T>& values)
    {
        return values[Below(int(values.size()))];
    }
    QList<Module*> Forms()
    {
        QList<Module*> forms;
        for (auto* module : TheHost->Modules())
            if (module->HasDesigner() && module->OwningProject() == TheHost->ActiveProject())
                forms << module;
        return forms;
    }
    template <class T>
    QList<T*> Of(Module& module, bool own = false)
    {
        QList<T*> found;
        for (auto* component : module.TheDesigner().Root()->Components())
            if (auto* one = dynamic_cast<T*>(component); one && !(own && one->HasState(csAncestor)))
                found << one;
        return found;
    }
    template <class T>
    T* AnyOf(Module& module, bool own = false)
    {
        const auto found = Of<T>(module, own);
        return found.isEmpty() ? nullptr : Any(found);
    }
    // Something of the data; what stands behind it in the list is drawn anew.
    TComponent* AnyData(Module& module)
    {
        switch (Below(3)) {
        case 0:
            return AnyOf<TField>(module, true);
        case 1:
            return AnyOf<TCustomZAConnection>(module, true);
        default:
            return AnyOf<TDataSet>(module, true);
        }
    }
    // Few names, so that forms, datasets and connections meet under one.
    QString AName() { return u"%1%2"_qs.arg(Any(QStringList { u"Alpha"_qs, u"Data"_qs, u"Zeta"_qs })).arg(Below(3)); }

    void Insert(Module& module)
    {
        static const QStringList classes { u"TZAQuery"_qs, u"TZATable"_qs, u"TZASQL"_qs, u"TZAScript"_qs,
            u"TClientDataSet"_qs, u"TZAConnection"_qs, u"TDataSource"_qs };
        module.TheDesigner().CreateComponent(GetClass(Any(classes)), nullptr, 8, 8, 0, 0);
    }
    void Delete(Module& module)
    {
        QList<TComponent*> doomed;
        for (int i = Below(3); i >= 0; --i)
            if (auto* component = AnyData(module); component && !doomed.contains(component))
                doomed << component;
        if (doomed.isEmpty())
            return;
        const auto list = CreateSelectionList();
        for (auto* component : std::as_const(doomed))
            list->Add(component);
        module.TheDesigner().SetSelections(list);
        module.TheDesigner().DeleteSelection();
    }
    void Rename(Module& module)
    {
        auto* component = Below(4) ? AnyData(module) : module.TheDesigner().Root();
        const auto name = AName();
        if (!component || module.TheDesigner().GetComponent(name) || TheHost->FormModule(name))
            return;
        try {
            module.TheDesigner().RenameComponent(*component, name);
        } catch (const Exception&) {
            // A unit may use the name for something else; then nothing is renamed.
        }
    }
    void AddFields(Module& module)
    {
        auto* dataSet = AnyOf<TDataSet>(module);
        for (int i = Below(3); dataSet && i >= 0; --i)
            AddField(module.FormName() + u'.' + dataSet->Name(), u"F%1"_qs.arg(++FNames));
    }
    void MoveField(Module& module)
    {
        auto* field = AnyOf<TField>(module);
        if (!field || !field->DataSet())
            return;
        module.TheDesigner().SelectComponent(field);
        field->SetIndex(Below(field->DataSet()->Fields().Count()));
        module.TheDesigner().Modified();
    }
    void Set(Module& module, const QString& property, TComponent* value)
    {
        auto* dataSet = AnyOf<TDataSet>(module);
        if (!dataSet || !GetPropInfo(dataSet, property))
            return;
        FWhat = u"of %1 to %2"_qs.arg(dataSet->Name(), value ? value->Name() : QString());
        module.TheDesigner().SelectComponent(dataSet);
        SetObjectProp(dataSet, property, value);
        module.TheDesigner().Modified();
    }
    void Connect(Module& module)
    {
        Set(module, u"Connection"_qs, Below(4) ? AnyOf<TCustomZAConnection>(*Any(Forms())) : nullptr);
    }
    void Master(Module& module)
    {
        Set(module, u"MasterSource"_qs, Below(3) ? AnyOf<TDataSource>(*Any(Forms())) : nullptr);
    }
    void Show(Module& module)
    {
        auto* source = AnyOf<TDataSource>(module, true);
        if (!source)
            return;
        module.TheDesigner().SelectComponent(source);
        SetObjectProp(source, u"DataSet"_qs, Below(3) ? AnyOf<TDataSet>(*Any(Forms())) : nullptr);
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
    void Reload(Module& module)
    {
        TheHost->SaveAll();
        TheHost->Reload(module);
    }
    QList<TTreeNode*> Nodes(TNodeDataType type)
    {
        QList<TTreeNode*> nodes;
        for (auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            if (TMrvTreeView::NodeType(node) == type)
                nodes << node;
        return nodes;
    }
    // Nodes of one kind, chosen in the tree.
    bool Choose(TNodeDataType type)
    {
        const auto nodes = Nodes(type);
        if (nodes.isEmpty())
            return false;
        Tree().Select(Any(nodes));
        if (Below(2))
            Tree().Select(Any(nodes), ssCtrl | ssLeft);
        return true;
    }
    // A hidden window follows nothing, and nobody acts in it.
    void Act(TNodeDataType type, TAction* action)
    {
        if (Window().isVisible() && Choose(type))
            action->Execute();
    }
    void Drag(TNodeDataType type)
    {
        const auto nodes = Nodes(type);
        if (nodes.isEmpty() || !Window().isVisible())
            return;
        auto* source = Any(nodes);
        auto* target = Any(Nodes(type == ndtField || Below(2) ? type : ndtConnection) << source);
        if (!Tree().FOnAcceptDragging(&Tree(), source, target))
            return;
        FWhat = source->Text() + u" onto "_qs + target->Text();
        if (type == ndtField)
            Tree().MoveItem(source, target);
        Tree().FOnItemMoved(&Tree(), source, target);
    }
    void Expand()
    {
        for (auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            if (Below(2))
                node->Expand(false);
    }
    void Switch()
    {
        TheHost->SaveAll();
        TheHost->SetActiveProject(*Any(TheHost->Projects()));
    }

    QString Step()
    {
        if (Forms().isEmpty()) {
            Switch();
            return u"switch"_qs;
        }
        auto& form = *Any(Forms());
        struct Way {
            QString Name;
            int Weight;
            std::function<void()> Go;
        };
        const Way ways[] = {
            { u"insert"_qs, 8, [&] { Insert(form); } },
            { u"delete"_qs, 6, [&] { Delete(form); } },
            { u"rename"_qs, 4, [&] { Rename(form); } },
            { u"fields"_qs, 8, [&] { AddFields(form); } },
            { u"move a field"_qs, 4, [&] { MoveField(form); } },
            { u"connect"_qs, 6, [&] { Connect(form); } },
            { u"master"_qs, 4, [&] { Master(form); } },
            { u"source"_qs, 3, [&] { Show(form); } },
            { u"undo"_qs, 4,
                [&] {
                    FWhat = TheHost->Undo().UndoTitle();
                    TheHost->Undo().Undo();
                } },
            { u"redo"_qs, 2,
                [&] {
                    FWhat = TheHost->Undo().RedoTitle();
                    TheHost->Undo().Redo();
                } },
            { u"close and open"_qs, 3, [&] { CloseOrOpen(form); } },
            { u"reload"_qs, 2, [&] { Reload(form); } },
            { u"switch"_qs, 2, [&] { Switch(); } },
            { u"show or hide"_qs, 3, [&] { Window().setVisible(!Window().isVisible()); } },
            { u"group"_qs, 4, [&] { Group(TGroupMode(Below(3))); } },
            { u"refresh"_qs, 2, [&] { Window().acRefresh->Execute(); } },
            { u"scan all"_qs, 1, [&] { Window().acScanAll->Execute(); } },
            { u"expand"_qs, 4, [&] { Expand(); } },
            { u"delete field"_qs, 4, [&] { Act(ndtField, Window().acDeleteField); } },
            { u"create field"_qs, 4, [&] { Act(ndtFieldDef, Window().acCreateField); } },
            { u"add all fields"_qs, 2, [&] { Act(ndtFieldDef, Window().acAddAllField); } },
            { u"describe"_qs, 2,
                [&] {
                    Act(ndtDataSet, Window().acDescribeFields);
                    // There is no database here.
                    Exceptions.clear();
                } },
            { u"show form"_qs, 1, [&] { Act(ndtDataSet, Window().acShowForm); } },
            { u"drag a field"_qs, 4, [&] { Drag(ndtField); } },
            { u"drag a dataset"_qs, 4, [&] { Drag(ndtDataSet); } },
        };
        int total = 0;
        for (const auto& way : ways)
            total += way.Weight;
        int at = Below(total);
        for (const auto& way : ways)
            if ((at -= way.Weight) < 0) {
                FWhat = form.FormName();
                way.Go();
                return way.Name + u' ' + FWhat;
            }
        return {};
    }

    // Level, kind and caption of each node.
    static std::string Drawn(TMrvTreeView& tree)
    {
        QString text;
        for (const auto* node = tree.Items().GetFirstNode(); node; node = node->GetNext())
            text += QString(node->Level() * 2, u' ') + node->Text() + u" : "_qs + tree.NodeKind(node) + u'\n';
        return text.toStdString();
    }
    std::string DrawnFresh()
    {
        Fresh->FGroupMode = Window().FGroupMode;
        Fresh->CleanDataSetView();
        Fresh->AddRootNode();
        Fresh->DrawDataSetView(dmLoad);
        return Drawn(*Fresh->FDataSetView);
    }
    // Nodes with children, by the wrappers on the way to them.
    static TOpenNodes OpenNodes()
    {
        TOpenNodes open;
        for (const auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext()) {
            QString path;
            for (const auto* up = node; up; up = up->Parent()) {
                int guid = -1;
                if (const auto attr = TMrvTreeView::NodeAttr(up))
                    attr->GetGuid(guid);
                path += guid == -1 ? u'/' + up->Text() : u'/' + QString::number(guid);
            }
            if (node->HasChildren())
                open[path] = node->Expanded();
        }
        return open;
    }
    void Check(const QString& step)
    {
        if (!Window().isVisible())
            return;
        const auto shown = Drawn(Tree());
        ASSERT_EQ(shown, DrawnFresh()) << step.toStdString() << " grouped " << Window().FGroupMode;
        ASSERT_FALSE(Tree().Items().Updating()) << step.toStdString();
        ASSERT_TRUE(List().IsEventEnabled(deSelectionChanged)) << step.toStdString();
    }
    static TComponent* ComponentOf(const TTreeNode* node)
    {
        TPersistent* persistent = nullptr;
        const auto type = TMrvTreeView::NodeType(node);
        if (type == ndtDataSet || type == ndtField || type == ndtConnection)
            TMrvTreeView::NodeAttr(node)->IntfGetPersistent(persistent);
        return dynamic_cast<TComponent*>(persistent);
    }
    static QList<const TTreeNode*> NodesOfComponents(const QList<TPersistent*>& components)
    {
        QList<const TTreeNode*> nodes;
        for (const auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            if (auto* component = ComponentOf(node); component && components.contains(component))
                nodes << node;
        return nodes;
    }
    // In tree order; what the tree lists as selected is what its nodes say.
    static QList<const TTreeNode*> SelectedNodes()
    {
        QList<const TTreeNode*> nodes;
        for (const auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            if (node->Selected())
                nodes << node;
        QList<const TTreeNode*> listed;
        for (int i = 0; i < Tree().SelectionCount(); ++i)
            listed << Tree().Selections(i);
        EXPECT_EQ(listed.size(), nodes.size());
        for (const auto* node : std::as_const(listed))
            EXPECT_TRUE(nodes.contains(node));
        return nodes;
    }
    static std::string Names(const QList<const TTreeNode*>& nodes)
    {
        QString text;
        for (const auto* node : nodes)
            text += node->Text() + u'\n';
        return text.toStdString();
    }
    // What is selected on a form is selected in the tree, in every place, and nothing else is.
    void CheckFromDesigner(const std::string& step)
    {
        auto& designer = Forms()[int(Probe() % unsigned(Forms().size()))]->TheDesigner();
        QList<TPersistent*> chosen;
        const auto list = CreateSelectionList();
        for (auto* component : designer.Root()->Components())
            if (Probe() % 3 == 0) {
                chosen << component;
                list->Add(component);
            }
        designer.SetSelections(list);
        EXPECT_EQ(Names(SelectedNodes()), Names(NodesOfComponents(chosen))) << "selected on a form after " << step;
    }
    // What is chosen in the tree is selected on its form, and the choice in the tree stays.
    void CheckFromTree(const std::string& step)
    {
        QList<TTreeNode*> nodes;
        for (auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNext())
            if (ComponentOf(node))
                nodes << node;
        if (nodes.isEmpty())
            return;
        auto* node = nodes[int(Probe() % unsigned(nodes.size()))];
        auto* component = ComponentOf(node);
        Tree().Select(node);
        Window().SelectComponent();
        EXPECT_EQ(Names(SelectedNodes()), Names({ node })) << "chosen in the tree after " << step;
        for (auto* form : Forms()) {
            if (form->TheDesigner().Root() == component->Owner()) {
                EXPECT_EQ(form->TheDesigner().Selection(), QList<TPersistent*> { component })
                    << "chosen in the tree after " << step << ": " << node->Text().toStdString();
            }
        }
    }
    void CheckSelection(const QString& step)
    {
        if (!Window().isVisible() || Forms().isEmpty())
            return;
        SelectedNodes();
        CheckFromDesigner(step.toStdString());
        CheckFromTree(step.toStdString());
    }
    static bool DrawsAnew(const QString& step)
    {
        for (const auto& way : { u"group"_qs, u"close"_qs, u"reload"_qs, u"show or hide"_qs })
            if (step.startsWith(way))
                return true;
        return false;
    }
    static void CheckStillOpen(const TOpenNodes& before, const QString& step)
    {
        const auto now = OpenNodes();
        for (auto node = before.begin(); node != before.end(); ++node)
            EXPECT_TRUE(!node.value() || now.value(node.key(), true))
                << node.key().toStdString() << " closed after " << step.toStdString();
    }

    ScriptedProject Bank { u"Bank"_qs };
    ScriptedProject Till { u"Till"_qs, ScriptedProject::Kind::CppBuilder };
    std::unique_ptr<TMrvToolWindow> Fresh;
    std::mt19937 Random;
    // Of its own, so that what is looked at changes no step.
    std::mt19937 Probe;
    int FNames = 0;
    // The last step, for the message.
    QString FWhat;
};

}

INSTANTIATE_TEST_SUITE_P(
    Seeds, ARandomWalk, testing::Range(1u, 1u + qEnvironmentVariable("MORVANE_WALKS", u"8"_qs).toUInt()));

TEST_P(ARandomWalk, LeavesTheTreeAsIfDrawnAnew)
{
    QStringList steps;
    const int count = std::max(1, qEnvironmentVariable("MORVANE_STEPS", u"300"_qs).toInt());
    for (int i = 0; i < count && !HasFailure(); ++i) {
        const auto open = OpenNodes();
        const auto mode = Window().FGroupMode;
        const auto* project = TheHost->ActiveProject();
        steps << Step();
        Settle();
        const auto last = u"seed %1, step %2, after: %3"_qs.arg(GetParam())
                              .arg(i)
                              .arg(steps.mid(std::max<qsizetype>(0, steps.size() - 5)).join(u", "));
        Check(last);
        CheckSelection(last);
        // Another grouping is drawn from nothing, and so are a project, what was closed, and what a hidden window
        // shows, which follows nothing.
        if (Window().isVisible() && mode == Window().FGroupMode && project == TheHost->ActiveProject()
            && !DrawsAnew(steps.last()))
            CheckStillOpen(open, last);
    }
    EXPECT_EQ(Exceptions, QStringList());
}
