object Form1: TForm1
  Caption = 'Grьяe А'
end
