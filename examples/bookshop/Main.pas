unit Main;

interface

uses
  Winapi.Windows, Winapi.Messages, System.SysUtils, System.Variants,
  System.Classes, System.Actions, Vcl.Graphics, Vcl.Controls, Vcl.Forms,
  Vcl.Dialogs, Vcl.ActnList, Vcl.Menus, Vcl.ComCtrls, Vcl.ExtCtrls,
  Vcl.StdCtrls, Vcl.Grids, Vcl.DBGrids, Vcl.DBCtrls, Vcl.Mask, Data.DB;

type
  TMainForm = class(TForm)
    splBooks: TSplitter;
    pnlSearch: TPanel;
    lblSearch: TLabel;
    edtSearch: TEdit;
    chkInPrint: TCheckBox;
    navBooks: TDBNavigator;
    grdAuthors: TDBGrid;
    pgcBook: TPageControl;
    tabBook: TTabSheet;
    lblTitle: TLabel;
    lblPrice: TLabel;
    edtTitle: TDBEdit;
    edtPrice: TDBEdit;
    tabBlurb: TTabSheet;
    memBlurb: TDBMemo;
    stbMain: TStatusBar;
    mnuMain: TMainMenu;
    mniShop: TMenuItem;
    mniOrders: TMenuItem;
    mniCustomers: TMenuItem;
    mniLine: TMenuItem;
    mniExit: TMenuItem;
    aclMain: TActionList;
    actOrders: TAction;
    actCustomers: TAction;
    procedure edtSearchChange(Sender: TObject);
    procedure mniExitClick(Sender: TObject);
    procedure actOrdersExecute(Sender: TObject);
    procedure actCustomersExecute(Sender: TObject);
  end;

var
  MainForm: TMainForm;

implementation

uses
  BookshopData, Orders, Customers;

{$R *.dfm}

procedure TMainForm.actCustomersExecute(Sender: TObject);
begin
  TfrmCustomers.Execute;
end;

procedure TMainForm.actOrdersExecute(Sender: TObject);
begin
  TfrmOrders.Execute;
end;

procedure TMainForm.edtSearchChange(Sender: TObject);
var
  Filter: string;
begin
  Filter := '';
  if edtSearch.Text <> '' then
    Filter := 'Title LIKE ' + QuotedStr('%' + edtSearch.Text + '%');
  if chkInPrint.Checked then
  begin
    if Filter <> '' then
      Filter := Filter + ' AND ';
    Filter := Filter + 'InPrint = True';
  end;
  dmBookshop.qryBooks.Filter := Filter;
  dmBookshop.qryBooks.Filtered := Filter <> '';
  stbMain.Panels[0].Text := Format('%d books', [dmBookshop.qryBooks.RecordCount]);
end;

procedure TMainForm.mniExitClick(Sender: TObject);
begin
  Close;
end;

end.
