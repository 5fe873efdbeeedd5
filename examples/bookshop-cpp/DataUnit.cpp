//---------------------------------------------------------------------------


#pragma hdrstop

#include "DataUnit.h"
//---------------------------------------------------------------------------
#pragma package(smart_init)
#pragma classgroup "Vcl.Controls.TControl"
#pragma link "ZAConnection"
#pragma link "ZADataSet"
#pragma resource "*.dfm"
TdmShop *dmShop;
//---------------------------------------------------------------------------
__fastcall TdmShop::TdmShop(TComponent* Owner)
	: TDataModule(Owner)
{
}
//---------------------------------------------------------------------------
void __fastcall TdmShop::DataModuleCreate(TObject *Sender)
{
	conShop->Connected = true;
	qryAuthors->Open();
	qryBooks->Open();
}
//---------------------------------------------------------------------------
