#include "support/MrvUtils.h"

#include "rtl/HelpUtil.h"
#include "rtl/TRegistry.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class Help : public testing::Test {
protected:
    Help()
    {
        TRegistryStore::SetDefault(&Registry);
        SetHelpHandler(
            [this](const QString& collection, const QString& topic) { Opened << collection + u' ' + topic; });
    }
    ~Help() override
    {
        SetHelpHandler({});
        TRegistryStore::SetDefault(nullptr);
    }

    // The product's key, with the directory it is installed in.
    void Register(const QString& product, const QString& value = u"InstallDirD29"_qs)
    {
        Registry.Write(uR"(Software\Bravik\)"_qs + product, value, Place(product));
    }
    QString Place(const QString& product) const { return Folder.filePath(product); }
    void WriteHelpFile(const QString& product) const
    {
        QDir().mkpath(Place(product) + u"/Doc"_qs);
        QFile file(Place(product) + u"/Doc/"_qs + product + u".hxs"_qs);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    void Install(const QString& product)
    {
        Register(product);
        WriteHelpFile(product);
    }

    QTemporaryDir Folder;
    TRegistryStore Registry { Folder.filePath(u"registry.ini"_qs) };
    QStringList Opened;
};

}

TEST_F(Help, NoProductIsFoundInAnEmptyRegistry)
{
    EXPECT_EQ(TMrvUtils::FindHelpProduct(), QString());
}

TEST_F(Help, AnInstalledProductIsFound)
{
    Install(u"Tansy"_qs);
    EXPECT_EQ(TMrvUtils::FindHelpProduct(), u"Tansy"_qs);
}

TEST_F(Help, OfTwoInstalledProductsTheFirstOfTheOrderWins)
{
    Install(u"Yarrow"_qs);
    Install(u"Sorrel"_qs);
    EXPECT_EQ(TMrvUtils::FindHelpProduct(), u"Sorrel"_qs);
}

TEST_F(Help, AProductWithAKeyButNoHelpFileIsPassedOver)
{
    Register(u"Fennel"_qs);
    Install(u"Yarrow"_qs);
    EXPECT_EQ(TMrvUtils::FindHelpProduct(), u"Yarrow"_qs);
}

TEST_F(Help, AProductInstalledForAnotherReleaseIsPassedOver)
{
    Register(u"Fennel"_qs, u"InstallDirD28"_qs);
    WriteHelpFile(u"Fennel"_qs);
    EXPECT_EQ(TMrvUtils::FindHelpProduct(), QString());
}

TEST_F(Help, TheInstallDirectoryMayEndWithASeparator)
{
    WriteHelpFile(u"Fennel"_qs);
    Registry.Write(uR"(Software\Bravik\Fennel)"_qs, u"InstallDirD29"_qs, Place(u"Fennel"_qs) + u'/');
    EXPECT_EQ(TMrvUtils::FindHelpProduct(), u"Fennel"_qs);
}

TEST_F(Help, ShowHelpOpensTheProductsTopicWhateverTheContext)
{
    Install(u"Fennel"_qs);
    TMrvUtils::ShowHelp(0);
    TMrvUtils::ShowHelp(4711);
    const auto topic = u"ms-help://Bravik.Fennel ms-help://Bravik.Fennel/Fennel/Work_Morvane.htm"_qs;
    EXPECT_EQ(Opened, (QStringList { topic, topic }));
}

TEST_F(Help, WithoutAProductTheUrlsHaveEmptyParts)
{
    TMrvUtils::ShowHelp(0);
    EXPECT_EQ(Opened, QStringList(u"ms-help://Bravik. ms-help://Bravik.//Work_Morvane.htm"_qs));
}

TEST_F(Help, WithoutAHostThatShowsHelpNothingHappens)
{
    SetHelpHandler({});
    TMrvUtils::ShowHelp(0);
    EXPECT_EQ(Opened, QStringList());
}
