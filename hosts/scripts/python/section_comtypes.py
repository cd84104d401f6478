"""Draws a data set's temperature along a path, month after month, through comtypes.

    python section_comtypes.py FILE [PICTURE.emf]

pip install comtypes. A 32-bit Python needs the 32-bit control, a 64-bit Python the 64-bit one.
"""
import ctypes
import sys
from ctypes import wintypes

from comtypes import IUnknown
from comtypes.client import CreateObject

CONTENT_ASPECT = 1


def rgb(red, green, blue):
    return red + 256 * green + 65536 * blue


NAVY = rgb(0, 0, 128)
STEEL_BLUE = rgb(70, 130, 180)
KHAKI = rgb(240, 230, 140)
ORANGE = rgb(255, 165, 0)
FIREBRICK = rgb(178, 34, 34)


def save_picture(section, name, width, height):
    """Saves the picture as an enhanced metafile: the system draws any control into one."""
    gdi32, ole32 = ctypes.WinDLL("gdi32"), ctypes.OleDLL("ole32")
    gdi32.CreateEnhMetaFileW.restype = wintypes.HDC
    gdi32.CreateEnhMetaFileW.argtypes = [wintypes.HDC, wintypes.LPCWSTR, wintypes.LPVOID,
                                         wintypes.LPCWSTR]
    gdi32.CloseEnhMetaFile.restype = wintypes.HANDLE
    gdi32.CloseEnhMetaFile.argtypes = [wintypes.HDC]
    gdi32.DeleteEnhMetaFile.argtypes = [wintypes.HANDLE]
    ole32.OleDraw.argtypes = [ctypes.POINTER(IUnknown), wintypes.DWORD, wintypes.HDC,
                              ctypes.POINTER(wintypes.RECT)]
    dc = gdi32.CreateEnhMetaFileW(None, name, None, None)
    if not dc:
        raise OSError("cannot make " + name)
    try:
        bounds = wintypes.RECT(0, 0, width, height)
        ole32.OleDraw(section, CONTENT_ASPECT, dc, ctypes.byref(bounds))
    finally:
        gdi32.DeleteEnhMetaFile(gdi32.CloseEnhMetaFile(dc))


def main(arguments):
    if len(arguments) not in (1, 2):
        sys.exit("usage: python section_comtypes.py FILE [PICTURE.emf]")
    section = CreateObject("Kelvane.KelvaneCtl")

    def must(result):
        """NcFile, EndSection and SetVarByName give 1, or -1 when ErrorMessage tells why not."""
        if result != 1:
            sys.exit(section.ErrorMessage)

    must(section.NcFile(arguments[0]))
    for i in range(1, section.NumDrawAbleItems + 1):
        print(i, section.ItemName(i))

    section.NewSection()
    section.AddSection(285.25, 32)       # longitude, latitude: the path's corners
    section.AddSection(292.75, 35.1)
    must(section.EndSection())
    must(section.SetVarByName("temp"))

    section.NewColorKey()                # degrees Celsius: from, to, colour
    section.AddColorKey(0, 8, NAVY)
    section.AddColorKey(8, 12, STEEL_BLUE)
    section.AddColorKey(12, 16, KHAKI)
    section.AddColorKey(16, 20, ORANGE)
    section.AddColorKey(20, 30, FIREBRICK)
    section.UseColorKey = True           # False for the built-in ramp

    section.Draw()                       # the first month
    n = 1
    while True:
        print("time step", n)
        n = section.AdvanceTime(1)       # after the last month comes the first again
        if n == 1:
            break
    if len(arguments) == 2:
        save_picture(section, arguments[1], 640, 480)   # the size of a control without a form


if __name__ == "__main__":
    main(sys.argv[1:])
