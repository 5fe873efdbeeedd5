unit MainForm;

{$mode objfpc}{$H+}

interface

uses
  Classes, SysUtils, Forms, Controls, Graphics, Dialogs, StdCtrls, ExtCtrls,
  DBGrids, DBCtrls;

type

  { TfrmMain }

  TfrmMain = class(TForm)
    btnOrders: TButton;
    edtTitle: TDBEdit;
    grdAuthors: TDBGrid;
    grdBooks: TDBGrid;
    lblAuthor: TLabel;
    lblTitle: TLabel;
    pnlTop: TPanel;
    txtAuthor: TDBText;
    procedure btnOrdersClick(Sender: TObject);
  end;

var
  frmMain: TfrmMain;

implementation

uses
  ShopData, OrdersForm;

{$R *.lfm}

{ TfrmMain }

procedure TfrmMain.btnOrdersClick(Sender: TObject);
begin
  frmOrders.ShowModal;
end;

end.
