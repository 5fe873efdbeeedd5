object KindsForm: TKindsForm
  Left = 12
  Top = -12
  Tag = $7FFFFFFF
  HelpContext = 2147483648
  Big = -9223372036854775808
  Wide = $FFFFFFFF
  Ratio = 1.500000000000000000
  Tiny = -1.25E-12
  Huge = 1E300
  Third = 0.333333333333333315
  Single = 1.5s
  Price = 922337203685477.5807c
  Day = 36921.0416666667d
  Visible = True
  Enabled = FALSE
  PopupMenu = nil
  Variant = Null
  Color = clBtnFace
  DataSource = DataModule1.Books.Source
  Empty = ''
  Quote = 'It''s'
  Lines = 'one'#13#10'two'
  Controls = #9#0#127
  Accents = 'K'#228'se '#8364' '#55357#56832
  Long = 
    'The quick brown fox jumps over the lazy dog, and the dog sleeps o' +
    'n; the quick brown fox jumps again, and this line ends with a num' +
    'ber: '#8470
  Anchors = [akLeft, akTop, akRight]
  Options = []
  SQL.Strings = (
    'select *'
    'from books'
    ''
    'where price > :price')
  Nothing.Strings = ()
  Sizes = (
    447
    -1
    2.5
    clRed
    True
    [a, b]
    ('nested' 'list')
    <item x = 1 end>)
  Font.Charset = DEFAULT_CHARSET
  Columns = <
    item
      Expanded = False
      FieldName = 'ID'
    end
    item
      Items = <
        item
        end
        item
          object = 1
          Name = 'inner'
        end>
    end>
  NoColumns = <>
  Glyph.Data = {
    0102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F20
    21fF}
  NoData = {}
  OnCreate = FormCreate
  object Panel1: TPanel
  end
  inherited Base: TBase
    inline Frame: TFrame1 [300]
      inherited Edit: TEdit [0]
        Text = 'x'
      end
    end
  end
  object TNameless
    Left = 1
  end
end
