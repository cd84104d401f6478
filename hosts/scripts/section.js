// Opens a data set, lists what can be drawn in it, and draws a section of it.
var given = WScript.Arguments;
if (given.length < 1) {
  WScript.Echo('usage: cscript //nologo section.js FILE ["lon,lat lon,lat ..." [VARIABLE]]');
  WScript.Quit(2);
}
var control = new ActiveXObject("Kelvane.KelvaneCtl");

function must(result) {
  if (result == 1) return;
  WScript.Echo(control.ErrorMessage);
  WScript.Quit(1);
}

must(control.NcFile(given(0)));
for (var i = 1; i <= control.NumDrawAbleItems; ++i) WScript.Echo(i + " " + control.ItemName(i));
var corners = (given.length > 1 ? given(1) : "285.25,32 292.75,35.1").split(" ");
control.NewSection();
for (var c = 0; c < corners.length; ++c) {
  var place = corners[c].split(",");
  control.AddSection(Number(place[0]), Number(place[1]));
}
must(control.EndSection());
if (given.length > 2) must(control.SetVarByName(given(2)));
control.Draw();
WScript.Echo("drawn");
