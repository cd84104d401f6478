unit ComCtrls;
interface
uses Controls;
type
  TStatusBar = class(TWinControl)
  private
    ownSimplePanel: Boolean;
    ownSimpleText: string;
  public
    property SimplePanel: Boolean read ownSimplePanel write ownSimplePanel;
    property SimpleText: string read ownSimpleText write ownSimpleText;
  end;
implementation
end.
