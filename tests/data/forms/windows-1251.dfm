object Form1: TForm1
  Caption = 'Привет'
end
