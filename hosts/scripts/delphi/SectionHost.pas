unit SectionHost;
{ The control as a VCL control, without an imported type library: TOleControl does the hosting,
  and its members are reached late bound through OleObject. }

interface

uses
  OleCtrls;

type
  TSectionHost = class(TOleControl)
  protected
    procedure InitControlData; override;
  end;

implementation

procedure TSectionHost.InitControlData;
const
  Data: TControlData2 = (
    ClassID: '{8A6F972D-535F-4438-972A-00CA8732D855}';
    EventIID: '{00000000-0000-0000-0000-000000000000}';
    EventCount: 0;
    EventDispIDs: nil;
    LicenseKey: nil;
    Flags: 0;
    Version: 401);
begin
  ControlData := @Data;
end;

end.
