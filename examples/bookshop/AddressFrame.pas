unit AddressFrame;

interface

uses
  Winapi.Windows, Winapi.Messages, System.SysUtils, System.Variants,
  System.Classes, Vcl.Graphics, Vcl.Controls, Vcl.Forms, Vcl.Dialogs,
  Vcl.StdCtrls, Vcl.Mask, Vcl.DBCtrls, Data.DB;

type
  TfraAddress = class(TFrame)
    lblStreet: TLabel;
    lblPostCode: TLabel;
    lblCity: TLabel;
    lblCountry: TLabel;
    edtStreet: TDBEdit;
    edtPostCode: TDBEdit;
    edtCity: TDBEdit;
    cmbCountry: TDBComboBox;
  end;

implementation

{$R *.dfm}

end.
