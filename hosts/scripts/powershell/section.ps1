# Opens a data set, lists what can be drawn in it, and draws its temperature along a path, month
# after month; saves the last picture when a name is given.
#   powershell -STA -ExecutionPolicy Bypass -File section.ps1 FILE [PICTURE.png]
# with the PowerShell of the control's bitness:
#   %windir%\SysWOW64\WindowsPowerShell\v1.0\powershell.exe for the 32-bit control,
#   %windir%\System32\WindowsPowerShell\v1.0\powershell.exe for the 64-bit one (so is pwsh 7).
param(
    [Parameter(Mandatory = $true)] [string] $File,
    [string] $Picture
)
$ErrorActionPreference = 'Stop'
Add-Type -AssemblyName System.Drawing
function Ole([string] $name) { [Drawing.ColorTranslator]::ToOle([Drawing.Color]::$name) }

# NcFile, EndSection and SetVarByName give 1, or -1 when ErrorMessage tells why not.
function Must($result) {
    if ($result -eq 1) { return }
    [Console]::Error.WriteLine($section.ErrorMessage)
    exit 1
}

$section = New-Object -ComObject Kelvane.KelvaneCtl

# The control finds a relative name from the process's folder, which is not PowerShell's.
if (Test-Path -LiteralPath $File) { $File = (Resolve-Path -LiteralPath $File).ProviderPath }
Must $section.NcFile($File)
for ($i = 1; $i -le $section.NumDrawAbleItems; ++$i) { "$i $($section.ItemName($i))" }

$section.NewSection()
$section.AddSection(285.25, 32)       # longitude, latitude: the path's corners
$section.AddSection(292.75, 35.1)
Must $section.EndSection()
Must $section.SetVarByName('temp')

$section.NewColorKey()                # degrees Celsius: from, to, colour
$section.AddColorKey(0, 8, (Ole Navy))
$section.AddColorKey(8, 12, (Ole SteelBlue))
$section.AddColorKey(12, 16, (Ole Khaki))
$section.AddColorKey(16, 20, (Ole Orange))
$section.AddColorKey(20, 30, (Ole Firebrick))
$section.UseColorKey = $true          # $false for the built-in ramp

[void] $section.Draw()                # the first month
$n = 1
do {
    "time step $n"
    $n = $section.AdvanceTime(1)      # after the last month comes the first again
} until ($n -eq 1)

if (-not $Picture) { exit 0 }
# The system draws any control into any device context. A control without a form is 640 x 480.
Add-Type -Namespace Native -Name Ole -MemberDefinition @'
[StructLayout(LayoutKind.Sequential)] public struct Bounds { public int Left, Top, Right, Bottom; }
[DllImport("ole32.dll", PreserveSig = false)] public static extern void OleDraw(
    [MarshalAs(UnmanagedType.IUnknown)] object drawn, uint aspect, IntPtr dc, ref Bounds bounds);
'@
$bounds = New-Object Native.Ole+Bounds -Property @{ Right = 640; Bottom = 480 }
$bitmap = New-Object Drawing.Bitmap 640, 480
$graphics = [Drawing.Graphics]::FromImage($bitmap)
$dc = $graphics.GetHdc()
[Native.Ole]::OleDraw($section, 1, $dc, [ref] $bounds)
$graphics.ReleaseHdc($dc)
$graphics.Dispose()
$folder = (Get-Location -PSProvider FileSystem).ProviderPath
$bitmap.Save([IO.Path]::Combine($folder, $Picture), [Drawing.Imaging.ImageFormat]::Png)
