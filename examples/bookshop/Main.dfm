object MainForm: TMainForm
  Left = 0
  Top = 0
  Caption = 'Bookshop'
  ClientHeight = 471
  ClientWidth = 784
  Color = clBtnFace
  Font.Charset = DEFAULT_CHARSET
  Font.Color = clWindowText
  Font.Height = -12
  Font.Name = 'Segoe UI'
  Font.Style = []
  Menu = mnuMain
  Position = poScreenCenter
  TextHeight = 15
  object splBooks: TSplitter
    Left = 225
    Top = 41
    Width = 4
    Height = 411
    ExplicitHeight = 370
  end
  object pnlSearch: TPanel
    Left = 0
    Top = 0
    Width = 784
    Height = 41
    Align = alTop
    BevelOuter = bvNone
    TabOrder = 0
    object lblSearch: TLabel
      Left = 12
      Top = 13
      Width = 67
      Height = 15
      Caption = '&Look for title'
      FocusControl = edtSearch
    end
    object edtSearch: TEdit
      Left = 96
      Top = 10
      Width = 209
      Height = 23
      TabOrder = 0
      OnChange = edtSearchChange
    end
    object chkInPrint: TCheckBox
      Left = 320
      Top = 12
      Width = 145
      Height = 17
      Caption = 'Only books in print'
      TabOrder = 1
      OnClick = edtSearchChange
    end
    object navBooks: TDBNavigator
      Left = 528
      Top = 8
      Width = 240
      Height = 25
      DataSource = dmBookshop.dsBooks
      Anchors = [akTop, akRight]
      TabOrder = 2
    end
  end
  object grdAuthors: TDBGrid
    Left = 0
    Top = 41
    Width = 225
    Height = 411
    Align = alLeft
    DataSource = dmBookshop.dsAuthors
    Options = [dgTitles, dgColumnResize, dgColLines, dgRowLines, dgTabs, dgRowSelect, dgAlwaysShowSelection, dgTitleClick, dgTitleHotTrack]
    TabOrder = 1
    TitleFont.Charset = DEFAULT_CHARSET
    TitleFont.Color = clWindowText
    TitleFont.Height = -12
    TitleFont.Name = 'Segoe UI'
    TitleFont.Style = []
    Columns = <
      item
        Expanded = False
        FieldName = 'Name'
        Title.Caption = 'Author'
        Width = 120
        Visible = True
      end
      item
        Expanded = False
        FieldName = 'Country'
        Width = 80
        Visible = True
      end>
  end
  object pgcBook: TPageControl
    Left = 229
    Top = 41
    Width = 555
    Height = 411
    ActivePage = tabBook
    Align = alClient
    TabOrder = 2
    object tabBook: TTabSheet
      Caption = 'Book'
      object lblTitle: TLabel
        Left = 16
        Top = 16
        Width = 22
        Height = 15
        Caption = 'Title'
      end
      object lblPrice: TLabel
        Left = 16
        Top = 72
        Width = 44
        Height = 15
        Caption = 'Price ('#8364')'
      end
      object edtTitle: TDBEdit
        Left = 16
        Top = 35
        Width = 321
        Height = 23
        DataField = 'Title'
        DataSource = dmBookshop.dsBooks
        TabOrder = 0
      end
      object edtPrice: TDBEdit
        Left = 16
        Top = 91
        Width = 121
        Height = 23
        DataField = 'Price'
        DataSource = dmBookshop.dsBooks
        TabOrder = 1
      end
    end
    object tabBlurb: TTabSheet
      Caption = 'Blurb'
      ImageIndex = 1
      object memBlurb: TDBMemo
        Left = 0
        Top = 0
        Width = 547
        Height = 381
        Align = alClient
        DataField = 'Blurb'
        DataSource = dmBookshop.dsBooks
        ScrollBars = ssVertical
        TabOrder = 0
      end
    end
  end
  object stbMain: TStatusBar
    Left = 0
    Top = 452
    Width = 784
    Height = 19
    Panels = <
      item
        Width = 200
      end
      item
        Width = 50
      end>
  end
  object mnuMain: TMainMenu
    Left = 472
    Top = 248
    object mniShop: TMenuItem
      Caption = '&Shop'
      object mniOrders: TMenuItem
        Action = actOrders
      end
      object mniCustomers: TMenuItem
        Action = actCustomers
      end
      object mniLine: TMenuItem
        Caption = '-'
      end
      object mniExit: TMenuItem
        Caption = 'E&xit'
        OnClick = mniExitClick
      end
    end
  end
  object aclMain: TActionList
    Left = 536
    Top = 248
    object actOrders: TAction
      Category = 'Shop'
      Caption = '&Orders...'
      ShortCut = 16463
      OnExecute = actOrdersExecute
    end
    object actCustomers: TAction
      Category = 'Shop'
      Caption = '&Customers...'
      ShortCut = 16459
      OnExecute = actCustomersExecute
    end
  end
end
