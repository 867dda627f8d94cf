"""What bench/compare prints: rows of times with their targets, and the tables they stand in."""

import sys
from dataclasses import dataclass
from statistics import median


@dataclass
class Row:
    title: str
    size: int
    ours: float
    theirs: float = None
    ratios: list = None
    target: float = None
    at_least: bool = False  # the target is a lower bound of the ratio
    mpfr: float = None

    def ratio(self):
        return median(self.ratios)

    def met(self):
        if self.target is None:
            return True
        return self.ratio() >= self.target if self.at_least else self.ratio() <= self.target

    def verdict(self):
        return "" if self.target is None else "ok" if self.met() else "MISSED"

    def verdicts(self):
        """Whether each target of the row is met: one, or none."""
        return [] if self.target is None else [self.met()]


@dataclass
class TimeRow(Row):
    """Its target is the most milliseconds that ours may take."""

    def met(self):
        return self.target is None or self.ours <= 1e6 * self.target


def show_time(nanoseconds):
    if nanoseconds is None:
        return ""
    return f"{nanoseconds:,.1f}" if nanoseconds < 100 else f"{nanoseconds:,.0f}"


def show_ratio(ratio):
    return f"{ratio:.3f}" if ratio < 10 else f"{ratio:.1f}"


class Table:
    """Prints rows as they come, for a terminal or as Markdown. Text columns stand to the left."""

    def __init__(self, markdown, columns):
        self.markdown = markdown
        self.columns = columns
        self.add([title for title, width in columns])
        if markdown:
            self.add([":--" if width < 0 else "--:" for title, width in columns])

    def add(self, cells):
        if self.markdown:
            print("| " + " | ".join(cells) + " |")
        else:
            print("  ".join(cell.ljust(-width) if width < 0 else cell.rjust(width)
                            for cell, (title, width) in zip(cells, self.columns)).rstrip())
        sys.stdout.flush()


def ratio_cells(row, bound):
    """Ratio, spread, target and verdict. A row without ratios may have a target all the same."""
    ratio, spread = "", ""
    if row.ratios:
        ratio = show_ratio(row.ratio())
        spread = f"{show_ratio(min(row.ratios))} - {show_ratio(max(row.ratios))}"
    target = "" if row.target is None else f"{bound} {row.target:,}"
    return [ratio, spread, target, row.verdict()]


def print_heading(title, markdown):
    print(f"\n### {title}\n" if markdown else f"\n{title}")
