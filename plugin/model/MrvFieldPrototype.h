#pragma once

#include "classes/TPersistent.h"
#include "data/TFieldType.h"

class TFieldDefsAttr;

// What the object inspector shows for a field definition: a current copy, so that the designer never receives the
// definition itself. Its setters change nothing: it is for reading only.
class TFieldPrototype : public TPersistent {
    MRV_CLASS
    TFieldPrototype();

    TFieldType GetDataType() const { return FDataType; }
    void SetDataType(TFieldType) { }
    int GetPrecision() const { return FPrecision; }
    void SetPrecision(int) { }
    int GetSize() const { return FSize; }
    void SetSize(int) { }
    QString GetName() const { return FName; }
    // The name of a component, which this is not; the name kept is the definition's.
    void SetComponentName(const QString&) { }
    qlonglong GetTag() const { return 0; }
    void SetTag(qlonglong) { }

    void AssignData(TFieldDefsAttr& attr);

    int FPrecision = 0;
    int FSize = 0;
    TFieldType FDataType = ftUnknown;
    QString FName;
};
