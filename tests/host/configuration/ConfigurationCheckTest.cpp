#include "configuration/ConfigurationCheck.h"

#include "plugin/config/ConfigurationFixture.h"

namespace {

class ConfigurationFaults : public ConfigurationFixture {
protected:
    // The problems, a line each, with their severity; the file loads in the plug-in exactly when none is an Error of
    // the XML.
    QString Faults(const QByteArray& content) const
    {
        QStringList lines;
        bool broken = false;
        for (const auto& problem : CheckConfiguration(content, u"cfg"_qs)) {
            broken = broken || (problem.Severity == Problem::Error && !problem.Text.startsWith(u"GroupMode"_qs));
            lines << (problem.Severity == Problem::Error ? u"Error "_qs : u"Warning "_qs) + problem.ToString();
        }
        EXPECT_EQ(broken, !MessageOf<EXmlError>([&] { ServiceOver(content); }).isEmpty());
        return lines.join(u'\n');
    }
};

const QByteArray Head = "<Morvane><Preferences><GroupMode>0</GroupMode></Preferences><CustomizeSection>";
const QByteArray Parts = "<prVCL></prVCL><prCLR></prCLR><prCLX></prCLX>";

}

TEST_F(ConfigurationFaults, AWholeFileHasNone)
{
    EXPECT_EQ(Faults(Head + Parts + "</CustomizeSection></Morvane>"), QString());
}

TEST_F(ConfigurationFaults, ACaptionThatIsNoNameIsToldWithItsControl)
{
    const auto service = ServiceOver(Head + Parts + "</CustomizeSection></Morvane>");
    Current(service)->AddFieldInfo(Current(service)->GetFieldGroupIndex(u"ftString"_qs), u"Edit"_qs, u"TEdit"_qs);
    Current(service)->AddFieldInfo(Current(service)->GetFieldGroupIndex(u"ftString"_qs), u"3DEdit"_qs, u"T3DEdit"_qs);
    service->Save();
    const auto faults = Faults(ReadFile());
    EXPECT_TRUE(faults.startsWith(u"Error cfg:"_qs)) << qPrintable(faults);
    EXPECT_TRUE(faults.endsWith(
        u": prVCL, ftString: the control T3DEdit has the caption \"3DEdit\", which is no name in XML"_qs))
        << qPrintable(faults);
}

TEST_F(ConfigurationFaults, TwoControlsOfOneCaptionAreToldBoth)
{
    const auto service = ServiceOver(Head + Parts + "</CustomizeSection></Morvane>");
    Current(service)->AddDataSetInfo(u"Grid"_qs, u"TGrid"_qs);
    Current(service)->AddDataSetInfo(u"Grid"_qs, u"MGrid"_qs);
    service->Save();
    const auto faults = Faults(ReadFile());
    EXPECT_TRUE(faults.endsWith(u": prVCL: the controls TGrid and MGrid have one caption, \"Grid\""_qs))
        << qPrintable(faults);
}

TEST_F(ConfigurationFaults, OtherFaultsAreToldAsTheReaderSaysThem)
{
    EXPECT_EQ(Faults(Head + "\n<prVCL></prCLR>"), u"Error cfg:2:16: Opening and ending tag mismatch."_qs);
}

TEST_F(ConfigurationFaults, AFileThatIsCutOffBehindAllPartsLoadsAllTheSame)
{
    EXPECT_EQ(Faults(Head + Parts), u"Warning cfg:1:124: Premature end of document."_qs);
}

TEST_F(ConfigurationFaults, AnEmptyFileIsAnError)
{
    EXPECT_EQ(Faults({}), u"Error cfg:1:1: Premature end of document."_qs);
}

TEST_F(ConfigurationFaults, AMissingGroupModeIsToldWithWhatToWrite)
{
    EXPECT_EQ(Faults("<Morvane>\n<Preferences></Preferences></Morvane>"),
        u"Error cfg:2:28: GroupMode is missing; the tool window needs <GroupMode>0</GroupMode> (or 1, by form, or 2, "
        u"by "
        "connection) below Preferences"_qs);
}

TEST_F(ConfigurationFaults, AGroupModeThatIsNoNumberIsAnError)
{
    EXPECT_TRUE(Faults("<Morvane><Preferences><GroupMode>form</GroupMode></Preferences></Morvane>")
                    .startsWith(u"Error cfg:1:39: GroupMode is no number;"_qs));
}

TEST_F(ConfigurationFaults, AGroupModeOutsideTheThreeIsAWarning)
{
    EXPECT_EQ(Faults("<Morvane><Preferences><groupmode>3</groupmode></Preferences></Morvane>"),
        u"Warning cfg:1:36: GroupMode is none of 0, 1 and 2"_qs);
}

TEST_F(ConfigurationFaults, PreferencesInLowerCaseLeaveGroupModeMissing)
{
    EXPECT_TRUE(Faults("<Morvane><preferences><GroupMode>1</GroupMode></preferences></Morvane>")
                    .contains(u"GroupMode is missing"_qs));
}

TEST_F(ConfigurationFaults, OnlyTheFirstPreferencesCount)
{
    EXPECT_TRUE(
        Faults("<Morvane><Preferences></Preferences><Preferences><GroupMode>1</GroupMode></Preferences></Morvane>")
            .contains(u"GroupMode is missing"_qs));
}
