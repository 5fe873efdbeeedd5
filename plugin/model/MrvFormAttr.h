#pragma once

#include "model/MrvCustomComponentAttr.h"

// A form or data module: a group node of the tree. Made when first needed, goes when the model is cleared.
class TFormAttr : public Implements<TCustomComponentAttr, IMrvFormAttr> {
public:
    TFormAttr(TCustomComponentAttr* owner, TClass classType, TSvcManager* svcManager, TDataSetList* dataSetList);
    // Brings the form up. The file name is the key, so nothing happens for a form whose file is not open.
    void IntfEdit() override;
};
