inherited Form1: TForm1
  inherited Grid: TGrid [2]
    Columns = <
      item [0]
        Width = 64
      end
      item [200]
      end>
  end
end
