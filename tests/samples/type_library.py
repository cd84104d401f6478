"""The control's type library, read from the text that the tests freeze it in."""
import re
from dataclasses import dataclass, field

MEMBER = re.compile(r"^  \d+ (method|get|put) (?:[\w ]+ )?(\w+)\((.*)\) at \d+", re.MULTILINE)


@dataclass
class Member:
    name: str
    arguments: int | None = None    # of a method; None for a property
    gettable: bool = False
    settable: bool = False


@dataclass
class TypeLibrary:
    name: str
    library: str                    # GUIDs, upper case, without braces
    version: str
    control: str
    control_id: str
    members: dict[str, Member] = field(default_factory=dict)


def parse(text):
    """The library and the members of its dispatch interface; ValueError when the text has none."""
    library = re.search(r"^library (\w+) \{([-\w]+)\} ([\d.]+)", text, re.MULTILINE)
    control = re.search(r"^coclass (\w+) \{([-\w]+)\}", text, re.MULTILINE)
    interface = re.search(r"^dispatch _\w+ .*\n((?:  .*\n)+)", text, re.MULTILINE)
    if not (library and control and interface):
        raise ValueError("no type library with a control and its interface")
    found = TypeLibrary(library[1], library[2].upper(), library[3], control[1], control[2].upper())
    for kind, name, arguments in MEMBER.findall(interface[1]):
        member = found.members.setdefault(name, Member(name))
        if kind == "method":
            member.arguments = len(arguments.split(",")) if arguments else 0
        else:
            member.gettable |= kind == "get"
            member.settable |= kind == "put"
    if not found.members:
        raise ValueError("the control has no members")
    return found


def read(path):
    with open(path, encoding="utf-8") as file:
        return parse(file.read())
