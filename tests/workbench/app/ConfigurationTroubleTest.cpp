// The window over a configuration of the user's that is faulty, empty, or changes while the window is open.

#include "workbench/app/WindowFixture.h"

#include "configuration/StarterConfiguration.h"
#include "configuration/UserConfiguration.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QTreeWidget>

namespace {

const QByteArray Faulty = "<Morvane>\n  <Preferences>\n  </Wrong>";
const QByteArray Ready = "Open a project: File > Open Project";
const QByteArray Fault = "Morvane.cfg:3:11: Opening and ending tag mismatch.";
const QByteArray WithoutControls = "<Morvane>\r\n  <Preferences>\r\n    <GroupMode>1</GroupMode>\r\n"
                                   "    <ScanAllForms>False</ScanAllForms>\r\n  </Preferences>\r\n</Morvane>\r\n";

class ConfigurationTrouble : public WindowFixture {
protected:
    ConfigurationTrouble()
        : Users(Folder.filePath(QStringLiteral("users/")))
    {
        PrivateConfiguration = false;
        EXPECT_FALSE(Users.Prepare(Registry));
    }
    void Write(const QByteArray& content) const { ScriptedProject::WriteFile(Users.FileName(), content); }
    QByteArray Content() const { return ScriptedProject::Read(Users.FileName()); }
    QByteArray GoodCopy() const { return ScriptedProject::Read(Users.GoodCopyName()); }
    QByteArray Replaced() const { return ScriptedProject::Read(Users.ReplacedName()); }
    // Without the folder that the test made.
    QByteArray Short(QString text) const { return text.remove(Users.Directory()).toUtf8(); }
    QByteArray ShortStatus() { return Short(Status()); }
    QByteArray ShortQuestions() const { return Short(Questions.join(QLatin1String(" | "))); }
    QStringList Problems()
    {
        QStringList texts;
        const auto* list = Window->findChild<QTreeWidget*>(QStringLiteral("ProblemList"));
        for (int i = 0; list && i < list->topLevelItemCount(); ++i)
            texts << list->topLevelItem(i)->text(0);
        return texts;
    }
    // With another value of a preference, which makes it another file.
    static QByteArray Starter(const QByteArray& groupMode = "0")
    {
        return StarterConfiguration().replace("<GroupMode>0<", "<GroupMode>" + groupMode + "<");
    }

    const UserConfiguration Users;
};

}

TEST_F(ConfigurationTrouble, AFaultyOneIsToldWithItsPlaceAndLeftAlone)
{
    Write(Faulty);
    Answer = mrNo;
    Start();
    EXPECT_EQ(ShortQuestions(),
        "The configuration cannot be read:\n\n" + Fault
            + "\n\nPut the starter configuration in its place? What is there now is kept as Morvane.cfg.before.");
    EXPECT_EQ(ShortStatus(),
        "The configuration cannot be read: " + Fault + " - Tools > Restore the Configuration begins with a new one");
    EXPECT_TRUE(Status().contains(Users.FileName()));
    EXPECT_EQ(Problems().value(0), QStringLiteral("Opening and ending tag mismatch."));
    EXPECT_EQ(Exceptions, QStringList());
    Window.reset();
    EXPECT_EQ(Content(), Faulty);
}

TEST_F(ConfigurationTrouble, AFaultyOneIsReplacedByTheStarterWhenThePersonSaysSo)
{
    Write(Faulty);
    Answer = mrYes;
    Start();
    EXPECT_EQ(ShortStatus(), Ready);
    EXPECT_EQ(Content(), Starter());
    EXPECT_EQ(Replaced(), Faulty);
}

TEST_F(ConfigurationTrouble, TheLastThatCouldBeReadComesBackWhenThePersonSaysSo)
{
    Write(Starter("2"));
    Start();
    Window.reset();
    Write(Faulty);
    Answer = mrNo;
    Start();
    EXPECT_EQ(ShortStatus(),
        "The configuration cannot be read: " + Fault
            + " - Tools > Restore the Configuration puts the last good one back");
    Answer = mrYes;
    Window->Execute(Command::RestoreConfiguration);
    Settle();
    EXPECT_EQ(ShortStatus(), Ready);
    EXPECT_EQ(Content(), Starter("2"));
    EXPECT_EQ(Replaced(), Faulty);
    EXPECT_NE(Window->TheSession().ToolWindow(), nullptr);
}

TEST_F(ConfigurationTrouble, WithoutAControlTheStarterIsOffered)
{
    Write(WithoutControls);
    Answer = mrNo;
    Start();
    EXPECT_EQ(ShortQuestions(),
        "No controls are configured, so that nothing can be dragged:\n\nMorvane.cfg\n\nPut the starter configuration "
        "in its place? What is there now is kept as Morvane.cfg.before.");
    EXPECT_EQ(ShortStatus(),
        "No controls are configured: nothing can be dragged. Tools > Restore the Configuration sets them up.");
    EXPECT_EQ(Content(), WithoutControls);
    Answer = mrYes;
    Window->Execute(Command::RestoreConfiguration);
    Settle();
    EXPECT_EQ(ShortStatus(), Ready);
    EXPECT_EQ(Content(), Starter("1"));
}

TEST_F(ConfigurationTrouble, AFaultThatComesWhileTheWindowIsOpenIsToldAndTheLastGoodOneIsTheNewest)
{
    Start();
    EXPECT_EQ(GoodCopy(), Starter());
    Write(Starter("1"));
    QTRY_COMPARE(GoodCopy(), Starter("1"));
    Write(Starter().replace(" DBMemo=\"TDBMemo\"", " 3DEdit=\"T3DEdit\""));
    QTRY_VERIFY(Status().contains(QStringLiteral("the control T3DEdit has the caption \"3DEdit\"")));
    EXPECT_EQ(Problems().size(), 1);
    EXPECT_EQ(GoodCopy(), Starter("1"));
    Write(Starter("2"));
    QTRY_COMPARE(ShortStatus(), Ready);
    EXPECT_EQ(GoodCopy(), Starter("2"));
}

TEST_F(ConfigurationTrouble, ControlsThatGoWhileTheWindowIsOpenAreMissed)
{
    Start();
    ASSERT_TRUE(QFile::remove(Users.FileName()));
    Write(WithoutControls);
    QTRY_VERIFY(Status().startsWith(QStringLiteral("No controls are configured: nothing can be dragged.")));
    EXPECT_EQ(Questions, QStringList());
}

TEST_F(ConfigurationTrouble, ThePluginStartsOnceTheFaultIsMended)
{
    Write(Faulty);
    Answer = mrNo;
    Start();
    ASSERT_EQ(Window->TheSession().ToolWindow(), nullptr);
    Write(Starter());
    QTRY_COMPARE(ShortStatus(), Ready);
    EXPECT_NE(Window->TheSession().ToolWindow(), nullptr);
    EXPECT_EQ(Questions.size(), 1);
}

TEST_F(ConfigurationTrouble, AMissingGroupModeIsToldAndNotMendedUnasked)
{
    const QByteArray without = "<Morvane>\n<Preferences>\n</Preferences>\n</Morvane>";
    Write(without);
    Answer = mrNo;
    Start();
    EXPECT_TRUE(ShortStatus().startsWith("The configuration cannot be read: Morvane.cfg:3:15: GroupMode is missing"))
        << ShortStatus().constData();
    EXPECT_EQ(Content(), without);
}

TEST_F(ConfigurationTrouble, APlaceThatCannotBeMadeIsToldAndTheWindowIsUsable)
{
    Write("x");
    Registry.Write(QStringLiteral("Software\\Bravik\\Morvane\\BDS\\23.0"), QStringLiteral("ConfigFilePath"),
        Users.FileName() + u'/');
    Answer = mrNo;
    ScriptedProject shop;
    shop.Form(QStringLiteral("MainForm"), QStringLiteral("object Button1: TButton\nend"));
    Start(shop.Write());
    EXPECT_TRUE(ShortStatus().startsWith("The configuration cannot be read: Morvane.cfg/Morvane.cfg: cannot be read"))
        << ShortStatus().constData();
    EXPECT_FALSE(Tabs().isEmpty());
    EXPECT_EQ(Exceptions, QStringList());
}

TEST_F(ConfigurationTrouble, ASaveThatFailsIsToldWithThePathAndAgainAtTheEnd)
{
    Start();
    ASSERT_TRUE(QFile::remove(Users.FileName()));
    ASSERT_TRUE(QDir().mkdir(Users.FileName()));
    auto* byForm = ToolWindow().findChild<QAction*>(QStringLiteral("acGroupByForm"));
    ASSERT_NE(byForm, nullptr);
    byForm->trigger();
    const auto failure
        = QStringLiteral("Cannot create file \"%1\". Filename refers to a directory").arg(Users.FileName());
    EXPECT_EQ(Exceptions, QStringList(failure));
    Window.reset();
    EXPECT_EQ(Exceptions, (QStringList { failure, failure }));
}
