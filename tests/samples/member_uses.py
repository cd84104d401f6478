"""Where a program uses the members of the control, which every sample calls "section"."""
import re
from dataclasses import dataclass

from source_text import CASE_BLIND, code_only


@dataclass
class Use:
    member: str
    kind: str                # "call", "get" or "put"
    arguments: list[str]     # of a call, their text
    ignored: bool            # a call whose result goes nowhere
    line: int


_ASSIGNMENT = {"pas": re.compile(r"\s*:="), "vb": re.compile(r"\s*=")}
_ASSIGNMENT_ELSE = re.compile(r"\s*=(?![=>])")
# What stands in front of a statement.
_STATEMENT = {
    "vb": re.compile(r"(?:^|:|\bThen\b|\bElse\b)[ \t]*\Z", re.IGNORECASE | re.MULTILINE),
    "pas": re.compile(r"(?:;|\b(?:begin|then|else|do|repeat|try)\b)\s*\Z", re.IGNORECASE),
    "js": re.compile(r"[;{}]\s*\Z"),
    "cs": re.compile(r"[;{}]\s*\Z"),
    "py": re.compile(r"(?:^|[:;])[ \t]*\Z", re.MULTILINE),
    "ps": re.compile(r"(?:^|[;{}])[ \t]*\Z", re.MULTILINE),
}


def _arguments(text, code, start, end):
    """What stands in text[start:end], split at the commas of the code that stand in no bracket."""
    end = start + len(code[start:end].rstrip())
    parts, depth, first = [], 0, start
    for i in range(start, end):
        depth += (code[i] in "([{") - (code[i] in ")]}")
        if code[i] == "," and depth == 0:
            parts.append(text[first:i].strip())
            first = i + 1
    return parts + [text[first:end].strip()] if end > start else []


def _closing(code, opening):
    depth = 0
    for i in range(opening, len(code)):
        depth += (code[i] == "(") - (code[i] == ")")
        if depth == 0:
            return i
    raise ValueError("a bracket is not closed")


def uses(text, language):
    """All uses of members, in order."""
    code = code_only(text, language)
    flags = re.IGNORECASE if language in CASE_BLIND else 0
    for match in re.finditer(r"(?<![\w.\"])section\.(\w+)", code, flags):
        line = code.count("\n", 0, match.start()) + 1
        before, end = code[:match.start()].removesuffix("$"), match.end()
        statement = _STATEMENT[language].search(before) is not None
        member = match[1]
        if code.startswith("(", end):
            closing = _closing(code, end)
            yield Use(member, "call", _arguments(text, code, end + 1, closing), statement, line)
            continue
        assignment = _ASSIGNMENT.get(language, _ASSIGNMENT_ELSE).match(code, end)
        if assignment and (statement or language != "vb"):
            yield Use(member, "put", [], False, line)
        elif statement and language == "vb":
            rest = re.compile(r"[^\n:]*?(?=\n|:|\bElse\b|$)").match(code, end)
            yield Use(member, "call", _arguments(text, code, end, rest.end()), True, line)
        else:
            # In these languages the call of a method without arguments may look like a property.
            yield Use(member, "get", [], statement, line)
