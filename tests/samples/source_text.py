"""Source text without what is no code: comments become blanks and the contents of texts become a
filler, so that every position stays what it was."""
import re

FILLER = "x"

# Patterns of comments and texts by language, tried in order at each place.
_C_STYLE = [("comment", r"//[^\n]*|/\*.*?\*/"),
            ("text", r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'')]
_PATTERNS = {
    "vb": [("comment", r"'[^\n]*"), ("text", r'"(?:""|[^"\n])*"')],
    "js": _C_STYLE,
    "cs": [("text", r'@"(?:""|[^"])*"')] + _C_STYLE,
    "py": [("text", r'"""(?:\\.|.)*?"""'), ("comment", r"#[^\n]*"),
           ("text", r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'')],
    "ps": [("text", r"@'\n.*?\n'@"), ("comment", r"<#.*?#>|(?<![\w`])#[^\n]*"),
           ("text", r"'(?:''|[^'])*'"), ("expanding", r'"(?:`.|[^"`])*"')],
    "pas": [("comment", r"\{.*?\}|\(\*.*?\*\)|//[^\n]*"), ("text", r"'(?:''|[^'\n])*'")],
}
LANGUAGES = tuple(_PATTERNS)
CASE_BLIND = ("vb", "ps", "pas")


def _blank(text, filler):
    return re.sub(r"[^\n]", filler, text)


def _expanding(text):
    """The inside of a PowerShell text in double quotes: only what stands in $(...) is code."""
    result, depth, i = [], 0, 0
    while i < len(text):
        if depth == 0 and text.startswith("$(", i):
            result.append("$(")
            depth, i = 1, i + 2
            continue
        depth += {"(": 1, ")": -1}.get(text[i], 0) if depth else 0
        result.append(text[i] if depth or text[i] in ")\n" else FILLER)
        i += 1
    return "".join(result)


def code_only(text, language):
    names, patterns = zip(*_PATTERNS[language])
    scanner = re.compile("|".join(f"({pattern})" for pattern in patterns), re.DOTALL)

    def replace(match):
        kind = names[match.lastindex - 1]
        whole = match[0]
        if kind == "comment":
            return _blank(whole, " ")
        if kind == "expanding":
            return FILLER + _expanding(whole[1:-1]) + FILLER
        return _blank(whole, FILLER)

    code = scanner.sub(replace, text)
    if language == "vb":
        code = re.sub(r" _\n", "   ", code)
    return code


def script_of_page(text):
    """The page with everything but its scripts blanked out."""
    result, end = [], 0
    for match in re.finditer(r"(?<=<script type=\"text/javascript\">).*?(?=</script>)", text,
                             re.DOTALL):
        result.append(_blank(text[end:match.start()], " "))
        result.append(match[0])
        end = match.end()
    result.append(_blank(text[end:], " "))
    return "".join(result)


def blocks_of_page(text, language_of):
    """(language, text) of the fenced blocks of a Markdown page, each at its own line numbers.
    language_of gives the language of a fence's name; blocks of any other name are left out."""
    for match in re.finditer(r"^```(\w+)\n(.*?)^```", text, re.DOTALL | re.MULTILINE):
        language = language_of.get(match[1])
        if language:
            yield language, _blank(text[:match.start(2)], " ") + match[2]
