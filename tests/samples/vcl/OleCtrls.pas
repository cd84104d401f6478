unit OleCtrls;
interface
uses Windows, Controls;
type
  TControlData2 = record
    ClassID: TGUID;
    EventIID: TGUID;
    EventCount: Longint;
    EventDispIDs: Pointer;
    LicenseKey: Pointer;
    Flags: DWORD;
    Version: Integer;
  end;
  PControlData2 = ^TControlData2;
  TOleControl = class(TWinControl)
  private
    ownControlData: PControlData2;
    ownOleObject: Variant;
  protected
    procedure InitControlData; virtual; abstract;
    property ControlData: PControlData2 read ownControlData write ownControlData;
  public
    property OleObject: Variant read ownOleObject;
  end;
implementation
end.
