//---------------------------------------------------------------------------

#ifndef DataUnitH
#define DataUnitH
//---------------------------------------------------------------------------
#include <System.Classes.hpp>
#include <Data.DB.hpp>
#include "ZAConnection.hpp"
#include "ZADataSet.hpp"
//---------------------------------------------------------------------------
class TdmShop : public TDataModule
{
__published:	// IDE-managed Components
	TZAConnection *conShop;
	TZAQuery *qryAuthors;
	TZAQuery *qryBooks;
	TIntegerField *qryBooksBookID;
	TStringField *qryBooksTitle;
	TCurrencyField *qryBooksPrice;
	TDataSource *dsAuthors;
	TDataSource *dsBooks;
	void __fastcall DataModuleCreate(TObject *Sender);
private:	// User declarations
public:		// User declarations
	__fastcall TdmShop(TComponent* Owner);
};
//---------------------------------------------------------------------------
extern PACKAGE TdmShop *dmShop;
//---------------------------------------------------------------------------
#endif
