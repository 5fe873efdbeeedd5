#pragma once

#include "model/MrvCommonFieldAttr.h"
#include "model/MrvFieldPrototype.h"

class TFieldDef;

// A field definition, which is no component. It is shown while it stands in the dataset wrapper's FFieldDefsList.
class TFieldDefsAttr : public Implements<TCommonFieldAttr, IMrvFieldDefAttr> {
public:
    TFieldDefsAttr(TCustomComponentAttr* owner, TDataSetAttr* dataSet, TClass classType, TSvcManager* svcManager,
        TDataSetList* dataSetList);

    void AddChild(TPersistent* fieldDef) override;
    bool IsHasChild() override;
    bool IsHasParent(InterfacePtr<IMrvCommonFieldAttr>& parent) override;
    int IsGetFieldNo() override;
    const QString& LookupName() const override { return FDisplayName; }

    void GetDisplayName(QString& name, WordBool plain) override;
    void SetDisplayName(const QString& name) override;
    TFieldType GetFieldType() override;
    void GetPrecision(int& precision) override;
    void GetSize(int& size) override;
    int GetFieldNo() override;
    void IntfGetFormDesigner(InterfacePtr<IDesigner>& designer) override;
    void GetFieldDefsProxy(TPersistent*& proxy) override;
    WordBool EnableCreateControl() override;

    void IntfGetPersistent(TPersistent*& persistent) override { GetFieldDefsProxy(persistent); }
    // A field, though no TField exists.
    TControlType IntfGetControlType() override { return ctField; }
    int IntfCreateControl(
        const QString& targetName, const QString& formName, int x, int y, WordBool withLabel) override;

    // Nil without a definition; raises EInvalidCast for an object that is none.
    TFieldDef* GetFieldDefComponent() const;
    int CreateControl(const QString& targetName, const QString& formName, const InterfacePtr<IDesigner>& designer,
        int x, int y, bool withLabel);

    // The path name: Address.City, Phones[0].
    QString FDisplayName;
    // What the object inspector shows for the definition.
    std::unique_ptr<TFieldPrototype> FFieldDefProxy;
    // The TFieldDef.
    WeakRef<TPersistent> FPersistent;

private:
    int MakeControl(const QString& targetName, const QString& formName, const InterfacePtr<IDesigner>& designer, int x,
        int y, bool withLabel, TDataSetAttr& attr);
};
