// Opens a data set, lists what can be drawn in it, and draws its temperature along a path,
// month after month. The control needs no form for this; on one, every step would be seen.
//   cscript //nologo section.js FILE
// with the cscript of the control's bitness: %windir%\SysWOW64\cscript.exe for the 32-bit control,
// %windir%\System32\cscript.exe for the 64-bit one.
var given = WScript.Arguments;
if (given.length != 1) {
  WScript.Echo("usage: cscript //nologo section.js FILE");
  WScript.Quit(2);
}
var section = new ActiveXObject("Kelvane.KelvaneCtl");

function rgb(red, green, blue) {
  return red + 256 * green + 65536 * blue;
}
var Navy = rgb(0, 0, 128), SteelBlue = rgb(70, 130, 180), Khaki = rgb(240, 230, 140);
var Orange = rgb(255, 165, 0), Firebrick = rgb(178, 34, 34);

// NcFile, EndSection and SetVarByName give 1, or -1 when ErrorMessage tells why not.
function must(result) {
  if (result == 1) return;
  WScript.Echo(section.ErrorMessage);
  WScript.Quit(1);
}

must(section.NcFile(given(0)));
for (var i = 1; i <= section.NumDrawAbleItems; ++i) {
  WScript.Echo(i + " " + section.ItemName(i));
}

section.NewSection();                 // a method needs its parentheses, a property has none
section.AddSection(285.25, 32);       // longitude, latitude: the path's corners
section.AddSection(292.75, 35.1);
must(section.EndSection());
must(section.SetVarByName("temp"));

section.NewColorKey();                // degrees Celsius: from, to, colour
section.AddColorKey(0, 8, Navy);
section.AddColorKey(8, 12, SteelBlue);
section.AddColorKey(12, 16, Khaki);
section.AddColorKey(16, 20, Orange);
section.AddColorKey(20, 30, Firebrick);
section.UseColorKey = true;           // false for the built-in ramp

section.Draw();                       // the first month
var n = 1;
do {
  WScript.Echo("time step " + n);
  n = section.AdvanceTime(1);         // after the last month comes the first again
} while (n != 1);
