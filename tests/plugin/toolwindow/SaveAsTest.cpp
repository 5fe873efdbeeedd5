#include "support/ToolWindowFixture.h"

#include <QDir>

// The tree, when a form or a data module is saved under another name or its root is renamed.

namespace {

class SavedUnderAnotherName : public ToolWindowFixture {
protected:
    void SaveAs(const QString& form, const QString& fileName)
    {
        const auto failure = TheHost->SaveAs(FormOf(form), fileName);
        EXPECT_FALSE(failure) << failure->ToString().toStdString();
        Settle();
    }
    // The tree of the project as it stands on disk, opened by a person who comes anew.
    std::string Reopened()
    {
        const auto project = TheHost->ActiveProject()->GetFileName();
        EXPECT_TRUE(TheHost->Open(project));
        Settle();
        return Text();
    }
    static int Count(const std::string& text, const std::string& caption)
    {
        int count = 0;
        for (auto at = text.find(caption + '\n'); at != std::string::npos; at = text.find(caption + '\n', at + 1))
            ++count;
        return count;
    }
    // An example on disk in a folder of the test's own, opened.
    void OpenExample(const QString& example, const QString& project)
    {
        Copy = Folder.filePath(example);
        QDir().mkpath(Copy);
        const QDir source(QStringLiteral(MORVANE_SOURCE_DIR "/examples/") + example);
        for (const auto& file : source.entryList(QDir::Files))
            QFile::copy(source.filePath(file), Copy + u'/' + file);
        ASSERT_TRUE(TheHost->Open(Copy + u'/' + project));
        Settle();
    }
    void Insert(const QString& form, const QString& className)
    {
        DesignerOf(form).CreateComponent(GetClass(className), nullptr, 8, 8, 0, 0);
        Settle();
    }

    QString Copy;
};

class InEveryGrouping : public SavedUnderAnotherName, public ::testing::WithParamInterface<TGroupMode> { };

}

TEST_P(InEveryGrouping, TheTreeStaysAndIsThatOfTheProjectOpenedAnew)
{
    StartShown();
    OpenShop();
    Group(GetParam());
    SaveAs(u"Data"_qs, Shop.Path(u"Store.pas"_qs));
    const auto after = Text();
    EXPECT_EQ(after, FreshText());
    EXPECT_EQ(after, Reopened());
}

TEST_P(InEveryGrouping, OneInsertionMakesOneNode)
{
    StartShown();
    OpenShop();
    Group(GetParam());
    SaveAs(u"Data"_qs, Shop.Path(u"Store.pas"_qs));
    Insert(u"Data"_qs, u"TZAQuery"_qs);
    AddField(u"Data.Books"_qs, u"Price"_qs);
    Settle();
    const auto after = Text();
    EXPECT_EQ(Count(after, "ZAQuery1"), 1) << after;
    EXPECT_EQ(after, FreshText());
    ASSERT_FALSE(TheHost->SaveAll());
    EXPECT_EQ(after, Reopened());
}

INSTANTIATE_TEST_SUITE_P(SavedUnderAnotherName, InEveryGrouping, ::testing::Values(gmNone, gmForm, gmSession));

TEST_F(SavedUnderAnotherName, TwiceIsAsGoodAsOnce)
{
    StartShown();
    OpenShop();
    const auto before = Text();
    SaveAs(u"Data"_qs, Shop.Path(u"Store.pas"_qs));
    SaveAs(u"Data"_qs, Shop.Path(u"Stock.pas"_qs));
    SaveAs(u"Data"_qs, Shop.Path(u"DataUnit.pas"_qs));
    EXPECT_EQ(Text(), before);
    Insert(u"Data"_qs, u"TZAQuery"_qs);
    Rename(u"Data.Books"_qs, u"Titles"_qs);
    Delete({ u"Data.Loose"_qs });
    Settle();
    EXPECT_EQ(Text(), FreshText());
    ASSERT_FALSE(TheHost->SaveAll());
    EXPECT_EQ(Text(), Reopened());
}

TEST_F(SavedUnderAnotherName, TheNodesSelectWithTheFormAndGoWithIt)
{
    StartShown();
    OpenShop();
    SaveAs(u"Data"_qs, Shop.Path(u"Store.pas"_qs));
    DesignerOf(u"Data"_qs).SelectComponent(Component(u"Data.Books"_qs));
    EXPECT_TRUE(Node(u"Data.Books"_qs)->Selected());
    TheHost->CloseModule(FormOf(u"Data"_qs));
    Settle();
    EXPECT_EQ(Text(), FreshText());
    EXPECT_EQ(Node(u"Data.Books"_qs), nullptr);
}

TEST_F(SavedUnderAnotherName, ARenamedConnectionKeepsItsDatasets)
{
    StartShown();
    OpenShop();
    Group(gmSession);
    SaveAs(u"Data"_qs, Shop.Path(u"Store.pas"_qs));
    Rename(u"Data.Shop"_qs, u"Stock"_qs);
    Settle();
    EXPECT_EQ(Text(), FreshText());
}

TEST_F(SavedUnderAnotherName, ALazarusFormIsFollowedOn)
{
    StartShown();
    OpenExample(u"bookshop-lazarus"_qs, u"shop.lpi"_qs);
    const auto before = Text();
    SaveAs(u"dmShop"_qs, Copy + u"/books.pas"_qs);
    EXPECT_EQ(Text(), before);
    Insert(u"dmShop"_qs, u"TSQLQuery"_qs);
    const auto after = Text();
    EXPECT_EQ(Count(after, "  dmShop.SQLQuery1"), 1) << after;
    EXPECT_EQ(after, FreshText());
    ASSERT_FALSE(TheHost->SaveAll());
    EXPECT_EQ(after, Reopened());
}

TEST_F(SavedUnderAnotherName, ACppFormIsFollowedOn)
{
    StartShown();
    OpenExample(u"bookshop-cpp"_qs, u"shopcpp.cbproj"_qs);
    const auto before = Text();
    SaveAs(u"dmShop"_qs, Copy + u"/Books.cpp"_qs);
    EXPECT_EQ(Text(), before);
    Insert(u"dmShop"_qs, u"TZAQuery"_qs);
    const auto after = Text();
    EXPECT_EQ(Count(after, "  dmShop.ZAQuery1"), 1) << after;
    EXPECT_EQ(after, FreshText());
    TheHost->CloseModule(FormOf(u"dmShop"_qs));
    Settle();
    EXPECT_EQ(Node(u"dmShop.qryBooks"_qs), nullptr) << Text();
}

TEST_F(SavedUnderAnotherName, ARenamedRootIsCalledSoInTheTreeAndBackAgain)
{
    StartShown();
    OpenExample(u"bookshop"_qs, u"bookshop.dproj"_qs);
    const auto before = Text();
    auto& data = DesignerOf(u"dmBookshop"_qs);
    data.RenameComponent(*data.Root(), u"dmStock"_qs);
    Settle();
    EXPECT_EQ(Text(), FreshText());
    EXPECT_NE(Text().find("dmStock.qryBooks"), std::string::npos);
    ASSERT_TRUE(TheHost->Undo().Undo());
    Settle();
    EXPECT_EQ(Text(), FreshText());
    EXPECT_EQ(Text().find("dmStock"), std::string::npos);
}
