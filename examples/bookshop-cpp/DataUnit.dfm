object dmShop: TdmShop
  OnCreate = DataModuleCreate
  Height = 240
  Width = 360
  object conShop: TZAConnection
    ProviderName = 'SQLite'
    Database = 'bookshop.db'
    LoginPrompt = False
    Left = 48
    Top = 24
  end
  object qryAuthors: TZAQuery
    Connection = conShop
    SQL.Strings = (
      'SELECT AuthorID, Name, Country, Born'
      'FROM Authors'
      'ORDER BY Name')
    Left = 144
    Top = 24
  end
  object qryBooks: TZAQuery
    Connection = conShop
    SQL.Strings = (
      'SELECT BookID, AuthorID, Title, Price'
      'FROM Books'
      'ORDER BY Title')
    MasterSource = dsAuthors
    MasterFields = 'AuthorID'
    DetailFields = 'AuthorID'
    Left = 144
    Top = 96
    object qryBooksBookID: TIntegerField
      DisplayLabel = 'No.'
      FieldName = 'BookID'
      Required = True
    end
    object qryBooksTitle: TStringField
      DisplayWidth = 40
      FieldName = 'Title'
      Required = True
      Size = 100
    end
    object qryBooksPrice: TCurrencyField
      FieldName = 'Price'
      Required = True
    end
  end
  object dsAuthors: TDataSource
    DataSet = qryAuthors
    Left = 240
    Top = 24
  end
  object dsBooks: TDataSource
    DataSet = qryBooks
    Left = 240
    Top = 96
  end
end
