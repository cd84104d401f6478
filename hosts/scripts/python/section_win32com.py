"""Draws a data set's temperature along a path, month after month, through pywin32.

    python section_win32com.py FILE [PICTURE.bmp]

pip install pywin32. A 32-bit Python needs the 32-bit control, a 64-bit Python the 64-bit one.
"""
import struct
import sys

import pythoncom
import win32con
from win32com.client import Dispatch


def rgb(red, green, blue):
    return red + 256 * green + 65536 * blue


NAVY = rgb(0, 0, 128)
STEEL_BLUE = rgb(70, 130, 180)
KHAKI = rgb(240, 230, 140)
ORANGE = rgb(255, 165, 0)
FIREBRICK = rgb(178, 34, 34)


def save_picture(section, name):
    """Saves the picture as a bitmap, at the size of a control without a form, 640 x 480."""
    source = section._oleobj_.QueryInterface(pythoncom.IID_IDataObject)
    wanted = (win32con.CF_DIB, None, pythoncom.DVASPECT_CONTENT, -1, pythoncom.TYMED_HGLOBAL)
    dib = source.GetData(wanted).data
    header_size = struct.unpack_from("<I", dib)[0]
    with open(name, "wb") as file:
        file.write(struct.pack("<2sIHHI", b"BM", 14 + len(dib), 0, 0, 14 + header_size))
        file.write(dib)


def main(arguments):
    if len(arguments) not in (1, 2):
        sys.exit("usage: python section_win32com.py FILE [PICTURE.bmp]")
    section = Dispatch("Kelvane.KelvaneCtl")

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
        save_picture(section, arguments[1])


if __name__ == "__main__":
    main(sys.argv[1:])
