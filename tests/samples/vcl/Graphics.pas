unit Graphics;
interface
uses Windows, Classes;
type
  TCanvas = class
  private
    ownHandle: HDC;
  public
    property Handle: HDC read ownHandle;
  end;
  TBitmap = class(TPersistent)
  private
    ownCanvas: TCanvas;
    ownWidth, ownHeight: Integer;
  public
    procedure SaveToFile(const fileName: string); virtual; abstract;
    property Canvas: TCanvas read ownCanvas;
    property Width: Integer read ownWidth write ownWidth;
    property Height: Integer read ownHeight write ownHeight;
  end;
implementation
end.
