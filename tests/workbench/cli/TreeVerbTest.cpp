#include "cli/CommandLineFixture.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

using TreeVerb = CommandLineFixture;

TEST_F(TreeVerb, PrintsTheBookshopUngroupedToTheLetter)
{
    CopyExample(QStringLiteral("bookshop"));
    const auto ran = Morvane({ QStringLiteral("tree"), InCopy(QStringLiteral("bookshop.dproj")),
        QStringLiteral("--scan-all"), QStringLiteral("--group"), QStringLiteral("none") });
    EXPECT_EQ(ran.Status, 0) << qPrintable(ran.Errors);
    EXPECT_EQ(ran.Output.toStdString(), TestData(QStringLiteral("bookshop-none.txt")).toStdString());
}

TEST_F(TreeVerb, PrintsTheBookshopByFormToTheLetter)
{
    CopyExample(QStringLiteral("bookshop"));
    const auto ran = Morvane({ QStringLiteral("tree"), InCopy(QStringLiteral("bookshop.dproj")),
        QStringLiteral("--scan-all"), QStringLiteral("--group"), QStringLiteral("form") });
    EXPECT_EQ(ran.Output.toStdString(), TestData(QStringLiteral("bookshop-form.txt")).toStdString());
}

TEST_F(TreeVerb, PrintsTheBookshopByConnectionToTheLetter)
{
    CopyExample(QStringLiteral("bookshop"));
    const auto ran = Morvane({ QStringLiteral("tree"), InCopy(QStringLiteral("bookshop.dproj")),
        QStringLiteral("--scan-all"), QStringLiteral("--group"), QStringLiteral("connection") });
    EXPECT_EQ(ran.Output.toStdString(), TestData(QStringLiteral("bookshop-connection.txt")).toStdString());
}

TEST_F(TreeVerb, LeavesTheUsersConfigurationAndTheProjectAsTheyWere)
{
    CopyExample(QStringLiteral("bookshop"));
    const auto before = Content(QStringLiteral("Main.dfm"));
    Morvane({ QStringLiteral("tree"), InCopy(QStringLiteral("bookshop.dproj")), QStringLiteral("--scan-all"),
        QStringLiteral("--group"), QStringLiteral("form") });
    EXPECT_EQ(Content(QStringLiteral("Main.dfm")), before);
    EXPECT_FALSE(QFile::exists(Folder.filePath(QStringLiteral(".config/morvane/Morvane.cfg"))));
}

namespace {

// A user who has this configuration; every verb that loads the plug-in reads it.
class VerbsOverAConfiguration : public CommandLineFixture {
protected:
    QString FileName() const { return Folder.filePath(QStringLiteral(".config/morvane/Morvane.cfg")); }
    void Write(const QByteArray& content) const
    {
        QDir().mkpath(QFileInfo(FileName()).path());
        QFile file(FileName());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    // What the verbs say, each the same; and none of them writes.
    void AllSay(const QString& message)
    {
        CopyExample(QStringLiteral("bookshop"));
        const auto project = InCopy(QStringLiteral("bookshop.dproj"));
        const auto picture = Folder.filePath(QStringLiteral("shot.png"));
        const QStringList tree { QStringLiteral("tree"), project };
        const QStringList shot { QStringLiteral("shot"), project, QStringLiteral("-o"), picture };
        const QStringList drop { QStringLiteral("drop"), project, QStringLiteral("--form"), QStringLiteral("Main"),
            QStringLiteral("--item"), QStringLiteral("dmBookshop.qryBooks") };
        for (const auto& arguments : { tree, shot, drop }) {
            const auto ran = Morvane(arguments);
            EXPECT_EQ(ran.Status, 1) << qPrintable(arguments.first());
            EXPECT_EQ(ran.Output.toStdString(), "");
            EXPECT_TRUE(ran.Errors.endsWith(FileName() + message)) << qPrintable(ran.Errors);
        }
        EXPECT_FALSE(QFile::exists(picture));
    }
};

}

TEST_F(VerbsOverAConfiguration, TellOfAFaultyOneByThePlaceInTheUsersFileAndLeaveIt)
{
    const QByteArray faulty = "<Morvane>\n  <Preferences>\n  </Wrong>";
    Write(faulty);
    AllSay(QStringLiteral(":3:11: Opening and ending tag mismatch.\n"));
    QFile file(FileName());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), faulty);
}

TEST_F(VerbsOverAConfiguration, TellWhatTheToolWindowMisses)
{
    Write("<Morvane>\n  <Preferences>\n  </Preferences>\n</Morvane>\n");
    AllSay(QStringLiteral(":3:17: GroupMode is missing; the tool window needs <GroupMode>0</GroupMode> (or 1, by form, "
                          "or 2, by connection) below Preferences\n"));
}

TEST_F(VerbsOverAConfiguration, TellOfOneThatIsNoFile)
{
    QDir().mkpath(FileName());
    AllSay(QStringLiteral(": cannot be read: file to open is a directory\n"));
}

TEST_F(TreeVerb, DescribesATableFromTheDatabaseWhenItMayConnect)
{
    CopyExample(QStringLiteral("bookshop"));
    const auto ran = Morvane({ QStringLiteral("tree"), InCopy(QStringLiteral("bookshop.dproj")),
        QStringLiteral("--group"), QStringLiteral("none"), QStringLiteral("--connect"), QStringLiteral("--describe"),
        QStringLiteral("dmBookshop.tblCustomers") });
    EXPECT_EQ(ran.Output.section(QStringLiteral("  dmBookshop.tblCustomers\n"), 1).toStdString(),
        "    Fields\n      City\n      Country\n      CustomerID\n      Email\n      Name\n      Notes\n"
        "      PostCode\n      Street\n");
}

TEST_F(TreeVerb, ConnectsToNothingUnlessItMay)
{
    CopyExample(QStringLiteral("bookshop"));
    const auto ran = Morvane({ QStringLiteral("tree"), InCopy(QStringLiteral("bookshop.dproj")),
        QStringLiteral("--describe"), QStringLiteral("dmBookshop.tblCustomers") });
    EXPECT_FALSE(ran.Output.contains(QStringLiteral("PostCode")));
    EXPECT_FALSE(ran.Errors.isEmpty());
}

TEST_F(TreeVerb, PrintsNestedObjectsWithTheirKinds)
{
    CopyExample(QStringLiteral("bookshop"));
    const auto ran = Morvane({ QStringLiteral("tree"), InCopy(QStringLiteral("bookshop.dproj")),
        QStringLiteral("--group"), QStringLiteral("form"), QStringLiteral("--json") });
    const auto root = QJsonDocument::fromJson(ran.Output.toUtf8()).object();
    EXPECT_EQ(root[QStringLiteral("kind")].toString(), QStringLiteral("ndtRoot"));
    const auto form = root[QStringLiteral("children")][0];
    EXPECT_EQ(form[QStringLiteral("kind")].toString(), QStringLiteral("ndtForm"));
    EXPECT_EQ(form[QStringLiteral("caption")].toString(), QStringLiteral("dmBookshop"));
    EXPECT_EQ(form[QStringLiteral("children")][0][QStringLiteral("kind")].toString(), QStringLiteral("ndtDataSet"));
}

TEST_F(TreeVerb, SaysWhyAProjectCannotBeOpened)
{
    const auto ran = Morvane({ QStringLiteral("tree"), Folder.filePath(QStringLiteral("none.dproj")) });
    EXPECT_EQ(ran.Status, 1);
    EXPECT_TRUE(ran.Errors.contains(QStringLiteral("none.dproj"))) << qPrintable(ran.Errors);
}

TEST_F(TreeVerb, TellsWrongUsageFromFailure)
{
    EXPECT_EQ(Morvane({ QStringLiteral("tree") }).Status, 2);
    EXPECT_EQ(Morvane({ QStringLiteral("tree"), QStringLiteral("a.dproj"), QStringLiteral("--nothing") }).Status, 2);
    EXPECT_EQ(
        Morvane({ QStringLiteral("tree"), QStringLiteral("a.dproj"), QStringLiteral("--group"), QStringLiteral("x") })
            .Status,
        2);
}
