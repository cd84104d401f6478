// Every member by name from JScript.
var folder = WScript.Arguments(0);
var control = new ActiveXObject("Kelvane.KelvaneCtl");

function say(what, value) {
  WScript.Echo(what + ": " + typeof value + " [" + value + "]");
}

say("NumDrawAbleItems at first", control.NumDrawAbleItems);
say("DrawProfile at first", control.DrawProfile);
say("NcFile", control.NcFile(folder + "\\tiny.nc"));
say("NumDrawAbleItems", control.NumDrawAbleItems);
for (var i = 0; i <= 3; ++i) say("ItemName(" + i + ")", control.ItemName(i));
control.NewSection();
control.AddSection(354.5, -1);
control.AddSection(354.5, 0.4);
say("EndSection", control.EndSection());
say("SetVarByName", control.SetVarByName("salt"));
say("SetVarByOrder", control.SetVarByOrder(1));
say("SetVarByOrder(-1)", control.SetVarByOrder(-1));
say("ErrorMessage", control.ErrorMessage);
say("DrawVerticalSection", control.DrawVerticalSection);
control.DrawProfile = true;
say("DrawVerticalSection", control.DrawVerticalSection);
control.DrawVerticalSection = true;
say("DrawProfile", control.DrawProfile);
say("Draw", control.Draw());
control.SetCurrentTime(2);
say("AdvanceTime(1)", control.AdvanceTime(1));
say("ReDraw", control.ReDraw());
control.NewColorKey();
control.UseColorKey = true;
say("UseColorKey of an empty key", control.UseColorKey);
control.AddColorKey(0, 1, 255);
control.UseColorKey = true;
say("UseColorKey", control.UseColorKey);
say("KewFile of no file", control.KewFile(folder + "\\none.kew"));
control.InitColorKey();
say("UseColorKey", control.UseColorKey);
say("KewFile", control.KewFile(folder + "\\tiny.KEW"));
control.DrawProfile = true;
say("Draw", control.Draw());
control.ShowOptions();
WScript.Echo("ShowOptions came back");
