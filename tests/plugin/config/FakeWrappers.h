#pragma once

#include "model/MrvInterfaces.h"
#include "rtl/TInterfacedObject.h"

#include <QStringList>

// Wrappers that answer what the configuration asks: what they are, their class and its ancestors, a field's type.
class FakeComponent : public Implements<TInterfacedObject, IMrvCustomComponentAttr> {
public:
    explicit FakeComponent(const QStringList& classAndAncestors)
        : Classes(classAndAncestors)
    {
    }
    WordBool IntfInheritsFrom(const QString& className) override { return Classes.contains(className); }
    void IntfComponentClassName(QString& name) override { name = Classes.first(); }
    void IntfComponentName(WordBool, QString&) override { }
    void IntfFormName(QString&) override { }
    void IntfUnitName(QString&) override { }
    void IntfGetOwner(InterfacePtr<IMrvCustomComponentAttr>&) override { }
    void IntfSelect(WordBool) override { }
    void IntfGetCtrlMenu(const InterfacePtr<IMrvMenu>&) override { }
    void IntfGetCtrlIndex(int&) override { }
    void IntfGetCurrentCtrlClassName(QString&) override { }
    void IntfSetCtrlIndex(int) override { }
    void IntfSetCtrlCreationMode(TCtrlCreationMode) override { }
    void IntfGetCtrlCreationMode(TCtrlCreationMode&) override { }
    int IntfCreateControl(const QString&, const QString&, int, int, WordBool) override { return 0; }
    WordBool IntfDotNetAcceptedDragAndDrop(QObject*) override { return false; }
    int IntfDotNetCreateControl(QObject*, int, int, WordBool) override { return 0; }
    TControlType IntfGetControlType() override { return ctOther; }
    void IntfGetMenu(const InterfacePtr<IMrvMenu>&) override { }
    void IntfExecuteVerb(int, int) override { }
    void IntfEdit() override { }
    void IntfGetPersistent(TPersistent*&) override { }
    void GetGuid(int&) override { }
    WordBool GetSelected() override { return false; }
    WordBool IsDeleted() override { return false; }
    WordBool IsInserted() override { return false; }
    void SetIsInserted(WordBool) override { }

    QStringList Classes;
};

class FakeField : public Implements<FakeComponent, IMrvCommonFieldAttr, IMrvFieldAttr> {
public:
    explicit FakeField(int type)
        : Implements(QStringList(QStringLiteral("TField")))
        , Type(type)
    {
    }
    TFieldType GetFieldType() override { return TFieldType(Type); }
    WordBool HasChild() override { return false; }
    WordBool HasParent(InterfacePtr<IMrvCommonFieldAttr>&) override { return false; }
    int GetChildCount() override { return 0; }
    void GetChild(int, InterfacePtr<IMrvCommonFieldAttr>&) override { }
    void GetDataSet(InterfacePtr<IMrvDataSetAttr>&) override { }
    int FieldNo() override { return 0; }
    int IntfGetDisplayName(QString&) override { return 0; }
    int IntfGetFieldIndex() override { return 0; }
    void IntfGetFieldName(QString&) override { }
    int IntfSetFieldIndex(int) override { return 0; }

    int Type;
};

class FakeDataSet : public Implements<FakeComponent, IMrvDataSetAttr> {
public:
    using Implements::Implements;
    void IntfGetSessionName(QString&) override { }
    void IntfFieldByName(const QString&, TSearchMode, InterfacePtr<IMrvFieldAttr>&) override { }
    void IntfFieldDefsByName(const QString&, InterfacePtr<IMrvFieldDefAttr>&) override { }
    void IntfGetFieldByIndex(int, InterfacePtr<IMrvFieldAttr>&) override { }
    void IntfCreateFieldComponent(const QString&, InterfacePtr<IMrvFieldAttr>&) override { }
    WordBool AllowCreateField() override { return true; }
    int IntfDeleteFieldComponent(const QString&) override { return 0; }
    void IntfUpdateFieldDefs() override { }
    void IntfGetField(int, InterfacePtr<IMrvFieldAttr>&) override { }
    int IntfGetFieldCount() override { return 0; }
    void IntfGetFieldDef(int, InterfacePtr<IMrvFieldDefAttr>&) override { }
    int IntfGetFieldDefCount() override { return 0; }
    void IntfPreviewData() override { }
    void IntfUpdateFields() override { }
    void IntfShowForm() override { }
    void IntfSelectParent(WordBool) override { }
    void IntfSelectConnection() override { }
    void IntfExecuteConnectionVerb(int) override { }
    void IntfGetConnectionMenu(const InterfacePtr<IMrvMenu>&) override { }
    void IntfAddAllFields() override { }
    void IntfCreateNewField() override { }
    void IntfGetConnectionAttr(InterfacePtr<IMrvConnectionAttr>&) override { }
    void IntfGetFormAttr(InterfacePtr<IMrvFormAttr>&) override { }
    void GetFieldDefByFieldName(const QString&, InterfacePtr<IMrvFieldDefAttr>&) override { }
    void ForceUpdateFieldDefs() override { }
    void SetConnection(const QString&, const QString&) override { }
    WordBool IsSessionChanged() override { return false; }
    void SetSessionChanged(WordBool) override { }
};
