#!/usr/bin/env python3
"""checkGuide.py GUIDE TYPES: whether the programmer's guide is whole.

GUIDE is the folder of its pages, TYPES the text of the control's type library. Every member has a
section in members.md that begins with its signature, the examples use members that exist, every
page is reached from README.md, and every link within the project leads somewhere.
"""

import pathlib
import re
import sys

BASIC = {"BSTR": "String", "long": "Long", "float": "Single", "VARIANT_BOOL": "Boolean",
         "VARIANT": "Variant", "OLE_COLOR": "OLE_COLOR"}
MEMBER = re.compile(r"  \d+ (method|get|put) (\w+) (\w+)\((.*)\) at \d+$")
# The names that the control goes by in the examples.
CONTROL = re.compile(r"(?<![\"\w])(?:section|Section1|axSection)\s*\.\s*(?:get_|put_)?([A-Za-z]+)")
# What a form adds to every control that it holds.
FORM = {"Left", "Top", "Width", "Height", "Visible", "Move", "Align", "Dock", "Parent", "Object",
        "object", "OleObject", "DefaultDispatch", "CreateControl", "GetOcx", "SetBounds", "Handle"}


def signatures(types):
    """The members as Basic declares them, by name."""
    found, settable = {}, set()
    late = types.split("interface (direct)")[0]
    for line in late.splitlines():
        match = MEMBER.match(line)
        if not match:
            continue
        kind, result, name, parameters = match.groups()
        if kind == "put":
            settable.add(name)
        elif kind == "get":
            found[name] = f"`Property {name} As {BASIC[result]}`"
        else:
            pairs = [pair.split(" ") for pair in parameters.split(", ") if pair]
            arguments = ", ".join(f"{given} As {BASIC[type_]}" for type_, given in pairs)
            found[name] = (f"`Sub {name}({arguments})`" if result == "void"
                           else f"`Function {name}({arguments}) As {BASIC[result]}`")
    for name, text in found.items():
        if text.startswith("`Property") and name not in settable:
            found[name] = text + " (read-only)"
    return found


def anchors(page):
    """The anchors of a page's headings, as viewers of Markdown make them."""
    headings = re.findall(r"^#+ (.*)$", page.read_text(encoding="utf-8"), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def link_problems(page):
    text = re.sub(r"^```.*?^```", "", page.read_text(encoding="utf-8"), flags=re.M | re.S)
    for target in re.findall(r"\]\(([^)\s]+)\)", text):
        if "://" in target:
            continue
        name, _, anchor = target.partition("#")
        file = (page.parent / name).resolve() if name else page
        if not file.exists():
            yield f"{page.name}: {target} leads nowhere"
        elif anchor and anchor not in anchors(file):
            yield f"{page.name}: {target} has no such heading"


def member_problems(page, members):
    text = page.read_text(encoding="utf-8")
    sections = dict(re.findall(r"^## (\w+)$\n+(.*)$", text, re.MULTILINE))
    for name, signature in members.items():
        if name not in sections:
            yield f"{page.name}: nothing about {name}"
        elif sections[name] != signature:
            yield f"{page.name}: {name} is {signature}, not {sections[name]}"


def example_problems(page, members):
    known = {name.lower() for name in members} | {name.lower() for name in FORM}
    for block in re.findall(r"^```\w+\n(.*?)^```", page.read_text(encoding="utf-8"), re.M | re.S):
        for used in CONTROL.findall(block):
            if used.lower() not in known:
                yield f"{page.name}: an example uses {used}, which is no member"


def problems(guide, types):
    members = signatures(types)
    if not members:
        yield "the text of the type library has no members"
    index = (guide / "README.md").read_text(encoding="utf-8")
    yield from member_problems(guide / "members.md", members)
    for page in sorted(guide.glob("*.md")):
        if page.name != "README.md" and f"({page.name}" not in index:
            yield f"README.md: no link to {page.name}"
        yield from link_problems(page)
        yield from example_problems(page, members)


def main():
    guide, types = (pathlib.Path(given) for given in sys.argv[1:3])
    found = list(problems(guide, types.read_text(encoding="utf-8")))
    print("\n".join(found) or "the guide is whole")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
