unit ExtCtrls;
interface
uses Classes;
type
  TTimer = class(TComponent)
  private
    ownEnabled: Boolean;
    ownInterval: Cardinal;
    ownOnTimer: TNotifyEvent;
  public
    property Enabled: Boolean read ownEnabled write ownEnabled;
    property Interval: Cardinal read ownInterval write ownInterval;
    property OnTimer: TNotifyEvent read ownOnTimer write ownOnTimer;
  end;
implementation
end.
