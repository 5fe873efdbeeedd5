#include "data/TField.h"
#include "plugin/model/ModelFixture.h"
#include "support/LogText.h"

namespace {

class WaitingForTheEndOfABurst : public ModelFixture {
protected:
    void SetUp() override { OpenShop(); }
    TField* Title() { return dynamic_cast<TField*>(Component(u"Data.BooksTitle"_qs)); }
};

}

TEST_F(WaitingForTheEndOfABurst, EachItemRestartsTheInterval)
{
    auto* books = DataSet(u"Data.Books"_qs);
    for (int i = 0; i < 5; ++i) {
        List->FDefferedAddField->AddItem(books, false);
        Clock.Advance(40);
    }
    EXPECT_EQ(Events->Take(), "");
    Clock.Advance(10);
    EXPECT_EQ(Events->Take(), "BeginUpdate\nOnRefershChildObject Data.Books 3\nEndUpdate True\n");
    Clock.Advance(500);
    EXPECT_EQ(Events->Take(), "");
    EXPECT_TRUE(Clock.Idle());
}

TEST_F(WaitingForTheEndOfABurst, ADatasetIsRefreshedOnceAndInTheOrderOfArrival)
{
    List->FDefferedAddField->AddItem(DataSet(u"Data.Books"_qs), false);
    List->FDefferedAddField->AddItem(DataSet(u"Data.Authors"_qs), true);
    List->FDefferedAddField->AddItem(DataSet(u"Data.Books"_qs), false);
    Clock.Advance(50);
    EXPECT_EQ(Events->Take(),
        "BeginUpdate\nOnRefershChildObject Data.Books 3\nOnRefershChildObject Data.Authors 3\nEndUpdate True\n");
}

TEST_F(WaitingForTheEndOfABurst, NothingIsDeletedWithNothingPending)
{
    DataSet(u"Data.Books"_qs)->FDeleted = true;
    List->FDefferdDeleteDataSet->OnTimer(nullptr);
    EXPECT_EQ(Events->Take(), "");
    EXPECT_EQ(List->GetItemCount(), 2);
    List->FDefferdDeleteDataSet->AddItem(DataSet(u"Data.Books"_qs), false);
    EXPECT_EQ(List->FDefferdDeleteDataSet->FCount, 1);
    Clock.Advance(99);
    EXPECT_EQ(List->GetItemCount(), 2);
    Clock.Advance(1);
    EXPECT_EQ(Events->Take(), "OnComponentDelete\n");
    EXPECT_EQ(List->GetItemCount(), 1);
    EXPECT_EQ(List->FDefferdDeleteDataSet->FCount, 0);
}

TEST_F(WaitingForTheEndOfABurst, WithTheProjectGoneTheItemIsKeptAndNothingRuns)
{
    List->FSvcManager->FProjectDestroyed = true;
    List->FDefferdDeleteDataSet->AddItem(DataSet(u"Data.Books"_qs), false);
    List->FDefferedAddField->AddItem(DataSet(u"Data.Books"_qs), false);
    EXPECT_EQ(List->FDefferdDeleteDataSet->FCount, 1);
    EXPECT_TRUE(Clock.Idle());
    Clock.Advance(500);
    EXPECT_EQ(Events->Take(), "");
    List->FSvcManager->FProjectDestroyed = false;
    List->FDefferedAddField->AddItem(DataSet(u"Data.Authors"_qs), false);
    Clock.Advance(50);
    EXPECT_EQ(Events->Take(),
        "BeginUpdate\nOnRefershChildObject Data.Books 3\nOnRefershChildObject Data.Authors 3\nEndUpdate True\n");
}

TEST_F(WaitingForTheEndOfABurst, AFailureDropsTheBatchAndEndsTheUpdate)
{
    QFile log(Folder.filePath(u"Morvane_ErrorEvents.log"_qs));
    SetPreference(u"DebugMode"_qs, u"True"_qs);
    SetPreference(u"DebugPath"_qs, Folder.path());
    ASSERT_TRUE(log.open(QIODevice::ReadWrite));
    Events->OnLine = [](const QString& line) {
        if (line.startsWith(u"OnRefersh"))
            throw Exception(u"no luck"_qs);
    };
    // The text is the one of the callback that adds, also where fields go.
    List->FDefferedDeleteField->AddItem(DataSet(u"Data.Books"_qs), false);
    Clock.Advance(50);
    EXPECT_EQ(Events->Take(), "BeginUpdate\nOnRefershChildObject Data.Books 4\nEndUpdate False\n");
    EXPECT_EQ(LogText::Read(log.fileName()),
        LogText::Of({ u"TDefferedAddField.Timer - failed!"_qs, u"Exception.Message is 'no luck'"_qs }));
    Events->OnLine = nullptr;
    List->FDefferedDeleteField->OnTimer(nullptr);
    EXPECT_EQ(Events->Take(), "");
}

TEST_F(WaitingForTheEndOfABurst, AChangedConnectionRunsAtOnceOrLaterAndForDatasetsAlone)
{
    List->FDefferedOnSessionChange->AddItem(ConnectionOf(u"Data.Shop"_qs), true);
    EXPECT_EQ(Events->Take(), "");
    EXPECT_TRUE(Clock.Idle());
    List->FDefferedOnSessionChange->AddItem(DataSet(u"Data.Books"_qs), true);
    EXPECT_EQ(Events->Take(), "OnSessionChanged\n");
    EXPECT_TRUE(DataSet(u"Data.Books"_qs)->FSessionChanged);
    List->FDefferedOnSessionChange->AddItem(DataSet(u"Data.Authors"_qs), false);
    EXPECT_EQ(Events->Take(), "");
    List->DisableEvents(deOnItemModified);
    Clock.Advance(50);
    EXPECT_EQ(Events->Take(), "OnSessionChanged\n");
    EXPECT_TRUE(List->IsEventEnabled(deOnItemModified));
}

TEST_F(WaitingForTheEndOfABurst, InheritedFieldsAreTakenTogether)
{
    auto* title = Title();
    List->FDefferedDescendantFieldCallBack->AddItem(title, 5);
    List->FDefferedDescendantFieldCallBack->AddItem(title, 5);
    Clock.Advance(50);
    EXPECT_EQ(Events->Take(), "BeginUpdate\nEndUpdate False\n");
    Clock.Advance(50);
    EXPECT_EQ(Events->Take(), "BeginUpdate\nOnRefershChildObject Data.Books 3\nEndUpdate True\n");
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(WaitingForTheEndOfABurst, AFieldThatWentMeanwhileIsPassedOver)
{
    List->FDefferedDescendantFieldCallBack->AddItem(Title(), 5);
    DesignerOf(u"Data"_qs).DeleteComponents({ Component(u"Data.BooksTitle"_qs) });
    Clock.Advance(200);
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(WaitingForTheEndOfABurst, WithoutASinkNothingIsLost)
{
    List->FDefferedAddField->AddItem(DataSet(u"Data.Books"_qs), false);
    const auto sink = std::exchange(List->FEvents, nullptr);
    Clock.Advance(50);
    List->FEvents = sink;
    List->FDefferedAddField->OnTimer(nullptr);
    EXPECT_EQ(Events->Take(), "BeginUpdate\nOnRefershChildObject Data.Books 3\nEndUpdate True\n");
}

TEST_F(WaitingForTheEndOfABurst, WhatIsPendingGoesWithTheList)
{
    List->FDefferedAddField->AddItem(DataSet(u"Data.Books"_qs), false);
    List->FDefferdDeleteDataSet->AddItem(DataSet(u"Data.Authors"_qs), false);
    Events->Take();
    List.Clear();
    EXPECT_TRUE(Clock.Idle());
    Clock.Advance(500);
    // The end of the listener on the project is told all the same.
    EXPECT_EQ(Events->Take(), "OnProjectClosed\nOnProjectRenamed\n");
}
