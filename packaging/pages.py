"""Makes the pages of the Windows packages from the project's Markdown."""

import os
import re
from pathlib import PurePosixPath

import markdown
from markdown.extensions.toc import TocExtension

_STYLE = """
body { font: 11pt/1.45 "Segoe UI", Tahoma, sans-serif; color: #222; max-width: 52em;
  margin: 2em auto; padding: 0 1.5em; }
h1, h2, h3 { line-height: 1.2; font-weight: 600; }
h2 { border-bottom: 1px solid #ddd; padding-bottom: .2em; margin-top: 1.8em; }
code, pre { font-family: Consolas, "Courier New", monospace; font-size: 10pt; }
pre { background: #f4f6f8; padding: .7em 1em; overflow: auto; }
table { border-collapse: collapse; margin: 1em 0; }
th, td { border: 1px solid #ccc; padding: .3em .7em; text-align: left; vertical-align: top; }
img { max-width: 100%; }
"""

_LINK = re.compile(r'(!?)\[((?:[^\[\]]|\[[^\]]*\])*)\]\(([^()\s]+)\)')


def html_name(place):
    return re.sub(r'\.md$', '.html', place)


def heading_anchor(text, separator):
    """The anchor that a heading is linked by in the Markdown pages."""
    return re.sub(r'[^\w\- ]', '', text.lower()).replace(' ', separator)


def _target(link, source, place, places):
    """Where a link leads in the package; None when what it names is not there."""
    path, _, anchor = link.partition('#')
    if re.match(r'[a-z]+:', link) or not path:
        return link
    wanted = os.path.normpath(source.parent / path)
    for candidate in (wanted, os.path.join(wanted, 'README.md')):
        for shipped, there in places.items():
            if os.path.normpath(shipped) == candidate:
                start = PurePosixPath(place).parent
                return os.path.relpath(html_name(there), start).replace(os.sep, '/') + (
                    '#' + anchor if anchor else '')
    return None


def _with_links(text, source, place, places):
    """The text with its links as they are in the package; others become plain words."""
    def replaced(match):
        picture, words, link = match.groups()
        there = _target(link, source, place, places)
        if there is None:
            return '' if picture else words
        # What is called after its file here is a page there.
        words = re.sub(r'\.md$', '', words)
        return f'{picture}[{words}]({there})'

    # Nothing inside a block of code is a link.
    parts = re.split(r'(^```.*?^```$)', text, flags=re.M | re.S)
    return ''.join(part if part.startswith('```') else _LINK.sub(replaced, part)
                   for part in parts)


def page(text, source, place, places, version):
    """The HTML page of one Markdown text; places maps every shipped source to its place."""
    text = _with_links(text.replace('@VERSION@', version), source, place, places)
    body = markdown.markdown(text, extensions=[
        'tables', 'fenced_code', 'sane_lists', TocExtension(slugify=heading_anchor)])
    title = re.search(r'^# (.+)$', text, re.M)
    return ('<!DOCTYPE html>\n<html lang="en">\n<head>\n<meta charset="utf-8">\n'
            f'<title>{title.group(1) if title else "Kelvane"}</title>\n'
            f'<style>{_STYLE}</style>\n</head>\n<body>\n{body}\n</body>\n</html>\n')
