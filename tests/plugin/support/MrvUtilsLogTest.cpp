#include "plugin/config/ConfigurationFixture.h"
#include "support/MrvUtils.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

class Log : public ConfigurationFixture {
protected:
    // A configuration with these preferences, in force.
    void Configure(const QByteArray& preferences) const
    {
        MrvConfigurationService = ServiceOver(Configuration(preferences));
    }
    void ConfigureOn(const QString& path) const
    {
        Configure("<DebugMode>True</DebugMode><DebugPath>" + path.toUtf8() + "</DebugPath>");
    }
    QString LogName() const { return Directory() + u"Morvane_ErrorEvents.log"_qs; }
    void Begin() const { Write(LogName(), {}); }
    QByteArray Content() const { return Read(LogName()); }
    // The content as UTF-16, without a half character at its end.
    QString Text() const
    {
        const auto content = Content();
        return QString(reinterpret_cast<const QChar*>(content.constData()), content.size() / 2);
    }
    static qsizetype LineLength(const QString& message)
    {
        return qstrlen("dd.mm.yyyy hh:mm:ss -") + 2 + message.size() + 2;
    }
};

// A service whose preferences count the look-ups and answer by a function; without one there are no preferences.
class FakePreferences : public Implements<TInterfacedObject, IMrvPreferences> {
public:
    void GetValueByName(const QString& name, QString& value) override
    {
        ++LookUps;
        value = Answer(name);
    }
    void SetValueByName(const QString&, const QString&) override { }
    WordBool Modified() override { return false; }
    void Load() override { }
    void LoadDefault() override { }
    void InternalSave(QObject*) override { }
    void Clear() override { }

    std::function<QString(const QString&)> Answer;
    int LookUps = 0;
};

class FakeService : public Implements<TInterfacedObject, IMrvConfigurationService> {
public:
    explicit FakeService(const InterfacePtr<FakePreferences>& preferences = nullptr)
        : Held(preferences)
    {
    }
    void GetPreferences(InterfacePtr<IMrvPreferences>& preferences) override { preferences = Held; }
    void GetCurrentPersonality(InterfacePtr<IMrvPersonalityUISettings>&) override { }
    void Load() override { }
    void LoadDefault() override { }
    void Save() override { }
    WordBool Modified() override { return false; }
    void SetAcitvePersonality(int) override { }
    TPersonality GetActivePersonality() override { return prVCL; }

    InterfacePtr<FakePreferences> Held;
};

const QString Message = u"TMrvObjectList.Clear - failed! with a text of some length behind"_qs;

}

TEST_F(Log, WritesTheFirstHalfOfTheLine)
{
    ConfigureOn(Folder.path());
    Begin();
    TMrvUtils::AddLogMessage(Message);
    EXPECT_EQ(Content().size(), LineLength(Message));
    static const QRegularExpression form(uR"(^(\d\d\.\d\d\.\d\d\d\d \d\d:\d\d:\d\d -)\t\t(.*)$)"_qs);
    const auto match = form.match(Text());
    ASSERT_TRUE(match.hasMatch()) << qPrintable(Text());
    EXPECT_EQ(match.captured(2), Message.left(LineLength(Message) / 2 - 23));
}

TEST_F(Log, TheStampIsTheLocalTimeWithTheMonth)
{
    ConfigureOn(Folder.path());
    Begin();
    const auto before = QDateTime::currentDateTime();
    TMrvUtils::AddLogMessage(Message);
    const auto after = QDateTime::currentDateTime();
    const auto stamp = QDateTime::fromString(Text().left(19), u"dd.MM.yyyy hh:mm:ss"_qs);
    EXPECT_LE(before.toSecsSinceEpoch(), stamp.toSecsSinceEpoch());
    EXPECT_GE(after.toSecsSinceEpoch(), stamp.toSecsSinceEpoch());
}

TEST_F(Log, ALineOfFortyOneCharactersReachesTheFileAsFortyOneBytes)
{
    ConfigureOn(Folder.path());
    Begin();
    const QString message(16, u'x');
    ASSERT_EQ(LineLength(message), 41);
    TMrvUtils::AddLogMessage(message);
    EXPECT_EQ(Content().size(), 41);
    EXPECT_EQ(Text().size(), 20);
    // The half of the 21st character, the hyphen of the stamp.
    EXPECT_EQ(Content().at(40), '-');
}

TEST_F(Log, AppendsLineAfterLine)
{
    ConfigureOn(Folder.path());
    Write(LogName(), "already here");
    TMrvUtils::AddLogMessage(Message);
    TMrvUtils::AddLogMessage(Message);
    EXPECT_TRUE(Content().startsWith("already here"));
    EXPECT_EQ(Content().size(), 12 + 2 * LineLength(Message));
}

TEST_F(Log, DebugModeInLowerCaseLogs)
{
    Configure("<DebugMode>true</DebugMode><DebugPath>" + Folder.path().toUtf8() + "</DebugPath>");
    Begin();
    TMrvUtils::AddLogMessage(Message);
    EXPECT_EQ(Content().size(), LineLength(Message));
}

TEST_F(Log, DebugModeOfOneDoesNotLog)
{
    Configure("<DebugMode>1</DebugMode><DebugPath>" + Folder.path().toUtf8() + "</DebugPath>");
    Begin();
    TMrvUtils::AddLogMessage(Message);
    EXPECT_EQ(Content(), "");
}

TEST_F(Log, WithoutDebugModeNothingIsLogged)
{
    Configure("<DebugPath>" + Folder.path().toUtf8() + "</DebugPath>");
    Begin();
    TMrvUtils::AddLogMessage(Message);
    EXPECT_EQ(Content(), "");
}

TEST_F(Log, AFileThatIsAbsentIsNotMade)
{
    ConfigureOn(Folder.path());
    TMrvUtils::AddLogMessage(Message);
    EXPECT_FALSE(QFileInfo::exists(LogName()));
}

TEST_F(Log, DebugPathWithATrailingSeparatorIsTheSamePlace)
{
    ConfigureOn(Directory());
    Begin();
    TMrvUtils::AddLogMessage(Message);
    EXPECT_EQ(Content().size(), LineLength(Message));
}

TEST_F(Log, WithoutDebugPathTheLogStandsBesideTheHostsExecutable)
{
    Configure("<DebugMode>True</DebugMode>");
    const auto beside = QCoreApplication::applicationDirPath() + u"/Morvane_ErrorEvents.log"_qs;
    Write(beside, {});
    TMrvUtils::AddLogMessage(Message);
    EXPECT_EQ(Read(beside).size(), LineLength(Message));
    QFile::remove(beside);
}

TEST_F(Log, APathThatIsNoneIsSwallowed)
{
    ConfigureOn(u"/dev/null/no*such|place"_qs);
    EXPECT_NO_THROW(TMrvUtils::AddLogMessage(Message));
}

TEST_F(Log, ADirectoryInTheLogsPlaceIsSwallowed)
{
    ConfigureOn(Folder.path());
    QDir().mkdir(LogName());
    EXPECT_NO_THROW(TMrvUtils::AddLogMessage(Message));
}

TEST_F(Log, AFullDiskIsSwallowed)
{
    if (!QFileInfo::exists(u"/dev/full"_qs))
        GTEST_SKIP() << "needs a device that is always full";
    ConfigureOn(Folder.path());
    ASSERT_TRUE(QFile::link(u"/dev/full"_qs, LogName()));
    EXPECT_NO_THROW(TMrvUtils::AddLogMessage(Message));
}

TEST_F(Log, ACallBeforeTheServiceExistsOrAfterItsEndDoesNothing)
{
    Begin();
    EXPECT_NO_THROW(TMrvUtils::AddLogMessage(Message));
    ConfigureOn(Folder.path());
    MrvConfigurationService.Clear();
    EXPECT_NO_THROW(TMrvUtils::AddLogMessage(Message));
    EXPECT_EQ(Content(), "");
}

TEST_F(Log, APercentSignInTheMessageStaysOne)
{
    ConfigureOn(Folder.path());
    Begin();
    TMrvUtils::AddLogMessage(u"100% of %s and %d, with a text of some length behind it, so that it shows"_qs);
    EXPECT_TRUE(Text().contains(u"\t\t100% of %s and"_qs)) << qPrintable(Text());
}

TEST_F(Log, WhileDebugModeIsNotTrueACallCostsAtMostTwoLookUps)
{
    const auto preferences = New<FakePreferences>();
    preferences->Answer = [](const QString&) { return u"False"_qs; };
    MrvConfigurationService = New<FakeService>(preferences);
    TMrvUtils::AddLogMessage(Message);
    EXPECT_LE(preferences->LookUps, 2);
}

TEST_F(Log, AServiceWithoutPreferencesLogsNothing)
{
    MrvConfigurationService = New<FakeService>();
    EXPECT_NO_THROW(TMrvUtils::AddLogMessage(Message));
}

TEST_F(Log, WhatThePreferencesRaiseIsSwallowed)
{
    const auto preferences = New<FakePreferences>();
    preferences->Answer = [](const QString&) -> QString { throw Exception(u"no preferences today"_qs); };
    MrvConfigurationService = New<FakeService>(preferences);
    EXPECT_NO_THROW(TMrvUtils::AddLogMessage(Message));
    preferences->Answer = [](const QString&) -> QString { throw 1; };
    EXPECT_NO_THROW(TMrvUtils::AddLogMessage(Message));
}
