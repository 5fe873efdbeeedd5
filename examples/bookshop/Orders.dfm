inherited frmOrders: TfrmOrders
  Caption = 'Orders'
  ClientHeight = 461
  ClientWidth = 684
  TextHeight = 15
  object splLines: TSplitter [0]
    Left = 0
    Top = 200
    Width = 684
    Height = 4
    Cursor = crVSplit
    Align = alTop
  end
  inherited pnlButtons: TPanel
    Top = 420
    Width = 684
    TabOrder = 2
    ExplicitTop = 420
    ExplicitWidth = 684
    inherited btnClose: TButton
      Left = 596
      ExplicitLeft = 596
    end
  end
  object grdOrders: TDBGrid [2]
    Left = 0
    Top = 0
    Width = 684
    Height = 200
    Align = alTop
    DataSource = dsMain
    TabOrder = 0
    TitleFont.Charset = DEFAULT_CHARSET
    TitleFont.Color = clWindowText
    TitleFont.Height = -12
    TitleFont.Name = 'Segoe UI'
    TitleFont.Style = []
  end
  object grdLines: TDBGrid [3]
    Left = 0
    Top = 204
    Width = 684
    Height = 216
    Align = alClient
    DataSource = dsLines
    TabOrder = 1
    TitleFont.Charset = DEFAULT_CHARSET
    TitleFont.Color = clWindowText
    TitleFont.Height = -12
    TitleFont.Name = 'Segoe UI'
    TitleFont.Style = []
  end
  inherited dsMain: TDataSource
    DataSet = dmBookshop.qryOrders
  end
  object dsLines: TDataSource
    DataSet = dmBookshop.qryOrderLines
    Left = 32
    Top = 240
  end
end
