#pragma once

#include "model/MrvCustomComponentAttr.h"
#include "support/MrvObjectList.h"

class TDataSetAttr;

// A class of leaves as a value: what makes a wrapper below a parent and a dataset.
class TCommonFieldAttr;
using TCommonFieldAttrClass = InterfacePtr<TCommonFieldAttr> (*)(
    TCustomComponentAttr* owner, TDataSetAttr* dataSet, TClass classType, TSvcManager* svcManager, TDataSetList* list);

// What a persistent field and a field definition, the leaves of the tree, share.
class TCommonFieldAttr : public Implements<TCustomComponentAttr, IMrvCommonFieldAttr> {
public:
    // The dataset wrapper is required.
    TCommonFieldAttr(TCustomComponentAttr* owner, TDataSetAttr* dataSet, TClass classType, TSvcManager* svcManager,
        TDataSetList* dataSetList, const char16_t* className);

    virtual void AddChild(TPersistent* child) = 0;
    virtual bool IsHasChild() = 0;
    virtual bool IsHasParent(InterfacePtr<IMrvCommonFieldAttr>& parent) = 0;
    virtual int IsGetFieldNo() = 0;
    TFieldType GetFieldType() override;

    WordBool HasChild() override { return IsHasChild(); }
    WordBool HasParent(InterfacePtr<IMrvCommonFieldAttr>& parent) override;
    int GetChildCount() override { return FChildList.Count(); }
    void GetChild(int index, InterfacePtr<IMrvCommonFieldAttr>& child) override;
    void GetDataSet(InterfacePtr<IMrvDataSetAttr>& dataSet) override;
    int FieldNo() override { return IsGetFieldNo(); }

    void EnumDBControlList(bool reset) override;

    TCommonFieldAttr* GetChildAttr(int index) const;
    void DeleteChild(int index) { FChildList.Delete(index); }

    TMrvObjectList FChildList;
    // The owning dataset's wrapper; nil once that is gone.
    TBackRef<TDataSetAttr> FDataSetAttr;

protected:
    // The preference as a Boolean; the default where there are no preferences or it is not set.
    bool Preference(const QString& name, bool defaultValue) const;
};

// The name of the type without its first two letters: "String" for ftString.
QString DataTypeToStr(TFieldType type);
