"""Runs the Python samples on this machine, with stand-ins for the modules that only Windows has.

    test_python_samples.py TYPES ROOT
"""
import contextlib
import ctypes
import io
import runpy
import struct
import sys
import tempfile
import types
import unittest
from pathlib import Path
from unittest import mock

import type_library
from recording_control import RecordingControl

TYPES, ROOT = "", Path()
PROGRAM = "Kelvane.KelvaneCtl"


def rgb(red, green, blue):
    return red | green << 8 | blue << 16


# All that a sample does, with a data set of three time steps.
STORY = [
    ("NcFile", "ocean.nc"), ("ItemName", 1), ("ItemName", 2),
    ("NewSection",), ("AddSection", 285.25, 32), ("AddSection", 292.75, 35.1), ("EndSection",),
    ("SetVarByName", "temp"),
    ("NewColorKey",), ("AddColorKey", 0, 8, rgb(0, 0, 128)),
    ("AddColorKey", 8, 12, rgb(70, 130, 180)), ("AddColorKey", 12, 16, rgb(240, 230, 140)),
    ("AddColorKey", 16, 20, rgb(255, 165, 0)), ("AddColorKey", 20, 30, rgb(178, 34, 34)),
    ("UseColorKey", True), ("Draw",), ("AdvanceTime", 1), ("AdvanceTime", 1), ("AdvanceTime", 1)]
OUTPUT = "1 temp\n2 salt\ntime step 1\ntime step 2\ntime step 3\n"
# The methods that may refuse, with the calls that have been made by then.
REFUSALS = {"NcFile": 1, "EndSection": 7, "SetVarByName": 8}


class Samples:
    """What both samples must do; how each finds the control is told by modules()."""
    name = ""

    def run_sample(self, *arguments, refuse=None):
        """The control, the output, and what the sample ended with."""
        control = RecordingControl(type_library.read(TYPES), refuse)
        output, end = io.StringIO(), None
        path = str(ROOT / "hosts/scripts/python" / self.name)
        with mock.patch.dict(sys.modules, self.modules(control)), \
                mock.patch.object(sys, "argv", [path, *arguments]), \
                contextlib.redirect_stdout(output):
            try:
                runpy.run_path(path, run_name="__main__")
            except SystemExit as error:
                end = error.code
        return control, output.getvalue(), end

    def test_tells_the_story(self):
        control, output, end = self.run_sample("ocean.nc")
        self.assertEqual(control.calls, STORY)
        self.assertEqual(output, OUTPUT)
        self.assertIsNone(end)

    def test_tells_why_not(self):
        for refuse, made in REFUSALS.items():
            with self.subTest(refuse):
                control, _, end = self.run_sample("ocean.nc", refuse=refuse)
                self.assertEqual(end, f"{refuse} refused")
                self.assertEqual(control.calls, STORY[:made])

    def test_tells_how_to_use_it(self):
        for arguments in ((), ("a", "b", "c")):
            control, output, end = self.run_sample(*arguments)
            self.assertIn(f"usage: python {self.name} FILE", end)
            self.assertEqual(control.calls, [])


class Function:
    """A function of a Windows library: takes types for arguments and result, as ctypes does."""

    def __init__(self, name, log, result):
        self.name, self.log, self.result = name, log, result

    def __call__(self, *arguments):
        self.log.append((self.name, *arguments))
        return self.result


class Comtypes(Samples, unittest.TestCase):
    name = "section_comtypes.py"

    def modules(self, control):
        def create(program):
            self.assertEqual(program, PROGRAM)
            return control
        top, client = types.ModuleType("comtypes"), types.ModuleType("comtypes.client")
        top.IUnknown = type("IUnknown", (ctypes.Structure,), {})
        top.client, client.CreateObject = client, create
        return {"comtypes": top, "comtypes.client": client}

    def test_saves_the_picture(self):
        log, opened = [], []
        results = {"CreateEnhMetaFileW": 11, "CloseEnhMetaFile": 12}

        def library(name):
            opened.append(name)
            names = ("CreateEnhMetaFileW", "CloseEnhMetaFile", "DeleteEnhMetaFile", "OleDraw")
            return types.SimpleNamespace(
                **{each: Function(each, log, results.get(each, 0)) for each in names})

        with mock.patch.object(ctypes, "WinDLL", library, create=True), \
                mock.patch.object(ctypes, "OleDLL", library, create=True):
            control, output, end = self.run_sample("ocean.nc", "picture.emf")
        self.assertEqual((control.calls, output, end), (STORY, OUTPUT, None))
        self.assertEqual(opened, ["gdi32", "ole32"])
        self.assertEqual(log[0], ("CreateEnhMetaFileW", None, "picture.emf", None, None))
        self.assertEqual(log[1][:4], ("OleDraw", control, 1, 11))
        bounds = log[1][4]._obj
        self.assertEqual((bounds.left, bounds.top, bounds.right, bounds.bottom), (0, 0, 640, 480))
        self.assertEqual(log[2:], [("CloseEnhMetaFile", 11), ("DeleteEnhMetaFile", 12)])


class Win32com(Samples, unittest.TestCase):
    name = "section_win32com.py"
    # One red pixel: the header, then blue, green, red and a byte that fills.
    DIB = struct.pack("<IiiHHIIiiII", 40, 1, 1, 1, 32, 0, 4, 0, 0, 0, 0) + b"\0\0\xff\0"

    def modules(self, control):
        def dispatch(program):
            self.assertEqual(program, PROGRAM)
            return control
        names = ("pythoncom", "win32con", "win32com", "win32com.client")
        modules = {name: types.ModuleType(name) for name in names}
        modules["win32com"].client = modules["win32com.client"]
        modules["win32com.client"].Dispatch = dispatch
        modules["win32con"].CF_DIB = 8
        vars(modules["pythoncom"]).update(IID_IDataObject="{data}", DVASPECT_CONTENT=1,
                                          TYMED_HGLOBAL=1)

        def get_data(wanted):
            self.assertEqual(wanted, (8, None, 1, -1, 1))
            return types.SimpleNamespace(data=self.DIB)
        source = types.SimpleNamespace(GetData=get_data)
        control.__dict__["_oleobj_"] = types.SimpleNamespace(
            QueryInterface={"{data}": source}.__getitem__)
        return modules

    def test_saves_the_picture(self):
        with tempfile.TemporaryDirectory() as folder:
            picture = Path(folder) / "picture.bmp"
            control, output, end = self.run_sample("ocean.nc", str(picture))
            self.assertEqual((control.calls, output, end), (STORY, OUTPUT, None))
            # A file header of 14 bytes that tells its own length and where the pixels are.
            self.assertEqual(picture.read_bytes(),
                             b"BM" + struct.pack("<IHHI", 58, 0, 0, 54) + self.DIB)


if __name__ == "__main__":
    TYPES, ROOT = sys.argv[1], Path(sys.argv[2])
    unittest.main(argv=sys.argv[:1])
