#include "configuration/UserConfiguration.h"

#include "configuration/StarterConfiguration.h"
#include "plugin/config/ConfigurationFixture.h"
#include "support/MrvUtils.h"

#include <QFileInfo>

namespace {

class UsersConfiguration : public ConfigurationFixture {
protected:
    UsersConfiguration()
        : Mine(Directory())
    {
    }

    static QString Text(const Failure& problem) { return problem ? problem->ToString() : QString(); }
    QString ErrorText() const { return QString(Text(Mine.FindError())).replace(Directory(), QString()); }
    QStringList Names() const
    {
        auto names = QDir(Folder.path()).entryList(QDir::Files);
        names.removeOne(u"registry.ini"_qs);
        return names;
    }
    QString Registered() { return Registry.Read(IDEInfos[IDEVer].MorvaneRegistryKey, u"ConfigFilePath"_qs); }

    UserConfiguration Mine;
};

const QByteArray Good = "<Morvane>\r\n  <Preferences>\r\n    <GroupMode>1</GroupMode>\r\n    <Mine>kept</Mine>\r\n"
                        "  </Preferences>\r\n  <CustomizeSection>\r\n    <prVCL>\r\n      <DatasetSection />\r\n"
                        "    </prVCL>\r\n    <prCLR>\r\n    </prCLR>\r\n    <prCLX>\r\n    </prCLX>\r\n"
                        "  </CustomizeSection>\r\n</Morvane>\r\n";

}

TEST_F(UsersConfiguration, ThePlugInLoadsTheStarterWithTheDefaultBindings)
{
    ASSERT_EQ(Text(Mine.Prepare(Registry)), QString());
    const auto service = Service();
    for (const auto which : { prVCL, prCLR, prCLX }) {
        service->SetAcitvePersonality(which);
        EXPECT_EQ(::Text(DataSetList(service)), u"TDBGrid TBKDBGrid TDBCtrlGrid Details None"_qs);
        EXPECT_EQ(
            ::Text(GroupList(service, u"ftString"_qs)), u"TDBEdit TDBText TDBMemo TDBRichEdit TDBComboBox None"_qs);
        EXPECT_EQ(::Text(GroupList(service, u"ftBoolean"_qs)), u"TDBCheckBox TDBRadioGroup None"_qs);
        EXPECT_EQ(::Text(GroupList(service, u"ftADT"_qs)), u"None"_qs);
        EXPECT_EQ(::Text(GroupList(service, u"ftLongWord"_qs)), u"None"_qs);
    }
    EXPECT_EQ(Value(service, u"GroupMode"_qs), u"0"_qs);
}

TEST_F(UsersConfiguration, TheStarterIsWhatThePlugInItselfSaves)
{
    ASSERT_EQ(Text(Mine.Prepare(Registry)), QString());
    const auto service = Service();
    service->Save();
    EXPECT_EQ(ReadFile(), StarterConfiguration());
}

TEST_F(UsersConfiguration, TheStarterHoldsTheBindingsOfTheEmbeddedDefault)
{
    ASSERT_EQ(Text(Mine.Prepare(Registry)), QString());
    const auto service = Service();
    const auto personality = Current(service);
    QStringList starter;
    for (int group = 0; group < personality->FieldGroupCount(); ++group) {
        InterfacePtr<IMrvBindableControlInfoList> list;
        personality->GetFieldBindCtrlInfoList(list, group);
        starter << ::Text(list);
    }
    QFile resource(u":/package/10/#101"_qs);
    ASSERT_TRUE(resource.open(QIODevice::ReadOnly));
    WriteFile(resource.readAll().replace("<VCL>", "<prVCL>").replace("</VCL>", "</prVCL>"));
    service->Load();
    QStringList embedded;
    for (int group = 0; group < personality->FieldGroupCount(); ++group) {
        InterfacePtr<IMrvBindableControlInfoList> list;
        personality->GetFieldBindCtrlInfoList(list, group);
        // A group without an element in the default comes up without its pseudo-control.
        embedded << (list->GetCount() == 0 ? u"None"_qs : ::Text(list));
    }
    EXPECT_EQ(starter, embedded);
}

TEST_F(UsersConfiguration, ANewUserGetsADirectoryThatTheRegistryNames)
{
    SetConfigFilePath(QString());
    const UserConfiguration fresh(Directory() + u"deep/down/"_qs);
    EXPECT_EQ(Text(fresh.Prepare(Registry)), QString());
    EXPECT_EQ(Registered(), Directory() + u"deep/down/"_qs);
    EXPECT_EQ(Read(Directory() + u"deep/down/Morvane.cfg"_qs), StarterConfiguration());
    EXPECT_EQ(Service()->FileName(), fresh.FileName());
}

TEST_F(UsersConfiguration, AFileThatIsThereIsNotTouched)
{
    WriteFile("anything at all");
    EXPECT_EQ(Text(Mine.Prepare(Registry)), QString());
    EXPECT_EQ(ReadFile(), "anything at all");
    EXPECT_EQ(Names(), QStringList(u"Morvane.cfg"_qs));
}

TEST_F(UsersConfiguration, ADirectoryThatTheRegistryNamesAlreadyStays)
{
    SetConfigFilePath(Directory() + u"elsewhere"_qs);
    const auto found = UserConfiguration::Find(Registry);
    EXPECT_EQ(found.FileName(), Directory() + u"elsewhereMorvane.cfg"_qs);
    EXPECT_EQ(Text(found.Prepare(Registry)), QString());
    EXPECT_EQ(Registered(), Directory() + u"elsewhere"_qs);
    EXPECT_EQ(Service()->FileName(), found.FileName());
}

TEST_F(UsersConfiguration, WithoutARegistryValueTheUsersOwnDirectoryIsTaken)
{
    SetConfigFilePath(QString());
    EXPECT_EQ(UserConfiguration::Find(Registry).Directory(), UserConfiguration::UsersDirectory());
    EXPECT_TRUE(UserConfiguration::UsersDirectory().endsWith(u"/morvane/"_qs));
}

TEST_F(UsersConfiguration, ADirectoryThatCannotBeMadeIsToldWithItsPath)
{
    Write(Directory() + u"file"_qs, "x");
    const auto problem = UserConfiguration(Directory() + u"file/below/"_qs).Prepare(Registry);
    EXPECT_EQ(Text(problem).replace(Directory(), QString()),
        u"file/below: cannot be made; choose another place for the configuration"_qs);
}

TEST_F(UsersConfiguration, AFileThatIsMissingIsAnError)
{
    EXPECT_EQ(ErrorText(), u"Morvane.cfg: cannot be read: No such file or directory"_qs);
    EXPECT_FALSE(Mine.OffersControls());
}

TEST_F(UsersConfiguration, AFileThatLoadsHasNoError)
{
    WriteFile(StarterConfiguration());
    EXPECT_EQ(Mine.Check(), Problems());
}

TEST_F(UsersConfiguration, ThePlugInsFirstFileLoadsAndOffersNoControl)
{
    const auto service = Service();
    EXPECT_EQ(ErrorText(), QString());
    EXPECT_FALSE(Mine.OffersControls());
}

TEST_F(UsersConfiguration, AfterAResetNoControlIsOffered)
{
    WriteFile(StarterConfiguration());
    EXPECT_TRUE(Mine.OffersControls());
    const auto service = Service();
    service->LoadDefault();
    service->Save();
    EXPECT_FALSE(Mine.OffersControls());
}

TEST_F(UsersConfiguration, OneControlOfOneGroupIsAnOffer)
{
    const auto service = Service();
    Current(service)->AddFieldInfo(3, u"Mine"_qs, u"TMine"_qs);
    service->Save();
    EXPECT_TRUE(Mine.OffersControls());
}

TEST_F(UsersConfiguration, ControlsOfAnotherPersonalityAreNoOffer)
{
    const auto service = Service();
    Personality(service, prCLR)->AddDataSetInfo(u"Mine"_qs, u"TMine"_qs);
    service->Save();
    EXPECT_FALSE(Mine.OffersControls());
}

TEST_F(UsersConfiguration, ACopyOfAFileThatLoadsIsKeptBesideIt)
{
    WriteFile(Good);
    EXPECT_FALSE(Mine.HasGoodCopy());
    EXPECT_EQ(Text(Mine.KeepGoodCopy()), QString());
    EXPECT_TRUE(Mine.HasGoodCopy());
    EXPECT_EQ(Read(Mine.GoodCopyName()), Good);
    EXPECT_EQ(Names(), (QStringList { u"Morvane.cfg"_qs, u"Morvane.cfg.good"_qs }));
}

TEST_F(UsersConfiguration, AFaultyFileDoesNotReplaceTheGoodCopy)
{
    WriteFile(Good);
    EXPECT_EQ(Text(Mine.KeepGoodCopy()), QString());
    WriteFile("<Morvane>");
    EXPECT_EQ(Text(Mine.KeepGoodCopy()), QString());
    EXPECT_EQ(Read(Mine.GoodCopyName()), Good);
}

TEST_F(UsersConfiguration, TheGoodCopyComesBackAndTheFaultyFileIsKept)
{
    WriteFile(Good);
    EXPECT_EQ(Text(Mine.KeepGoodCopy()), QString());
    WriteFile("<Morvane>");
    EXPECT_EQ(Text(Mine.RestoreGoodCopy()), QString());
    EXPECT_EQ(ReadFile(), Good);
    EXPECT_EQ(Read(Mine.ReplacedName()), "<Morvane>");
    EXPECT_EQ(Value(Service(), u"GroupMode"_qs), u"1"_qs);
}

TEST_F(UsersConfiguration, WithoutAGoodCopyNothingComesBack)
{
    WriteFile("<Morvane>");
    EXPECT_EQ(Text(Mine.RestoreGoodCopy()), Mine.GoodCopyName() + u": cannot be read"_qs);
    EXPECT_EQ(ReadFile(), "<Morvane>");
}

TEST_F(UsersConfiguration, TheStarterTakesTheFilesPlaceWithItsPreferences)
{
    WriteFile(Good);
    EXPECT_EQ(Text(Mine.ReplaceByStarter()), QString());
    EXPECT_TRUE(Mine.OffersControls());
    const auto service = Service();
    EXPECT_EQ(Value(service, u"GroupMode"_qs), u"1"_qs);
    EXPECT_EQ(Value(service, u"Mine"_qs), u"kept"_qs);
    EXPECT_EQ(Read(Mine.ReplacedName()), Good);
}

TEST_F(UsersConfiguration, TheStarterTakesTheFaultyFilesPlaceWithItsOwnPreferences)
{
    WriteFile("<Morvane>");
    EXPECT_EQ(Text(Mine.ReplaceByStarter()), QString());
    EXPECT_EQ(ReadFile(), StarterConfiguration());
    EXPECT_EQ(Read(Mine.ReplacedName()), "<Morvane>");
}

TEST_F(UsersConfiguration, TheLogIsSetUpSoThatThePlugInWritesIt)
{
    WriteFile(Good);
    EXPECT_FALSE(Mine.IsLogEnabled());
    EXPECT_EQ(Text(Mine.EnableLog()), QString());
    EXPECT_TRUE(Mine.IsLogEnabled());
    MrvConfigurationService = Service();
    const auto message = u"TMrvObjectList.Clear - failed! with a text of some length behind"_qs;
    TMrvUtils::AddLogMessage(message);
    TMrvUtils::AddLogMessage(message + u"x"_qs);
    const auto entries = Mine.Log();
    ASSERT_EQ(entries.size(), 2);
    EXPECT_TRUE(entries.first().contains(u" - TMrvObjectList.Cl"_qs)) << qPrintable(entries.first());
    EXPECT_EQ(entries.first().mid(22), entries.last().mid(22, entries.first().size() - 22));
}

TEST_F(UsersConfiguration, TurningTheLogOnAddsTwoLinesAndLeavesTheRest)
{
    WriteFile(Good);
    EXPECT_EQ(Text(Mine.EnableLog()), QString());
    auto expected = Good;
    expected.replace("  </Preferences>",
        "    <DebugPath>" + Folder.path().toUtf8()
            + "</DebugPath>\r\n    <DebugMode>True</DebugMode>\r\n  </Preferences>");
    EXPECT_EQ(ReadFile(), expected);
}

TEST_F(UsersConfiguration, ALogThatIsThereIsNotEmptied)
{
    WriteFile(Good);
    Write(Directory() + u"Morvane_ErrorEvents.log"_qs, "before");
    EXPECT_EQ(Text(Mine.EnableLog()), QString());
    EXPECT_EQ(Read(Mine.LogFileName()), "before");
}

TEST_F(UsersConfiguration, TurningTheLogOffKeepsItsPlace)
{
    WriteFile(Good);
    EXPECT_EQ(Text(Mine.EnableLog()), QString());
    EXPECT_EQ(Text(Mine.DisableLog()), QString());
    EXPECT_FALSE(Mine.IsLogEnabled());
    EXPECT_EQ(ReadFile().count("<DebugMode>False</DebugMode>"), 1);
    EXPECT_EQ(Mine.LogFileName(), Directory() + u"Morvane_ErrorEvents.log"_qs);
}

TEST_F(UsersConfiguration, TheLogOfAFaultyFileIsNotTurnedOn)
{
    WriteFile("<Morvane>");
    EXPECT_NE(Text(Mine.EnableLog()), QString());
    EXPECT_EQ(ReadFile(), "<Morvane>");
}
