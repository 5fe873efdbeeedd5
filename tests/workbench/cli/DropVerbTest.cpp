#include "cli/CommandLineFixture.h"

#include "cli/LineDifference.h"

#include <unistd.h>

class DropVerb : public CommandLineFixture {
protected:
    void SetUp() override { CopyExample(QStringLiteral("bookshop")); }

    Ran Drop(const QStringList& items, const QStringList& more = {})
    {
        QStringList arguments { QStringLiteral("drop"), InCopy(QStringLiteral("bookshop.dproj")),
            QStringLiteral("--form"), QStringLiteral("MainForm") };
        for (const auto& item : items)
            arguments << QStringLiteral("--item") << item;
        return Morvane(arguments + more);
    }

    // What differs from the example as it is delivered.
    std::string Difference(const QString& file)
    {
        QFile original(QStringLiteral(MORVANE_SOURCE_DIR "/examples/bookshop/") + file);
        EXPECT_TRUE(original.open(QIODevice::ReadOnly));
        return LineDifference(original.readAll(), Content(file)).join(u'\n').toStdString();
    }
};

TEST_F(DropVerb, AFieldAddsItsLabelAndItsBoundControlToFormAndUnitAndNothingElse)
{
    const auto ran
        = Drop({ QStringLiteral("dmBookshop.qryBooks.Title") }, { QStringLiteral("--at"), QStringLiteral("16,480") });
    EXPECT_EQ(ran.Status, 0) << qPrintable(ran.Errors);
    EXPECT_EQ(Difference(QStringLiteral("Main.dfm")),
        "+  object Label1: TLabel\n+    Left = 16\n+    Top = 485\n+    Width = 33\n+    Height = 14\n"
        "+    Caption = 'Title'\n+  end\n+  object DBEdit1: TDBEdit\n+    Left = 16\n+    Top = 502\n+    Width = 121\n"
        "+    Height = 23\n+    TabOrder = 3\n+    DataSource = dmBookshop.dsBooks\n+    DataField = 'Title'\n+  end");
    EXPECT_EQ(Difference(QStringLiteral("Main.pas")), "+    Label1: TLabel;\n+    DBEdit1: TDBEdit;");
}

TEST_F(DropVerb, ADatasetBecomesAGridOnTheDataSourceThatIsThere)
{
    const auto ran
        = Drop({ QStringLiteral("dmBookshop.qryOrders") }, { QStringLiteral("--at"), QStringLiteral("16,480") });
    EXPECT_EQ(ran.Status, 0) << qPrintable(ran.Errors);
    EXPECT_EQ(Difference(QStringLiteral("Main.dfm")),
        "+  object DBGrid1: TDBGrid\n+    Left = 16\n+    Top = 485\n+    Width = 320\n+    Height = 120\n"
        "+    TabOrder = 3\n+    DataSource = dmBookshop.dsOrders\n+  end");
}

TEST_F(DropVerb, ADatasetAsDetailsBecomesAControlForEachField)
{
    const auto ran
        = Drop({ QStringLiteral("dmBookshop.qryOrders") }, { QStringLiteral("--control"), QStringLiteral("Details") });
    EXPECT_EQ(ran.Status, 0) << qPrintable(ran.Errors);
    const auto form = QString::fromStdString(Difference(QStringLiteral("Main.dfm")));
    EXPECT_EQ(form.count(QStringLiteral("DataSource = dmBookshop.dsOrders")), 6);
    EXPECT_FALSE(form.contains(QStringLiteral("\n-")));
}

TEST_F(DropVerb, SeveralItemsStackDownwards)
{
    Drop({ QStringLiteral("dmBookshop.qryBooks.Title"), QStringLiteral("dmBookshop.qryBooks.ISBN") },
        { QStringLiteral("--at"), QStringLiteral("16,480") });
    const auto form = QString::fromStdString(Difference(QStringLiteral("Main.dfm")));
    EXPECT_TRUE(form.contains(QStringLiteral("Top = 502"))) << qPrintable(form);
    EXPECT_TRUE(form.contains(QStringLiteral("Top = 530"))) << qPrintable(form);
}

TEST_F(DropVerb, ASecondDropOfADatasetMakesNoSecondDataSource)
{
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(Drop({ QStringLiteral("dmBookshop.qryAuthors") }).Status, 0);
    EXPECT_FALSE(
        QString::fromStdString(Difference(QStringLiteral("Main.dfm"))).contains(QStringLiteral(": TDataSource")));
    EXPECT_EQ(Difference(QStringLiteral("BookshopData.dfm")), "");
}

TEST_F(DropVerb, ATrialSavesNothing)
{
    const auto ran = Drop({ QStringLiteral("dmBookshop.qryBooks.Title") }, { QStringLiteral("--dry-run") });
    EXPECT_TRUE(ran.Output.contains(QStringLiteral("+  object DBEdit1: TDBEdit")));
    EXPECT_EQ(Difference(QStringLiteral("Main.dfm")), "");
    EXPECT_EQ(Difference(QStringLiteral("Main.pas")), "");
}

TEST_F(DropVerb, AFormWithClassesThatNobodyKnowsKeepsThemToTheByte)
{
    QFile form(InCopy(QStringLiteral("Main.dfm")));
    ASSERT_TRUE(form.open(QIODevice::ReadOnly));
    auto text = form.readAll();
    form.close();
    const auto at = text.lastIndexOf("end");
    text.insert(at,
        "  object Gauge1: TNobodysGauge\r\n    Left = 4\r\n    Strange.Things = (\r\n      'a'#9'b'\r\n      $7F)\r\n"
        "    Looks = {0A0B}\r\n    object Needle: TNobodysNeedle\r\n      Angle = 45.500000000000000000\r\n    end\r\n"
        "  end\r\n");
    ASSERT_TRUE(form.open(QIODevice::WriteOnly));
    form.write(text);
    form.close();
    EXPECT_EQ(Drop({ QStringLiteral("dmBookshop.qryBooks.Title") }).Status, 0);
    const auto lines = LineDifference(text, Content(QStringLiteral("Main.dfm")));
    EXPECT_FALSE(lines.isEmpty());
    for (const auto& line : lines)
        EXPECT_TRUE(line.startsWith(u'+')) << qPrintable(line);
}

TEST_F(DropVerb, AnItemThatIsNotThereIsNamed)
{
    const auto ran = Drop({ QStringLiteral("dmBookshop.qryNone") });
    EXPECT_EQ(ran.Status, 1);
    EXPECT_TRUE(ran.Errors.contains(QStringLiteral("dmBookshop.qryNone")));
}

TEST_F(DropVerb, AReadOnlyFolderKeepsTheOldFilesAndSaysSo)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "root writes everywhere";
    QFile::setPermissions(InCopy(QString()), QFile::ReadOwner | QFile::ExeOwner);
    const auto ran = Drop({ QStringLiteral("dmBookshop.qryBooks.Title") });
    QFile::setPermissions(InCopy(QString()), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(ran.Status, 1);
    EXPECT_EQ(Difference(QStringLiteral("Main.dfm")), "");
}
