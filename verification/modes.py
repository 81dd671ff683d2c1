"""Natural frequencies."""

import math

from frames import Frame
from reference import bars_of, bisect, modes_of, shear_building
from structure import CLAMPED, E, G, HINGED, INCH, KIP, RHO, Job, mass_load

TWO_PI = 2 * math.pi


def cantilever(n, L, A, I, head=0.0):
    """Frequency of a cantilever with rotary inertia and a mass at its head: the root of its frequency equation."""
    EI, inertia = E * I, RHO * I

    def determinant(omega):
        """Of the two constants that the clamp leaves free, in moment and shear at the head."""
        q, r = inertia * omega**2 / EI, RHO * A * omega**2 / EI
        s = math.sqrt(-q / 2 + math.sqrt(q**2 / 4 + r))  # of cosh and sinh
        t = math.sqrt(q / 2 + math.sqrt(q**2 / 4 + r))  # of cos and sin
        ch, sh, co, si = math.cosh(s * L), math.sinh(s * L), math.cos(t * L), math.sin(t * L)
        v = (ch - co, sh / s - si / t)
        slope = (s * sh + t * si, ch - co)
        bend = (s**2 * ch + t**2 * co, s * sh + t * si)
        third = (s**3 * sh - t**3 * si, s**2 * ch + t**2 * co)
        shear = [EI * c + omega**2 * (inertia * b + head * a) for a, b, c in zip(v, slope, third)]
        return bend[0] * shear[1] - bend[1] * shear[0]

    roots, step = [], 0.02 * math.sqrt(3 * EI / L**3 / (head + RHO * A * L / 4))
    low = step
    while len(roots) < n:
        if determinant(low) * determinant(low + step) < 0:
            roots.append(bisect(determinant, low, low + step))
        low += step
    return roots[-1] / TWO_PI


def m_01(compare):
    job = Job("M-01")
    L, A, Iy, Iz = 3.6, 9000.0, 5e7, 1.25e7
    job.line((0, 0, 0), (L, 0, 0), 24, job.section(A, Iy, Iz, 1e7), first=CLAMPED)
    job.modes(5)
    yield job
    roots = (1.87510407, 4.69409113, 7.85475744)  # of cos λ cosh λ = -1
    order = ((0, Iz), (0, Iy), (1, Iz), (1, Iy), (2, Iz))
    own = Frame(job).frequencies(5)
    for mode, (n, I) in enumerate(order, 1):
        euler = roots[n] ** 2 / (TWO_PI * L**2) * math.sqrt(E * I * 1e-12 / (RHO * A * 1e-6))
        compare(f"f{mode}", job.modal.f(mode), rough=euler, exact=cantilever(n + 1, L, A * 1e-6, I * 1e-12),
                own=own[mode - 1])


def rayleigh_beam(n, L, A, I):
    """Frequency of a simply supported beam with rotary inertia."""
    k = n * math.pi / L
    return math.sqrt(k**4 * E * I / (RHO * A) / (1 + k**2 * I / A)) / TWO_PI


def m_02(compare):
    job = Job("M-02")
    L, A, Iy = 6.0, 9000.0, 5e7
    job.line((0, 0, 0), (L, 0, 0), 24, job.section(A, Iy, 1.5e8, 1e7), "111101", "011101", "010101")
    job.modes(3)
    yield job
    for n, own in enumerate(Frame(job).frequencies(3), 1):
        compare(f"f{n}", job.modal.f(n), closed=rayleigh_beam(n, L, A * 1e-6, Iy * 1e-12), own=own)


def arms_of_a_cross(L, A, I, near):
    """Frequencies near this one of arms with pinned tips whose hub does not turn: hub at rest, and hub moving in the
    plane, where the axial and the transverse dynamic stiffness of the arms add up to nothing."""

    def terms(f):
        omega = TWO_PI * f
        q, r = RHO * omega**2 / E, RHO * A * omega**2 / (E * I)
        s, t = (math.sqrt(sign * q / 2 + math.sqrt(q**2 / 4 + r)) for sign in (-1, 1))
        coth, cot = s / math.tanh(s * L), t / math.tan(t * L)
        axial = E * A * math.sqrt(q) / math.tan(math.sqrt(q) * L)
        return coth - cot, E * I * (s**2 + t**2) * coth * cot + axial * (coth - cot)

    rest = bisect(lambda f: terms(f)[0], 0.98 * near, 1.01 * near)
    return rest, bisect(lambda f: terms(f)[1], 0.98 * near, 1.01 * near)


def m_03(compare):
    job = Job("M-03")
    L, A, I = 2.2, 2500.0, 5.2e5
    section = job.section(A, I, I, I)
    hub = job.node(0, 0, 0, "001110")
    for arm in range(6):
        angle = 0.3 + arm * math.pi / 3
        job.line((0, 0, 0), (L * math.cos(angle), L * math.sin(angle), 0), 12, section, hub, "111110", "001110")
    job.modes(7, verify_modes=True)
    yield job
    turning, resting, second = 3.14159265, 3.92660231, TWO_PI
    euler = math.sqrt(E * I * 1e-12 / (RHO * A * 1e-6)) / (TWO_PI * L**2)
    rest, moving = arms_of_a_cross(L, A * 1e-6, I * 1e-12, resting**2 * euler)
    first, last = (rayleigh_beam(n, L, A * 1e-6, I * 1e-12) for n in (1, 2))
    exact = (first, moving, moving, rest, rest, rest, last)
    roots = (turning,) + 5 * (resting,) + (second,)
    for mode, (root, value, own) in enumerate(zip(roots, exact, Frame(job).frequencies(7)), 1):
        compare(f"f{mode}", job.modal.f(mode), rough=root**2 * euler, exact=value, own=own)


def timoshenko(n, L, A, I, kappa):
    """Lower root of the frequency equation of a simply supported beam with shear and rotary inertia."""
    k = n * math.pi / L
    a = RHO * I * RHO * A * kappa / (G * A)
    b = RHO * A + RHO * I * k**2 + RHO * A * E * I * k**2 * kappa / (G * A)
    c = E * I * k**4
    return math.sqrt(2 * c / (b + math.sqrt(b**2 - 4 * a * c))) / TWO_PI


def m_04(compare):
    L, A, Iy = 7.0, 1.26e6, 2.058e11
    jobs = []
    for shape in (2, 1, 3):
        job = Job(f"M-04-{shape}")
        job.line((0, 0, 0), (L, 0, 0), 28, job.section(A, Iy, 8.232e11, 1e11, shape), "111101", "011101", "010101")
        job.modes(3, shear=True)
        jobs.append(job)
    yield jobs
    for job, shape, kappa in zip(jobs, (2, 1, 3), (1.2, 2.0, 1.0)):
        own = Frame(job, with_shear=True).frequencies(3)
        for n, mode in ((1, 1), (2, 3)):  # mode 2 is axial
            compare(f"{shape}f{n}", job.modal.f(mode), closed=timoshenko(n, L, A * 1e-6, Iy * 1e-12, kappa),
                    own=own[mode - 1])


STOREY = 31.54 * KIP / INCH * 1e3  # N/m
FLOOR = 100 * KIP * 1e3 / 9.80665  # kg


def five_storeys(name):
    job = Job(name)
    job.row_of_bars(5 * [STOREY], 5 * [FLOOR])
    return job


def uniform_period(n, k, m, storeys=5):
    return TWO_PI / (2 * math.sqrt(k / m) * math.sin((2 * n - 1) * math.pi / (4 * storeys + 2)))


def m_05(compare):
    job = five_storeys("M-05")
    job.modes(5)
    yield job
    for n in range(1, 6):
        compare(f"T{n}", job.modal.period(n), closed=uniform_period(n, STOREY, FLOOR))


def compare_with_matrices(compare, job, stiffnesses, masses):
    for n, (omega, _) in enumerate(modes_of(*shear_building(stiffnesses, masses, bars_of(stiffnesses, E, RHO))), 1):
        compare(f"w{n}", job.modal.omega(n), own=omega)


def m_06(compare):
    job = Job("M-06")
    kip_in = KIP * 1e3 / INCH
    stiffnesses, masses = [k * kip_in for k in (1800, 1200, 600)], [m * kip_in for m in (2.0, 1.5, 1.0)]
    job.row_of_bars(stiffnesses, masses)
    job.modes(3)
    yield job
    compare_with_matrices(compare, job, stiffnesses, masses)


def two_masses(name):
    """Bathe's two degrees of freedom: one unit of his time is 0.1 s, one of length 0.01 m."""
    job = Job(name)
    stiffnesses, masses = (4e6, 2e6, 2e6), (2e4, 1e4)
    nodes = [job.node(x, 0, 0, "011000" if x in (1, 2) else HINGED, pinned=True) for x in range(4)]
    for i, k in enumerate(stiffnesses, 1):
        job.bar(i, i + 1, job.section(k / E * 1e6))
    for node, kilograms in zip(nodes[1:3], masses):
        job.mass(node, kilograms)
    return job


def m_07(compare):
    job = two_masses("M-07")
    job.modes(2)
    yield job
    compare("w1", job.modal.omega(1), closed=10 * math.sqrt(2))
    compare("w2", job.modal.omega(2), closed=10 * math.sqrt(5))


def m_08(compare):
    job = Job("M-08")
    L, count = 4.0, 20
    job.line((0, 0, 0), (L, 0, 0), count, job.section(8000, 5e7, 5e7, 4e7), CLAMPED, "011011", "011011")
    job.modes(5)
    yield job

    def rod(n, modulus):
        """Of a rod divided into linear elements with consistent mass."""
        h, theta = L / count, (2 * n - 1) * math.pi / (2 * count)
        return math.sqrt(6 * modulus / RHO * (1 - math.cos(theta)) / (h**2 * (2 + math.cos(theta)))) / TWO_PI

    for mode, (key, n, modulus) in enumerate((("t1", 1, G), ("a1", 1, E), ("t2", 2, G), ("a2", 2, E), ("t3", 3, G)), 1):
        compare(key, job.modal.f(mode), exact=rod(n, modulus), rough=(2 * n - 1) * math.sqrt(modulus / RHO) / (4 * L))


def guided(A, I, h):
    """Stiffness of a storey of guided column, masses at its head and between its ends (m², m⁴)."""
    m = RHO * A * h
    return 12 * E * I / h**3, 13 * m / 35 + 6 * RHO * I / (5 * h), 9 * m / 70 - 6 * RHO * I / (5 * h)


def m_09(compare):
    job = Job("M-09")
    h, A, I = 3.0, 20000.0, 2e8
    column, bar = job.section(A, I, I, 1e8), job.section(A)
    below = [job.node(x, y, 0, CLAMPED) for x, y in ((-2, -2), (2, -2), (2, 2), (-2, 2))]
    _, a, b = guided(A * 1e-6, I * 1e-12, h)
    upper = mass_load(15000 + a + b)  # makes the formula of the chain exact
    for floor in (1, 2, 3):
        corners = [job.node(x, y, h * floor, "001110") for x, y in ((-2, -2), (2, -2), (2, 2), (-2, 2))]
        centre = job.node(0, 0, h * floor, "001000", pinned=True)
        for i, j in zip(below, corners):
            job.beam(i, j, column)
        for k in range(4):
            job.bar(corners[k], corners[(k + 1) % 4], bar)
        for corner in corners:
            job.bar(centre, corner, bar)
            job.load(corner, "Z", mass_load(15000) if floor < 3 else upper, case=1)
        job.mass(centre, 60000)
        below = corners
    job.modes(6, verify_modes=True)
    yield job
    k = 12 * E * I * 1e-12 / h**3
    line = RHO * A * 1e-6
    edge, spoke, r2 = 4.0, 2 * math.sqrt(2), 8.0
    M = 4 * 15000 + 60000 + line * (4 * edge + 4 * spoke)
    J = 4 * 15000 * r2 + 4 * line * edge * (2.0**2 + edge**2 / 12) + 4 * line * spoke * spoke**2 / 3
    own = Frame(job).frequencies(6)
    for n, sway, twist in ((1, (1, 2), 3), (2, (4, 5), 6)):
        c = math.cos((2 * n - 1) * math.pi / 7)
        columns = 8 * a + 8 * b * c
        for mode in sway:
            compare(f"f{mode}", job.modal.f(mode), closed=math.sqrt(8 * k * (1 - c) / (M + columns)) / TWO_PI,
                    own=own[mode - 1])
        compare(f"f{twist}", job.modal.f(twist), closed=math.sqrt(8 * k * r2 * (1 - c) / (J + r2 * columns)) / TWO_PI,
                own=own[twist - 1])


def m_10(compare):
    job = Job("M-10")
    k, m = 2e7, 2e4
    for y in (0, 3):
        job.row_of_bars(6 * [k], 6 * [m], y)
    job.modes(8, verify_modes=True)
    yield job
    for mode in range(1, 9):
        compare(f"f{mode}", job.modal.f(mode), closed=1 / uniform_period((mode + 1) // 2, k, m, storeys=6))


def m_11(compare):
    job = Job("M-11")
    h, A, I, m = 3.0, 10000.0, 4e7, 8000.0
    k, a, b = guided(A * 1e-6, I * 1e-12, h)
    link_area = 0.02 * k * 4 / E
    column, link = job.section(A, I, I, 1e7), job.section(link_area * 1e6)
    towers = [job.line((x, 0, 0), (x, 0, 5 * h), 5, column, CLAMPED, "011111", "011111") for x in (0, 4)]
    for floor in range(1, 6):
        job.bar(towers[0][floor], towers[1][floor], link)
        for tower in towers:
            job.mass(tower[floor], m if floor < 5 else m + a + b)
    job.modes(10)
    yield job
    link_mass = RHO * link_area * 4
    for n in range(1, 6):
        c = math.cos((2 * n - 1) * math.pi / 11)
        stiffness, mass = 2 * k * (1 - c), m + 2 * a + 2 * b * c
        together = math.sqrt(stiffness / (mass + link_mass / 2))
        against = math.sqrt((stiffness + 0.04 * k) / (mass + link_mass / 6))
        compare(f"f{2 * n - 1}", job.modal.f(2 * n - 1), closed=together / TWO_PI)
        compare(f"f{2 * n}", job.modal.f(2 * n), closed=against / TWO_PI)


def mast(name, storeys, restraint):
    """A shear building of these storeys; the load at the top makes the formula of a uniform chain exact."""
    job = Job(name)
    h, A, I, m = 3.0, 10000.0, 5e7, 5000.0
    _, a, b = guided(A * 1e-6, I * 1e-12, h)
    nodes = job.line((0, 0, 0), (0, 0, storeys * h), storeys, job.section(A, I, I, 1e7), CLAMPED, restraint, restraint)
    for node in nodes[1:]:
        job.mass(node, m if node < nodes[-1] else m + a + b)
    return job


def chain(n, storeys):
    k, a, b = guided(0.01, 5e-5, 3.0)
    theta = (2 * n - 1) * math.pi / (2 * storeys + 1)
    return 2 * math.sqrt(k / (5000 + 2 * a + 2 * b * math.cos(theta))) * math.sin(theta / 2) / TWO_PI


def m_12(compare):
    job, sketch = mast("M-12", 1500, "011111"), mast("M-12-sketch", 12, "011111")
    for building in (job, sketch):
        building.modes(12, verify_modes=True)
    yield job, sketch
    for n in (1, 2, 3, 6, 12):
        compare(f"f{n}", job.modal.f(n), closed=chain(n, 1500))


def m_13(compare):
    job, sketch = mast("M-13", 600, "001111"), mast("M-13-sketch", 12, "001111")
    job.modes(10, verify_modes=True)
    sketch.modes(10)
    yield job, sketch
    for mode in range(1, 11):
        compare(f"f{mode}", job.modal.f(mode), closed=chain((mode + 1) // 2, 600))


def m_14(compare):
    """A cantilever column with a mass at its head, heavy against its own: Rayleigh's quotient with the static shape."""
    job = Job("M-14")
    L, A, I, m = 5.0, 10000.0, 6e7, 3000.0
    nodes = job.line((0, 0, 0), (0, 0, L), 20, job.section(A, I, 2 * I, 1e8), CLAMPED, "010101", "010101")
    job.mass(nodes[-1], m)
    job.modes(1)
    yield job
    EI, line = E * I * 1e-12, RHO * A * 1e-6
    light = math.sqrt(3 * EI / L**3 / (m + 33 / 140 * line * L))
    compare("f", job.modal.f(1), exact=cantilever(1, L, A * 1e-6, I * 1e-12, m), rough=light / TWO_PI)


def m_15(compare):
    """A straight mast: its motions along X and Y, along Z and about Z know nothing of each other."""
    job = Job("M-15")
    L, A, Iy, Iz = 40.0, 10000.0, 5e7, 2e7
    job.line((0, 0, 0), (0, 0, L), 200, job.section(A, Iy, Iz, 1e7), first=CLAMPED)
    job.modes(6, verify_modes=True)
    yield job
    found = sorted(cantilever(n, L, A * 1e-6, I * 1e-12) for n in (1, 2, 3, 4) for I in (Iy, Iz))
    for mode in range(1, 7):
        compare(f"f{mode}", job.modal.f(mode), exact=found[mode - 1])


PROBLEMS = (m_01, m_02, m_03, m_04, m_05, m_06, m_07, m_08, m_09, m_10, m_11, m_12, m_13, m_14, m_15)
