object frmCustomers: TfrmCustomers
  Left = 0
  Top = 0
  Caption = 'Customers'
  ClientHeight = 401
  ClientWidth = 644
  Color = clBtnFace
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -12
  Font.Name = 'Segoe UI'
  Font.Style = []
  Position = poOwnerFormCenter
  TextHeight = 15
  object grdCustomers: TDBGrid
    Left = 8
    Top = 8
    Width = 313
    Height = 345
    Anchors = [akLeft, akTop, akRight, akBottom]
    DataSource = dmBookshop.dsCustomers
    TabOrder = 0
    TitleFont.Charset = DEFAULT_CHARSET
    TitleFont.Color = clWindowText
    TitleFont.Height = -12
    TitleFont.Name = 'Segoe UI'
    TitleFont.Style = []
    Columns = <
      item
        Expanded = False
        FieldName = 'Name'
        Width = 140
        Visible = True
      end
      item
        Expanded = False
        FieldName = 'City'
        Width = 120
        Visible = True
      end>
  end
  inline fraHome: TfraAddress
    Left = 336
    Top = 8
    Width = 297
    Height = 153
    Anchors = [akTop, akRight]
    TabOrder = 1
    ExplicitLeft = 336
    ExplicitTop = 8
    inherited edtStreet: TDBEdit
      DataSource = dmBookshop.dsCustomers
    end
    inherited edtPostCode: TDBEdit
      DataSource = dmBookshop.dsCustomers
    end
    inherited edtCity: TDBEdit
      DataSource = dmBookshop.dsCustomers
    end
    inherited cmbCountry: TDBComboBox
      DataSource = dmBookshop.dsCustomers
    end
  end
  object memNotes: TDBMemo
    Left = 344
    Top = 168
    Width = 281
    Height = 185
    Anchors = [akTop, akRight, akBottom]
    DataField = 'Notes'
    DataSource = dmBookshop.dsCustomers
    TabOrder = 2
  end
  object btnClose: TButton
    Left = 560
    Top = 364
    Width = 75
    Height = 25
    Anchors = [akRight, akBottom]
    Cancel = True
    Caption = 'Close'
    ModalResult = 8
    TabOrder = 3
  end
end
