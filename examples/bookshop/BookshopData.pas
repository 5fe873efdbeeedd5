unit BookshopData;

interface

uses
  System.SysUtils, System.Classes, Data.DB, ZAConnection, ZADataSet, ZASQL,
  ZAScript;

type
  TdmBookshop = class(TDataModule)
    conShop: TZAConnection;
    qryAuthors: TZAQuery;
    qryBooks: TZAQuery;
    qryBooksBookID: TIntegerField;
    qryBooksAuthorID: TIntegerField;
    qryBooksTitle: TStringField;
    qryBooksISBN: TStringField;
    qryBooksPrice: TCurrencyField;
    qryBooksStock: TIntegerField;
    qryBooksPublished: TDateField;
    qryBooksInPrint: TBooleanField;
    qryBooksBlurb: TMemoField;
    tblCustomers: TZATable;
    qryOrders: TZAQuery;
    qryOrdersOrderID: TIntegerField;
    qryOrdersCustomerID: TIntegerField;
    qryOrdersCustomer: TStringField;
    qryOrdersOrderDate: TDateField;
    qryOrdersStatus: TStringField;
    qryOrdersPaid: TBooleanField;
    qryOrderLines: TZAQuery;
    qryOrderLinesOrderID: TIntegerField;
    qryOrderLinesLineNo: TIntegerField;
    qryOrderLinesBookID: TIntegerField;
    qryOrderLinesTitle: TStringField;
    qryOrderLinesQuantity: TIntegerField;
    qryOrderLinesUnitPrice: TCurrencyField;
    qryOrderLinesTotal: TCurrencyField;
    dsAuthors: TDataSource;
    dsBooks: TDataSource;
    dsCustomers: TDataSource;
    dsOrders: TDataSource;
    sqlTakeFromStock: TZASQL;
    scrTidyUp: TZAScript;
    procedure DataModuleCreate(Sender: TObject);
    procedure qryOrderLinesCalcFields(DataSet: TDataSet);
  public
    function TakeFromStock(BookID, Quantity: Integer): Boolean;
  end;

var
  dmBookshop: TdmBookshop;

implementation

{%CLASSGROUP 'Vcl.Controls.TControl'}

{$R *.dfm}

procedure TdmBookshop.DataModuleCreate(Sender: TObject);
begin
  conShop.Connected := True;
  qryAuthors.Open;
  qryBooks.Open;
  tblCustomers.Open;
  qryOrders.Open;
  qryOrderLines.Open;
end;

procedure TdmBookshop.qryOrderLinesCalcFields(DataSet: TDataSet);
begin
  qryOrderLinesTotal.AsCurrency :=
    qryOrderLinesQuantity.AsInteger * qryOrderLinesUnitPrice.AsCurrency;
end;

function TdmBookshop.TakeFromStock(BookID, Quantity: Integer): Boolean;
begin
  sqlTakeFromStock.ParamByName('BookID').AsInteger := BookID;
  sqlTakeFromStock.ParamByName('Quantity').AsInteger := Quantity;
  sqlTakeFromStock.Execute;
  Result := sqlTakeFromStock.RowsAffected = 1;
end;

end.
