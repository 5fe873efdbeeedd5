object frmBase: TfrmBase
  Left = 0
  Top = 0
  Caption = 'frmBase'
  ClientHeight = 361
  ClientWidth = 584
  Color = clBtnFace
  Constraints.MinHeight = 300
  Constraints.MinWidth = 480
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -12
  Font.Name = 'Segoe UI'
  Font.Style = []
  Position = poOwnerFormCenter
  OnCloseQuery = FormCloseQuery
  TextHeight = 15
  object pnlButtons: TPanel
    Left = 0
    Top = 320
    Width = 584
    Height = 41
    Align = alBottom
    BevelOuter = bvNone
    TabOrder = 0
    object navMain: TDBNavigator
      Left = 8
      Top = 8
      Width = 240
      Height = 25
      DataSource = dsMain
      TabOrder = 0
    end
    object btnClose: TButton
      Left = 496
      Top = 8
      Width = 75
      Height = 25
      Anchors = [akTop, akRight]
      Cancel = True
      Caption = 'Close'
      ModalResult = 8
      TabOrder = 1
    end
  end
  object dsMain: TDataSource
    Left = 32
    Top = 24
  end
end
