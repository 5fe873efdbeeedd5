program formpeer;

{ Converts form files with the stream reader of the compiler's own library, so that tests and benchmarks can hold
  ours against it.

    formpeer convert LIST         a line of LIST is IN, a tab, OUT: text becomes binary, binary becomes text.
                                  A line of output for each: "ok", or "error " and the reason.
    formpeer bench LIST REPEAT    a line of LIST is a file. Every file is opened, read and converted in memory REPEAT
                                  times; files that the reader refuses are left out.
                                  Output: accepted files, their bytes, nanoseconds for all repeats. }

{$mode objfpc}{$H+}

uses
  {$ifdef unix}unixtype, linux,{$endif} SysUtils, Classes;

function NowNanoseconds: Int64;
var
  t: timespec;
begin
  clock_gettime(CLOCK_MONOTONIC, @t);
  Result := Int64(t.tv_sec) * 1000000000 + t.tv_nsec;
end;

function IsText(Input: TStream): Boolean;
var
  first: array[0..3] of Byte;
begin
  FillChar(first, SizeOf(first), 0);
  Input.Read(first, SizeOf(first));
  Input.Position := 0;
  Result := (first[0] <> $FF) and not ((first[0] = Ord('T')) and (first[1] = Ord('P')) and (first[2] = Ord('F')));
end;

procedure SkipResourceHeader(Input: TStream);
begin
  if Input.ReadByte <> $FF then
    Input.Position := 0
  else
  begin
    Input.Position := 0;
    Input.ReadResHeader;
  end;
end;

procedure Convert(Input, Output: TStream);
begin
  if IsText(Input) then
    ObjectTextToBinary(Input, Output)
  else
  begin
    SkipResourceHeader(Input);
    ObjectBinaryToText(Input, Output);
  end;
end;

procedure ConvertFile(const source: string; Output: TStream);
var
  bytes: TMemoryStream;
begin
  bytes := TMemoryStream.Create;
  try
    bytes.LoadFromFile(source);
    Convert(bytes, Output);
  finally
    bytes.Free;
  end;
end;

procedure ConvertPair(const source, target: string);
var
  made: TMemoryStream;
begin
  made := TMemoryStream.Create;
  try
    ConvertFile(source, made);
    made.SaveToFile(target);
  finally
    made.Free;
  end;
end;

procedure ConvertAll(list: TStrings);
var
  line: string;
  cut: Integer;
begin
  for line in list do
  begin
    cut := Pos(#9, line);
    try
      ConvertPair(Copy(line, 1, cut - 1), Copy(line, cut + 1, Length(line)));
      WriteLn('ok');
    except
      on e: Exception do
        WriteLn('error ', StringReplace(e.Message, LineEnding, ' ', [rfReplaceAll]));
    end;
  end;
end;

function Accepts(const source: string): Boolean;
var
  made: TMemoryStream;
begin
  Result := True;
  made := TMemoryStream.Create;
  try
    try
      ConvertFile(source, made);
    except
      Result := False;
    end;
  finally
    made.Free;
  end;
end;

procedure Bench(list: TStrings; rounds: Integer);
var
  i, round: Integer;
  size, start: Int64;
  made, bytes: TMemoryStream;
begin
  for i := list.Count - 1 downto 0 do
    if not Accepts(list[i]) then
      list.Delete(i);
  size := 0;
  made := TMemoryStream.Create;
  bytes := TMemoryStream.Create;
  start := NowNanoseconds;
  for round := 1 to rounds do
    for i := 0 to list.Count - 1 do
    begin
      bytes.LoadFromFile(list[i]);
      bytes.Position := 0;
      made.Position := 0;
      Convert(bytes, made);
      size := size + bytes.Size;
    end;
  start := NowNanoseconds - start;
  WriteLn(list.Count, ' ', size div rounds, ' ', start);
  bytes.Free;
  made.Free;
end;

var
  list: TStringList;
begin
  list := TStringList.Create;
  list.LoadFromFile(ParamStr(2));
  if ParamStr(1) = 'convert' then
    ConvertAll(list)
  else
    Bench(list, StrToInt(ParamStr(3)));
  list.Free;
end.
