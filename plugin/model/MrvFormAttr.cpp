#include "model/MrvFormAttr.h"

#include "ide/MrvSvcManager.h"

TFormAttr::TFormAttr(TCustomComponentAttr* owner, TClass classType, TSvcManager* svcManager, TDataSetList* dataSetList)
    : Implements(owner, classType, svcManager, dataSetList, u"TFormAttr")
{
}

void TFormAttr::IntfEdit()
{
    const auto* manager = SvcManager();
    if (const auto editor = manager ? manager->GetEditorByFileName(FUnitName, IOTAFormEditor::IID) : nullptr)
        editor->Show();
}
