program compile_help;
{ Compiles a help project (.hhp) into a compiled help file (.chm).

  Usage: compile_help PROJECT.hhp OUTPUT.chm

  Read from the project: [OPTIONS] Title, Default topic, Contents file, Index file; [FILES], one
  name a line; [ALIAS] and [MAP], which give pages their topic numbers. All names are relative to
  the project's folder and are stored as they stand there. The same sources give the same bytes. }

{$mode objfpc}{$H+}

uses
  Classes, SysUtils, IniFiles, chmwriter;

type
  TCompiler = class
  private
    FFolder: String;
    FProject: TMemIniFile;
    FWriter: TChmWriter;
    function FileData(const DataName: String; out PathInChm: String; out FileName: String;
      var Stream: TStream): Boolean;
    procedure AddContentsAndIndex(Sender: TObject);
    procedure AddFiles;
    procedure AddTopics;
    function Load(const Name: String): TMemoryStream;
  public
    constructor Create(const ProjectFile: String);
    destructor Destroy; override;
    procedure Compile(Output: TStream);
  end;

constructor TCompiler.Create(const ProjectFile: String);
begin
  FFolder := ExtractFilePath(ProjectFile);
  FProject := TMemIniFile.Create(ProjectFile);
end;

destructor TCompiler.Destroy;
begin
  FProject.Free;
  inherited Destroy;
end;

function TCompiler.Load(const Name: String): TMemoryStream;
begin
  Result := TMemoryStream.Create;
  Result.LoadFromFile(FFolder + Name);
end;

{ The writer asks for each file's bytes and for its place inside the help file. }
function TCompiler.FileData(const DataName: String; out PathInChm: String; out FileName: String;
  var Stream: TStream): Boolean;
begin
  Result := False;
  TMemoryStream(Stream).LoadFromFile(FFolder + DataName);
  FileName := ExtractFileName(DataName);
  PathInChm := '/' + ExtractFilePath(DataName);
end;

procedure TCompiler.AddContentsAndIndex(Sender: TObject);
var
  Contents, Index: TMemoryStream;
begin
  Index := Load(FWriter.IndexName);
  Contents := Load(FWriter.TocName);
  FWriter.AppendIndex(Index);
  FWriter.AppendTOC(Contents);
  Index.Free;
  Contents.Free;
end;

procedure TCompiler.AddFiles;
var
  Files: TStringList;
  I: Integer;
begin
  Files := TStringList.Create;
  FProject.ReadSectionRaw('FILES', Files);
  for I := 0 to Files.Count - 1 do
    if Trim(Files[I]) <> '' then
      FWriter.FilesToCompress.Add(Trim(Files[I]));
  Files.Free;
end;

{ [MAP] has lines "#define NAME NUMBER", [ALIAS] has lines "NAME=PAGE". }
procedure TCompiler.AddTopics;
var
  Map, Words: TStringList;
  I: Integer;
  Page: String;
begin
  Map := TStringList.Create;
  Words := TStringList.Create;
  Words.Delimiter := ' ';
  FProject.ReadSectionRaw('MAP', Map);
  for I := 0 to Map.Count - 1 do
  begin
    Words.DelimitedText := Map[I];
    if Words.Count < 3 then
      Continue;
    Page := FProject.ReadString('ALIAS', Words[1], '');
    if Page = '' then
      raise Exception.Create('No page for the topic ' + Words[1]);
    FWriter.AddContext(StrToInt(Words[2]), Page);
  end;
  Words.Free;
  Map.Free;
end;

procedure TCompiler.Compile(Output: TStream);
begin
  FWriter := TChmWriter.Create(Output, False);
  FWriter.OnGetFileData := @FileData;
  FWriter.OnLastFile := @AddContentsAndIndex;
  FWriter.Title := FProject.ReadString('OPTIONS', 'Title', '');
  FWriter.DefaultPage := FProject.ReadString('OPTIONS', 'Default topic', '');
  FWriter.TocName := FProject.ReadString('OPTIONS', 'Contents file', '');
  FWriter.IndexName := FProject.ReadString('OPTIONS', 'Index file', '');
  FWriter.FullTextSearch := False;
  FWriter.ReadmeMessage := '';
  AddFiles;
  AddTopics;
  FWriter.Execute;
  FWriter.Free;
end;

{ The writer of Free Pascal 3.2.2 puts the time of day into the file's header and into its table of
  system values, and gets the first byte of the header's second GUID wrong, for which strict readers
  refuse the file. }
procedure MendHeader(Output: TMemoryStream);
const
  TimeInHeader = $10;
  SecondGuid = $28;
  Version: String = 'HHA Version';
var
  Bytes: PByte;
  I: Integer;
begin
  Bytes := Output.Memory;
  FillDWord(Bytes[TimeInHeader], 1, 0);
  Bytes[SecondGuid] := $11;
  for I := 8 to Output.Size - Length(Version) do
    if CompareByte(Bytes[I], Version[1], Length(Version)) = 0 then
    begin
      FillDWord(Bytes[I - 8], 1, 0);
      Exit;
    end;
  raise Exception.Create('No table of system values was written.');
end;

var
  Compiler: TCompiler;
  Output: TMemoryStream;
begin
  if ParamCount <> 2 then
  begin
    WriteLn(StdErr, 'Usage: compile_help PROJECT.hhp OUTPUT.chm');
    Halt(2);
  end;
  Compiler := TCompiler.Create(ParamStr(1));
  Output := TMemoryStream.Create;
  try
    Compiler.Compile(Output);
    MendHeader(Output);
    Output.SaveToFile(ParamStr(2));
  finally
    Output.Free;
    Compiler.Free;
  end;
end.
