#include "cli/CommandLineFixture.h"

#include "app/Session.h"
#include "services/Module.h"

#include <QStandardPaths>

// Forms of the Lazarus example are renamed and saved under other names; what comes out goes through the real compiler,
// and its program shows the shop.
class RenamedLazarus : public CommandLineFixture {
protected:
    void SetUp() override
    {
        for (const auto* tool : { "lazbuild", "Xvfb", "xdotool", "xclip" })
            if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty())
                GTEST_SKIP() << tool << " is not installed";
        CopyExample(QStringLiteral("bookshop-lazarus"));
        SessionOptions options;
        options.PrivateConfiguration = true;
        TheSession = std::make_unique<Session>(std::move(options));
        ASSERT_TRUE(TheHost().Open(InCopy(QStringLiteral("shop.lpi"))));
    }
    Host& TheHost() { return TheSession->TheHost(); }
    Module& Form(const char* name) { return *TheHost().FormModule(QLatin1String(name)); }
    void Rename(const char* form, const char* newName)
    {
        auto& designer = Form(form).TheDesigner();
        designer.RenameComponent(*designer.Root(), QLatin1String(newName));
    }
    void SaveAs(const char* form, const char* file)
    {
        const auto failure = TheHost().SaveAs(Form(form), InCopy(QLatin1String(file)));
        EXPECT_FALSE(failure) << failure->ToString().toStdString();
    }
    // The old files would hide what still names them.
    void Remove(std::initializer_list<const char*> files)
    {
        for (const auto* file : files)
            EXPECT_TRUE(QFile::remove(InCopy(QLatin1String(file)))) << file;
    }
    void Build()
    {
        TheSession.reset();
        const auto built = Run(QStringLiteral("lazbuild"),
            { QStringLiteral("--lazarusdir=/usr/lib/lazarus/2.2.6"), QStringLiteral("--ws=gtk2"),
                InCopy(QStringLiteral("shop.lpi")) });
        ASSERT_EQ(built.Status, 0) << qPrintable(built.Output) << qPrintable(built.Errors);
    }
    std::string ShownTitle()
    {
        const auto shown = Run(QStringLiteral(MORVANE_SOURCE_DIR "/tests/workbench/journey/read-dropped-control.sh"),
            { InCopy(QStringLiteral("shop")), TitleLeft, TitleTop });
        EXPECT_EQ(shown.Status, 0) << qPrintable(shown.Errors);
        return shown.Output.trimmed().toStdString();
    }

    const QString TitleLeft = QStringLiteral("400");
    const QString TitleTop = QStringLiteral("202");
    std::unique_ptr<Session> TheSession;
};

TEST_F(RenamedLazarus, TheProgramBuildsAndShowsTheRowAfterEveryFormWasRenamed)
{
    Rename("dmShop", "dmBooks");
    Rename("frmMain", "frmShop");
    Rename("frmOrders", "frmSales");
    ASSERT_FALSE(TheHost().SaveAll());
    Build();
    EXPECT_EQ(ShownTitle(), "Jane Eyre");
}

TEST_F(RenamedLazarus, TheProgramBuildsAndShowsTheRowAfterEveryFormWasSavedUnderAnotherName)
{
    TheHost().OpenModuleFile(InCopy(QStringLiteral("ordersform.pas")));
    SaveAs("dmShop", "books.pas");
    SaveAs("frmMain", "shopwindow.pas");
    SaveAs("frmOrders", "Sales.pas");
    Remove({ "shopdata.pas", "shopdata.lfm", "mainform.pas", "mainform.lfm", "ordersform.pas", "ordersform.lfm" });
    Build();
    EXPECT_EQ(ShownTitle(), "Jane Eyre");
}

TEST_F(RenamedLazarus, TheProgramBuildsAfterAFormMovedToAnotherFolder)
{
    QDir().mkpath(InCopy(QStringLiteral("forms")));
    SaveAs("frmMain", "forms/shopwindow.pas");
    Remove({ "mainform.pas", "mainform.lfm" });
    Build();
}
