// What the reader takes and what the writer gives, down to the byte, and files that no program wrote.

#include "plugin/config/ConfigurationFixture.h"

#include "rtl/TResourceStream.h"

namespace {

class ConfigurationFile : public ConfigurationFixture {
protected:
    // The lines of the saved file from the first that holds `from` to the first after it that holds `to`, unindented.
    static QString Lines(const QByteArray& file, const QByteArray& from, const QByteArray& to)
    {
        const auto start = file.lastIndexOf('\n', file.indexOf(from)) + 1;
        const auto end = file.indexOf('\n', file.indexOf(to, start));
        QStringList lines;
        for (const auto& line : file.mid(start, end - start).split('\n'))
            lines << QString::fromUtf8(line.trimmed());
        return lines.join(u'\n');
    }
    QByteArray SavedOver(const QByteArray& vcl) const
    {
        ServiceOverVcl(vcl)->Save();
        return ReadFile();
    }
    static QByteArray Group(const QByteArray& name, const QByteArray& attributes)
    {
        return "<FieldSection><" + name + "><CtrlClassNames " + attributes + "/></" + name + "></FieldSection>";
    }
    QString ErrorOver(const QByteArray& content) const
    {
        const auto message = MessageOf<EXmlError>([&] { ServiceOver(content); });
        EXPECT_EQ(ReadFile(), content);
        return QString(message).replace(FileName(), u"Morvane.cfg"_qs);
    }
};

}

TEST_F(ConfigurationFile, TheEmbeddedDefaultHasItsSizeAndItsLineEnds)
{
    const auto service = Service();
    const auto content = TResourceStream(u"#101"_qs, RT_RCDATA).readAll();
    EXPECT_EQ(content.size(), 21121);
    EXPECT_EQ(content.count('\n'), content.count("\r\n"));
    EXPECT_EQ(content.count('\r'), content.count("\r\n"));
    EXPECT_TRUE(content.endsWith("</Morvane>" + QByteArray("\r\n").repeated(8)));
    EXPECT_TRUE(content.startsWith("<Morvane>\r\n  <Preferences>\r\n    <GroupMode>0</GroupMode>\r\n"
                                   "    <ScanAllForms>False</ScanAllForms>\r\n  </Preferences>\r\n"
                                   "  <CustomizeSection>\r\n    <VCL>\r\n      <DatasetSection DBGrid=\"TDBGrid\" "
                                   "BKDBGrid=\"TBKDBGrid\" DBCtrlGrid=\"TDBCtrlGrid\" DefaultClass=\"TDBGrid\" />\r\n"
                                   "      <FieldSection>\r\n        <ftXML>\r\n"));
}

TEST_F(ConfigurationFile, TheEmbeddedDefaultHoldsTheSameBindingsForThreePersonalities)
{
    const auto service = Service();
    auto content = TResourceStream(u"#101"_qs, RT_RCDATA).readAll();
    QList<QByteArray> sections;
    for (const auto* name : { "VCL", "CLR", "CLX" }) {
        const auto start = content.indexOf(QByteArray("<") + name + ">") + 5;
        const auto end = content.indexOf(QByteArray("</") + name + ">");
        sections << content.mid(start, end - start);
    }
    EXPECT_EQ(sections.at(1), sections.at(0));
    EXPECT_EQ(sections.at(2), sections.at(0));
}

TEST_F(ConfigurationFile, TheEmbeddedDefaultHoldsTheDefaultBindings)
{
    const auto service = Service();
    auto content = TResourceStream(u"#101"_qs, RT_RCDATA).readAll();
    // Under the names that the reader looks for, the embedded sections load: this is what they hold.
    for (const auto* name : { "VCL", "CLR", "CLX" }) {
        content.replace(QByteArray("<") + name, QByteArray("<pr") + name);
        content.replace(QByteArray("</") + name, QByteArray("</pr") + name);
    }
    const auto renamed = ServiceOver(content);
    QStringList lines { u"dataset: "_qs + Text(DataSetList(renamed)) };
    const auto personality = Current(renamed);
    for (int group = personality->FieldGroupCount() - 1; group >= 0; --group) {
        QString name;
        personality->GetFieldGroup(group, name);
        InterfacePtr<IMrvBindableControlInfoList> list;
        personality->GetFieldBindCtrlInfoList(list, group);
        EXPECT_TRUE(list->GetCount() == 0 || DefaultText(list).endsWith(u"member"_qs)) << qPrintable(name);
        lines << name + u": "_qs + Text(list);
    }
    EXPECT_EQ(lines.join(u'\n'), uR"(dataset: TDBGrid TBKDBGrid TDBCtrlGrid Details None
ftUnknown: TDBEdit TDBText None
ftString: TDBEdit TDBText TDBMemo TDBRichEdit TDBComboBox None
ftSmallint: TDBEdit TDBText TDBComboBox TDBCheckBox TDBRadioGroup None
ftInteger: TDBEdit TDBText TDBComboBox TDBCheckBox TDBRadioGroup None
ftWord: TDBEdit TDBText None
ftBoolean: TDBCheckBox TDBRadioGroup None
ftFloat: TDBEdit TDBText None
ftCurrency: TDBEdit TDBText None
ftBCD: TDBEdit TDBText None
ftDate: TDBEdit TDBText None
ftTime: TDBEdit TDBText None
ftDateTime: TDBEdit TDBText None
ftBytes: TDBEdit TDBText None
ftVarBytes: TDBEdit TDBText None
ftAutoInc: TDBText None
ftBlob: TDBMemo TDBEdit TDBImage TDBRichEdit None
ftMemo: TDBMemo TDBEdit TDBRichEdit None
ftGraphic: TDBImage None
ftFmtMemo: TDBMemo TDBEdit TDBRichEdit None
ftParadoxOle: TDBText None
ftDBaseOle: TDBText None
ftTypedBinary: TDBText None
ftCursor: TDBMemo None
ftFixedChar: TDBEdit TDBText TDBMemo TDBRichEdit None
ftWideString: TDBEdit TDBText TDBMemo TDBRichEdit None
ftLargeint: TDBEdit TDBText None
ftADT: None
ftArray: TDBText None
ftReference: None
ftDataSet: None
ftOraBlob: TDBMemo TDBRichEdit TDBImage None
ftOraClob: TDBMemo TDBImage TDBRichEdit None
ftVariant: TDBEdit TDBText None
ftInterface: TDBText None
ftIDispatch: None
ftGuid: None
ftTimeStamp: TDBEdit TDBText None
ftFMTBcd: TDBText None
ftFixedWideChar: TDBEdit TDBText TDBMemo TDBRichEdit None
ftWideMemo: TDBMemo TDBEdit TDBRichEdit None
ftOraTimeStamp: TDBEdit TDBText None
ftOraInterval: TDBEdit TDBText None
ftLongWord: 
ftShortint: 
ftByte: 
ftExtended: 
ftConnection: 
ftParams: 
ftStream: 
ftTimeStampOffset: 
ftMSXML: TDBMemo TDBRichEdit None
ftObject: 
ftSingle: 
ftBFile: TDBMemo TDBRichEdit None
ftIntervalYM: TDBEdit TDBText None
ftIntervalDS: TDBEdit TDBText None
ftTimeStampTZ: TDBEdit TDBText None
ftTimeStampLTZ: TDBEdit TDBText None
ftNumber: TDBEdit TDBText None
ftXML: TDBMemo TDBRichEdit None)"_qs);
}

TEST_F(ConfigurationFile, ASavedDatasetSectionReadsOnOneLine)
{
    const auto saved = SavedOver("<DatasetSection DBGrid='TDBGrid' BKDBGrid='TBKDBGrid' DBCtrlGrid='TDBCtrlGrid'/>");
    EXPECT_EQ(Lines(saved, "<DatasetSection", "/>"),
        uR"(<DatasetSection DBGrid="TDBGrid" BKDBGrid="TBKDBGrid" DBCtrlGrid="TDBCtrlGrid" DefaultClass="TDBGrid" />)"_qs);
}

TEST_F(ConfigurationFile, ASavedGroupReadsOnThreeLines)
{
    const auto saved = SavedOver(Group("ftXML", "DBMemo='TDBMemo' DBRichEdit='TDBRichEdit'"));
    EXPECT_EQ(Lines(saved, "<ftXML>", "</ftXML>"), uR"(<ftXML>
<CtrlClassNames DBMemo="TDBMemo" DBRichEdit="TDBRichEdit" DefaultClass="TDBMemo" />
</ftXML>)"_qs);
}

TEST_F(ConfigurationFile, ASavedFileIsIndentedByTwoBlanksAndEndsItsLinesInCrLf)
{
    const auto service = ServiceOver(Configuration("<GroupMode>0</GroupMode>", Group("ftUnknown", "A='TA'")));
    service->Save();
    auto saved = ReadFile();
    EXPECT_EQ(saved.count('\n'), saved.count("\r\n"));
    saved.replace("\r\n", "\n");
    // The groups between the first and the last of each personality all look like the first.
    QByteArray expected("<Morvane>\n  <Preferences>\n    <GroupMode>0</GroupMode>\n  </Preferences>\n"
                        "  <CustomizeSection>\n");
    for (const auto* name : { "prVCL", "prCLR", "prCLX" }) {
        expected += QByteArray("    <") + name + ">\n      <DatasetSection />\n      <FieldSection>\n";
        const auto personality = Current(service);
        for (int group = 0; group < personality->FieldGroupCount(); ++group) {
            QString groupName;
            personality->GetFieldGroup(group, groupName);
            const bool filled = groupName == u"ftUnknown"_qs && QByteArray(name) == "prVCL";
            expected += "        <" + groupName.toUtf8() + ">\n          <CtrlClassNames"
                + (filled ? " A=\"TA\" DefaultClass=\"TA\"" : "") + " />\n        </" + groupName.toUtf8() + ">\n";
        }
        expected += QByteArray("      </FieldSection>\n    </") + name + ">\n";
    }
    expected += "  </CustomizeSection>\n</Morvane>\n";
    EXPECT_EQ(saved, expected);
}

TEST_F(ConfigurationFile, EmptyPreferencesAreSavedOnTwoLines)
{
    EXPECT_TRUE(SavedOver({}).startsWith("<Morvane>\r\n  <Preferences>\r\n  </Preferences>\r\n"));
}

TEST_F(ConfigurationFile, ThePseudoControlsAreNotWritten)
{
    const auto saved = SavedOver("<DatasetSection A='TA'/>" + Group("ftString", "A='TA'"));
    EXPECT_EQ(saved.count("None"), 0);
    EXPECT_EQ(saved.count("Details"), 0);
}

TEST_F(ConfigurationFile, ThePseudoControlsAreToldByTheirCaptionWhenSaved)
{
    const auto service = ServiceOverVcl({});
    Current(service)->AddDataSetInfo(u"NONE"_qs, u"TReal"_qs);
    Current(service)->AddDataSetInfo(u"Grid"_qs, u"None"_qs);
    service->Save();
    EXPECT_EQ(Lines(ReadFile(), "<DatasetSection", "/>"), uR"(<DatasetSection Grid="None" DefaultClass="TReal" />)"_qs);
}

TEST_F(ConfigurationFile, AfterSaveAndLoadThePseudoControlsStandOnceEachAtTheEnd)
{
    const auto service = ServiceOverVcl(
        "<DatasetSection A='TA' B='TB' DefaultClass='TB'/>" + Group("ftString", "A='TA' B='TB' DefaultClass='TB'"));
    for (int i = 0; i < 3; ++i) {
        service->Save();
        service->Load();
        EXPECT_EQ(Text(DataSetList(service)), u"TB TA Details None"_qs);
        EXPECT_EQ(Text(GroupList(service, u"ftString"_qs)), u"TB TA None"_qs);
        EXPECT_EQ(DefaultText(DataSetList(service)), u"TB member"_qs);
    }
}

TEST_F(ConfigurationFile, AFileThatNamesAPseudoControlItselfDoesNotDoubleIt)
{
    const auto service = ServiceOverVcl(
        "<DatasetSection None='None' A='TA'/>"
        "<FieldSection><ftString><CtrlClassNames A='TA'/></ftString><ftString><CtrlClassNames B='TB'/></ftString>"
        "</FieldSection>");
    EXPECT_EQ(Text(DataSetList(service)), u"TA Details None"_qs);
    EXPECT_EQ(Text(GroupList(service, u"ftString"_qs)), u"TA TB None"_qs);
}

TEST_F(ConfigurationFile, TheCaptionOfTheDefaultIsTheClassNameWithoutItsFirstCharacter)
{
    const auto service = ServiceOverVcl("<DatasetSection DefaultClass='XMissing'/>");
    InterfacePtr<IMrvBindableControlInfo> item;
    DataSetList(service)->GetDefaultItem(item);
    EXPECT_EQ(CaptionOf(item), u"Missing"_qs);
    EXPECT_EQ(DefaultText(DataSetList(service)), u"XMissing detached"_qs);
}

TEST_F(ConfigurationFile, ADefaultOfNoneIsDetachedAndHasTheCaptionOne)
{
    const auto service = ServiceOverVcl(Group("ftString", "A='TA' DefaultClass='None'"));
    const auto list = GroupList(service, u"ftString"_qs);
    InterfacePtr<IMrvBindableControlInfo> item;
    list->GetDefaultItem(item);
    EXPECT_EQ(CaptionOf(item), u"one"_qs);
    EXPECT_EQ(DefaultText(list), u"None detached"_qs);
    EXPECT_EQ(Text(list), u"TA None"_qs);
    service->Save();
    EXPECT_EQ(Lines(ReadFile(), "<ftString>", "</ftString>"),
        u"<ftString>\n<CtrlClassNames A=\"TA\" DefaultClass=\"None\" />\n</ftString>"_qs);
}

TEST_F(ConfigurationFile, ADefaultOfDetailsIsSavedAndComesBack)
{
    const auto service = ServiceOverVcl("<DatasetSection A='TA'/>");
    Current(service)->SetDefaultDataSetInfo(u"Details"_qs);
    service->Save();
    EXPECT_EQ(Lines(ReadFile(), "<DatasetSection", "/>"), uR"(<DatasetSection A="TA" DefaultClass="Details" />)"_qs);
    service->Load();
    EXPECT_EQ(DefaultText(DataSetList(service)), u"Details detached"_qs);
    EXPECT_EQ(Text(DataSetList(service)), u"TA Details None"_qs);
}

TEST_F(ConfigurationFile, ADefaultThatIsNotListedIsSavedAsDefaultClass)
{
    const auto saved = SavedOver(Group("ftString", "A='TA' DefaultClass='TMissing'"));
    EXPECT_EQ(Lines(saved, "<ftString>", "</ftString>"),
        u"<ftString>\n<CtrlClassNames A=\"TA\" DefaultClass=\"TMissing\" />\n</ftString>"_qs);
}

TEST_F(ConfigurationFile, ADefaultClassThatDoesNotStandLastFindsOnlyWhatStandsBeforeIt)
{
    const auto service = ServiceOverVcl("<DatasetSection A='TA' DefaultClass='TB' B='TB'/>");
    EXPECT_EQ(Text(DataSetList(service)), u"TA TB Details None"_qs);
    EXPECT_EQ(DefaultText(DataSetList(service)), u"TB detached"_qs);
}

TEST_F(ConfigurationFile, TheDatasetSectionsDefaultIsSavedAlsoWithoutAnyControl)
{
    EXPECT_EQ(Lines(SavedOver("<DatasetSection DefaultClass='TA'/>"), "<DatasetSection", "/>"),
        uR"(<DatasetSection DefaultClass="TA" />)"_qs);
}

TEST_F(ConfigurationFile, AGroupWithoutAnElementStaysWithoutNoneUntilASavedFileHoldsIt)
{
    const auto service = ServiceOverVcl(Group("ftString", "A='TA'"));
    EXPECT_EQ(Text(GroupList(service, u"ftADT"_qs)), QString());
    service->Save();
    EXPECT_EQ(Lines(ReadFile(), "<ftADT>", "</ftADT>"), u"<ftADT>\n<CtrlClassNames />\n</ftADT>"_qs);
    service->Load();
    EXPECT_EQ(Text(GroupList(service, u"ftADT"_qs)), u"None"_qs);
    service->Save();
    EXPECT_EQ(
        Lines(ReadFile(), "<ftADT>", "</ftADT>"), u"<ftADT>\n<CtrlClassNames DefaultClass=\"None\" />\n</ftADT>"_qs);
}

TEST_F(ConfigurationFile, UnknownGroupsAreSkippedAndLostAtTheNextSave)
{
    const auto service = ServiceOverVcl("<FieldSection><ftMine><CtrlClassNames A='TA'/></ftMine>"
                                        "<ftString><CtrlClassNames B='TB'/></ftString></FieldSection>");
    EXPECT_EQ(Text(GroupList(service, u"ftString"_qs)), u"TB None"_qs);
    service->Save();
    EXPECT_FALSE(ReadFile().contains("ftMine"));
}

TEST_F(ConfigurationFile, NamesThatDifferInCaseAreAccepted)
{
    const auto service = ServiceOver(
        "<Morvane><Preferences/><customizesection><PRVCL><datasetsection A='TA' B='TB' defaultCLASS='TB'/>"
        "<FIELDSECTION><FTstring><ctrlclassnames "
        "C='TC'/></FTstring></FIELDSECTION></PRVCL></customizesection></Morvane>");
    EXPECT_EQ(Text(DataSetList(service)), u"TB TA Details None"_qs);
    EXPECT_EQ(Text(GroupList(service, u"ftString"_qs)), u"TC None"_qs);
}

TEST_F(ConfigurationFile, ASectionOutsideItsPersonalityIsNotRead)
{
    const auto service = ServiceOver("<Morvane><DatasetSection A='TA'/><prVCL/><DatasetSection B='TB'/></Morvane>");
    EXPECT_EQ(Text(DataSetList(service)), QString());
}

TEST_F(ConfigurationFile, AnEmptyFieldSectionEndsAtOnce)
{
    const auto service = ServiceOver("<Morvane><prVCL><FieldSection/></prVCL><prCLR><DatasetSection A='TA'/>"
        + Group("ftString", "B='TB'") + "</prCLR></Morvane>");
    EXPECT_EQ(Text(GroupList(service, u"ftString"_qs)), QString());
    EXPECT_EQ(Text(GroupList(Personality(service, prCLR), u"ftString"_qs)), u"TB None"_qs);
}

TEST_F(ConfigurationFile, AnEmptyGroupElementTakesNothingFromItsNeighbour)
{
    const auto service = ServiceOverVcl(
        "<FieldSection><ftADT/><ftString><CtrlClassNames B='TB'/></ftString><ftGuid></ftGuid></FieldSection>");
    EXPECT_EQ(Text(GroupList(service, u"ftADT"_qs)), u"None"_qs);
    EXPECT_EQ(Text(GroupList(service, u"ftString"_qs)), u"TB None"_qs);
    EXPECT_EQ(Text(GroupList(service, u"ftGuid"_qs)), u"None"_qs);
}

TEST_F(ConfigurationFile, TheEndOfAFileBehindWhatIsReadIsNotLookedAt)
{
    const auto service = ServiceOver("<Morvane><Preferences><A>1</A></Preferences>"
                                     "<prVCL><DatasetSection A='TA'/></prVCL><prCLR></prCLR><prCLX></prCLX>cut off");
    EXPECT_EQ(Value(service, u"A"_qs), u"1"_qs);
    EXPECT_EQ(Text(DataSetList(service)), u"TA Details None"_qs);
}

TEST_F(ConfigurationFile, MarkupInNamesOfClassesIsEscaped)
{
    const auto service = ServiceOverVcl({});
    Current(service)->AddDataSetInfo(u"A"_qs, u"T<\"&'>\t\r\nA"_qs);
    service->Save();
    EXPECT_EQ(ReadFile().count("A=\"T&lt;&quot;&amp;'&gt;&#9;&#13;&#10;A\""), 1);
    service->Load();
    EXPECT_EQ(Text(DataSetList(service)), u"A=T<\"&'>\t\r\nA Details None"_qs);
}

TEST_F(ConfigurationFile, LettersOfAnyLanguageComeBack)
{
    const auto service = ServiceOverVcl({});
    Current(service)->AddDataSetInfo(u"Gitterœ日本"_qs, u"TGitterœ日本"_qs);
    Preferences(service)->SetValueByName(u"Name"_qs, u"Ærøskøbing 🙂"_qs);
    service->Save();
    service->Load();
    EXPECT_EQ(Text(DataSetList(service)), u"TGitterœ日本 Details None"_qs);
    EXPECT_EQ(Value(service, u"Name"_qs), u"Ærøskøbing 🙂"_qs);
}

TEST_F(ConfigurationFile, AnotherEncodingThatTheFileDeclaresIsRead)
{
    const auto service = ServiceOver("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><Morvane><Preferences>"
                                     "<A>\xE6</A></Preferences></Morvane>");
    EXPECT_EQ(Value(service, u"A"_qs), u"æ"_qs);
}

TEST_F(ConfigurationFile, AFileThatAnEditorMarkedAsUnicodeIsRead)
{
    const auto content = Configuration("<A>\xC3\xA6</A>", "<DatasetSection B='TB'/>");
    const auto marked = ServiceOver("\xEF\xBB\xBF" + content);
    EXPECT_EQ(Value(marked, u"A"_qs), u"æ"_qs);
    const auto wide = QString(QChar(0xFEFF)) + QString::fromUtf8(content);
    const auto service = ServiceOver(QByteArray(reinterpret_cast<const char*>(wide.utf16()), wide.size() * 2));
    EXPECT_EQ(Value(service, u"A"_qs), u"æ"_qs);
    EXPECT_EQ(Text(DataSetList(service)), u"TB Details None"_qs);
}

TEST_F(ConfigurationFile, TheElementBehindAGroupsStartIsReadWhateverItsName)
{
    const auto service = ServiceOverVcl("<FieldSection><ftString><Other A='TA' DefaultClass='TA'/></ftString>"
                                        "<ftADT><ftGuid B='TB'/></ftADT></FieldSection>");
    EXPECT_EQ(Text(GroupList(service, u"ftString"_qs)), u"TA None"_qs);
    EXPECT_EQ(Text(GroupList(service, u"ftADT"_qs)), u"TB None"_qs);
    EXPECT_EQ(Text(GroupList(service, u"ftGuid"_qs)), QString());
}

TEST_F(ConfigurationFile, ACaptionThatIsNoXmlNameGivesAFileThatDoesNotLoad)
{
    const auto service = ServiceOverVcl({});
    Current(service)->AddDataSetInfo(u"3DEdit"_qs, u"T3DEdit"_qs);
    service->Save();
    EXPECT_EQ(ReadFile().count(" 3DEdit=\"T3DEdit\" "), 1);
    EXPECT_THROW(service->Load(), EXmlError);
}

TEST_F(ConfigurationFile, TwoClassesOfOneCaptionGiveAFileThatDoesNotLoad)
{
    const auto service = ServiceOverVcl({});
    Current(service)->AddDataSetInfo(u"Edit"_qs, u"TEdit"_qs);
    Current(service)->AddDataSetInfo(u"Edit"_qs, u"MEdit"_qs);
    service->Save();
    EXPECT_THROW(service->Load(), EXmlError);
}

TEST_F(ConfigurationFile, WrongXmlIsToldWithItsPlaceAndTheFileIsNotTouched)
{
    EXPECT_EQ(
        ErrorOver("<Morvane>\n  <Preferences>\n  </Wrong>"), u"Morvane.cfg:3:11: Opening and ending tag mismatch."_qs);
}

TEST_F(ConfigurationFile, AFileThatIsCutOffIsToldWithItsPlace)
{
    EXPECT_EQ(ErrorOver(Configuration("<A>1</A>").left(60)), u"Morvane.cfg:1:61: Premature end of document."_qs);
}

TEST_F(ConfigurationFile, AnEmptyFileIsNoXml)
{
    EXPECT_EQ(ErrorOver({}), u"Morvane.cfg:1:1: Premature end of document."_qs);
}

TEST_F(ConfigurationFile, BytesThatAreNoTextAreNoXml)
{
    EXPECT_NE(ErrorOver(QByteArray("\x7F\x45LF\x02\x01\x00\x00", 8)), QString());
}

TEST_F(ConfigurationFile, AnEntityThatGrowsWithoutEndIsRefused)
{
    QByteArray bomb = "<!DOCTYPE x [<!ENTITY a0 \"0123456789\">";
    for (int i = 1; i <= 20; ++i) {
        const auto before = "&a" + QByteArray::number(i - 1) + ";";
        bomb += "<!ENTITY a" + QByteArray::number(i) + " \"" + before.repeated(10) + "\">";
    }
    EXPECT_NE(ErrorOver(bomb + "]><Morvane><Preferences><A>&a20;</A></Preferences></Morvane>"), QString());
}

TEST_F(ConfigurationFile, TenThousandGroupsAreRead)
{
    QByteArray groups;
    for (int i = 0; i < 10000; ++i) {
        const auto name = "ft" + QByteArray::number(i);
        groups += "<" + name + "><CtrlClassNames A='TA'/></" + name + ">";
    }
    groups += "<ftString><CtrlClassNames B='TB'/></ftString>";
    const auto service = ServiceOverVcl("<FieldSection>" + groups + "</FieldSection>");
    EXPECT_EQ(Text(GroupList(service, u"ftString"_qs)), u"TB None"_qs);
    EXPECT_EQ(Current(service)->FieldGroupCount(), 60);
}

TEST_F(ConfigurationFile, OneGroupAHundredThousandTimesIsReadInLinearTime)
{
    const QByteArray group = "<ftString><CtrlClassNames A='TA'/></ftString>";
    const auto service = ServiceOverVcl("<FieldSection>" + group.repeated(100000) + "</FieldSection>");
    const auto list = GroupList(service, u"ftString"_qs);
    EXPECT_EQ(list->GetCount(), 100001);
    EXPECT_EQ(list->IndexOf(u"None"_qs), 100000);
}

TEST_F(ConfigurationFile, APseudoControlAmongTheControlsOfAFileStandsBehindThoseThatFollow)
{
    const auto service = ServiceOverVcl("<DatasetSection A='TA' Mine='None' B='TB'/><DatasetSection C='TC'/>");
    EXPECT_EQ(Text(DataSetList(service)), u"TA TB TC Details Mine=None"_qs);
}

TEST_F(ConfigurationFile, FiftyMegabytesAreRead)
{
    QByteArray filler;
    while (filler.size() < 1 << 20)
        filler += "<Key" + QByteArray::number(filler.size()) + ">value</Key" + QByteArray::number(filler.size()) + ">";
    const auto preferences = filler.repeated(4) + "<Last>1</Last>";
    const QByteArray comment = "<!--" + QByteArray(46 << 20, ' ') + "-->";
    const auto service = ServiceOver(Configuration(preferences, comment + "<DatasetSection A='TA'/>"));
    EXPECT_GT(QFile(FileName()).size(), 50 << 20);
    EXPECT_EQ(Value(service, u"Last"_qs), u"1"_qs);
    EXPECT_EQ(Text(DataSetList(service)), u"TA Details None"_qs);
}

TEST_F(ConfigurationFile, AMissingGroupModeLoadsAndItsStrictReadingSaysSo)
{
    const auto service = ServiceOver(Configuration("<ShowFieldType>True</ShowFieldType>"));
    EXPECT_EQ(MessageOf<EConvertError>([&] { StrToInt(Value(service, u"GroupMode"_qs)); }),
        u"'' is not a valid integer value"_qs);
}

TEST_F(ConfigurationFile, ADirectoryInTheFilesPlaceIsAnOpenErrorThatNamesIt)
{
    QDir().mkdir(FileName());
    EXPECT_TRUE(MessageOf<EFOpenError>([&] { Service(); }).contains(FileName()));
}
