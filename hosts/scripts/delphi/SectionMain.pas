unit SectionMain;
{ A form with the control on it: opens a data set, draws its temperature along a path, steps and
  plays through its months, and saves the picture. The form is made in code, without a .dfm. }

interface

uses
  Windows, Types, Classes, SysUtils, Graphics, Controls, Forms, Menus, ExtCtrls, ComCtrls, Dialogs,
  ActiveX, ComObj, SectionHost;

type
  TSectionForm = class(TForm)
  private
    host: TSectionHost;
    section: OleVariant;
    clock: TTimer;
    bar: TStatusBar;
    needData: array of TMenuItem;
    function AddMenu(parent: TMenuItem; const caption: string; handler: TNotifyEvent): TMenuItem;
    procedure MakeMenu;
    procedure Ready(yes: Boolean);
    procedure OpenFile(const name: string);
    function Must(answer: Integer): Boolean;
    function NextMonth: Integer;
    procedure ClockTick(sender: TObject);
    procedure OpenClicked(sender: TObject);
    procedure SaveClicked(sender: TObject);
    procedure NextClicked(sender: TObject);
    procedure PlayClicked(sender: TObject);
    procedure OptionsClicked(sender: TObject);
  public
    constructor Create(owner: TComponent); override;
  end;

var
  MainForm: TSectionForm;

implementation

const
  Navy = 0 + 256 * 0 + 65536 * 128;
  SteelBlue = 70 + 256 * 130 + 65536 * 180;
  Khaki = 240 + 256 * 230 + 65536 * 140;
  Orange = 255 + 256 * 165 + 65536 * 0;
  Firebrick = 178 + 256 * 34 + 65536 * 34;

constructor TSectionForm.Create(owner: TComponent);
begin
  inherited CreateNew(owner);
  Caption := 'Section';
  ClientWidth := 800;
  ClientHeight := 560;
  bar := TStatusBar.Create(Self);
  bar.Parent := Self;
  bar.SimplePanel := True;
  host := TSectionHost.Create(Self);
  host.Parent := Self;
  host.Align := alClient;               { the control draws itself anew at each size it is given }
  section := host.OleObject;
  clock := TTimer.Create(Self);
  clock.Enabled := False;
  clock.Interval := 500;
  clock.OnTimer := ClockTick;
  MakeMenu;
  Ready(False);
  if ParamCount = 1 then OpenFile(ParamStr(1));
end;

function TSectionForm.AddMenu(parent: TMenuItem; const caption: string;
  handler: TNotifyEvent): TMenuItem;
begin
  Result := TMenuItem.Create(Self);
  Result.Caption := caption;
  Result.OnClick := handler;
  parent.Add(Result);
end;

procedure TSectionForm.MakeMenu;
var
  fileMenu, viewMenu: TMenuItem;
begin
  Menu := TMainMenu.Create(Self);
  fileMenu := AddMenu(Menu.Items, '&File', nil);
  viewMenu := AddMenu(Menu.Items, '&View', nil);
  AddMenu(fileMenu, '&Open...', OpenClicked);
  SetLength(needData, 4);
  needData[0] := AddMenu(fileMenu, '&Save Picture...', SaveClicked);
  needData[1] := AddMenu(viewMenu, '&Next Month', NextClicked);
  needData[2] := AddMenu(viewMenu, '&Play the Year', PlayClicked);
  needData[3] := AddMenu(viewMenu, 'O&ptions...', OptionsClicked);
end;

procedure TSectionForm.Ready(yes: Boolean);
var
  i: Integer;
begin
  for i := 0 to High(needData) do needData[i].Enabled := yes;
end;

procedure TSectionForm.OpenFile(const name: string);
begin
  clock.Enabled := False;
  Ready(False);
  if not Must(section.NcFile(name)) then Exit;
  section.NewSection;
  section.AddSection(285.25, 32);       { longitude, latitude: the path's corners }
  section.AddSection(292.75, 35.1);
  if not Must(section.EndSection) then Exit;
  if not Must(section.SetVarByName('temp')) then Exit;

  section.NewColorKey;                  { degrees Celsius: from, to, colour }
  section.AddColorKey(0, 8, Navy);
  section.AddColorKey(8, 12, SteelBlue);
  section.AddColorKey(12, 16, Khaki);
  section.AddColorKey(16, 20, Orange);
  section.AddColorKey(20, 30, Firebrick);
  section.UseColorKey := True;          { False for the built-in ramp }

  section.Draw;                         { the first month }
  bar.SimpleText := name;
  Ready(True);
end;

{ NcFile, EndSection and SetVarByName give 1, or -1 when ErrorMessage tells why not. }
function TSectionForm.Must(answer: Integer): Boolean;
begin
  Result := answer = 1;
  if not Result then bar.SimpleText := section.ErrorMessage;
end;

{ After the last month comes the first again. }
function TSectionForm.NextMonth: Integer;
begin
  Result := section.AdvanceTime(1);
  bar.SimpleText := 'time step ' + IntToStr(Result);
end;

procedure TSectionForm.ClockTick(sender: TObject);
begin
  if NextMonth = 1 then clock.Enabled := False;
end;

procedure TSectionForm.OpenClicked(sender: TObject);
var
  dialog: TOpenDialog;
begin
  dialog := TOpenDialog.Create(nil);
  try
    dialog.Filter := 'netCDF files|*.nc;*.cdf|All files|*.*';
    if dialog.Execute then OpenFile(dialog.FileName);
  finally
    dialog.Free;
  end;
end;

procedure TSectionForm.SaveClicked(sender: TObject);
var
  dialog: TSaveDialog;
  picture: TBitmap;
begin
  dialog := TSaveDialog.Create(nil);
  picture := TBitmap.Create;
  try
    dialog.Filter := 'Bitmaps|*.bmp';
    dialog.DefaultExt := 'bmp';
    if not dialog.Execute then Exit;
    picture.Width := host.Width;
    picture.Height := host.Height;
    OleCheck(OleDraw(IUnknown(section), DVASPECT_CONTENT, picture.Canvas.Handle,
      Rect(0, 0, host.Width, host.Height)));
    picture.SaveToFile(dialog.FileName);
  finally
    picture.Free;
    dialog.Free;
  end;
end;

procedure TSectionForm.NextClicked(sender: TObject);
begin
  NextMonth;
end;

procedure TSectionForm.PlayClicked(sender: TObject);
begin
  clock.Enabled := not clock.Enabled;
end;

procedure TSectionForm.OptionsClicked(sender: TObject);
begin
  clock.Enabled := False;
  section.ShowOptions;
end;

end.
