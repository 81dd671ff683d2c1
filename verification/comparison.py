"""Computed figures against their references, line by line."""

from dataclasses import dataclass

import results
from structure import INCH, KIP

UNITS = {"": 1.0, "m": 1.0, "s": 1.0, "rad/s": 1.0, "Hz": 1.0, "in": INCH,
         "kip": KIP * 1e3, "kip·in": KIP * 1e3 * INCH}
KINDS = ("published", "closed", "exact", "rough", "own", "method")


@dataclass
class Line:
    """A figure beside one reference. `tolerance` None: shown, but the method cannot reach it; not counted."""

    key: str
    name: tuple
    unit: str
    kind: str
    published: str
    reference: float
    computed: float  # None where the program gives no result, as it should
    tolerance: float
    absolute: bool
    places: tuple
    expected: str = ""  # warning that tells why there is no result

    @property
    def difference(self):
        if self.computed is None:
            return None
        apart = self.computed - self.reference
        return apart if self.absolute or self.reference == 0 else apart / abs(self.reference)

    @property
    def passed(self):
        """None where the line is not counted."""
        if self.expected:
            return self.tolerance == 0
        if self.tolerance is None:
            return None
        return abs(self.difference) <= self.tolerance


class Comparison:
    """What a problem is given to compare with; its quantities stand in problems.toml by their keys."""

    def __init__(self, number, problem):
        self.number = number
        self.problem = problem
        self.lines = []
        self.rows = {row["key"]: row for row in problem["rows"]}

    def __call__(self, key, computed, **references):
        row = self.rows[key]
        places = tuple(results.places)
        results.places.clear()
        printed = str(row.get("published", ""))
        if "in" in row:
            references["published"] = float(row["published"]) * UNITS[row["in"]]
            printed = f'{row["published"]} {row["in"]}'.strip()
        for kind in KINDS:
            if kind in references:
                absolute = kind in row.get("absolute", [])
                self.lines.append(Line(key, _both(row["name"]), row.get("unit", ""), kind, printed, references[kind],
                                       computed, self._tolerance(row, kind), absolute, places))
                printed = ""

    def refused(self, key, log, warning, exact):
        """The method has no answer: the program says so by this warning."""
        row = self.rows[key]
        line = Line(key, _both(row["name"]), row.get("unit", ""), "exact", str(row.get("published", "")), exact, None,
                    0 if f"[{warning}]" in log else 1, False, (), warning)
        self.lines.append(line)

    def _tolerance(self, row, kind):
        tolerances = {**self.problem.get("tolerance", {}), **row.get("tolerance", {})}
        if kind in self.problem.get("limit", []) + row.get("limit", []):
            return None
        return tolerances[kind]

    def finish(self):
        compared = {line.key for line in self.lines}
        missing = [key for key in self.rows if key not in compared]
        if missing:
            raise SystemExit(f"{self.number}: not compared: {', '.join(missing)}")
        order = list(self.rows)
        self.lines.sort(key=lambda line: order.index(line.key))

    @property
    def failed(self):
        return [line for line in self.lines if line.passed is False]


def _both(name):
    return (name, name) if isinstance(name, str) else tuple(name)
