unit Menus;
interface
uses Classes;
type
  TMenuItem = class(TComponent)
  private
    ownCaption: string;
    ownEnabled: Boolean;
    ownOnClick: TNotifyEvent;
  public
    procedure Add(item: TMenuItem); virtual; abstract;
    property Caption: string read ownCaption write ownCaption;
    property Enabled: Boolean read ownEnabled write ownEnabled;
    property OnClick: TNotifyEvent read ownOnClick write ownOnClick;
  end;
  TMainMenu = class(TComponent)
  private
    ownItems: TMenuItem;
  public
    property Items: TMenuItem read ownItems;
  end;
implementation
end.
