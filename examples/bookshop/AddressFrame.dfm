object fraAddress: TfraAddress
  Left = 0
  Top = 0
  Width = 297
  Height = 153
  TabOrder = 0
  object lblStreet: TLabel
    Left = 8
    Top = 8
    Width = 30
    Height = 15
    Caption = 'Street'
  end
  object lblPostCode: TLabel
    Left = 8
    Top = 56
    Width = 53
    Height = 15
    Caption = 'Post code'
  end
  object lblCity: TLabel
    Left = 96
    Top = 56
    Width = 21
    Height = 15
    Caption = 'City'
  end
  object lblCountry: TLabel
    Left = 8
    Top = 104
    Width = 43
    Height = 15
    Caption = 'Country'
  end
  object edtStreet: TDBEdit
    Left = 8
    Top = 26
    Width = 281
    Height = 23
    DataField = 'Street'
    TabOrder = 0
  end
  object edtPostCode: TDBEdit
    Left = 8
    Top = 74
    Width = 81
    Height = 23
    DataField = 'PostCode'
    TabOrder = 1
  end
  object edtCity: TDBEdit
    Left = 96
    Top = 74
    Width = 193
    Height = 23
    DataField = 'City'
    TabOrder = 2
  end
  object cmbCountry: TDBComboBox
    Left = 8
    Top = 122
    Width = 281
    Height = 23
    DataField = 'Country'
    Items.Strings = (
      'England'
      'France'
      'Germany'
      'Portugal'
      'Sweden'
      'USA')
    TabOrder = 3
  end
end
