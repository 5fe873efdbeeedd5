unit OrdersForm;

{$mode objfpc}{$H+}

interface

uses
  Classes, SysUtils, Forms, Controls, Graphics, Dialogs, DB, DBGrids;

type

  { TfrmOrders }

  TfrmOrders = class(TForm)
    dsLines: TDataSource;
    grdLines: TDBGrid;
    grdOrders: TDBGrid;
  end;

var
  frmOrders: TfrmOrders;

implementation

uses
  ShopData;

{$R *.lfm}

end.
