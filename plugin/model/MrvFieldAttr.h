#pragma once

#include "model/MrvCommonFieldAttr.h"

class TControl;
class TField;

// A persistent field. It lives from AddField until its dataset's deferred removal; from the moment it is marked deleted
// nobody touches its component.
class TFieldAttr : public Implements<TCommonFieldAttr, IMrvFieldAttr> {
public:
    TFieldAttr(TCustomComponentAttr* owner, TDataSetAttr* dataSet, TClass classType, TSvcManager* svcManager,
        TDataSetList* dataSetList);

    void AddChild(TPersistent* field) override;
    bool IsHasChild() override { return GetChildCount() > 0; }
    bool IsHasParent(InterfacePtr<IMrvCommonFieldAttr>& parent) override;
    int IsGetFieldNo() override;
    TFieldType GetFieldType() override { return IntfGetFieldType(); }

    int IntfGetDisplayName(QString& name) override;
    int IntfGetFieldIndex() override { return GetFieldIndex(); }
    void IntfGetFieldName(QString& name) override;
    int IntfSetFieldIndex(int index) override;
    int IntfCreateControl(
        const QString& targetName, const QString& formName, int x, int y, WordBool withLabel) override;

    // "2 - Title[String]{qryBooksTitle}": index and name, the type and the component's name as the preferences say.
    QString GetDisplayName();
    // The field's index; the last seen one where the field is gone or stands nowhere.
    int GetFieldIndex();
    // Keeps the field's index; the last known one for nil and for a field without.
    int IndexOf(const TField* field);
    // Moves the field in its dataset.
    void SetFieldIndex(int index);
    const QString& GetFieldName() const { return FFieldName; }
    void SetFieldName(const QString& name) { FFieldName = name; }
    // ftUnknown without a field.
    TFieldType IntfGetFieldType();
    // Nil without a component; raises EInvalidCast for one that is no field.
    TField* GetFieldComponent();
    TControl* CreateControl(TComponent* target, const InterfacePtr<IDesigner>& designer, int x, int y, bool withLabel);

    // The field's index as last seen; not the position in a list.
    int FIndex = -1;
    // The database field's name as last seen.
    QString FFieldName;
};
