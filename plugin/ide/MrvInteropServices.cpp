#include "ide/MrvInteropServices.h"

#include "ide/MrvIDECntrlList.h"
#include "model/MrvDataSetList.h"

TMrvInteropServices::~TMrvInteropServices()
{
    FDataSetList.Clear();
    FIDECtrlList.Clear();
}

void TMrvInteropServices::CreateObjects()
{
    FDataSetList = New<TDataSetList>();
    FDataSetList->IntfRegisterConfigurationService(FMrvConfigurationService);
    FIDECtrlList = New<TIDEControlList>();
    FIDECtrlList->Load();
}
