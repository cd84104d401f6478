program SectionForm;
{ A form with the control on it; see SectionMain.
    SectionForm [FILE] }

uses
  Forms, SectionMain;

begin
  Application.Initialize;
  Application.CreateForm(TSectionForm, MainForm);
  Application.Run;
end.
