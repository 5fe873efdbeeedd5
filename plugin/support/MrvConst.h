#pragma once

#include "support/TResourceString.h"

#include <QString>

#include <array>

// The IDE releases that the code base knows, oldest first.
enum TIDEVer {
    ivLazarus,
    ivCB5,
    ivCB6,
    ivD5,
    ivD6,
    ivD7,
    ivD2005,
    ivD2006,
    ivD2007,
    ivD2009,
    ivD2010,
    ivDXE,
    ivDXE2,
    ivDXE3,
    ivDXE4,
    ivDXE5,
    ivDXE6,
    ivDXE7,
    ivDXE8,
    ivDXE10,
    ivDXE10_1,
    ivDXE10_2,
    ivDXE10_3,
    ivDXE10_4,
    ivDXE11,
    ivDXE12,
};
constexpr int IDEVerCount = ivDXE12 + 1;

// What is known of one IDE release.
struct TIDEInfo {
    QString Name;
    int Version; // of the IDE itself; names the registry value "InstallDirD" + Version
    int BdsVersion; // of the release's own registry key; the numbering skips 13
    QString PackageSuffix; // of the file names of packages built for it
    QString RegistryKey; // the IDE's own, below HKEY_CURRENT_USER; empty where there is none
    QString MorvaneRegistryKey; // ours; holds "ConfigFilePath"

    friend bool operator==(const TIDEInfo&, const TIDEInfo&) = default;
};

extern const std::array<TIDEInfo, IDEVerCount> IDEInfos;

// The release that this package is built for. Nothing asks the running IDE what it is: the package loads into the IDE
// whose suffix its name carries. Of the table the program reads only this row.
constexpr TIDEVer IDEVer = ivDXE12;

// The maker's data-access products that this tool comes with; the help file is looked for in this order.
extern const std::array<QString, 4> Products;

// Names of classes that the program asks about. The third constant's name is written so.
inline const QString TDataSetClassName = QStringLiteral("TDataSet");
inline const QString TCustomZADataSetClassName = QStringLiteral("TCustomZADataSet");
inline const QString TCustomZASQLClassName = QStringLiteral("TCustomZASQL");
inline const QString TZASctiptClassName = QStringLiteral("TZAScript");

// Names of the pseudo-controls: create nothing; create the detail controls, field by field.
inline const QString NoneClassName = QStringLiteral("None");
inline const QString DetailsClassName = QStringLiteral("Details");

// Shared texts. The upper case of sCPP and the letters of sUnavaiable are the system's own. The registry message and
// sFieldDefs, sUnavaiable, sProject, sXFM, sNFM and CLX_Lib serve the product's other builds.
inline constexpr TResourceString sNoActiveProject(QT_TRANSLATE_NOOP("Morvane", "<No active projects>"));
inline constexpr TResourceString sDefaultNode(QT_TRANSLATE_NOOP("Morvane", "Others"));
inline constexpr TResourceString sFields(QT_TRANSLATE_NOOP("Morvane", "Fields"));
inline constexpr TResourceString sFieldDefs(QT_TRANSLATE_NOOP("Morvane", "FieldDefs"));
inline constexpr TResourceString sMasterDataSet(QT_TRANSLATE_NOOP("Morvane", "Master DataSet"));
inline constexpr TResourceString sUnavaiable(QT_TRANSLATE_NOOP("Morvane", "<Unavailable>"));
inline constexpr TResourceString sProject(QT_TRANSLATE_NOOP("Morvane", ".bdsproj"));
inline constexpr TResourceString sDFM(QT_TRANSLATE_NOOP("Morvane", ".dfm"));
inline constexpr TResourceString sXFM(QT_TRANSLATE_NOOP("Morvane", ".xfm"));
inline constexpr TResourceString sNFM(QT_TRANSLATE_NOOP("Morvane", ".nfm"));
inline constexpr TResourceString sPAS(QT_TRANSLATE_NOOP("Morvane", ".pas"));
inline constexpr TResourceString sCPP(QT_TRANSLATE_NOOP("Morvane", ".CPP"));
inline constexpr TResourceString CLX_Lib(QT_TRANSLATE_NOOP("Morvane", "visualclx70.bpl"));
inline constexpr TResourceString sUnknownSearchMode(QT_TRANSLATE_NOOP("Morvane", "Unknown search mode"));
inline constexpr TResourceString sErrorOpenRegistryKey(
    QT_TRANSLATE_NOOP("Morvane", "Morvane: Unable to open registry key HKCU\\Software\\Bravik\\Morvane%s"));
inline constexpr TResourceString sCompanyName(QT_TRANSLATE_NOOP("Morvane", "Bravik"));
inline constexpr TResourceString sProductTitle(QT_TRANSLATE_NOOP("Morvane", "Bravik Morvane"));
inline constexpr TResourceString sCfgWasModified(
    QT_TRANSLATE_NOOP("Morvane", "Configuration has been changed. Save changes?"));
inline constexpr TResourceString sAddAllConfirmation(QT_TRANSLATE_NOOP("Morvane", "Add all items from the list?"));
inline constexpr TResourceString sDeleteAllConfirmation(
    QT_TRANSLATE_NOOP("Morvane", "Delete all items from the list?"));
inline constexpr TResourceString sDefaultItem(QT_TRANSLATE_NOOP("Morvane", "<Default>"));
inline constexpr TResourceString sConnectionUnassigned(QT_TRANSLATE_NOOP("Morvane", "{Unassigned}"));
inline constexpr TResourceString sAssignedVisualControl(QT_TRANSLATE_NOOP("Morvane", "Drag'n'Drop control: %s"));
inline constexpr TResourceString sUnableSetDefaultItem(
    QT_TRANSLATE_NOOP("Morvane", "Control %s is not installed in IDE and can not be assigned as default item"));
inline constexpr TResourceString sRecordCount(QT_TRANSLATE_NOOP("Morvane", "Record count: %d"));
inline constexpr TResourceString sRecordNo(QT_TRANSLATE_NOOP("Morvane", "RecordNo: %d"));
inline constexpr TResourceString sControlNotInstalled(
    QT_TRANSLATE_NOOP("Morvane", "Visual control %s is not installed in IDE"));
inline constexpr TResourceString sErrorEventFileName(QT_TRANSLATE_NOOP("Morvane", "Morvane_ErrorEvents.log"));

// The texts of the about box and of the splash screen.
inline constexpr TResourceString sProductLegal(QT_TRANSLATE_NOOP("Morvane", "Free software under the MIT License"));
inline constexpr TResourceString sProductDesc(QT_TRANSLATE_NOOP("Morvane",
    "Shows the forms, connections, datasets and fields of the project as one tree, and creates data-bound controls "
    "where you drop them."));
inline constexpr TResourceString sProductShortDesc(
    QT_TRANSLATE_NOOP("Morvane", "Project tree of datasets and data-bound controls"));
