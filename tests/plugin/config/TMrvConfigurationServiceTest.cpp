#include "plugin/config/ConfigurationFixture.h"

#include "rtl/TResourceStream.h"
#include "support/FileSizeLimit.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

using ConfigurationService = ConfigurationFixture;

QByteArray EmbeddedDefault()
{
    return TResourceStream(DefaultConfigurationName, RT_RCDATA).readAll();
}

// The state that a save would write, without the file: it is the same for equal configurations.
QString AllLists(const InterfacePtr<TMrvConfigurationService>& service)
{
    QStringList lines;
    for (const auto which : { prVCL, prCLR, prCLX }) {
        const auto personality = Personality(service, which);
        InterfacePtr<IMrvBindableControlInfoList> list;
        personality->GetDataSetBindCtrlInfoList(list);
        lines << Text(list);
        for (int group = 0; group < personality->FieldGroupCount(); ++group) {
            personality->GetFieldBindCtrlInfoList(list, group);
            lines << Text(list);
        }
    }
    return lines.join(u'\n');
}

const QString NoLists = QString(3 * 61 - 1, u'\n');

QByteArray Section(const QByteArray& name, const QByteArray& control)
{
    return "<" + name + "><DatasetSection " + control + "=\"T" + control + "\" DefaultClass=\"T" + control
        + "\"/><FieldSection/></" + name + ">";
}

QByteArray AllPersonalities()
{
    return "<Morvane><Preferences><GroupMode>1</GroupMode></Preferences><CustomizeSection>" + Section("prVCL", "Vcl")
        + Section("prCLR", "Clr") + Section("prCLX", "Clx") + "</CustomizeSection></Morvane>";
}

QString DataSetText(const InterfacePtr<TMrvConfigurationService>& service, TPersonality which)
{
    InterfacePtr<IMrvBindableControlInfoList> list;
    Personality(service, which)->GetDataSetBindCtrlInfoList(list);
    return Text(list);
}

}

TEST_F(ConfigurationService, WithoutAFileItMakesOneWithTheTextOfTheResource)
{
    const auto service = Service();
    EXPECT_EQ(ReadFile(), EmbeddedDefault());
}

TEST_F(ConfigurationService, AfterAFirstStartTheListsAreEmptyAndThePreferencesAreTheDefaults)
{
    const auto service = Service();
    EXPECT_EQ(AllLists(service), NoLists);
    EXPECT_EQ(Value(service, u"GroupMode"_qs), u"0"_qs);
    EXPECT_EQ(Value(service, u"ScanAllForms"_qs), u"False"_qs);
    EXPECT_FALSE(service->Modified());
}

TEST_F(ConfigurationService, WithoutARegistryKeyTheFileStandsBesideTheHostsExecutable)
{
    TRegistryStore empty(Folder.filePath(u"empty.ini"_qs));
    TRegistryStore::SetDefault(&empty);
    const auto beside = QCoreApplication::applicationDirPath() + u"/Morvane.cfg"_qs;
    QFile::remove(beside);
    const auto service = Service();
    EXPECT_EQ(service->FileName(), beside);
    EXPECT_EQ(Read(beside), EmbeddedDefault());
    QFile::remove(beside);
}

TEST_F(ConfigurationService, AnEmptyRegistryValueCountsAsNone)
{
    SetConfigFilePath(QString());
    const auto beside = QCoreApplication::applicationDirPath() + u"/Morvane.cfg"_qs;
    QFile::remove(beside);
    EXPECT_EQ(Service()->FileName(), beside);
    QFile::remove(beside);
}

TEST_F(ConfigurationService, NoSeparatorStandsBetweenDirectoryAndName)
{
    SetConfigFilePath(Directory() + u"x"_qs);
    const auto service = Service();
    EXPECT_EQ(service->FileName(), Directory() + u"xMorvane.cfg"_qs);
    EXPECT_EQ(Read(Directory() + u"xMorvane.cfg"_qs), EmbeddedDefault());
    EXPECT_FALSE(QFileInfo::exists(FileName()));
}

TEST_F(ConfigurationService, TheConfiguredValueIsTakenAsItStands)
{
    SetConfigFilePath(uR"(C:\x)"_qs);
    const auto before = QDir::currentPath();
    QDir::setCurrent(Folder.path());
    const auto service = Service();
    QDir::setCurrent(before);
    EXPECT_EQ(service->FileName(), uR"(C:\xMorvane.cfg)"_qs);
    EXPECT_TRUE(QFileInfo::exists(Directory() + uR"(C:\xMorvane.cfg)"_qs));
}

TEST_F(ConfigurationService, ADirectoryThatIsMissingIsNotMade)
{
    SetConfigFilePath(Directory() + u"missing/"_qs);
    EXPECT_THROW(Service(), EFCreateError);
    EXPECT_FALSE(QFileInfo::exists(Directory() + u"missing"_qs));
}

TEST_F(ConfigurationService, AFileThatExistsIsNotReplacedByTheDefault)
{
    WriteFile(AllPersonalities());
    const auto service = Service();
    EXPECT_EQ(ReadFile(), AllPersonalities());
    EXPECT_EQ(Value(service, u"GroupMode"_qs), u"1"_qs);
}

TEST_F(ConfigurationService, PrVCLIsActiveAtFirst)
{
    EXPECT_EQ(Service()->GetActivePersonality(), prVCL);
}

TEST_F(ConfigurationService, EachPersonalityReadsItsOwnSection)
{
    const auto service = ServiceOver(AllPersonalities());
    EXPECT_EQ(DataSetText(service, prVCL), u"TVcl Details None"_qs);
    EXPECT_EQ(DataSetText(service, prCLR), u"TClr Details None"_qs);
    EXPECT_EQ(DataSetText(service, prCLX), u"TClx Details None"_qs);
}

TEST_F(ConfigurationService, TheCurrentPersonalityFollowsTheActiveOne)
{
    const auto service = ServiceOver(AllPersonalities());
    service->SetAcitvePersonality(prCLX);
    EXPECT_EQ(service->GetActivePersonality(), prCLX);
    EXPECT_EQ(Text(DataSetList(service)), u"TClx Details None"_qs);
}

TEST_F(ConfigurationService, SettingTheActivePersonalityStoresTheLowByteUnchecked)
{
    const auto service = Service();
    service->SetAcitvePersonality(0x1201);
    EXPECT_EQ(service->GetActivePersonality(), prCLR);
    service->SetAcitvePersonality(200);
    EXPECT_EQ(int(service->GetActivePersonality()), 200);
}

TEST_F(ConfigurationService, AnActivePersonalityThatIsNoneGivesNoPersonality)
{
    const auto service = Service();
    service->SetAcitvePersonality(200);
    EXPECT_EQ(Current(service), nullptr);
    EXPECT_FALSE(service->Modified());
    service->LoadDefault();
    EXPECT_TRUE(service->Modified());
}

TEST_F(ConfigurationService, AFileWithOnePersonalityIsSavedWithAllThree)
{
    const auto service = ServiceOverVcl("<DatasetSection DBGrid=\"TDBGrid\" DefaultClass=\"TDBGrid\"/>");
    EXPECT_EQ(DataSetText(service, prCLR), QString());
    EXPECT_EQ(DataSetText(service, prCLX), QString());
    service->Save();
    const auto saved = ReadFile();
    for (const auto* name : { "prVCL", "prCLR", "prCLX" }) {
        EXPECT_EQ(saved.count(QByteArray("    <") + name + ">\r\n"), 1) << name;
        EXPECT_EQ(saved.count(QByteArray("    </") + name + ">\r\n"), 1) << name;
    }
}

TEST_F(ConfigurationService, LoadDefaultResetsTheActivePersonalityAndThePreferencesAlone)
{
    const auto service = ServiceOver(AllPersonalities());
    service->SetAcitvePersonality(prCLR);
    service->LoadDefault();
    EXPECT_EQ(DataSetText(service, prVCL), u"TVcl Details None"_qs);
    EXPECT_EQ(DataSetText(service, prCLR), QString());
    EXPECT_EQ(DataSetText(service, prCLX), u"TClx Details None"_qs);
    EXPECT_EQ(Value(service, u"GroupMode"_qs), u"0"_qs);
    EXPECT_TRUE(service->Modified());
    EXPECT_EQ(ReadFile(), AllPersonalities());
}

TEST_F(ConfigurationService, APersonalityThatIsNotActiveDoesNotCountAsModified)
{
    const auto service = ServiceOver(AllPersonalities());
    Personality(service, prCLR)->AddDataSetInfo(u"X"_qs, u"TX"_qs);
    EXPECT_FALSE(service->Modified());
    service->SetAcitvePersonality(prCLR);
    EXPECT_TRUE(service->Modified());
}

TEST_F(ConfigurationService, AModifiedPreferenceCounts)
{
    const auto service = ServiceOver(AllPersonalities());
    Preferences(service)->SetValueByName(u"GroupMode"_qs, u"2"_qs);
    EXPECT_TRUE(service->Modified());
}

TEST_F(ConfigurationService, SaveWritesAllAndClearsAllMarks)
{
    const auto service = ServiceOver(AllPersonalities());
    for (const auto which : { prVCL, prCLR, prCLX })
        Personality(service, which)->AddDataSetInfo(u"X"_qs, u"TX"_qs);
    Preferences(service)->SetValueByName(u"GroupMode"_qs, u"2"_qs);
    service->Save();
    for (const auto which : { prVCL, prCLR, prCLX })
        EXPECT_FALSE(Personality(service, which)->Modified());
    EXPECT_FALSE(service->Modified());
    EXPECT_EQ(ReadFile().count("X=\"TX\""), 3);
}

TEST_F(ConfigurationService, LoadTakesBackWhatWasNotSaved)
{
    const auto service = ServiceOver(AllPersonalities());
    Current(service)->AddDataSetInfo(u"X"_qs, u"TX"_qs);
    Preferences(service)->SetValueByName(u"GroupMode"_qs, u"2"_qs);
    service->Load();
    EXPECT_EQ(Text(DataSetList(service)), u"TVcl Details None"_qs);
    EXPECT_EQ(Value(service, u"GroupMode"_qs), u"1"_qs);
    EXPECT_FALSE(service->Modified());
}

TEST_F(ConfigurationService, ClearEmptiesTheGroupsAndKeepsThePreferences)
{
    const auto service = ServiceOver(AllPersonalities());
    service->Clear();
    EXPECT_EQ(Current(service)->FieldGroupCount(), 0);
    EXPECT_EQ(Value(service, u"GroupMode"_qs), u"1"_qs);
}

TEST_F(ConfigurationService, AFileThatIsGoneAtALaterLoadIsAnOpenErrorAndIsNotMade)
{
    const auto service = ServiceOver(AllPersonalities());
    QFile::remove(FileName());
    EXPECT_THROW(service->Load(), EFOpenError);
    EXPECT_FALSE(QFileInfo::exists(FileName()));
}

TEST_F(ConfigurationService, ALoadThatFailsTakesNothingAway)
{
    const auto service = ServiceOver(AllPersonalities());
    Current(service)->AddDataSetInfo(u"X"_qs, u"TX"_qs);
    const auto before = AllLists(service);
    // The fault is far behind, in the last personality.
    auto broken = AllPersonalities().replace("GroupMode>1<", "GroupMode>2<");
    broken.replace("TClx\" Def", "TClx\" TClx Def");
    WriteFile(broken);
    EXPECT_THROW(service->Load(), EXmlError);
    EXPECT_EQ(AllLists(service), before);
    EXPECT_EQ(Value(service, u"GroupMode"_qs), u"1"_qs);
    EXPECT_TRUE(service->Modified());
    EXPECT_EQ(ReadFile(), broken);
}

TEST_F(ConfigurationService, ASaveThatFailsReachesTheCallerAndKeepsTheMarks)
{
    const auto service = ServiceOver(AllPersonalities());
    Current(service)->AddDataSetInfo(u"X"_qs, u"TX"_qs);
    Personality(service, prCLX)->AddDataSetInfo(u"X"_qs, u"TX"_qs);
    // A directory where the file was: nothing can be put in its place.
    QFile::remove(FileName());
    QDir().mkdir(FileName());
    EXPECT_THROW(service->Save(), EStreamError);
    EXPECT_TRUE(Current(service)->Modified());
    EXPECT_FALSE(Personality(service, prCLR)->Modified());
    EXPECT_TRUE(Personality(service, prCLX)->Modified());
    EXPECT_FALSE(Preferences(service)->Modified());
}

TEST_F(ConfigurationService, AFullDiskLeavesTheOldFileWholeAndNothingBesideIt)
{
    const auto service = ServiceOver(AllPersonalities());
    Current(service)->AddDataSetInfo(u"X"_qs, u"TX"_qs);
    QString message;
    {
        const FileSizeLimit full(100);
        message = MessageOf<EStreamError>([&] { service->Save(); });
    }
    EXPECT_EQ(message, u"Cannot write file \"%1\". File too large"_qs.arg(FileName()));
    EXPECT_EQ(ReadFile(), AllPersonalities());
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files), (QStringList { u"Morvane.cfg"_qs, u"registry.ini"_qs }));
    EXPECT_TRUE(service->Modified());
    service->Save();
    EXPECT_EQ(ReadFile().count("X=\"TX\""), 1);
}

TEST_F(ConfigurationService, AFullDiskAtTheFirstStartLeavesNoHalfFile)
{
    {
        const FileSizeLimit full(100);
        EXPECT_THROW(Service(), EStreamError);
    }
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files), QStringList(u"registry.ini"_qs));
    EXPECT_EQ(Service()->FileName(), FileName());
    EXPECT_EQ(ReadFile(), EmbeddedDefault());
}

TEST_F(ConfigurationService, ASaveLeavesNoFileBesideIt)
{
    const auto service = ServiceOver(AllPersonalities());
    service->Save();
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files), (QStringList { u"Morvane.cfg"_qs, u"registry.ini"_qs }));
}

TEST_F(ConfigurationService, OfTwoProcessesTheLastSaveWinsWhole)
{
    const auto one = ServiceOver(AllPersonalities());
    const auto other = Service();
    Current(one)->AddDataSetInfo(u"One"_qs, u"TOne"_qs);
    Current(other)->AddDataSetInfo(u"Other"_qs, u"TOther"_qs);
    one->Save();
    other->Save();
    one->Load();
    other->Load();
    EXPECT_EQ(Text(DataSetList(one)), u"TVcl TOther Details None"_qs);
    EXPECT_EQ(AllLists(one), AllLists(other));
}

TEST_F(ConfigurationService, AReaderThatHasTheFileOpenKeepsTheOldOneWhole)
{
    const auto service = ServiceOver(AllPersonalities());
    QFile reader(FileName());
    ASSERT_TRUE(reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    const auto half = reader.read(40);
    Current(service)->AddDataSetInfo(u"X"_qs, u"TX"_qs);
    service->Save();
    EXPECT_EQ(half + reader.readAll(), AllPersonalities());
}

TEST_F(ConfigurationService, InitializationMakesTheServiceAndFinalizationDropsIt)
{
    MrvCfgIntf::Initialization();
    EXPECT_NE(MrvConfigurationService, nullptr);
    MrvCfgIntf::Finalization();
    EXPECT_EQ(MrvConfigurationService, nullptr);
}

TEST_F(ConfigurationService, FinalizationSavesWhatWasModified)
{
    WriteFile(AllPersonalities());
    MrvCfgIntf::Initialization();
    InterfacePtr<IMrvPreferences> preferences;
    MrvConfigurationService->GetPreferences(preferences);
    preferences->SetValueByName(u"Mine"_qs, u"kept"_qs);
    MrvCfgIntf::Finalization();
    EXPECT_EQ(ReadFile().count("    <Mine>kept</Mine>\r\n"), 1);
}

TEST_F(ConfigurationService, FinalizationWritesNothingWhenNothingWasModified)
{
    WriteFile(AllPersonalities());
    MrvCfgIntf::Initialization();
    MrvCfgIntf::Finalization();
    EXPECT_EQ(ReadFile(), AllPersonalities());
}

TEST_F(ConfigurationService, AChangeInAnotherPersonalityAloneIsNotSavedAtTheEnd)
{
    WriteFile(AllPersonalities());
    const auto service = Service();
    MrvConfigurationService = service;
    Personality(service, prCLX)->AddDataSetInfo(u"X"_qs, u"TX"_qs);
    MrvCfgIntf::Finalization();
    EXPECT_EQ(ReadFile(), AllPersonalities());
}

TEST_F(ConfigurationService, InitializationOverAMalformedFileRaisesAndLeavesNoService)
{
    WriteFile("<Morvane>");
    EXPECT_THROW(MrvCfgIntf::Initialization(), EXmlError);
    EXPECT_EQ(MrvConfigurationService, nullptr);
    MrvCfgIntf::Finalization();
    EXPECT_EQ(ReadFile(), "<Morvane>");
}

TEST_F(ConfigurationService, FinalizationDropsTheServiceAlsoWhenSavingRaises)
{
    WriteFile(AllPersonalities());
    MrvCfgIntf::Initialization();
    InterfacePtr<IMrvPreferences> preferences;
    MrvConfigurationService->GetPreferences(preferences);
    preferences->SetValueByName(u"Mine"_qs, u"lost"_qs);
    QFile::remove(FileName());
    QDir().mkdir(FileName());
    EXPECT_THROW(MrvCfgIntf::Finalization(), EStreamError);
    EXPECT_EQ(MrvConfigurationService, nullptr);
}
