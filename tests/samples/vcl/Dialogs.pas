unit Dialogs;
interface
uses Classes;
type
  TOpenDialog = class(TComponent)
  private
    ownFilter, ownFileName, ownDefaultExt: string;
  public
    function Execute: Boolean; virtual; abstract;
    property Filter: string read ownFilter write ownFilter;
    property FileName: string read ownFileName write ownFileName;
    property DefaultExt: string read ownDefaultExt write ownDefaultExt;
  end;
  TSaveDialog = class(TOpenDialog)
  end;
implementation
end.
