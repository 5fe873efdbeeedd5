#include "ModelFixture.h"

#include "data/TCustomZAConnection.h"
#include "data/TField.h"
#include "data/TextFields.h"
#include "data/ZADataSets.h"

#include <QRandomGenerator>

namespace {

// Thousands of designer operations on a data module, a form that inherits and a plain form.
class RandomWalk : public ModelFixture {
protected:
    void OpenWalk()
    {
        Shop.DataModule(
            u"Data"_qs, u"object Shop: TZAConnection\nend\nobject Books: TZAQuery\nConnection = Shop\nend"_qs);
        Shop.InheritedForm(u"Child"_qs, u"Data"_qs);
        Shop.Form(u"MainForm"_qs, u"object Orders: TZATable\nConnection = Data.Shop\nend"_qs);
        Open(Shop);
        Attach();
    }
    void Step();

    QRandomGenerator Random;
    // What was done since the last comparison, for the message of a failure.
    QStringList Done;

private:
    template <class T>
    T Any(const QList<T>& values)
    {
        return values[Random.bounded(values.size())];
    }
    Module& AnyForm() { return *Any(TheHost->Modules()); }
    template <class T>
    T* AnyComponent(Designer& designer)
    {
        QList<T*> found;
        for (auto* component : designer.GetRoot()->Components())
            if (auto* one = dynamic_cast<T*>(component))
                found << one;
        return found.isEmpty() ? nullptr : Any(found);
    }
    void Insert(Designer& designer);
    void AddField(Designer& designer);
    void Delete(Designer& designer);
    void Rename(Designer& designer);
    void Connect(Designer& designer);
    void MoveField(Designer& designer);
    void Reopen();
    void Note(const QString& what, const TComponent* component)
    {
        Done << u"%1 %2.%3"_qs.arg(
            what, component->Owner() ? component->Owner()->Name() : QString(), component->Name());
    }
    QString NewName() { return u"Name%1"_qs.arg(++FNames); }
    int FNames = 0;
};

void RandomWalk::Insert(Designer& designer)
{
    static const QStringList classes { u"TZAQuery"_qs, u"TZATable"_qs, u"TZASQL"_qs, u"TZAScript"_qs,
        u"TZAConnection"_qs, u"TDataSource"_qs };
    const auto* made = designer.CreateComponent(GetClass(Any(classes)), nullptr, 10, 10, 0, 0);
    Note(u"insert"_qs, made);
}

void RandomWalk::AddField(Designer& designer)
{
    auto* dataSet = AnyComponent<TDataSet>(designer);
    if (!dataSet)
        return;
    const auto name = NewName();
    Note(u"add field to"_qs, dataSet);
    designer.CreateField(dataSet, TStringField::Class(), dataSet->Name() + name, [&](TField* field) {
        field->SetFieldName(name);
        field->SetDataSet(dataSet);
    });
}

void RandomWalk::Delete(Designer& designer)
{
    QList<TComponent*> chosen;
    for (int i = 0; i < 1 + int(Random.bounded(3)); ++i)
        if (auto* component = AnyComponent<TComponent>(designer);
            component && !component->HasState(csAncestor) && !chosen.contains(component))
            chosen << component;
    const auto list = CreateSelectionList();
    for (auto* component : std::as_const(chosen)) {
        list->Add(component);
        Note(u"delete"_qs, component);
    }
    designer.SetSelections(list);
    designer.DeleteSelection();
}

void RandomWalk::Rename(Designer& designer)
{
    auto* component = AnyComponent<TComponent>(designer);
    if (!component || component->HasState(csAncestor))
        return;
    designer.SelectComponent(component);
    Note(u"rename"_qs, component);
    designer.RenameComponent(*component, NewName());
}

void RandomWalk::Connect(Designer& designer)
{
    auto* dataSet = AnyComponent<TCustomZADataSet>(designer);
    if (!dataSet)
        return;
    auto* connection = Random.bounded(4) ? AnyComponent<TCustomZAConnection>(AnyForm().TheDesigner()) : nullptr;
    designer.SelectComponent(dataSet);
    Note(u"connect "_qs + (connection ? connection->Owner()->Name() + u'.' + connection->Name() : u"nothing"_qs),
        dataSet);
    SetObjectProp(dataSet, u"Connection"_qs, connection);
    designer.Modified();
}

void RandomWalk::MoveField(Designer& designer)
{
    auto* field = AnyComponent<TField>(designer);
    if (!field || !field->DataSet())
        return;
    designer.SelectComponent(field);
    Note(u"move"_qs, field);
    field->SetIndex(int(Random.bounded(field->DataSet()->FieldCount())));
    designer.Modified();
}

void RandomWalk::Reopen()
{
    auto& module = AnyForm();
    ASSERT_FALSE(TheHost->SaveAll());
    Note(u"reload"_qs, module.TheDesigner().GetRoot());
    TheHost->Reload(module);
}

void RandomWalk::Step()
{
    auto& designer = AnyForm().TheDesigner();
    designer.Activate();
    switch (Random.bounded(18)) {
    case 0:
    case 1:
    case 2:
        return Insert(designer);
    case 3:
    case 4:
    case 5:
    case 6:
        return AddField(designer);
    case 7:
    case 8:
        return Delete(designer);
    case 9:
        return Rename(designer);
    case 10:
    case 11:
        return Connect(designer);
    case 12:
        return MoveField(designer);
    case 13:
        Done << u"undo "_qs + TheHost->Undo().UndoTitle();
        TheHost->Undo().Undo();
        return;
    case 14:
        return List->BuildDataSetList(false);
    case 15:
        return Reopen();
    default:
        Clock.Advance(int(Random.bounded(200)));
    }
}

}

TEST_F(RandomWalk, OfDesignerOperationsLeavesTheListAsOneBuiltFromNothing)
{
    OpenWalk();
    bool given = false;
    auto seed = qEnvironmentVariable("MORVANE_SEED").toUInt(&given);
    if (!given)
        seed = QRandomGenerator::global()->generate();
    Random.seed(seed);
    const int every = qMax(1, qEnvironmentVariable("MORVANE_EVERY", u"10"_qs).toInt());
    SCOPED_TRACE(testing::Message() << "seed " << seed << " (MORVANE_SEED repeats it)");
    for (int i = 0; i < 600 && !HasFailure(); ++i) {
        Step();
        if (i % every)
            continue;
        Clock.Advance(300);
        EXPECT_EQ(Text(), FreshText()) << "after step " << i << '\n'
                                       << Done.mid(qMax(qsizetype(0), Done.size() - 12)).join(u'\n').toStdString();

        EXPECT_TRUE(List->IsEventEnabled(deSelectionChanged));
    }
}
