object MainForm: TMainForm
  Left = 0
  Top = 0
  Caption = 'Bookshop'
  ClientHeight = 361
  ClientWidth = 584
  Color = clBtnFace
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -12
  Font.Name = 'Segoe UI'
  Font.Style = []
  TextHeight = 15
  object lblAuthors: TLabel
    Left = 12
    Top = 12
    Width = 42
    Height = 15
    Caption = 'Authors'
  end
  object grdAuthors: TDBGrid
    Left = 12
    Top = 33
    Width = 253
    Height = 176
    DataSource = dmShop.dsAuthors
    TabOrder = 0
    TitleFont.Charset = DEFAULT_CHARSET
    TitleFont.Color = clWindowText
    TitleFont.Height = -12
    TitleFont.Name = 'Segoe UI'
    TitleFont.Style = []
  end
  object grdBooks: TDBGrid
    Left = 277
    Top = 33
    Width = 295
    Height = 176
    Anchors = [akLeft, akTop, akRight]
    DataSource = dmShop.dsBooks
    TabOrder = 1
    TitleFont.Charset = DEFAULT_CHARSET
    TitleFont.Color = clWindowText
    TitleFont.Height = -12
    TitleFont.Name = 'Segoe UI'
    TitleFont.Style = []
  end
  object btnClose: TButton
    Left = 497
    Top = 324
    Width = 75
    Height = 25
    Anchors = [akRight, akBottom]
    Caption = 'Close'
    TabOrder = 2
    OnClick = btnCloseClick
  end
end
