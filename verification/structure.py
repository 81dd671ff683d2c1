"""Job files written from short descriptions.

Nodes in m with Z upwards, areas in mm², second moments in mm⁴, loads in kN and kN·m. Six digits of a restraint are
X Y Z RX RY RZ, 1 = held. Nodes and members are numbered in the order given, from 1.
"""

import json
import math

import results

E = 2.06e11  # Pa, the program's one material
G = E / 2.6
RHO = 7900.0  # kg/m³
GRAVITY = 9.81  # m/s², turns loads into mass

INCH = 0.0254  # m
KIP = 4.4482216152605  # kN
KSI = 6.894757293168e6  # Pa

FREE = "000000"
CLAMPED = "111111"
HINGED = "111000"
IN_PLANE = "010101"  # free in the plane XZ


def mass_load(kilograms):
    """The load that becomes this mass, kN."""
    return kilograms * GRAVITY / 1000.0


class Job:
    """A structure with its loads and analyses; after its run also its results."""

    def __init__(self, name):
        self.name = name
        self.nodes = []
        self.sections = []
        self.elements = []
        self.loads = []
        self.analyses = []
        self.files = {}  # suffix: text of an input beside the job file
        self.folder = None

    def node(self, x, y, z, restraint=FREE, pinned=False):
        identity = len(self.nodes) + 1
        self.nodes.append({"id": identity, "x": x, "y": y, "z": z, "joint": "pinned" if pinned else "rigid",
                           "restraint": restraint})
        return identity

    def section(self, area, Iy=0.0, Iz=0.0, Ix=0.0, shape=None):
        """Of a bar with its area alone, of a beam with its second moments."""
        identity = str(len(self.sections) + 1)
        self.sections.append({"id": identity, "shape": shape or (2 if Iy else 3), "area": area,
                              "Ix": Ix, "Iy": Iy, "Iz": Iz})
        return identity

    def beam(self, i, j, section):
        return self._element("beam", i, j, section)

    def bar(self, i, j, section):
        return self._element("bar", i, j, section)

    def _element(self, kind, i, j, section):
        self.elements.append({"type": kind, "i": i, "j": j, "section": section})
        return len(self.elements)

    def load(self, node, direction, value, case=0):
        self.loads.append({"case": case, "node": node, "direction": direction, "value": value})

    def mass(self, node, kilograms):
        self.load(node, "Z", mass_load(kilograms), case=1)

    def line(self, start, end, count, section, first=FREE, last=FREE, inner=FREE):
        """`count` equal members on a straight line; its nodes. An end is a restraint, or a node that is there."""
        nodes = []
        for k in range(count + 1):
            place = first if k == 0 else last if k == count else inner
            if isinstance(place, str):
                place = self.node(*(a + (b - a) * k / count for a, b in zip(start, end)), place)
            nodes.append(place)
        for i, j in zip(nodes, nodes[1:]):
            self.beam(i, j, section)
        return nodes

    def row_of_bars(self, stiffnesses, masses, y=0.0):
        """A shear building lying down: bars of 1 m along X are the storeys (N/m), masses (kg) sit at their far ends."""
        nodes = [self.node(0, y, 0, HINGED, pinned=True)]
        for storey, stiffness in enumerate(stiffnesses, 1):
            nodes.append(self.node(storey, y, 0, "011000", pinned=True))
            self.bar(nodes[-2], nodes[-1], self.section(stiffness / E * 1e6))
        for node, kilograms in zip(nodes[1:], masses):
            self.mass(node, kilograms)
        return nodes

    def oscillator(self, period, y=0.0):
        """A bar of 1 m along X with 10 t at its end, its own mass allowed for; the node that moves."""
        square = (2 * math.pi / period) ** 2
        area = square * 1e4 / (E - RHO * square / 3)
        foot = self.node(0, y, 0, HINGED, pinned=True)
        head = self.node(1, y, 0, "011000", pinned=True)
        self.bar(foot, head, self.section(area * 1e6))
        self.mass(head, 1e4)
        return head

    def static(self):
        self.analyses.append({"type": "static", "nonlinear": False, "combination": {"0": 1}})

    def nonlinear(self, tolerance=1e-9):
        self.analyses.append({"type": "static", "nonlinear": True, "criterion": "force_rel", "tolerance": tolerance,
                              "max_iterations": 20000, "combination": {"0": 1}})

    def _masses(self):
        return {"1": 1} if any(load["case"] == 1 for load in self.loads) else {}

    def modes(self, count, **settings):
        self.analyses.append({"type": "modal", "modes": count, "root_check": "compare",
                              "combination": self._masses(), **settings})

    def spectrum(self, intensity, level, site_class, zone_group, damping, modes, rule="SRSS", direction=(1, 0, 0)):
        self.analyses.append({"type": "spectrum", "modes": modes, "direction": list(direction), "intensity": intensity,
                              "level": level, "site_class": site_class, "zone_group": zone_group, "damping": damping,
                              "modal_combination": rule, "mesh_division": 2, "combination": self._masses()})

    def newmark(self, damping, **settings):
        self.analyses.append({"type": "time_history", "method": "newmark", "alpha": 0.25, "delta": 0.5,
                              "damping": list(damping), "combination": self._masses(), **settings})

    def pulse(self, node, value, step, duration, damping=(0, 0), peak_time=None, unload_time=None):
        """Newmark under a force along X: a triangle with its peak time, or a rectangle with the time of its end."""
        impulse = {"shape": "rectangular" if peak_time is None else "triangular",
                   "loads": [{"node": node, "direction": "X", "peak": value}],
                   "time_step": step, "duration": duration + 1e-6}
        if peak_time is None:
            impulse["unload_time"] = unload_time + 1e-6  # the number of blocks is truncated
        else:
            impulse["peak_time"] = peak_time
        self.newmark(damping, load="nodal_force", impulse=impulse, outputs=_output(node))

    def ground_motion(self, peak, step, duration, damping, record=None, axis=None, direction="X", **settings):
        """Newmark under the standard record, or under one of its own, along an axis or in an oblique direction."""
        quake = {"time_step": step, "duration": duration + step / 20}
        if axis:
            quake.update(mode="oblique", oblique_axis=list(axis), peaks={"oblique": peak})
        else:
            quake.update(mode="principal", directions=[direction], peaks={direction: peak})
        if record:
            self.files[f"_{direction}acc.txt"] = "\n".join(f"{value:.9g}" for value in record) + "\n"
            settings["from_file"] = True
        self.newmark(damping, load="ground_motion", earthquake=quake, **settings)

    def load_text(self, node, forces):
        """Forces along X (kN), one for each step, that Wilson's method and Newmark's from a file read."""
        blocks = [f"{node} {value:.9g} 0 0\n##\n" for value in forces]
        self.files["impulseload.log"] = "/IMPULSELOAD/\n" + "".join(blocks) + "/END/\n"

    def newmark_of_text(self, node, step, duration, damping=(0, 0)):
        self.newmark(damping, load="nodal_force", from_file=True, outputs=_output(node),
                     general_load={"time_step": step, "duration": duration + step / 20})

    def wilson_of_text(self, node, step, duration, damping=(0, 0), theta=1.4):
        self.analyses.append({"type": "time_history", "method": "wilson", "theta": theta, "damping": list(damping),
                              "time_step": step, "duration": duration + step / 20, "outputs": _output(node)})

    def write(self, folder):
        folder.mkdir(parents=True, exist_ok=True)
        self.folder = folder
        keys = ("nodes", "sections", "elements", "loads", "analyses")
        parts = []
        for key in keys:
            entries = ",\n".join("    " + json.dumps(entry) for entry in getattr(self, key))
            parts.append(f'  "{key}": [\n{entries}\n  ]' if entries else f'  "{key}": []')
        title = f'  "title": {json.dumps(self.name, ensure_ascii=False)}'
        self.path().write_text("{\n" + ",\n".join([title, *parts]) + "\n}\n", encoding="utf-8")
        for suffix, text in self.files.items():
            self.path(suffix).write_text(text, encoding="utf-8")

    def path(self, suffix=".json"):
        return self.folder / (self.name + suffix)

    def text(self, suffix):
        return self.path(suffix).read_text(encoding="utf-8")

    @property
    def linear(self):
        return results.Static(self, "_StaticLinearSol.txt")

    @property
    def second_order(self):
        return results.Static(self, "_StaticNonlinearSol.txt")

    @property
    def modal(self):
        return results.Modes(self)

    @property
    def combined(self):
        return results.Spectrum(self)

    @property
    def history(self):
        return results.Histories(self)


def _output(node):
    return {"nodes": [{"node": node, "direction": "X"}]}
