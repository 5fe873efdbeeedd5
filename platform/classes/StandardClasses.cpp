#include "classes/StandardClasses.h"

#include "classes/Forms.h"

void RegisterStandardClasses()
{
    const TClass classes[] = { TPersistent::Class(), TStrings::Class(), TCollection::Class(), TCollectionItem::Class(),
        TComponent::Class(), TControl::Class(), TGraphicControl::Class(), TWinControl::Class(), TCustomControl::Class(),
        TCustomLabel::Class(), TDBCtrlPanel::Class(), TScrollingWinControl::Class(), TCustomForm::Class(),
        TForm::Class(), TFrame::Class(), TDataModule::Class() };
    for (const auto aClass : classes)
        RegisterClass(aClass);
}
