"""Response spectrum of GB 50011—2001 and the combination of modes."""

import math

from modes import FLOOR, STOREY, five_storeys
from reference import design_spectrum, modal_combination
from structure import E, HINGED, Job

G_OF_SPECTRUM = 9.8  # m/s²

CURVES = (("7 (0.10g)", "frequent", 2, 1, 0.05), ("8 (0.20g)", "frequent", 1, 1, 0.02),
          ("9 (0.40g)", "frequent", 4, 3, 0.05), ("6 (0.05g)", "frequent", 3, 2, 0.03),
          ("7 (0.15g)", "rare", 2, 3, 0.05), ("8 (0.30g)", "rare", 4, 2, 0.1),
          ("8 (0.20g)", "rare", 3, 1, 0.25), ("9 (0.40g)", "rare", 1, 3, 0.35))
PERIODS = (0.05, 0.1, 0.3, 1.2, 3.0, 5.0, 6.2)


def r_01(compare):
    jobs, heads = [], []
    for number, curve in enumerate(CURVES, 1):
        job = Job(f"R-01-{number}")
        heads = [job.oscillator(period, 2 * i) for i, period in enumerate(PERIODS)]
        job.modes(7)
        job.spectrum(*curve, modes=7)
        jobs.append(job)
    yield jobs
    for number, (job, curve) in enumerate(zip(jobs, CURVES), 1):
        for head, period in zip(heads, PERIODS):
            alpha = job.combined.u(head, "X") * (2 * math.pi / period) ** 2 / G_OF_SPECTRUM
            compare(f"{number}T{period:g}", alpha, closed=design_spectrum(period, *curve))


RULES = ("SRSS", "CQC", "GRP")


def with_rules(make, site, damping, rules):
    """A job for each rule of combination."""
    jobs = []
    for rule in rules:
        job = make(rule)
        modes = 5 if "R-03" in job.name else 2
        job.modes(modes)
        job.spectrum(*site, damping, modes, rule)
        jobs.append(job)
    return jobs


def modal_responses(omegas, shapes, masses, stiffnesses, site, damping):
    """Of each mode displacements of the masses and forces of the bars in the row."""
    displacements, forces = [], []
    for omega, shape in zip(omegas, shapes):
        gamma = sum(m * p for m, p in zip(masses, shape)) / sum(m * p**2 for m, p in zip(masses, shape))
        s = design_spectrum(2 * math.pi / omega, *site, damping) * G_OF_SPECTRUM / omega**2
        u = [gamma * p * s for p in shape]
        displacements.append(u)
        forces.append([k * (b - a) for k, a, b in zip(stiffnesses, [0.0] + u, u)])
    return displacements, forces


def compare_rules(compare, jobs, rules, omegas, responses, damping, nodes, bars):
    displacements, forces = responses
    for rule, job in zip(rules, jobs):
        for node in nodes:
            values = [u[node - 2] for u in displacements]
            closed = modal_combination(rule, values, omegas, damping)
            compare(f"{rule}u{node}", job.combined.u(node, "X"), closed=closed)
        for bar in bars:
            values = [N[bar - 1] for N in forces]
            compare(f"{rule}N{bar}", job.combined.N(bar), closed=modal_combination(rule, values, omegas, damping))


def two_storeys(name):
    job = Job(name)
    job.row_of_bars((4.8e6, 2.4e6), (4e4, 2e4))
    return job


def r_02(compare):
    site, zeta, k, m = ("8 (0.20g)", "frequent", 3, 1), 0.05, 2.4e6, 2e4
    jobs = with_rules(lambda rule: two_storeys(f"R-02-{rule}"), site, zeta, RULES[:2])
    yield jobs
    omegas = (math.sqrt(k / (2 * m)), math.sqrt(2 * k / m))
    responses = modal_responses(omegas, ((0.5, 1), (-1, 1)), (2 * m, m), (2 * k, k), site, zeta)
    compare_rules(compare, jobs, RULES[:2], omegas, responses, zeta, (2, 3), (1, 2))
    compare("m1", jobs[0].combined.participation_mass(1), closed=8 * m / 3)
    compare("m2", jobs[0].combined.participation_mass(2), closed=m / 3)


def r_03(compare):
    site, zeta = ("8 (0.20g)", "frequent", 2, 2), 0.05
    jobs = with_rules(lambda rule: five_storeys(f"R-03-{rule}"), site, zeta, RULES[:2])
    yield jobs
    thetas = [(2 * n - 1) * math.pi / 11 for n in range(1, 6)]
    omegas = [2 * math.sqrt(STOREY / FLOOR) * math.sin(theta / 2) for theta in thetas]
    shapes = [[math.sin(j * theta) for j in range(1, 6)] for theta in thetas]
    for n, theta in enumerate(thetas, 1):
        compare(f"m{n}", jobs[0].combined.participation_mass(n) / FLOOR, closed=1 / math.tan(theta / 2) ** 2 / 11)
    responses = modal_responses(omegas, shapes, 5 * [FLOOR], 5 * [STOREY], site, zeta)
    compare_rules(compare, jobs, RULES[:2], omegas, responses, zeta, (6,), (1, 5))


def tuned_mass(compare, name, r):
    """A main mass of 50 t with a period of 0.3 s and a light one tuned to it; r = ω₂/ω₁."""
    site, zeta = ("8 (0.30g)", "frequent", 3, 1), 0.05
    ratio = r + 1 / r - 2
    omega0 = 2 * math.pi / 0.3
    masses = (5e4, 5e4 * ratio)
    stiffnesses = tuple(m * omega0**2 for m in masses)

    def make(rule):
        job = Job(f"{name}-{rule}")
        job.row_of_bars(stiffnesses, masses)
        return job

    jobs = with_rules(make, site, zeta, RULES)
    yield jobs
    omegas = (omega0 / math.sqrt(r), omega0 * math.sqrt(r))
    shapes = [(1, 1 / (1 - (omega / omega0) ** 2)) for omega in omegas]
    responses = modal_responses(omegas, shapes, masses, stiffnesses, site, zeta)
    compare_rules(compare, jobs, RULES, omegas, responses, zeta, (2,), (2,))


def r_04(compare):
    yield from tuned_mass(compare, "R-04", 1.0653)


def r_05(compare):
    yield from tuned_mass(compare, "R-05", 1.1056)


def r_06(compare):
    job = Job("R-06")
    areas = (7.665728, 2.365962)
    site, zeta = ("7 (0.15g)", "frequent", 2, 1), 0.05
    head = job.node(0, 0, 0, "001000", pinned=True)
    for place, area in zip(((-1, 0, 0), (0, -1, 0)), areas):
        job.bar(job.node(*place, HINGED, pinned=True), head, job.section(area))
    job.mass(head, 1e4)
    job.modes(2)
    job.spectrum(*site, zeta, 2, direction=(3, 4, 0))
    yield job
    for axis, area, share in zip("XY", areas, (0.6, 0.8)):
        mass = 1e4 + 7900 * (areas[0] + areas[1]) * 1e-6 / 3
        omega = math.sqrt(E * area * 1e-6 / mass)
        alpha = design_spectrum(2 * math.pi / omega, *site, zeta)
        compare(axis, job.combined.u(head, axis), closed=share * alpha * G_OF_SPECTRUM / omega**2)


PROBLEMS = (r_01, r_02, r_03, r_04, r_05, r_06)
