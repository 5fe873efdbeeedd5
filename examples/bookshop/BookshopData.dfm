object dmBookshop: TdmBookshop
  OnCreate = DataModuleCreate
  Height = 404
  Width = 618
  object conShop: TZAConnection
    ProviderName = 'SQLite'
    Database = 'bookshop.db'
    LoginPrompt = False
    Left = 48
    Top = 32
  end
  object qryAuthors: TZAQuery
    Connection = conShop
    SQL.Strings = (
      'SELECT AuthorID, Name, Country, Born'
      'FROM Authors'
      'ORDER BY Name')
    Left = 144
    Top = 32
  end
  object qryBooks: TZAQuery
    Connection = conShop
    SQL.Strings = (
      'SELECT b.BookID, b.AuthorID, b.Title, b.ISBN, b.Price, b.Stock,'
      '  b.Published, b.InPrint, b.Blurb'
      'FROM Books b'
      'ORDER BY b.Title')
    Left = 144
    Top = 104
    object qryBooksBookID: TIntegerField
      DisplayLabel = 'No.'
      FieldName = 'BookID'
      Required = True
    end
    object qryBooksAuthorID: TIntegerField
      FieldName = 'AuthorID'
      Required = True
      Visible = False
    end
    object qryBooksTitle: TStringField
      DisplayWidth = 40
      FieldName = 'Title'
      Required = True
      Size = 100
    end
    object qryBooksISBN: TStringField
      FieldName = 'ISBN'
      FixedChar = True
      Size = 13
    end
    object qryBooksPrice: TCurrencyField
      FieldName = 'Price'
      Required = True
    end
    object qryBooksStock: TIntegerField
      FieldName = 'Stock'
      Required = True
    end
    object qryBooksPublished: TDateField
      FieldName = 'Published'
    end
    object qryBooksInPrint: TBooleanField
      DisplayLabel = 'In print'
      FieldName = 'InPrint'
      Required = True
    end
    object qryBooksBlurb: TMemoField
      FieldName = 'Blurb'
      BlobType = ftMemo
    end
  end
  object tblCustomers: TZATable
    Connection = conShop
    TableName = 'Customers'
    Left = 144
    Top = 176
  end
  object qryOrders: TZAQuery
    Connection = conShop
    SQL.Strings = (
      'SELECT o.OrderID, o.CustomerID, o.OrderDate, o.Status, o.Paid'
      'FROM Orders o'
      'ORDER BY o.OrderDate')
    Left = 144
    Top = 248
    object qryOrdersOrderID: TIntegerField
      DisplayLabel = 'Order'
      FieldName = 'OrderID'
      Required = True
    end
    object qryOrdersCustomerID: TIntegerField
      FieldName = 'CustomerID'
      Required = True
      Visible = False
    end
    object qryOrdersCustomer: TStringField
      FieldKind = fkLookup
      FieldName = 'Customer'
      LookupDataSet = tblCustomers
      LookupKeyFields = 'CustomerID'
      LookupResultField = 'Name'
      KeyFields = 'CustomerID'
      Size = 60
      Lookup = True
    end
    object qryOrdersOrderDate: TDateField
      DisplayLabel = 'Date'
      FieldName = 'OrderDate'
      Required = True
    end
    object qryOrdersStatus: TStringField
      FieldName = 'Status'
      Required = True
      Size = 10
    end
    object qryOrdersPaid: TBooleanField
      FieldName = 'Paid'
      Required = True
    end
  end
  object qryOrderLines: TZAQuery
    Connection = conShop
    SQL.Strings = (
      'SELECT l.OrderID, l.LineNo, l.BookID, b.Title, l.Quantity,'
      '  l.UnitPrice'
      'FROM OrderLines l'
      '  JOIN Books b ON b.BookID = l.BookID'
      'ORDER BY l.OrderID, l.LineNo')
    MasterSource = dsOrders
    MasterFields = 'OrderID'
    DetailFields = 'OrderID'
    OnCalcFields = qryOrderLinesCalcFields
    Left = 144
    Top = 320
    object qryOrderLinesOrderID: TIntegerField
      FieldName = 'OrderID'
      Required = True
      Visible = False
    end
    object qryOrderLinesLineNo: TIntegerField
      DisplayLabel = 'Line'
      FieldName = 'LineNo'
      Required = True
    end
    object qryOrderLinesBookID: TIntegerField
      FieldName = 'BookID'
      Required = True
      Visible = False
    end
    object qryOrderLinesTitle: TStringField
      DisplayWidth = 40
      FieldName = 'Title'
      Size = 100
    end
    object qryOrderLinesQuantity: TIntegerField
      FieldName = 'Quantity'
      Required = True
    end
    object qryOrderLinesUnitPrice: TCurrencyField
      DisplayLabel = 'Price'
      FieldName = 'UnitPrice'
      Required = True
    end
    object qryOrderLinesTotal: TCurrencyField
      FieldKind = fkCalculated
      FieldName = 'Total'
      Calculated = True
    end
  end
  object dsAuthors: TDataSource
    DataSet = qryAuthors
    Left = 240
    Top = 32
  end
  object dsBooks: TDataSource
    DataSet = qryBooks
    Left = 240
    Top = 104
  end
  object dsCustomers: TDataSource
    DataSet = tblCustomers
    Left = 240
    Top = 176
  end
  object dsOrders: TDataSource
    DataSet = qryOrders
    Left = 240
    Top = 248
  end
  object sqlTakeFromStock: TZASQL
    Connection = conShop
    SQL.Strings = (
      'UPDATE Books'
      'SET Stock = Stock - :Quantity'
      'WHERE BookID = :BookID AND Stock >= :Quantity')
    Left = 352
    Top = 104
  end
  object scrTidyUp: TZAScript
    Connection = conShop
    SQL.Strings = (
      'DELETE FROM OrderLines WHERE Quantity = 0;'
      'UPDATE Books SET InPrint = 0'
      'WHERE Stock = 0 AND InPrint = 1;')
    Left = 352
    Top = 176
  end
end
