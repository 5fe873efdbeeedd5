unit Orders;

interface

uses
  Winapi.Windows, Winapi.Messages, System.SysUtils, System.Variants,
  System.Classes, Vcl.Graphics, Vcl.Controls, Vcl.Forms, Vcl.Dialogs,
  Vcl.StdCtrls, Vcl.ExtCtrls, Vcl.Grids, Vcl.DBGrids, Vcl.DBCtrls, Data.DB,
  BaseEdit;

type
  TfrmOrders = class(TfrmBase)
    splLines: TSplitter;
    grdOrders: TDBGrid;
    grdLines: TDBGrid;
    dsLines: TDataSource;
  end;

implementation

uses
  BookshopData;

{$R *.dfm}

end.
