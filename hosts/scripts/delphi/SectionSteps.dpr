program SectionSteps;
{ Opens a data set, lists what can be drawn in it, and draws its temperature along a path, month
  after month, all of it late bound; saves the last picture when a name is given.
    SectionSteps FILE [PICTURE.emf]
  A Win32 program needs the 32-bit control, a Win64 program the 64-bit one. The control masks
  floating-point exceptions for itself and puts Delphi's setting back: nothing to do here. }

{$APPTYPE CONSOLE}

uses
  Windows, SysUtils, Variants, ActiveX, ComObj;

const
  Navy = 0 + 256 * 0 + 65536 * 128;
  SteelBlue = 70 + 256 * 130 + 65536 * 180;
  Khaki = 240 + 256 * 230 + 65536 * 140;
  Orange = 255 + 256 * 165 + 65536 * 0;
  Firebrick = 178 + 256 * 34 + 65536 * 34;

var
  section: OleVariant;

{ NcFile, EndSection and SetVarByName give 1, or -1 when ErrorMessage tells why not. }
procedure Must(answer: Integer);
begin
  if answer = 1 then Exit;
  Writeln(ErrOutput, string(section.ErrorMessage));
  Halt(1);
end;

{ Saves the picture as an enhanced metafile: the system draws any control into one. The size is
  that of a control without a form. }
procedure SavePicture(const name: WideString);
var
  bounds: TRect;
  dc: HDC;
begin
  bounds.Left := 0;
  bounds.Top := 0;
  bounds.Right := 640;
  bounds.Bottom := 480;
  dc := CreateEnhMetaFileW(0, PWideChar(name), nil, nil);
  if dc = 0 then RaiseLastOSError;
  try
    OleCheck(OleDraw(IUnknown(section), DVASPECT_CONTENT, dc, bounds));
  finally
    DeleteEnhMetaFile(CloseEnhMetaFile(dc));
  end;
end;

procedure DrawTheYear;
var
  i, count, n: Integer;
begin
  section := CreateOleObject('Kelvane.KelvaneCtl');

  Must(section.NcFile(ParamStr(1)));
  count := section.NumDrawAbleItems;
  for i := 1 to count do Writeln(i, ' ', string(section.ItemName(i)));

  section.NewSection;
  section.AddSection(285.25, 32);       { longitude, latitude: the path's corners }
  section.AddSection(292.75, 35.1);
  Must(section.EndSection);
  Must(section.SetVarByName('temp'));

  section.NewColorKey;                  { degrees Celsius: from, to, colour }
  section.AddColorKey(0, 8, Navy);
  section.AddColorKey(8, 12, SteelBlue);
  section.AddColorKey(12, 16, Khaki);
  section.AddColorKey(16, 20, Orange);
  section.AddColorKey(20, 30, Firebrick);
  section.UseColorKey := True;          { False for the built-in ramp }

  section.Draw;                         { the first month }
  n := 1;
  repeat
    Writeln('time step ', n);
    n := section.AdvanceTime(1);        { after the last month comes the first again }
  until n = 1;
  if ParamCount = 2 then SavePicture(ParamStr(2));
end;

begin
  if (ParamCount < 1) or (ParamCount > 2) then
  begin
    Writeln(ErrOutput, 'usage: SectionSteps FILE [PICTURE.emf]');
    Halt(2);
  end;
  CoInitialize(nil);
  try
    DrawTheYear;
  except
    on error: Exception do
    begin
      Writeln(ErrOutput, error.Message);
      ExitCode := 1;
    end;
  end;
  section := Unassigned;
  CoUninitialize;
end.
