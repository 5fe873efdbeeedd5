object Form1: TForm1
	Caption	= 'x'
	object Edit1: TEdit
		Left = 1
	end
end