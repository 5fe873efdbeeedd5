program shop;

{$mode objfpc}{$H+}

uses
  {$IFDEF UNIX}
  cthreads,
  {$ENDIF}
  Interfaces, // this includes the LCL widgetset
  Forms, ShopData, MainForm, OrdersForm;

{$R *.res}

begin
  RequireDerivedFormResource := True;
  Application.Title := 'Bookshop';
  Application.Scaled := True;
  Application.Initialize;
  Application.CreateForm(TdmShop, dmShop);
  Application.CreateForm(TfrmMain, frmMain);
  Application.CreateForm(TfrmOrders, frmOrders);
  Application.Run;
end.
