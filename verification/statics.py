"""Linear statics. Each problem makes its jobs, yields them to be run and compares what they gave with its formulas."""

import math

import reference
from frames import Frame
from structure import CLAMPED, E, G, HINGED, IN_PLANE, INCH, KIP, KSI, Job

FOOT = 12 * INCH


def s_01(compare):
    job = Job("S-01")
    L, P = 3.2, 12.0
    A, Ix, Iy, Iz = 9600.0, 1.28e8, 1.152e8, 5.12e7
    section = job.section(A, Iy, Iz, Ix)
    tips = {}
    for place, direction in enumerate(("X", "Y", "Z", "RX", "RY", "RZ")):
        tips[direction] = job.line((0, 2 * place, 0), (L, 2 * place, 0), 1, section, first=CLAMPED)[1]
        job.load(tips[direction], direction, P)
    job.static()
    yield job
    P, A, Iy, Iz = P * 1e3, A * 1e-6, Iy * 1e-12, Iz * 1e-12
    u = job.linear.u
    compare("X", u(tips["X"], "X"), closed=P * L / (E * A))
    compare("Y", u(tips["Y"], "Y"), closed=P * L**3 / (3 * E * Iz))
    compare("Z", u(tips["Z"], "Z"), closed=P * L**3 / (3 * E * Iy))
    compare("RY", u(tips["RY"], "Z"), closed=-P * L**2 / (2 * E * Iy))
    compare("RZ", u(tips["RZ"], "Y"), closed=P * L**2 / (2 * E * Iz))
    compare("RX", abs(job.linear.force(4, "MYZ", "i")), closed=P)


def s_02(compare):
    job = Job("S-02")
    A, Ix, Iy, Iz = 7200.0, 4e7, 9.6e7, 2.4e7
    L, force = 4.5, (6.0, -4.0, 5.0)
    tip = job.line((0, 0, 0), (1.5, 3, 3), 1, job.section(A, Iy, Iz, Ix), first=CLAMPED)[1]
    for direction, value in zip("XYZ", force):
        job.load(tip, direction, value)
    job.static()
    yield job
    x = (1 / 3, 2 / 3, 2 / 3)
    y = (2 / math.sqrt(5), -1 / math.sqrt(5), 0)
    z = (x[1] * y[2] - x[2] * y[1], x[2] * y[0] - x[0] * y[2], x[0] * y[1] - x[1] * y[0])
    compliance = (L / (E * A * 1e-6), L**3 / (3 * E * Iz * 1e-12), L**3 / (3 * E * Iy * 1e-12))
    parts = [1e3 * sum(f * e for f, e in zip(force, axis)) * c for axis, c in zip((x, y, z), compliance)]
    for k, direction in enumerate("XYZ"):
        compare(direction, job.linear.u(tip, direction), closed=sum(p * axis[k] for p, axis in zip(parts, (x, y, z))))


def s_03(compare):
    job = Job("S-03")
    L, P, Iy = 7.2, 45.0, 8.4e7
    nodes = job.line((0, 0, 0), (L, 0, 0), 8, job.section(6000, Iy, 3e7, 1e6), CLAMPED, CLAMPED, IN_PLANE)
    job.load(nodes[4], "Z", -P)
    job.static()
    yield job
    compare("u", job.linear.u(5, "Z"), closed=-P * 1e3 * L**3 / (192 * E * Iy * 1e-12))
    compare("end", abs(job.linear.force(1, "MZX", "i")), closed=P * 1e3 * L / 8)
    compare("middle", abs(job.linear.force(4, "MZX", "j")), closed=P * 1e3 * L / 8)
    compare("R", job.linear.reaction(1, "Z"), closed=-P * 1e3 / 2)


def s_04(compare):
    job = Job("S-04")
    L, P = 6.0, 60.0
    section = job.section(6000, 8.4e7, 3e7, 1e6)
    nodes = []
    for k in range(13):
        restraint = "111101" if k == 0 else "011101" if k % 4 == 0 else IN_PLANE
        nodes.append(job.node(1.5 * k, 0, 0, restraint))
    for i, j in zip(nodes, nodes[1:]):
        job.beam(i, j, section)
    job.load(3, "Z", -P)
    job.static()
    yield job
    P *= 1e3
    compare("MB", abs(job.linear.force(4, "MZX", "j")), closed=P * L / 10)
    compare("MC", abs(job.linear.force(8, "MZX", "j")), closed=P * L / 40)
    compare("RA", job.linear.reaction(1, "Z"), closed=-(P / 2 - P / 10))
    compare("RD", job.linear.reaction(13, "Z"), closed=-P / 40)


def portal(name, pinned):
    """Feet 1 and 2, corners 3 and 4; 80 kN at the left corner."""
    job = Job(name)
    for x in (0, 7.5):
        job.node(x, 0, 0, HINGED if pinned else CLAMPED, pinned)
    for x in (0, 7.5):
        job.node(x, 0, 4.8, IN_PLANE)
    column, beam = job.section(2e7, 1.2e8, 1e7, 1e6), job.section(2e7, 3e8, 1e7, 1e6)
    job.beam(1, 3, column)
    job.beam(2, 4, column)
    job.beam(3, 4, beam)
    job.load(3, "X", 80)
    job.static()
    return job


def s_05(compare):
    job = portal("S-05", pinned=False)
    yield job
    P, h, Ic, k = 80e3, 4.8, 1.2e-4, (3.0 / 1.2) * (4.8 / 7.5)
    own = Frame(job)
    u = own.displaced()
    compare("foot", abs(job.linear.force(1, "MZX", "i")), closed=P * h / 2 * (3 * k + 1) / (6 * k + 1),
            own=abs(own.end_force(1, 4)))
    compare("top", abs(job.linear.force(1, "MZX", "j")), closed=P * h / 2 * 3 * k / (6 * k + 1),
            own=abs(own.end_force(1, 10)))
    compare("u", job.linear.u(3, "X"), closed=P * h**3 / (12 * E * Ic) * (3 * k + 2) / (6 * k + 1),
            own=u(3, "X"))


def s_06(compare):
    job = portal("S-06", pinned=True)
    yield job
    P, h, L, Ic, Ib = 80e3, 4.8, 7.5, 1.2e-4, 3e-4
    u = Frame(job, restraints={1: "111101", 2: "111101"}).displaced()
    compare("top", abs(job.linear.force(1, "MZX", "j")), closed=P * h / 2)
    compare("u", job.linear.u(3, "X"), closed=P * h**3 / (6 * E * Ic) + P * h**2 * L / (12 * E * Ib),
            own=u(3, "X"))
    compare("R", job.linear.reaction(1, "Z"), closed=P * h / L)


def s_07(compare):
    job = Job("S-07")
    scale = 10000 * KSI / E
    joint = job.node(100 * INCH, 0, 75 * INCH, IN_PLANE)
    left = job.node(0, 0, 75 * INCH, CLAMPED)
    right = job.node(200 * INCH, 0, 0, CLAMPED)
    section = job.section(10 * scale * 645.16, 1000 * scale * (INCH * 1e3) ** 4, 1e6, 1e6)
    job.beam(left, joint, section)
    job.beam(joint, right, section)
    job.load(joint, "Z", -32 * KIP)
    job.load(joint, "RY", 1050 * KIP * INCH)
    job.static()
    yield job
    u = Frame(job).displaced()
    compare("x", job.linear.u(joint, "X"), own=u(joint, "X"))
    compare("y", job.linear.u(joint, "Z"), own=u(joint, "Z"))


def truss_of(job):
    """The own solution of a job of bars: displacements by node and axis, bar forces."""
    nodes = [((n["x"], n["y"], n["z"]), [digit == "1" for digit in n["restraint"][:3]]) for n in job.nodes]
    areas = {section["id"]: section["area"] for section in job.sections}
    bars = [(e["i"] - 1, e["j"] - 1, E * areas[e["section"]] * 1e-6) for e in job.elements]
    loads = [(load["node"] - 1, "XYZ".index(load["direction"]), load["value"] * 1e3) for load in job.loads]
    displacements, forces = reference.truss(nodes, bars, loads)
    return lambda node, axis: displacements[node - 1]["XYZ".index(axis)], lambda bar: forces[bar - 1]


def s_08(compare):
    job = Job("S-08")
    scale = 29000 * KSI / E * 645.16
    joint = job.node(12 * FOOT, 0, 16 * FOOT, "010000", pinned=True)
    for x, area in ((0, 8), (12, 6), (24, 8)):
        job.bar(job.node(x * FOOT, 0, 0, HINGED, pinned=True), joint, job.section(area * scale))
    job.load(joint, "X", 150 * KIP)
    job.load(joint, "Z", -300 * KIP)
    job.static()
    yield job
    u, N = truss_of(job)
    compare("x", job.linear.u(joint, "X"), own=u(joint, "X"))
    compare("y", job.linear.u(joint, "Z"), own=u(joint, "Z"))
    for bar in (1, 2, 3):
        compare(f"N{bar}", job.linear.N(bar), own=N(bar))


def s_09(compare):
    job = Job("S-09")
    side = 240 * INCH
    c, s = math.cos(math.pi / 6), math.sin(math.pi / 6)

    def turned(x, y, z):
        """The book's axes turned by 30° about its Z, which makes the roll angles of its members superfluous."""
        return c * x + s * y, -s * x + c * y, z

    joint = job.node(0, 0, 0)
    ends = [job.node(*turned(*place), CLAMPED) for place in ((-side, 0, 0), (0, -side, 0), (0, 0, -side))]
    strong, weak, torsion = (I * KSI / E * (INCH * 1e3) ** 4 for I in (716 * 29000, 236 * 29000, 15.1 * 11500 * E / G))
    area = 32.9 * 29000 * KSI / E * 645.16
    flat, upright = job.section(area, weak, strong, torsion), job.section(area, strong, weak, torsion)
    for end, section in zip(ends, (flat, upright, flat)):
        job.beam(end, joint, section)
    forces = turned(0, -30 * KIP, 0) + turned(-1800 * KIP * INCH, 0, 3000 * KIP * INCH)
    for direction, value in zip(("X", "Y", "Z", "RX", "RY", "RZ"), forces):
        job.load(joint, direction, value)
    job.static()
    yield job
    x, y, z = (job.linear.u(joint, direction) for direction in "XYZ")
    u, v, w = map(Frame(job).displaced(), 3 * (joint,), "XYZ")
    compare("X", c * x - s * y, own=c * u - s * v)
    compare("Y", s * x + c * y, own=s * u + c * v)
    compare("Z", z, own=w)


def s_10(compare):
    job = Job("S-10")
    P, beams = 100e3, ((6.0, 9e7), (4.0, 4e7))
    hub = job.node(0, 0, 0)
    for (L, Iy), direction, restraint in zip(beams, ((1, 0), (0, 1)), ("111100", "101010")):
        section = job.section(5000, Iy, 1e7, 2)
        near = job.node(-L / 2 * direction[0], -L / 2 * direction[1], 0, restraint)
        far = job.node(L / 2 * direction[0], L / 2 * direction[1], 0, "001000")
        job.beam(near, hub, section)
        job.beam(hub, far, section)
    job.load(hub, "Z", -P / 1e3)
    job.static()
    yield job
    stiffness = [48 * E * Iy * 1e-12 / L**3 for L, Iy in beams]
    share = [P * s / sum(stiffness) for s in stiffness]
    compare("u", job.linear.u(hub, "Z"), closed=-P / sum(stiffness))
    compare("Ma", abs(job.linear.force(1, "MZX", "j")), closed=share[0] * beams[0][0] / 4)
    compare("Mb", abs(job.linear.force(3, "MZX", "j")), closed=share[1] * beams[1][0] / 4)


def s_11(compare):
    job = Job("S-11")
    a, b, P, Iy, Ix = 2.5, 1.8, 20e3, 6e7, 8e7
    section = job.section(8000, Iy, 2e7, Ix)
    corner = job.line((0, 0, 0), (a, 0, 0), 1, section, first=CLAMPED)[1]
    tip = job.line((a, 0, 0), (a, b, 0), 1, section, first=corner)[1]
    job.load(tip, "Z", -P / 1e3)
    job.static()
    yield job
    EI, GJ = E * Iy * 1e-12, G * Ix * 1e-12
    compare("u", job.linear.u(tip, "Z"), closed=-(P * a**3 / (3 * EI) + P * b**3 / (3 * EI) + P * a * b**2 / GJ))
    compare("T", abs(job.linear.force(1, "MYZ", "i")), closed=P * b)
    compare("M", abs(job.linear.force(1, "MZX", "i")), closed=P * a)


def s_12(compare):
    job = Job("S-12")
    a, b, P, Iy = 3.0, 5.0, 30e3, 5e7
    section = job.section(6000, Iy, 2e7, 1e6)
    job.node(0, 0, 0, CLAMPED)
    job.node(a, 0, 0, "010000", pinned=True)
    job.node(a + b, 0, 0, CLAMPED)
    job.beam(1, 2, section)
    job.beam(2, 3, section)
    job.load(2, "Z", -P / 1e3)
    job.static()
    yield job
    ka, kb = (3 * E * Iy * 1e-12 / length**3 for length in (a, b))
    compare("u", job.linear.u(2, "Z"), closed=-P / (ka + kb))
    compare("M1", abs(job.linear.force(1, "MZX", "i")), closed=P * ka / (ka + kb) * a)
    compare("M3", abs(job.linear.force(2, "MZX", "j")), closed=P * kb / (ka + kb) * b)
    compare("hinge", job.linear.force(1, "MZX", "j"), closed=0.0)


def s_13(compare):
    job = Job("S-13")
    A, panel, h, P = 2000e-6, 3.0, 4.0, 60e3
    for i in range(7):
        job.node(panel * i, 0, 0, HINGED if i == 0 else "011000" if i == 6 else "010000", pinned=True)
    for i in range(1, 6):
        job.node(panel * i, 0, h, "010000", pinned=True)
    bars = ((1, 2), (2, 3), (3, 4), (4, 5), (5, 6), (6, 7), (8, 9), (9, 10), (10, 11), (11, 12), (1, 8), (7, 12),
            (2, 8), (3, 9), (4, 10), (5, 11), (6, 12), (8, 3), (9, 4), (11, 4), (12, 5))
    section = job.section(A * 1e6)
    for i, j in bars:
        job.bar(i, j, section)
    for node in range(2, 7):
        job.load(node, "Z", -P / 1e3)
    job.static()
    yield job
    R, slope = 2.5 * P, math.hypot(panel, h)
    # Bars of the left half by sections and joints, under the loads and under 1 at node 4; the middle post has none.
    loaded = {(1, 2): R * panel / h, (2, 3): R * panel / h, (3, 4): (R * 2 * panel - P * panel) / h,
              (8, 9): -(R * 2 * panel - P * panel) / h, (9, 10): -(R * 3 * panel - P * 3 * panel) / h,
              (1, 8): -R * slope / h, (2, 8): P, (8, 3): (R - P) * slope / h, (3, 9): -(R - 2 * P),
              (9, 4): (R - 2 * P) * slope / h}
    unit = {(1, 2): panel / 2 / h, (2, 3): panel / 2 / h, (3, 4): panel / h, (8, 9): -panel / h,
            (9, 10): -1.5 * panel / h, (1, 8): -slope / 2 / h, (2, 8): 0, (8, 3): slope / 2 / h,
            (3, 9): -0.5, (9, 4): slope / 2 / h}

    def length(i, j):
        return math.dist([job.nodes[i - 1][c] for c in "xz"], [job.nodes[j - 1][c] for c in "xz"])

    deflection = 2 * sum(loaded[bar] * unit[bar] * length(*bar) for bar in loaded) / (E * A)
    for key, bar in (("bottom", (3, 4)), ("top", (9, 10)), ("post", (1, 8))):
        compare(key, job.linear.N(bars.index(bar) + 1), closed=loaded[bar])
    compare("u", job.linear.u(4, "Z"), closed=-deflection)


ALUMINIUM = 1e4 * KSI / E * 645.16  # in² of a book with 10⁷ psi become mm²


def s_14(compare):
    job = Job("S-14")
    for x, z in ((720, 360), (720, 0), (360, 360), (360, 0), (0, 360), (0, 0)):
        job.node(x * INCH, 0, z * INCH, "010000" if x else HINGED, pinned=True)
    bars = ((5, 3), (3, 1), (6, 4), (4, 2), (3, 4), (1, 2), (5, 4), (6, 3), (3, 2), (4, 1))
    areas = (30.52, 0.1, 23.2, 15.22, 0.1, 0.551, 7.457, 21.04, 21.53, 0.1)
    for (i, j), area in zip(bars, areas):
        job.bar(i, j, job.section(area * ALUMINIUM))
    for node in (2, 4):
        job.load(node, "Z", -100 * KIP)
    job.static()
    yield job
    u, N = truss_of(job)
    compare("u1", job.linear.u(1, "Z"), own=u(1, "Z"))
    compare("u2", job.linear.u(2, "Z"), own=u(2, "Z"))
    compare("N1", job.linear.N(1), own=N(1))


def tower_25(name, loads):
    job = Job(name)
    places = ((-37.5, 0, 200), (37.5, 0, 200), (-37.5, 37.5, 100), (37.5, 37.5, 100), (37.5, -37.5, 100),
              (-37.5, -37.5, 100), (-100, 100, 0), (100, 100, 0), (100, -100, 0), (-100, -100, 0))
    for place in places:
        job.node(*(c * INCH for c in place), "000000" if place[2] else HINGED, pinned=True)
    groups = ((0.01, "1-2"), (1.987, "1-4 2-3 1-5 2-6"), (2.9935, "2-5 2-4 1-3 1-6"), (0.01, "3-6 4-5"),
              (0.01, "3-4 5-6"), (0.684, "3-10 6-7 4-9 5-8"), (1.6769, "3-8 4-7 6-9 5-10"),
              (2.6621, "3-7 4-8 5-9 6-10"))
    for area, bars in groups:
        section = job.section(area * ALUMINIUM)
        for bar in bars.split():
            job.bar(*(int(end) for end in bar.split("-")), section)
    for node, *forces in loads:
        for direction, value in zip("XYZ", forces):
            job.load(node, direction, value * KIP)
    job.static()
    return job


def s_15(compare):
    a = tower_25("S-15a", ((1, 1, 10, -5), (2, 0, 10, -5), (3, 0.5, 0, 0), (6, 0.5, 0, 0)))
    b = tower_25("S-15b", ((1, 0, 20, -5), (2, 0, -20, -5)))
    yield a, b
    for name, job in (("a", a), ("b", b)):
        u, _ = truss_of(job)
        for node in (1, 2):
            compare(f"{name}{node}", job.linear.u(node, "Y"), own=u(node, "Y"))


def s_16(compare):
    job = Job("S-16")
    areas = (1.8577, 0.5059, 0.1, 0.1, 1.2476, 0.5269, 0.1, 0.1012, 0.5209, 0.5172, 0.1004, 0.1005, 0.1565, 0.5507,
             0.3922, 0.5922)
    for level in range(5):
        for x, y in ((0, 0), (120, 0), (120, 120), (0, 120)):
            job.node(x * INCH, y * INCH, 60 * level * INCH, "000000" if level else HINGED, pinned=True)
    for storey in range(4):
        column, face, edge, diagonal = (job.section(a * ALUMINIUM) for a in areas[4 * storey:4 * storey + 4])
        lower = [4 * storey + k for k in (1, 2, 3, 4)]
        upper = [node + 4 for node in lower]
        for k in range(4):
            job.bar(lower[k], upper[k], column)
        for k in range(4):
            job.bar(lower[k], upper[k - 1], face)
            job.bar(lower[k], upper[(k + 1) % 4], face)
        for k in range(4):
            job.bar(upper[k], upper[(k + 1) % 4], edge)
        job.bar(upper[0], upper[2], diagonal)
        job.bar(upper[1], upper[3], diagonal)
    for direction, value in zip("XYZ", (5, 5, -5)):
        job.load(17, direction, value * KIP)
    job.static()
    yield job
    u, _ = truss_of(job)
    for direction in "XYZ":
        compare(direction, job.linear.u(17, direction), own=u(17, direction))


def s_17(compare):
    """Castigliano for a quarter circle out of its plane, by straight members on the arc."""
    job = Job("S-17")
    R, P, count, EI_area, torsion = 3.0, 8e3, 120, 6e7, 8e7
    section = job.section(8000, EI_area, EI_area, torsion)
    for k in range(count + 1):
        angle = math.pi / 2 * k / count
        job.node(R * math.sin(angle), R * (1 - math.cos(angle)), 0, CLAMPED if k == 0 else "000000")
    for k in range(count):
        job.beam(k + 1, k + 2, section)
    job.load(count + 1, "Z", -P / 1e3)
    job.static()
    yield job
    EI, GJ = E * EI_area * 1e-12, G * torsion * 1e-12
    compare("u", job.linear.u(count + 1, "Z"),
            closed=-P * R**3 * (math.pi / 4 / EI + (3 * math.pi / 4 - 2) / GJ))
    compare("M", abs(job.linear.reaction(1, "RX")), closed=P * R)
    compare("T", abs(job.linear.reaction(1, "RY")), closed=P * R)


def s_18(compare):
    """Closed square frame pulled at two opposite midpoints; no support takes any force."""
    job = Job("S-18")
    a, P, I = 2.0, 20e3, 4e7
    section = job.section(2e8, I, 1e7, 1e6)
    corners = [(0, 0), (a, 0), (2 * a, 0), (2 * a, 2 * a), (a, 2 * a), (0, 2 * a)]
    for k, (x, z) in enumerate(corners):
        job.node(x, 0, z, "111111" if k == 1 else IN_PLANE)
    for k in range(6):
        job.beam(k + 1, (k + 1) % 6 + 1, section)
    job.load(5, "Z", P / 1e3)
    job.static()
    yield job
    EI, side = E * I * 1e-12, 2 * a
    compare("corner", abs(job.linear.force(1, "MZX", "i")), closed=P * side / 16)
    compare("load", abs(job.linear.force(4, "MZX", "j")), closed=3 * P * side / 16)
    compare("u", job.linear.u(5, "Z"), closed=5 * P * side**3 / (192 * EI))


PROBLEMS = (s_01, s_02, s_03, s_04, s_05, s_06, s_07, s_08, s_09, s_10, s_11, s_12, s_13, s_14, s_15, s_16, s_17, s_18)
