"""Holds the samples, and the code in the documentation, against the control's type library.

    check_samples.py TYPES ROOT

TYPES is the frozen text of the type library, ROOT the folder of the project. Tells every use of
the control that would fail in its host, and every sample that does not do what all of them do.
Exit status 1 when there is any.
"""
import re
import sys
from pathlib import Path
from xml.etree import ElementTree

import type_library
from member_uses import uses
from source_text import CASE_BLIND, blocks_of_page, script_of_page

LANGUAGE_OF_FILE = {".vbs": "vb", ".bas": "vb", ".frm": "vb", ".txt": "vb", ".js": "js",
                    ".hta": "js", ".cs": "cs", ".ps1": "ps", ".py": "py", ".pas": "pas",
                    ".dpr": "pas"}
LANGUAGE_OF_FENCE = {"vb": "vb", "vbs": "vb", "vbscript": "vb", "vba": "vb", "js": "js",
                     "javascript": "js", "csharp": "cs", "cs": "cs", "powershell": "ps",
                     "python": "py", "pascal": "pas", "delphi": "pas"}
# What has no code of the control: projects, notes.
OTHER_FILES = {".vbp", ".csproj", ".md", ".gitattributes"}
# What hosts add to the control's own members.
MEMBERS_OF_HOSTS = {".frm": {"move", "object"}, ".hta": {"object"}, ".py": {"_oleobj_"}}
# Methods that give 1 or -1: a program that does not look goes on with the data of before.
TELLING = {"NcFile", "KewFile", "EndSection", "SetVarByName", "SetVarByOrder"}
# What every sample does.
STORY = {"NcFile", "NewSection", "AddSection", "EndSection", "SetVarByName", "NewColorKey",
         "AddColorKey", "UseColorKey", "Draw", "AdvanceTime", "ErrorMessage"}
PATH = [("285.25", "32"), ("292.75", "35.1")]
KEY = [("0", "8", "navy"), ("8", "12", "steelblue"), ("12", "16", "khaki"),
       ("16", "20", "orange"), ("20", "30", "firebrick")]
COLOURS = {"navy": (0, 0, 128), "steelblue": (70, 130, 180), "khaki": (240, 230, 140),
           "orange": (255, 165, 0), "firebrick": (178, 34, 34)}
KNOWS_COLOURS = {".cs", ".ps1"}     # .NET has these names itself
STDOLE = "00020430-0000-0000-C000-000000000046"
NO_GUID = "00000000-0000-0000-0000-000000000000"
GUID = re.compile(r"\b[0-9A-Fa-f]{8}(?:-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}\b")


def check_uses(library, text, language, own=frozenset(), telling=TELLING):
    """What is wrong with each use of a member, as (line, complaint). own are members that the host
    adds, telling the methods whose results must be looked at."""
    blind = language in CASE_BLIND
    members = {(name.lower() if blind else name): member
               for name, member in library.members.items()}
    for use in uses(text, language):
        if use.member.lower() in own:
            continue
        member = members.get(use.member.lower() if blind else use.member)
        if member is None:
            yield use.line, f"the control has no member {use.member}"
        elif member.arguments is None:
            if use.kind == "call":
                yield use.line, f"{use.member} is a property and takes no brackets"
            elif use.kind == "put" and not member.settable:
                yield use.line, f"{use.member} cannot be set"
        elif use.kind == "put":
            yield use.line, f"{use.member} is a method and cannot be set"
        else:
            if use.kind == "get" and language not in ("vb", "pas"):
                yield use.line, f"{use.member} is a method and needs its brackets"
            elif len(use.arguments) != member.arguments:
                yield use.line, (f"{use.member} takes {member.arguments} arguments, "
                                 f"not {len(use.arguments)}")
            if use.ignored and member.name in telling:
                yield use.line, f"nobody looks at what {use.member} gives"
    if re.search(r"^\s*With\s+section\b", text, re.IGNORECASE | re.MULTILINE):
        yield 1, "members behind a With are not seen here; write the name"


def plain(argument):
    """32f and 32.0 are 32; Ole(Color.SteelBlue), (Ole SteelBlue) and STEEL_BLUE are steelblue."""
    number = re.fullmatch(r"(\d+(?:\.\d*[1-9])?)(?:\.0*)?f?", argument)
    if number:
        return number[1]
    return re.sub(r"[^a-z]", "", re.split(r"[ .]", argument)[-1].lower())


def check_story(text, language, suffix):
    found = list(uses(text, language))
    names = {use.member.lower() for use in found}
    for name in sorted(STORY):
        if name.lower() not in names:
            yield 1, f"the sample does not use {name}"
    def arguments(name):
        return [tuple(map(plain, use.arguments)) for use in found
                if use.kind == "call" and use.member.lower() == name.lower()]
    if arguments("AddSection") != PATH:
        yield 1, f"the path is {arguments('AddSection')}"
    if arguments("AddColorKey") != KEY:
        yield 1, f"the colour key is {arguments('AddColorKey')}"
    if suffix in KNOWS_COLOURS:
        return
    for name, parts in COLOURS.items():
        spelled = name.replace("steelblue", "steel_?blue")
        numbers = r"\b\D+(?:256 \* |65536 \* )?".join(f"{part}" for part in parts)
        if not re.search(rf"\b{spelled} = \D*{numbers}\b", text, re.IGNORECASE):
            yield 1, f"{name} is not {parts}"


def check_identity(library, text, suffix):
    """Names and numbers that lead to the control."""
    allowed = {library.control_id, NO_GUID}
    if suffix in (".frm", ".vbp"):
        allowed = {library.library, STDOLE}
    for guid in GUID.findall(text):
        if guid.upper() not in allowed:
            yield 1, f"{guid} is not the control's"
    program = f"{library.name}.{library.control}"
    for name in re.findall(rf"\b{library.name}\.\w+", text):
        if name != program:
            yield 1, f"{name} is not {program}"
    reference = f"{{{library.library}}}#{library.version}#0"
    if suffix in (".frm", ".vbp") and not re.search(
            rf'^Object ?= ?"?{re.escape(reference)}"?; "?{library.control}.ocx"?\r?$', text,
            re.MULTILINE):
        yield 1, f"there is no Object line with {reference}"
    if suffix == ".frm" and f"Begin {program} section" not in text:
        yield 1, f"the form has no {program}"


def check_project(samples, path):
    """The files that a project names."""
    text = path.read_text(encoding="ascii")
    named = re.findall(r"^Form=(.*)$", text, re.MULTILINE)
    if path.suffix == ".csproj":
        named = [item.get("Include") for item in ElementTree.fromstring(text).iter("Compile")]
    for name in named:
        if not (path.parent / name.strip().replace("\\", "/")).is_file():
            yield f"{path.relative_to(samples)}: there is no {name}"


def check_sample(library, name, data):
    """Everything about one file of the samples."""
    suffix = Path(name).suffix or Path(name).name
    if suffix not in LANGUAGE_OF_FILE and suffix not in OTHER_FILES:
        yield 1, "the language of this file is not known here"
        return
    visual_basic = "vb6/" in name or "vba/" in name
    if visual_basic and data.count(b"\r\n") != data.count(b"\n"):
        yield 1, "Visual Basic wants lines that end in CR LF"
    text = data.decode("ascii").replace("\r\n", "\n")
    yield from check_identity(library, text, suffix)
    language = LANGUAGE_OF_FILE.get(suffix)
    if language is None:
        return
    code = script_of_page(text) if suffix == ".hta" else text
    yield from check_uses(library, code, language, MEMBERS_OF_HOSTS.get(suffix, frozenset()))
    if any(use.member.lower() == "ncfile" for use in uses(code, language)):
        yield from check_story(code, language, suffix)


def check_page(library, text):
    """The code blocks of a page of documentation, each by itself. They may be mere parts of a
    program; one that goes on after errors may be there to show them."""
    for language, code in blocks_of_page(text, LANGUAGE_OF_FENCE):
        if "On Error Resume Next" not in code:
            yield from check_uses(library, code, language, set().union(*MEMBERS_OF_HOSTS.values()),
                                  telling=frozenset())


def check_all(library, root):
    samples = root / "hosts" / "scripts"
    read_me = (samples / "README.md").read_text(encoding="ascii")
    families = set()
    for path in sorted(path for path in samples.rglob("*") if path.is_file()):
        name = path.relative_to(samples).as_posix()
        data = path.read_bytes()
        for line, complaint in check_sample(library, name, data):
            yield f"{path.relative_to(root)}:{line}: {complaint}"
        if path.suffix in (".csproj", ".vbp"):
            yield from check_project(samples, path)
        if re.search(rb"section\.NcFile\(", data, re.IGNORECASE):
            families.add(name.split("/")[0])
        if path.suffix in LANGUAGE_OF_FILE and path.name not in read_me:
            yield f"hosts/scripts/README.md: says nothing of {name}"
    for entry in sorted(samples.iterdir()):
        if entry.is_dir() and entry.name not in families:
            yield f"hosts/scripts/{entry.name}: no sample draws anything"
    pages = [root / "README.md", samples / "README.md", *sorted((root / "docs").rglob("*.md"))]
    for path in pages:
        for line, complaint in check_page(library, path.read_text(encoding="utf-8")):
            yield f"{path.relative_to(root)}:{line}: {complaint}"


def main(arguments):
    library = type_library.read(arguments[0])
    complaints = list(check_all(library, Path(arguments[1])))
    print("\n".join(complaints))
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
