#include "plugin/config/ConfigurationFixture.h"

#include "config/StreamWriter.h"
#include "config/XmlTextWriter.h"

#include <QBuffer>

namespace {

class Preferences : public ConfigurationFixture {
protected:
    // The service over a file with this content of its Preferences element.
    InterfacePtr<TMrvConfigurationService> Over(const QByteArray& preferences) const
    {
        return ServiceOver(Configuration(preferences));
    }
    // What Preferences looks like after a save.
    QByteArray Saved(const InterfacePtr<TMrvConfigurationService>& service) const
    {
        service->Save();
        const auto file = ReadFile();
        const auto from = file.indexOf("  <Preferences>");
        return file.mid(from, file.indexOf("</Preferences>") - from).replace("\r\n", "\n");
    }
};

}

TEST_F(Preferences, AValueIsFoundIgnoringTheCaseOfItsName)
{
    EXPECT_EQ(Value(Over("<GroupMode>2</GroupMode>"), u"GROUPMODE"_qs), u"2"_qs);
}

TEST_F(Preferences, AnAbsentNameGivesAnEmptyValue)
{
    EXPECT_EQ(Value(Over("<GroupMode>2</GroupMode>"), u"Nobody"_qs), QString());
}

TEST_F(Preferences, TheFirstKeyAfterTheStartIsRead)
{
    const auto service = Over("<GroupMode>1</GroupMode><ShowFieldType>True</ShowFieldType>");
    EXPECT_EQ(Value(service, u"GroupMode"_qs), u"1"_qs);
    EXPECT_EQ(Value(service, u"ShowFieldType"_qs), u"True"_qs);
}

TEST_F(Preferences, TheFirstOfTwoElementsOfOneNameCounts)
{
    EXPECT_EQ(Value(Over("<A>first</A><a>second</a>"), u"a"_qs), u"first"_qs);
}

TEST_F(Preferences, AValueThatHoldsEqualsSignsSurvives)
{
    const auto service = Over("<Filter>a=b=c</Filter>");
    EXPECT_EQ(Value(service, u"Filter"_qs), u"a=b=c"_qs);
    service->Save();
    service->Load();
    EXPECT_EQ(Value(service, u"Filter"_qs), u"a=b=c"_qs);
}

TEST_F(Preferences, ANameThatHoldsAnEqualsSignEndsAtIt)
{
    const auto service = Over({});
    ::Preferences(service)->SetValueByName(u"a=b"_qs, u"c"_qs);
    EXPECT_EQ(Value(service, u"a"_qs), u"b=c"_qs);
    EXPECT_EQ(Value(service, u"a=b"_qs), QString());
}

TEST_F(Preferences, ANameThatDiffersInCaseReplacesTheLine)
{
    const auto service = Over("<Alpha>1</Alpha><Beta>2</Beta>");
    ::Preferences(service)->SetValueByName(u"ALPHA"_qs, u"3"_qs);
    EXPECT_EQ(Saved(service), "  <Preferences>\n    <ALPHA>3</ALPHA>\n    <Beta>2</Beta>\n  ");
}

TEST_F(Preferences, ANewNameIsAppended)
{
    const auto service = Over("<Alpha>1</Alpha>");
    ::Preferences(service)->SetValueByName(u"Beta"_qs, u"2"_qs);
    EXPECT_EQ(Saved(service), "  <Preferences>\n    <Alpha>1</Alpha>\n    <Beta>2</Beta>\n  ");
}

TEST_F(Preferences, AnEmptyValueRemovesTheLine)
{
    const auto service = Over("<Alpha>1</Alpha><Beta>2</Beta>");
    ::Preferences(service)->SetValueByName(u"alpha"_qs, QString());
    EXPECT_EQ(Saved(service), "  <Preferences>\n    <Beta>2</Beta>\n  ");
}

TEST_F(Preferences, AnEmptyValueOfAnAbsentNameChangesNothingButMarksTheStore)
{
    const auto service = Over("<Alpha>1</Alpha>");
    ::Preferences(service)->SetValueByName(u"Beta"_qs, QString());
    EXPECT_TRUE(::Preferences(service)->Modified());
    EXPECT_EQ(Saved(service), "  <Preferences>\n    <Alpha>1</Alpha>\n  ");
}

TEST_F(Preferences, SettingTheSameValueMarksTheStore)
{
    const auto service = Over("<Alpha>1</Alpha>");
    EXPECT_FALSE(::Preferences(service)->Modified());
    ::Preferences(service)->SetValueByName(u"Alpha"_qs, u"1"_qs);
    EXPECT_TRUE(::Preferences(service)->Modified());
}

TEST_F(Preferences, ScanAllFormsAlwaysLoadsAsFalse)
{
    EXPECT_EQ(Value(Over("<ScanAllForms>True</ScanAllForms>"), u"ScanAllForms"_qs), u"False"_qs);
    EXPECT_EQ(Value(Over("<scanallforms>whatever</scanallforms>"), u"ScanAllForms"_qs), u"False"_qs);
}

TEST_F(Preferences, ScanAllFormsIsSavedWithItsCurrentValue)
{
    const auto service = Over("<ScanAllForms>False</ScanAllForms>");
    ::Preferences(service)->SetValueByName(u"ScanAllForms"_qs, u"True"_qs);
    EXPECT_EQ(Saved(service), "  <Preferences>\n    <ScanAllForms>True</ScanAllForms>\n  ");
    service->Load();
    EXPECT_EQ(Value(service, u"ScanAllForms"_qs), u"False"_qs);
}

TEST_F(Preferences, AnAbsentScanAllFormsStaysAbsent)
{
    EXPECT_EQ(Value(Over("<Alpha>1</Alpha>"), u"ScanAllForms"_qs), QString());
}

TEST_F(Preferences, UnknownElementsAreKeptAndWrittenBack)
{
    const auto service = Over("<Zeta> keep me </Zeta><Mine>&lt;&amp;&gt;</Mine>");
    EXPECT_EQ(Saved(service), "  <Preferences>\n    <Zeta> keep me </Zeta>\n    <Mine>&lt;&amp;&gt;</Mine>\n  ");
}

TEST_F(Preferences, AnElementWithoutTextAddsNothing)
{
    const auto service = Over("<Alpha></Alpha><Beta/><Gamma>  \n </Gamma><Delta>4</Delta>");
    EXPECT_EQ(Saved(service), "  <Preferences>\n    <Delta>4</Delta>\n  ");
}

TEST_F(Preferences, AKeySavedWithAnEmptyValueDoesNotComeBack)
{
    const auto service = Over({});
    ::Preferences(service)->SetValueByName(u"Alpha"_qs, u" "_qs);
    EXPECT_EQ(Value(service, u"Alpha"_qs), u" "_qs);
    service->Save();
    service->Load();
    EXPECT_EQ(Value(service, u"Alpha"_qs), QString());
}

TEST_F(Preferences, CommentsStandInNobodysWay)
{
    const auto service = Over("<!-- one --><Alpha><!-- two -->1</Alpha><?pi?><Beta><![CDATA[2]]></Beta>");
    EXPECT_EQ(Saved(service), "  <Preferences>\n    <Alpha>1</Alpha>\n    <Beta>2</Beta>\n  ");
}

TEST_F(Preferences, ASecondPreferencesElementIsNotRead)
{
    const auto service
        = ServiceOver("<Morvane><Preferences><A>1</A></Preferences><Preferences><B>2</B></Preferences></Morvane>");
    EXPECT_EQ(Value(service, u"A"_qs), u"1"_qs);
    EXPECT_EQ(Value(service, u"B"_qs), QString());
}

TEST_F(Preferences, TheElementsNameIsCaseSensitive)
{
    const auto service = ServiceOver("<Morvane><preferences><GroupMode>1</GroupMode></preferences></Morvane>");
    EXPECT_EQ(Value(service, u"GroupMode"_qs), QString());
    EXPECT_THROW(StrToInt(Value(service, u"GroupMode"_qs)), EConvertError);
}

TEST_F(Preferences, AnEmptyPreferencesElementReadsNothingBehindIt)
{
    const auto service = ServiceOver("<Morvane><Preferences/><Other><A>1</A></Other></Morvane>");
    EXPECT_EQ(Value(service, u"A"_qs), QString());
}

TEST_F(Preferences, ALongValueIsReadWhole)
{
    const QByteArray text(300 * 1024, 'x');
    EXPECT_EQ(Value(Over("<Long>" + text + "&amp;" + text + "</Long>"), u"Long"_qs).size(), 2 * text.size() + 1);
}

TEST_F(Preferences, LoadDefaultTakesTheEmbeddedOnesAndMarksTheStore)
{
    const auto service = Over("<GroupMode>2</GroupMode><Mine>1</Mine>");
    ::Preferences(service)->LoadDefault();
    EXPECT_TRUE(::Preferences(service)->Modified());
    EXPECT_EQ(
        Saved(service), "  <Preferences>\n    <GroupMode>0</GroupMode>\n    <ScanAllForms>False</ScanAllForms>\n  ");
}

TEST_F(Preferences, LoadClearsTheMark)
{
    const auto service = Over("<Alpha>1</Alpha>");
    ::Preferences(service)->SetValueByName(u"Alpha"_qs, u"2"_qs);
    ::Preferences(service)->Load();
    EXPECT_FALSE(::Preferences(service)->Modified());
    EXPECT_EQ(Value(service, u"Alpha"_qs), u"1"_qs);
}

TEST_F(Preferences, InternalSaveClearsTheMark)
{
    const auto service = Over("<Alpha>1</Alpha>");
    ::Preferences(service)->SetValueByName(u"Alpha"_qs, u"2"_qs);
    StreamWriter file(Folder.filePath(u"other"_qs));
    XmlTextWriter writer(file);
    ::Preferences(service)->InternalSave(&writer);
    EXPECT_FALSE(::Preferences(service)->Modified());
}

TEST_F(Preferences, InternalSaveTakesNothingButTheXmlWriter)
{
    const auto service = Over("<Alpha>1</Alpha>");
    QBuffer other;
    EXPECT_THROW(::Preferences(service)->InternalSave(&other), EInvalidCast);
    EXPECT_THROW(::Preferences(service)->InternalSave(nullptr), EInvalidCast);
}

TEST_F(Preferences, ClearDoesNothing)
{
    const auto service = Over("<Alpha>1</Alpha>");
    ::Preferences(service)->Clear();
    EXPECT_EQ(Value(service, u"Alpha"_qs), u"1"_qs);
}
