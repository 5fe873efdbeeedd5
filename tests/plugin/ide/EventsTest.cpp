#include "classes/Forms.h"
#include "ide/MrvEvents.h"
#include "support/PrintQt.h"
#include "support/ToolWindowFixture.h"

#include <QCoreApplication>

namespace {

// A window that writes down what it is told, and fails when the test says so.
class Target : public QObject, public TForm, public TMrvToolWindowTarget {
public:
    QStringList Told;
    bool Fails = false;
    void Note(const QString& text)
    {
        if (Fails)
            throw Exception(u"no luck"_qs);
        Told << text;
    }
    void OnProjectOpened(IMrvEvents*) override { Note(u"OnProjectOpened"_qs); }
    void OnProjectClosed() override { Note(u"OnProjectClosed"_qs); }
    void ComponentDeleted(IMrvEvents*) override { Note(u"ComponentDeleted"_qs); }
    void ComponentInserted(IMrvEvents*, const InterfacePtr<IMrvCustomComponentAttr>&) override
    {
        Note(u"ComponentInserted"_qs);
    }
    void ComponentRenamed(
        IMrvEvents*, const QString& oldName, const QString& newName, const InterfacePtr<IMrvDataSetAttr>&) override
    {
        Note(u"ComponentRenamed "_qs + oldName + u' ' + newName);
    }
    void RefreshDataSetList(IMrvEvents*, const QString& formName, TMrvRefreshMode mode, bool reload) override
    {
        Note(u"RefreshDataSetList %1 %2 %3"_qs.arg(formName).arg(mode).arg(reload));
    }
    void RefreshFields(IMrvEvents*, const InterfacePtr<IMrvDataSetAttr>&, const QString& name, int action) override
    {
        Note(u"RefreshFields %1 %2"_qs.arg(name).arg(action));
    }
    void RefreshFieldDefs(IMrvEvents*, const InterfacePtr<IMrvDataSetAttr>&) override { Note(u"RefreshFieldDefs"_qs); }
    void OnFieldIndexModified(IMrvEvents*, const InterfacePtr<IMrvDataSetAttr>&, const InterfacePtr<IMrvFieldAttr>&,
        int oldIndex, int newIndex) override
    {
        Note(u"OnFieldIndexModified %1 %2"_qs.arg(oldIndex).arg(newIndex));
    }
    void OnProjectRenamed(IMrvEvents*, const QString& name) override { Note(u"OnProjectRenamed "_qs + name); }
    void OnSessionChanged() override { Note(u"OnSessionChanged"_qs); }
    void OnFormRenamed(const QString& a, const QString& b) override { Note(u"OnFormRenamed "_qs + a + u' ' + b); }
    void OnSessionRenamed(const QString& a, const QString& b) override { Note(u"OnSessionRenamed "_qs + a + u' ' + b); }
    void OnSelectionChanged() override { Note(u"OnSelectionChanged"_qs); }
    void OnFormSelected(const QString& name) override { Note(u"OnFormSelected "_qs + name); }
    void BeginUpdate() override { Note(u"BeginUpdate"_qs); }
    void EndUpdate(WordBool sort) override { Note(u"EndUpdate %1"_qs.arg(bool(sort))); }
    void BeginDelete() override { Note(u"BeginDelete"_qs); }
    void EndDelete() override { Note(u"EndDelete"_qs); }
    QObject* Handle() override
    {
        if (Fails)
            throw Exception(u"no luck"_qs);
        return this;
    }
    void customEvent(QEvent*) override { Told << u"message"_qs; }
};

class TheEventSink : public ToolWindowFixture {
protected:
    InterfacePtr<TEvents> Sink = New<TEvents>();
    Target Form;

    // Every operation that forwards, in the order of its failure's text.
    void CallAll()
    {
        Sink->BeginUpdate();
        Sink->EndUpdate(true);
        Sink->OnComponentDelete();
        Sink->OnComponentInsert(nullptr);
        Sink->OnComponentRename(u"a"_qs, u"b"_qs, nullptr);
        Sink->OnFieldIndexModified(nullptr, nullptr, 1, 2);
        Sink->OnFormRenamed(u"a"_qs, u"b"_qs);
        Sink->OnFormSelected(u"a"_qs);
        Sink->OnProjectClosed();
        Sink->OnProjectOpened();
        Sink->OnProjectRenamed(u"a"_qs);
        Sink->OnRefershChildObject(nullptr, u"a"_qs, 3);
        Sink->OnRefreshDatasetList(u"a"_qs, rmRemove);
        Sink->OnRefreshFieldDefs(nullptr);
        Sink->OnSelectionChanged();
        Sink->OnSessionChanged();
        Sink->OnSessionRenamed(u"a"_qs, u"b"_qs);
        Sink->SendRefreshMessage({}, rmAdd);
        Sink->ShowMainForm();
        Sink->BeginDelete();
        Sink->EndDelete();
    }
    static QStringList Failures(const QStringList& operations, const QString& message)
    {
        QStringList lines;
        for (const auto& operation : operations)
            lines << u"TEvents.%1 - failed!"_qs.arg(operation) << u"Exception.Message is '%1'"_qs.arg(message);
        return lines;
    }
    void UseLog()
    {
        StartLog();
        MrvConfigurationService = New<TMrvConfigurationService>();
    }
    void TearDown() override { MrvConfigurationService = nullptr; }
};

}

TEST_F(TheEventSink, ForwardsEachOperationToTheWindow)
{
    Sink->RegisterForm(&Form);
    CallAll();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(Form.Told,
        QStringList({ u"BeginUpdate"_qs, u"EndUpdate 1"_qs, u"ComponentDeleted"_qs, u"ComponentInserted"_qs,
            u"ComponentRenamed a b"_qs, u"OnFieldIndexModified 1 2"_qs, u"OnFormRenamed a b"_qs, u"OnFormSelected a"_qs,
            u"OnProjectClosed"_qs, u"OnProjectOpened"_qs, u"OnProjectRenamed a"_qs, u"RefreshFields a 3"_qs,
            u"RefreshDataSetList a 1 0"_qs, u"RefreshFieldDefs"_qs, u"OnSelectionChanged"_qs, u"OnSessionChanged"_qs,
            u"OnSessionRenamed a b"_qs, u"BeginDelete"_qs, u"EndDelete"_qs, u"message"_qs, u"message"_qs }));
}

TEST_F(TheEventSink, LogsEachFailureAndLetsNoneThrough)
{
    UseLog();
    Form.Fails = true;
    Sink->RegisterForm(&Form);
    CallAll();
    EXPECT_EQ(TakeLog(),
        LogText::Of(
            Failures({ u"BeginUpdate"_qs, u"EndUpdate"_qs, u"OnComponentDelete"_qs, u"OnComponentInsert"_qs,
                         u"OnComponentRename"_qs, u"OnFieldIndexModified"_qs, u"OnFormRenamed"_qs, u"OnFormSelected"_qs,
                         u"OnProjectClosed"_qs, u"OnProjectOpened"_qs, u"OnProjectRenamed"_qs,
                         u"OnRefershChildObject"_qs, u"OnRefreshDatasetList"_qs, u"OnRefreshFieldDefs"_qs,
                         u"OnSelectionChanged"_qs, u"OnSessionChanged"_qs, u"OnSessionRenamed"_qs,
                         u"SendRefreshMessage"_qs, u"ShowMainForm"_qs, u"BeginDelete"_qs, u"EndDelete"_qs },
                u"no luck"_qs)));
}

TEST_F(TheEventSink, WithoutAWindowTheThreeGatedEventsFailAndTheRestIsSilent)
{
    UseLog();
    Sink->RegisterForm(&Form);
    Sink->UnRegisterForm();
    CallAll();
    EXPECT_EQ(TakeLog(),
        LogText::Of(Failures({ u"OnComponentDelete"_qs, u"OnComponentInsert"_qs, u"OnRefershChildObject"_qs },
            u"No tool window is registered"_qs)));
    EXPECT_EQ(Form.Told, QStringList());
}

TEST_F(TheEventSink, DisablesByFlagsAndNotByCounting)
{
    Sink->RegisterForm(&Form);
    Sink->DisableEvents(deComponentInserted);
    Sink->DisableEvents(deComponentInserted);
    Sink->OnComponentInsert(nullptr);
    EXPECT_EQ(Form.Told, QStringList());
    EXPECT_FALSE(Sink->IsEventEnabled(deComponentInserted));
    EXPECT_TRUE(Sink->IsEventEnabled(deComponentDeleted));
    Sink->EnableEvents(deComponentInserted);
    EXPECT_TRUE(Sink->IsEventEnabled(deComponentInserted));
    Sink->OnComponentInsert(nullptr);
    EXPECT_EQ(Form.Told, QStringList(u"ComponentInserted"_qs));
    Sink->DisableEvents(deComponentDeleted);
    Sink->DisableEvents(deOnRefreshChildObject);
    Sink->OnComponentDelete();
    Sink->OnRefershChildObject(nullptr, {}, 0);
    EXPECT_EQ(Form.Told.size(), 1);
}

TEST_F(TheEventSink, AValueAboveSevenIsAlwaysEnabled)
{
    Sink->DisableEvents(TDisableEvent(8));
    EXPECT_EQ(Sink->FDisabledEvents, 0);
    EXPECT_TRUE(Sink->IsEventEnabled(TDisableEvent(8)));
    Sink->DisableEvents(TDisableEvent(7));
    EXPECT_EQ(Sink->FDisabledEvents, 128);
    Sink->EnableEvents(TDisableEvent(8));
    EXPECT_EQ(Sink->FDisabledEvents, 128);
}

TEST_F(TheEventSink, ARefreshThatIsPostedRunsLater)
{
    StartShown();
    OpenShop();
    const auto text = Text();
    Node(u"Data.Books"_qs)->SetText(u"?"_qs);
    MrvApiProxy->FEvents->SendRefreshMessage(u"ignored"_qs, rmRemove);
    EXPECT_NE(Text(), text);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(Text(), text);
}
