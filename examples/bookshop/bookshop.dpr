program bookshop;

uses
  Vcl.Forms,
  Main in 'Main.pas' {MainForm},
  BookshopData in 'BookshopData.pas' {dmBookshop: TDataModule},
  BaseEdit in 'BaseEdit.pas' {frmBase},
  Orders in 'Orders.pas' {frmOrders},
  Customers in 'Customers.pas' {frmCustomers},
  AddressFrame in 'AddressFrame.pas' {fraAddress: TFrame};

{$R *.res}

begin
  Application.Initialize;
  Application.MainFormOnTaskbar := True;
  Application.Title := 'Bookshop';
  Application.CreateForm(TdmBookshop, dmBookshop);
  Application.CreateForm(TMainForm, MainForm);
  Application.Run;
end.
