#pragma once

#include "rtl/TSet.h"

#include <QtGlobal>

// The enumerations that the subsystems share. The numbers are stored in sets and cross interfaces: a new value goes to
// the end.

// The kind of a field's data; told with the dataset classes.
enum TFieldType : int;

// The IDE personality that a block of the configuration belongs to. One byte: SetAcitvePersonality stores any.
enum TPersonality : quint8 { prVCL, prCLR, prCLX };

// What a search for a field compares: the component name, the display string, the full field name.
enum TSearchMode : quint8 { smName, smDisplayName, smFieldName };

// How the tool window is told to update its tree.
enum TMrvRefreshMode : quint8 { rmAdd, rmRemove, rmFullRefresh };

// What a drop of a wrapper creates: one grid control, one control per field, or nothing.
enum TCtrlCreationMode : quint8 { ccmDataGridView, ccmDetails, ccmNone };

// Events of the event sink that can be switched off.
enum TDisableEvent : quint8 { deComponentInserted, deComponentDeleted, deOnRefreshChildObject };
using TDisabledEvents = TSet<TDisableEvent>;

// Whether a field that has no wrapper yet gets one.
enum TRefreshMode : quint8 { rmInclude, rmNone };

enum TUpdateKind : quint8 { ukFieldDefs, ukComponentName };
using TUpdateKinds = TSet<TUpdateKind>;

// The kind of a tree node.
enum TNodeDataType : quint8 { ndtDataSet, ndtField, ndtFieldDef, ndtBlank, ndtRoot, ndtForm, ndtConnection };

// The kind of a component, for the choice of a control image.
enum TControlType : quint8 { ctDataSet, ctField, ctComponent, ctOther };

// The handlers of the dataset list that can be switched off one by one. The byte may hold any number: one above 31
// gates nothing.
enum TDsListDisabledEvent : quint8 {
    deDataSetListLoad, // the notification at the end of BuildDataSetList
    deComponentRename, // DoComponentRename
    deComponentInsert, // DoComponentInserted
    deComponentDelete, // DoComponentDelete
    deRefreshDataSetList, // no handler asks for it
    deOnItemModified, // OnItemModified
    deOnItemInserted, // OnItemInserted
    deOnItemDeleted, // OnItemDeleted
    deRefreshFieldAttr, // RefreshFieldAttr
    deRefershChildObject, // DoRefreshChildObject
    deRefreshFieldDefs, // no handler asks for it
    deNewSessionAdded, // no handler asks for it
    deFieldIndexModified, // no handler asks for it
    deComponentRenamed, // OnComponentRenamed
    dePackageInstalled, // OnPackageInstalled
    deFileNotification, // OnFileNotification
    deProjectClose, // OnProjectClose
    deSelectionChanged, // OnSelectionChanged
};
using TDsListDisabledEvents = TSet<TDsListDisabledEvent>;

// Control indexes of the two pseudo-controls, as IntfGetCtrlIndex gives and IntfSetCtrlIndex and IMrvMenu.AddItem take
// them. No real control list reaches so far.
constexpr int DetailsCtrlIndex = 2024;
constexpr int NoneCtrlIndex = 2025;
