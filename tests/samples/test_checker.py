"""Tests of the checker itself: it takes what is right and tells what is wrong.

    test_checker.py TYPES ROOT
"""
import re
import sys
import unittest
from pathlib import Path

import check_samples
import type_library
from source_text import code_only

TYPES, ROOT = "", Path()

RIGHT = {
    "vb": """
        ' section.NoSuchMember in a comment
        If section.NcFile("a, b (c") <> 1 Then WScript.Echo section.ErrorMessage : Quit 1
        For i = 1 To section.NumDrawAbleItems : Echo section.ItemName(i) : Next
        section.AddSection 285.25, 32    ' two, three
        Section.ADDSECTION f(1, 2), _
          32
        If section.EndSection = 1 Then section.Draw Else section.ReDraw
        section.UseColorKey = True
        n = section.AdvanceTime(1)""",
    "js": """
        // section.NoSuchMember /* in a comment
        if (section.NcFile("a, \\"b (c") != 1) say(section.ErrorMessage);
        section.AddSection(f(1, 2), [3, 4]);
        section.UseColorKey = !section.UseColorKey;
        if (section.UseColorKey == true) { section.Draw(); }""",
    "cs": """
        if (!Must(section.NcFile(@"c:\\"))) return;
        section.AddColorKey(0f, 8f, Ole(Color.Navy));
        save = () => section.Draw();
        section.UseColorKey = true;""",
    "ps": """
        <# section.NoSuchMember #>
        Must $section.NcFile('it''s, (here')
        "$i $($section.ItemName($i)) and, (more"
        $section.AddColorKey(0, 8, (Ole Navy))   # one, two
        $section.UseColorKey = $true""",
    "py": """
        '''section.NoSuchMember'''
        must(section.NcFile("a, (b"))
        section.AddSection(1,
                           2)   # three
        section.UseColorKey = True""",
    "pas": """
        { section.NoSuchMember } (* section.NoSuchMember *)
        Must(section.NcFile('it''s'));
        if section.EndSection <> 1 then Exit;
        section.Draw;
        section.AddColorKey(0, 8, Navy);
        section.UseColorKey := True;""",
}

WRONG = [
    ("vb", "section.Drow", "no member Drow"),
    ("vb", "section.AddSection 1", "takes 2 arguments, not 1"),
    ("vb", "If x Then section.AddSection 1, 2, 3", "takes 2 arguments, not 3"),
    ("vb", "x = section.ItemName", "takes 1 arguments, not 0"),
    ("vb", "section.NumDrawAbleItems = 3", "cannot be set"),
    ("vb", "section.Draw = 3", "cannot be set"),
    ("vb", 'section.NcFile "a.nc"', "nobody looks"),
    ("vb", "x = 1 : section.EndSection", "nobody looks"),
    ("vb", "With section", "With"),
    ("js", "section.draw();", "no member draw"),
    ("js", "section.Draw;", "needs its brackets"),
    ("js", "x = section.ErrorMessage();", "takes no brackets"),
    ("js", "section.AddSection(f(1, 2));", "takes 2 arguments, not 1"),
    ("js", "x(); section.EndSection();", "nobody looks"),
    ("cs", "section.NcFile = name;", "cannot be set"),
    ("cs", "{ section.SetVarByName(name); }", "nobody looks"),
    ("ps", "$section.EndSection()", "nobody looks"),
    ("ps", '"$($section.ItemNames(1))"', "no member ItemNames"),
    ("ps", "[void] $section.Draw", "needs its brackets"),
    ("py", "section.Draw", "needs its brackets"),
    ("py", "section.AddColorKey(0, 8)", "takes 3 arguments, not 2"),
    ("py", "if x: section.NcFile(x)", "nobody looks"),
    ("pas", "begin section.SetVarByOrder(2); end", "nobody looks"),
    ("pas", "section.ErrorMessage := 'x';", "cannot be set"),
    ("pas", "section.AddSection;", "takes 2 arguments, not 0"),
]


class Checker(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.library = type_library.read(TYPES)
        cls.samples = {path.relative_to(ROOT / "hosts/scripts").as_posix(): path.read_bytes()
                       for path in (ROOT / "hosts/scripts").rglob("*") if path.is_file()}

    def complaints(self, language, code):
        return [text for _, text in check_samples.check_uses(self.library, code, language)]

    def test_takes_what_is_right(self):
        for language, code in RIGHT.items():
            with self.subTest(language):
                self.assertEqual(self.complaints(language, code), [])

    def test_tells_what_is_wrong(self):
        for language, code, words in WRONG:
            with self.subTest(language=language, code=code):
                found = self.complaints(language, code)
                self.assertTrue(any(words in text for text in found), found)

    def test_sees_every_use_in_every_sample(self):
        seen = 0
        for name, data in self.samples.items():
            language = check_samples.LANGUAGE_OF_FILE.get(Path(name).suffix)
            if language is None:
                continue
            text = data.decode("ascii").replace("\r\n", "\n")
            for match in re.finditer(r"\bsection\.([A-Z]\w+)", code_only(text, language)):
                changed = text[:match.start(1)] + "Nonesuch" + text[match.end(1):]
                found = list(check_samples.check_sample(self.library, name, self.encoded(changed,
                                                                                         name)))
                if match[1] == "Move":     # the form's member, not the control's
                    continue
                self.assertIn("the control has no member Nonesuch", [text for _, text in found],
                              f"{name}: {match[0]}")
                seen += 1
        self.assertGreater(seen, 150)

    @staticmethod
    def encoded(text, name):
        data = text.encode("ascii")
        return data.replace(b"\n", b"\r\n") if name.startswith("vb") else data

    def test_sees_a_sample_that_is_changed(self):
        changes = [
            ("section.vbs", b"285.25", b"285.26", "the path is"),
            ("section.js", b"(8, 12,", b"(8, 13,", "the colour key is"),
            ("section.js", b"rgb(70, 130, 180)", b"rgb(70, 131, 180)", "steelblue is not"),
            ("section.vbs", b"Kelvane.KelvaneCtl", b"Kelvane.Control", "is not Kelvane.KelvaneCtl"),
            ("section.hta", b"8A6F972D", b"8A6F972E", "is not the control's"),
            ("csharp/form/SectionHost.cs", b"8A6F972D", b"8A6F972E", "is not the control's"),
            ("delphi/SectionHost.pas", b"8A6F972D", b"8A6F972E", "is not the control's"),
            ("delphi/SectionSteps.dpr", b"section.UseColorKey :=", b"x :=", "not use UseColorKey"),
            ("vb6/SectionForm.frm", b"#1.0#0", b"#1.1#0", "no Object line"),
            ("vb6/SectionForm.frm", b"Begin Kelvane.", b"Begin Other.", "the form has no"),
            ("vb6/Section.vbp", b"3033FD37", b"3033FD38", "is not the control's"),
            ("vba/SectionSteps.bas", b"\r\n", b"\n", "end in CR LF"),
        ]
        for name, old, new, words in changes:
            with self.subTest(name=name, old=old):
                data = self.samples[name]
                self.assertIn(old, data)
                found = [text for _, text in check_samples.check_sample(
                    self.library, name, data.replace(old, new))]
                self.assertTrue(any(words in text for text in found), found)

    def test_does_not_know_every_language(self):
        self.assertEqual([text for _, text in check_samples.check_sample(
            self.library, "section.f90", b"")], ["the language of this file is not known here"])

    def test_reads_the_blocks_of_a_page(self):
        page = ("# T\n\n```vb\nsection.Drow\n```\n\n```\nsection.Drow\n```\n"
                "```js\nsection.Draw;\n```\n```vb\nOn Error Resume Next\nsection.Drow\n```\n")
        self.assertEqual(
            list(check_samples.check_page(self.library, page)),
            [(4, "the control has no member Drow"),
             (11, "Draw is a method and needs its brackets")])


class TypeLibraryText(unittest.TestCase):
    def test_refuses_what_is_no_type_library(self):
        for text in ("", "library Kelvane {1} 1.0 flags 2\n"):
            with self.assertRaises(ValueError):
                type_library.parse(text)

    def test_reads_members(self):
        library = type_library.read(TYPES)
        self.assertEqual(library.members["AddColorKey"].arguments, 3)
        self.assertEqual(library.members["Draw"].arguments, 0)
        self.assertIsNone(library.members["UseColorKey"].arguments)
        self.assertTrue(library.members["UseColorKey"].settable)
        self.assertTrue(library.members["ErrorMessage"].gettable)
        self.assertFalse(library.members["ErrorMessage"].settable)


if __name__ == "__main__":
    TYPES, ROOT = sys.argv[1], Path(sys.argv[2])
    unittest.main(argv=sys.argv[:1])
