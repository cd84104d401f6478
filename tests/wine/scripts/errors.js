// Run-time errors as JScript sees them.
var control = new ActiveXObject("Kelvane.KelvaneCtl");
control.SetCurrentTime(2147483647);
try {
  control.AdvanceTime(1);
  WScript.Echo("no error");
} catch (error) {
  WScript.Echo(error.number + " [" + error.message + "]");
}
try {
  control.NewSection(1);
  WScript.Echo("no error");
} catch (error) {
  WScript.Echo(error.number);
}
