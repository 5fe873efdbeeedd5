unit Customers;

interface

uses
  Winapi.Windows, Winapi.Messages, System.SysUtils, System.Variants,
  System.Classes, Vcl.Graphics, Vcl.Controls, Vcl.Forms, Vcl.Dialogs,
  Vcl.StdCtrls, Vcl.Mask, Vcl.Grids, Vcl.DBGrids, Vcl.DBCtrls, Data.DB,
  AddressFrame;

type
  TfrmCustomers = class(TForm)
    grdCustomers: TDBGrid;
    fraHome: TfraAddress;
    memNotes: TDBMemo;
    btnClose: TButton;
  public
    class procedure Execute;
  end;

implementation

uses
  BookshopData;

{$R *.dfm}

class procedure TfrmCustomers.Execute;
var
  Form: TfrmCustomers;
begin
  Form := TfrmCustomers.Create(Application);
  try
    Form.ShowModal;
  finally
    Form.Free;
  end;
end;

end.
