unit BaseEdit;

interface

uses
  Winapi.Windows, Winapi.Messages, System.SysUtils, System.Variants,
  System.Classes, Vcl.Graphics, Vcl.Controls, Vcl.Forms, Vcl.Dialogs,
  Vcl.StdCtrls, Vcl.ExtCtrls, Vcl.DBCtrls, Data.DB;

type
  TfrmBase = class(TForm)
    pnlButtons: TPanel;
    navMain: TDBNavigator;
    btnClose: TButton;
    dsMain: TDataSource;
    procedure FormCloseQuery(Sender: TObject; var CanClose: Boolean);
  public
    class procedure Execute;
  end;

  TfrmBaseClass = class of TfrmBase;

implementation

{$R *.dfm}

class procedure TfrmBase.Execute;
var
  Form: TfrmBase;
begin
  Form := Self.Create(Application);
  try
    Form.ShowModal;
  finally
    Form.Free;
  end;
end;

procedure TfrmBase.FormCloseQuery(Sender: TObject; var CanClose: Boolean);
begin
  if (dsMain.DataSet <> nil) and (dsMain.State in dsEditModes) then
    dsMain.DataSet.Post;
end;

end.
