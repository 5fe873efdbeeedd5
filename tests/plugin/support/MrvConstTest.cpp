#include "support/MrvConst.h"

#include "support/PrintQt.h"

#include <QTranslator>

#include <gtest/gtest.h>

namespace {

// The table as text, a release a line.
QString Table()
{
    QStringList lines;
    for (const auto& info : IDEInfos)
        lines << QStringList { info.Name, QString::number(info.Version), QString::number(info.BdsVersion),
            info.PackageSuffix, info.RegistryKey, info.MorvaneRegistryKey }
                     .join(u" | "_qs);
    return lines.join(u'\n');
}

class Shouting : public QTranslator {
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return qstrcmp(context, "Morvane") == 0 ? QString::fromUtf8(text).toUpper() : QString();
    }
    bool isEmpty() const override { return false; }
};

}

TEST(IdeTable, HoldsTwentySixReleases)
{
    EXPECT_EQ(Table(), uR"(Lazarus | 1 | 0 | 10 |  | 
C++Builder 5 | 5 | 0 | 50 | Software\Borland\C++Builder\5.0 | Software\Bravik\Morvane\C++Builder\5.0
C++Builder 6 | 6 | 0 | 60 | Software\Borland\C++Builder\6.0 | Software\Bravik\Morvane\C++Builder\6.0
Delphi 5 | 5 | 0 | 50 | Software\Borland\Delphi\5.0 | Software\Bravik\Morvane\Delphi\5.0
Delphi 6 | 6 | 0 | 60 | Software\Borland\Delphi\6.0 | Software\Bravik\Morvane\Delphi\6.0
Delphi 7 | 7 | 0 | 70 | Software\Borland\Delphi\7.0 | Software\Bravik\Morvane\Delphi\7.0
Delphi 2005 | 9 | 3 | 90 | Software\Borland\BDS\3.0 | Software\Bravik\Morvane\BDS\3.0
Delphi 2006 | 10 | 4 | 100 | Software\Borland\BDS\4.0 | Software\Bravik\Morvane\BDS\4.0
RAD Studio 2007 | 11 | 5 | 105 | Software\Borland\BDS\5.0 | Software\Bravik\Morvane\BDS\5.0
RAD Studio 2009 | 12 | 6 | 120 | Software\CodeGear\BDS\6.0 | Software\Bravik\Morvane\BDS\6.0
RAD Studio 2010 | 14 | 7 | 140 | Software\CodeGear\BDS\7.0 | Software\Bravik\Morvane\BDS\7.0
RAD Studio XE | 15 | 8 | 150 | Software\Embarcadero\BDS\8.0 | Software\Bravik\Morvane\BDS\8.0
RAD Studio XE2 | 16 | 9 | 160 | Software\Embarcadero\BDS\9.0 | Software\Bravik\Morvane\BDS\9.0
RAD Studio XE3 | 17 | 10 | 170 | Software\Embarcadero\BDS\10.0 | Software\Bravik\Morvane\BDS\10.0
RAD Studio XE4 | 18 | 11 | 180 | Software\Embarcadero\BDS\11.0 | Software\Bravik\Morvane\BDS\11.0
RAD Studio XE5 | 19 | 12 | 190 | Software\Embarcadero\BDS\12.0 | Software\Bravik\Morvane\BDS\12.0
RAD Studio XE6 | 20 | 14 | 200 | Software\Embarcadero\BDS\14.0 | Software\Bravik\Morvane\BDS\14.0
RAD Studio XE7 | 21 | 15 | 210 | Software\Embarcadero\BDS\15.0 | Software\Bravik\Morvane\BDS\15.0
RAD Studio XE8 | 22 | 16 | 220 | Software\Embarcadero\BDS\16.0 | Software\Bravik\Morvane\BDS\16.0
RAD Studio 10 | 23 | 17 | 230 | Software\Embarcadero\BDS\17.0 | Software\Bravik\Morvane\BDS\17.0
RAD Studio 10.1 | 24 | 18 | 240 | Software\Embarcadero\BDS\18.0 | Software\Bravik\Morvane\BDS\18.0
RAD Studio 10.2 | 25 | 19 | 250 | Software\Embarcadero\BDS\19.0 | Software\Bravik\Morvane\BDS\19.0
RAD Studio 10.3 | 26 | 20 | 260 | Software\Embarcadero\BDS\20.0 | Software\Bravik\Morvane\BDS\20.0
RAD Studio 10.4 | 27 | 21 | 270 | Software\Embarcadero\BDS\21.0 | Software\Bravik\Morvane\BDS\21.0
RAD Studio 11 | 28 | 22 | 280 | Software\Embarcadero\BDS\22.0 | Software\Bravik\Morvane\BDS\22.0
RAD Studio 12 | 29 | 23 | 290 | Software\Embarcadero\BDS\23.0 | Software\Bravik\Morvane\BDS\23.0)"_qs);
}

TEST(IdeTable, IsIndexedByTheRelease)
{
    EXPECT_EQ(IDEInfos[ivLazarus].Name, u"Lazarus"_qs);
    EXPECT_EQ(IDEInfos[ivD2007].Name, u"RAD Studio 2007"_qs);
    EXPECT_EQ(IDEInfos[ivDXE10_2].Name, u"RAD Studio 10.2"_qs);
    EXPECT_EQ(IDEInfos[ivDXE12].Name, u"RAD Studio 12"_qs);
}

TEST(IdeTable, ThisBuildIsForTheLastRow)
{
    EXPECT_EQ(IDEVer, ivDXE12);
    EXPECT_EQ(IDEInfos[IDEVer].PackageSuffix, u"290"_qs);
    EXPECT_EQ(int(IDEVer), 25);
}

TEST(Products, StandInTheirOrder)
{
    EXPECT_EQ((QStringList(Products.begin(), Products.end())),
        (QStringList { u"Fennel"_qs, u"Sorrel"_qs, u"Tansy"_qs, u"Yarrow"_qs }));
}

TEST(SharedTexts, ReadAsAgreed)
{
    const QStringList texts { sNoActiveProject, sDefaultNode, sFields, sFieldDefs, sMasterDataSet, sUnavaiable,
        sProject, sDFM, sXFM, sNFM, sPAS, sCPP, CLX_Lib, sUnknownSearchMode, sErrorOpenRegistryKey, sCompanyName,
        sProductTitle, sCfgWasModified, sAddAllConfirmation, sDeleteAllConfirmation, sDefaultItem,
        sConnectionUnassigned, sAssignedVisualControl, sUnableSetDefaultItem, sRecordCount, sRecordNo,
        sControlNotInstalled, sErrorEventFileName };
    EXPECT_EQ(texts.join(u'\n'), uR"(<No active projects>
Others
Fields
FieldDefs
Master DataSet
<Unavailable>
.bdsproj
.dfm
.xfm
.nfm
.pas
.CPP
visualclx70.bpl
Unknown search mode
Morvane: Unable to open registry key HKCU\Software\Bravik\Morvane%s
Bravik
Bravik Morvane
Configuration has been changed. Save changes?
Add all items from the list?
Delete all items from the list?
<Default>
{Unassigned}
Drag'n'Drop control: %s
Control %s is not installed in IDE and can not be assigned as default item
Record count: %d
RecordNo: %d
Visual control %s is not installed in IDE
Morvane_ErrorEvents.log)"_qs);
}

TEST(SharedTexts, AreTranslatedWhereATranslationIsInstalled)
{
    Shouting translation;
    QCoreApplication::installTranslator(&translation);
    EXPECT_EQ(sFields.Text(), u"FIELDS"_qs);
    QCoreApplication::removeTranslator(&translation);
    EXPECT_EQ(sFields.Text(), u"Fields"_qs);
}

TEST(ClassNames, AreSpelledRight)
{
    EXPECT_EQ((QStringList { TDataSetClassName, TCustomZADataSetClassName, TCustomZASQLClassName, TZASctiptClassName }),
        (QStringList { u"TDataSet"_qs, u"TCustomZADataSet"_qs, u"TCustomZASQL"_qs, u"TZAScript"_qs }));
}
