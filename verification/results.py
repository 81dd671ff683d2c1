"""Readers of the program's result files (docs/en/files.md tells their form). Whatever is read leaves its place."""

import functools
import re

places = []  # where figures were read since the list was emptied, in the words of the pages

AXES = {"X": 0, "Y": 1, "Z": 2, "RX": 3, "RY": 4, "RZ": 5}


def _note(suffix, place):
    text = f"`{suffix}` {place}"
    if text not in places:
        places.append(text)


@functools.lru_cache(maxsize=None)
def _lines(path):
    return path.read_text(encoding="utf-8").splitlines()


def _numbers(line):
    return [float(word) for word in line.split()]


class Static:
    def __init__(self, job, suffix):
        self.suffix = suffix
        self.lines = _lines(job.path(suffix))
        self.places = {line.strip(): number for number, line in enumerate(self.lines)}

    def u(self, node, direction):
        _note(self.suffix, f"u{direction} {node}")
        first = self.places["UX             UY             UZ"] + 1
        values = _numbers(self.lines[first + node - 1])
        assert values[0] == node
        return values[1 + AXES[direction]]

    def _element(self, number):
        """First line of an element."""
        return next(k for k, line in enumerate(self.lines) if re.match(rf"{number}\s+(N=|-)", line))

    def N(self, element):
        _note(self.suffix, f"N {element}")
        first = self._element(element)
        line = self.lines[first] if "N=" in self.lines[first] else self.lines[first + 1]
        return float(line.split("=")[1])

    def along(self, element, label):
        """The 21 values of MYZ (torque), MZX (bending about local y), MXY, Qy, Qz, Fy or Fz of a beam."""
        first = self._element(element)
        line = next(line for line in self.lines[first:] if line.startswith(label))
        return _numbers(line.split(":")[1])

    def force(self, element, label, end):
        _note(self.suffix, f"{label} {element}{end}")
        return self.along(element, label)[0 if end == "i" else -1]

    def reaction(self, node, direction):
        """Force of the structure on the support."""
        _note(self.suffix, f"R{direction} {node}")
        names = {"X": "X向支反力", "Y": "Y向支反力", "Z": "Z向支反力", "RX": "YZ平面内转角向支反力",
                 "RY": "ZX平面内转角向支反力", "RZ": "XY平面内转角向支反力"}
        line = next(line for line in self.lines if line.startswith(f"结点号:{node} "))
        return float(re.search(rf"(?<!\S){names[direction]}\s+(\S+)", line).group(1))


class Modes:
    def __init__(self, job):
        lines = _lines(job.path(".mode"))
        count = int(lines[5].split()[4])
        first = lines.index("Eigen_And_Freq:") + 1
        self._circular = [_numbers(line)[1] for line in lines[first:first + count]]

    def omega(self, mode):
        """rad/s"""
        _note(".mode", f"ω {mode}")
        return self._circular[mode - 1]

    def f(self, mode):
        """Hz, of ω as the file's own f has a digit less"""
        return self.omega(mode) / (2 * 3.141592653589793)

    def period(self, mode):
        return 1.0 / self.f(mode)


class Spectrum:
    def __init__(self, job):
        self.lines = [line.strip() for line in _lines(job.path(".spec"))]

    def u(self, node, direction):
        _note(".spec", f"u{direction} {node}")
        first = self.lines.index("Node_Dis:") + 1
        return _numbers(self.lines[first + node - 1])[1 + AXES[direction]]

    def N(self, bar):
        _note(".spec", f"N {bar}")
        first = self.lines.index("Force:") + 1
        line = next(line for line in self.lines[first:] if re.match(rf"{bar}\s+0\s", line))
        return _numbers(line)[3]

    def participation_mass(self, mode):
        """Effective mass, kg."""
        _note(".spec", f"γ² {mode}")
        first = next(k for k, line in enumerate(self.lines) if line.startswith("各阶振型参与质量")) + 1
        return _numbers(self.lines[first + (mode - 1) // 10])[(mode - 1) % 10]


class Histories:
    def __init__(self, job):
        self.job = job

    def _values(self, suffix, heading, column):
        lines = _lines(self.job.path(suffix))
        steps = int(next(line for line in lines if line.startswith("Total time step")).split(":")[1])
        first = next(k for k, line in enumerate(lines) if line.split() == heading) + 1
        return [float(line.split()[column]) for line in lines[first:first + steps]]

    def u(self, node, direction):
        """Displacements after each step of a ground motion."""
        _note("_HisTime.txt", f"u{direction} {node}")
        return self._values("_HisTime.txt", ["Node", "No.", str(node)], 2 + AXES[direction])

    def N(self, element):
        _note("_HisTime.txt", f"N {element}")
        return self._values("_HisTime.txt", ["Mem", "No.", str(element)], 2)

    def output(self, node):
        """Displacements along X after each step of a force, from the file of that node alone."""
        suffix = f"_{node}_node.txt"
        _note(suffix, f"uX {node}")
        return self._values(suffix, ["X-direction", "Disp(m):"], 2)


def peak(history):
    """The value of the largest magnitude."""
    return max(history, key=abs)
