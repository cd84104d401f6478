unit Forms;
interface
uses Classes, Controls, Menus;
type
  TForm = class(TWinControl)
  private
    ownMenu: TMainMenu;
  public
    constructor CreateNew(owner: TComponent; dummy: Integer = 0); virtual;
    property Menu: TMainMenu read ownMenu write ownMenu;
  end;
  TComponentClass = class of TComponent;
  TApplication = class(TComponent)
  public
    procedure Initialize; virtual; abstract;
    procedure CreateForm(kind: TComponentClass; var reference); virtual; abstract;
    procedure Run; virtual; abstract;
  end;
var
  Application: TApplication;
implementation
constructor TForm.CreateNew(owner: TComponent; dummy: Integer);
begin
  inherited Create(owner);
end;
end.
