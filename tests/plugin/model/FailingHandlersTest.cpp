#include "ModelFixture.h"

#include "data/TField.h"
#include "ide/MrvNotifiers.h"
#include "support/LogText.h"

#include <gmock/gmock.h>

namespace {

// A form editor that has lost its form.
class BrokenEditor : public Implements<TInterfacedObject, IOTAFormEditor> {
public:
    QString GetFileName() override { return u"DataUnit.dfm"_qs; }
    IOTAModule* GetModule() override { return nullptr; }
    bool GetModified() override { return false; }
    int AddNotifier(const InterfacePtr<IOTANotifier>&) override { return 0; }
    void RemoveNotifier(int) override { }
    void Show() override { }
    InterfacePtr<IOTAComponent> GetRootComponent() override { return nullptr; }
    InterfacePtr<IOTAComponent> FindComponent(const QString&) override { return nullptr; }
    InterfacePtr<IOTAComponent> GetComponentFromHandle(TOTAHandle) override { throw Exception(u"no luck"_qs); }
};

// Each handler that the IDE or a timer calls, with a window that fails at what it is told.
class AFailingHandler : public ModelFixture {
protected:
    void SetUp() override
    {
        OpenShop();
        SetPreference(u"DebugMode"_qs, u"True"_qs);
        SetPreference(u"DebugPath"_qs, Folder.path());
        QFile log(LogFile());
        ASSERT_TRUE(log.open(QIODevice::WriteOnly));
    }
    QString LogFile() const { return Folder.filePath(u"Morvane_ErrorEvents.log"_qs); }
    std::string TakeLog()
    {
        const auto text = LogText::Read(LogFile());
        QFile::resize(LogFile(), 0);
        return text;
    }
    // From here on the window fails at what begins so.
    void FailAt(const QString& told)
    {
        Events->OnLine = [told](const QString& line) {
            if (line.startsWith(told))
                throw Exception(u"no luck"_qs);
        };
    }
    static std::string Failure(const QString& first, const QStringList& more = {})
    {
        return LogText::Of(QStringList { first, u"Exception.Message is 'no luck'"_qs } + more);
    }
    static QString Params(const QString& oldName, const QString& newName, const QString& className)
    {
        return u"Params: OldName is %1, NewName is %2;\r\n\t\t\t\tClassType is %3"_qs.arg(oldName, newName, className);
    }
    Designer& Data() { return DesignerOf(u"Data"_qs); }
    void Select(const QStringList& names)
    {
        const auto list = CreateSelectionList();
        for (const auto& name : names)
            list->Add(Component(name));
        Data().SetSelections(list);
    }
};

}

TEST_F(AFailingHandler, LogsTheNamesAndTheClassOfARenaming)
{
    FailAt(u"OnComponentRename"_qs);
    EXPECT_NO_THROW(Data().RenameComponent(*Component(u"Data.Books"_qs), u"Titles"_qs));
    EXPECT_EQ(TakeLog(),
        Failure(
            u"TDataSetList.OnComponentRenamed - failed!"_qs, { Params(u"Books"_qs, u"Titles"_qs, u"TZAQuery"_qs) }));
}

TEST_F(AFailingHandler, LogsAnInsertionWithoutAnOldName)
{
    FailAt(u"OnComponentInsert"_qs);
    EXPECT_NO_THROW(Data().CreateComponent(GetClass(u"TZATable"_qs), nullptr, 10, 10, 0, 0));
    // Before it stands the making of the wrapper.
    EXPECT_THAT(TakeLog(),
        testing::EndsWith(
            Failure(u"TDataSetList.OnComponentRenamed - failed!"_qs, { Params({}, u"ZATable1"_qs, u"TZATable"_qs) })));
}

TEST_F(AFailingHandler, LogsADeletionWhoseComponentCannotBeHad)
{
    TFormNotifier notifier(InterfacePtr<IOTAFormEditor>(New<BrokenEditor>()), nullptr);
    TakeLog();
    EXPECT_NO_THROW(List->OnComponentRenamed(&notifier, nullptr, u"Books"_qs, {}));
    EXPECT_EQ(TakeLog(),
        Failure(u"TDataSetList.OnComponentRenamed - failed!"_qs,
            { Params(u"Books"_qs, {}, u"unable extract component instance"_qs) }));
}

TEST_F(AFailingHandler, LogsTheClassOfADeletedItem)
{
    Select({ u"Data.BooksId"_qs, u"Data.BooksTitle"_qs });
    FailAt(u"BeginUpdate"_qs);
    EXPECT_NO_THROW(List->OnItemDeleted(nullptr, InterfacePtr<IDesigner>(&Data()), Component(u"Data.BooksTitle"_qs)));
    EXPECT_EQ(TakeLog(), Failure(u"TDataSetList.OnItemDeleted failed!"_qs, { u"AItem class name is TStringField"_qs }));
}

TEST_F(AFailingHandler, LogsEachSelectedClassOfAModification)
{
    Select({ u"Data.Books"_qs, u"Data.BooksTitle"_qs });
    dynamic_cast<TField*>(Component(u"Data.BooksTitle"_qs))->SetFieldName(u"Name"_qs);
    FailAt(u"OnRefershChildObject"_qs);
    EXPECT_NO_THROW(Data().Modified());
    EXPECT_EQ(TakeLog(),
        Failure(u"TDataSetList.OnItemModified - failed!"_qs,
            { u"Contents designer selection is: "_qs, u"SelectionList[0].ClassName: TZAQuery"_qs,
                u"SelectionList[1].ClassName: TStringField"_qs }));
}

TEST_F(AFailingHandler, LogsADefaultControlThatCannotBeMade)
{
    Personality()->AddDataSetInfo(u"Lost"_qs, u"TLostGrid"_qs);
    Personality()->SetDefaultDataSetInfo(u"TLostGrid"_qs);
    List->IntfPreferencesWasChanged();
    Data().Activate();
    EXPECT_NO_THROW(List->CreateDefaultControl(u"Data"_qs, u"Books"_qs));
    EXPECT_EQ(TakeLog(),
        LogText::Of({ u"TDataSetList.CreateDefaultControl - failed!"_qs,
            u"Exception.Message is 'Visual control TLostGrid is not installed in IDE'"_qs }));
}

TEST_F(AFailingHandler, LogsADeletionOfDatasetsOnce)
{
    Data().DeleteComponents({ Component(u"Data.Authors"_qs) });
    FailAt(u"OnComponentDelete"_qs);
    EXPECT_NO_THROW(Clock.Advance(100));
    EXPECT_EQ(TakeLog(), Failure(u"TDefferdDeleteDataSet.Timer - failed!"_qs));
    EXPECT_EQ(List->FDefferdDeleteDataSet->FCount, 0);
    EXPECT_NO_THROW(Clock.Advance(500));
    EXPECT_EQ(TakeLog(), "");
}

TEST_F(AFailingHandler, LogsAChangedConnectionAndHearsOfModificationsAgain)
{
    List->FDefferedOnSessionChange->AddItem(DataSet(u"Data.Books"_qs), false);
    List->DisableEvents(deOnItemModified);
    FailAt(u"OnSessionChanged"_qs);
    EXPECT_NO_THROW(Clock.Advance(50));
    EXPECT_EQ(TakeLog(), Failure(u"TDefferedOnSessionChange.OnTimer - failed!"_qs));
    EXPECT_TRUE(List->IsEventEnabled(deOnItemModified));
}

TEST_F(AFailingHandler, LogsTheFieldsOfAnInheritingForm)
{
    List->FDefferedDescendantFieldCallBack->AddItem(dynamic_cast<TField*>(Component(u"Data.BooksTitle"_qs)), 5);
    FailAt(u"BeginUpdate"_qs);
    EXPECT_NO_THROW(Clock.Advance(50));
    EXPECT_EQ(TakeLog(), Failure(u"TDefferedDescendantFieldCallBack.OnTimer - failed!"_qs));
}
