unit Controls;
interface
uses Classes;
type
  TAlign = (alNone, alTop, alBottom, alLeft, alRight, alClient, alCustom);
  TWinControl = class;
  TControl = class(TComponent)
  private
    ownParent: TWinControl;
    ownAlign: TAlign;
    ownWidth, ownHeight, ownClientWidth, ownClientHeight: Integer;
    ownCaption: string;
  public
    property Parent: TWinControl read ownParent write ownParent;
    property Align: TAlign read ownAlign write ownAlign;
    property Width: Integer read ownWidth write ownWidth;
    property Height: Integer read ownHeight write ownHeight;
    property ClientWidth: Integer read ownClientWidth write ownClientWidth;
    property ClientHeight: Integer read ownClientHeight write ownClientHeight;
    property Caption: string read ownCaption write ownCaption;
  end;
  TWinControl = class(TControl)
  end;
implementation
end.
