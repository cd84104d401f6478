"""Tables of figures with their targets, as text or as Markdown."""


def number(value):
    """Three digits, as a person writes them."""
    if value is None:
        return ""
    if isinstance(value, str):
        return value
    size = abs(value)
    if size >= 1000:
        return f"{value:,.0f}"
    if size >= 100:
        return f"{value:.0f}"
    if size >= 10:
        return f"{value:.1f}"
    if size >= 1:
        return f"{value:.2f}"
    if size >= 0.01:
        return f"{value:.3f}"
    return f"{value:.2g}"


class Target:
    """A figure's bound: at most, or at least."""

    def __init__(self, bound, least=False):
        self.bound, self.least = bound, least

    def text(self):
        return ("at least " if self.least else "at most ") + number(self.bound)

    def verdict(self, value):
        met = value >= self.bound if self.least else value <= self.bound
        return "met" if met else "MISSED"


class Table:
    """Rows of cells under a heading; a row may end with a figure that has a target."""

    def __init__(self, title, columns, text=""):
        self.title, self.columns, self.text = title, list(columns), text
        self.rows = []
        self.missed = 0
        self.judged = 0

    def add(self, *cells, figure=None, target=None):
        row = [number(cell) for cell in cells]
        if figure is not None:
            row.append(number(figure))
            if target is not None:
                verdict = target.verdict(figure)
                self.judged += 1
                self.missed += verdict == "MISSED"
                row += [target.text(), verdict]
        self.rows.append(row + [""] * (len(self.columns) - len(row)))

    def markdown(self):
        lines = [f"## {self.title}", ""]
        if self.text:
            lines += [self.text, ""]
        lines.append("| " + " | ".join(self.columns) + " |")
        lines.append("|---|" + "---:|" * (len(self.columns) - 1))
        lines += ["| " + " | ".join(row) + " |" for row in self.rows]
        return "\n".join(lines) + "\n"

    def plain(self):
        widths = [max(len(row[n]) for row in [self.columns, *self.rows])
                  for n in range(len(self.columns))]
        def line(row):
            cells = [row[0].ljust(widths[0])]
            cells += [cell.rjust(width) for cell, width in zip(row[1:], widths[1:])]
            return "  ".join(cells).rstrip()
        return "\n".join([self.title, line(self.columns), *map(line, self.rows)]) + "\n"
