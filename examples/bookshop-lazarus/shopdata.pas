unit ShopData;

{$mode objfpc}{$H+}

interface

uses
  Classes, SysUtils, DB, SQLDB, SQLite3Conn;

type

  { TdmShop }

  TdmShop = class(TDataModule)
    conShop: TSQLite3Connection;
    dsAuthors: TDataSource;
    dsBooks: TDataSource;
    dsOrders: TDataSource;
    qryAuthors: TSQLQuery;
    qryBooks: TSQLQuery;
    qryBooksAuthorID: TLongintField;
    qryBooksBlurb: TMemoField;
    qryBooksBookID: TLongintField;
    qryBooksInPrint: TBooleanField;
    qryBooksISBN: TStringField;
    qryBooksPrice: TBCDField;
    qryBooksPublished: TDateField;
    qryBooksStock: TLongintField;
    qryBooksTitle: TStringField;
    qryCustomers: TSQLQuery;
    qryOrderLines: TSQLQuery;
    qryOrders: TSQLQuery;
    scrTidyUp: TSQLScript;
    traShop: TSQLTransaction;
    procedure DataModuleCreate(Sender: TObject);
  end;

var
  dmShop: TdmShop;

implementation

{$R *.lfm}

{ TdmShop }

procedure TdmShop.DataModuleCreate(Sender: TObject);
begin
  // The database stands beside the program.
  conShop.DatabaseName := ExtractFilePath(ParamStr(0)) + 'bookshop.db';
  qryAuthors.Open;
  qryBooks.Open;
  qryCustomers.Open;
  qryOrders.Open;
  qryOrderLines.Open;
end;

end.
