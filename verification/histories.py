"""Time histories: forces and ground motions, Newmark's and Wilson's method."""

import math
from pathlib import Path

from modes import FLOOR, STOREY, TWO_PI, five_storeys, two_masses
from reference import (bars_of, combine, exact_of_one, modes_of, newmark, newmark_of_one, rayleigh, shear_building,
                       times, wilson)
from results import peak
from second_order import apex_load, arch
from spectrum import two_storeys
from structure import CLAMPED, E, HINGED, RHO, Job

RECORD = Path(__file__).parent.parent / "data" / "GroundAccData" / "Elcentro.txt"


def standard_record(largest):
    """El Centro 1940, north-south, scaled to this peak; 0.02 s."""
    values = [float(word) for word in RECORD.read_text(encoding="utf-8").split()]
    scale = largest / max(abs(value) for value in values)
    return [value * scale for value in values]


def stiffness(job, bar):
    return E * job.sections[int(job.elements[bar - 1]["section"]) - 1]["area"] * 1e-6


def oscillators(name, *periods):
    """Side by side, with their modes: a pair makes Rayleigh damping exact for both."""
    job = Job(name)
    for place, period in enumerate(periods):
        job.oscillator(period, 2 * place)
    job.modes(len(periods))
    return job


def worst(history, own):
    """Largest deviation over all steps in terms of the peak."""
    assert len(history) == len(own)
    return max(abs(a - b) for a, b in zip(history, own)) / max(map(abs, own))


def maximum(function, end, count=20000):
    """Largest magnitude on 0 … end."""
    return max(abs(function(end * k / count)) for k in range(count + 1))


def t_01(compare):
    P, step, dampings = 100e3, 0.01, (0.0, 0.05, 0.2)
    jobs = []
    for zeta in dampings:
        job = oscillators(f"T-01-{zeta:g}", 1.0, 0.27027)
        job.pulse(2, P / 1e3, step, 3, (zeta, zeta), unload_time=3)
        jobs.append(job)
    yield jobs
    for job, zeta in zip(jobs, dampings):
        k = stiffness(job, 1)
        history = job.history.output(2)
        own = newmark_of_one(TWO_PI, zeta, 300 * [P / k * TWO_PI**2], step)
        compare(f"u{zeta:g}", peak(history), closed=P / k * (1 + math.exp(-math.pi * zeta / math.sqrt(1 - zeta**2))),
                own=peak(own))
        compare(f"all{zeta:g}", worst(history, own), own=0.0)


def t_02(compare):
    P, step, times_of_end = 100e3, 0.005, (0.1, 0.2, 0.3, 0.6)
    jobs = []
    for end in times_of_end:
        job = oscillators(f"T-02-{end:g}", 1.0, 0.27027)
        job.pulse(2, P / 1e3, step, 2, unload_time=end)
        jobs.append(job)
    yield jobs
    for job, end in zip(jobs, times_of_end):
        factor = stiffness(job, 1) / P
        blocks = round(end / step)
        own = newmark_of_one(TWO_PI, 0, [TWO_PI**2 * (k < blocks) for k in range(400)], step)
        closed = 2 * math.sin(math.pi * end) if end < 0.5 else 2.0
        compare(f"{end:g}", abs(peak(job.history.output(2))) * factor, closed=closed, own=abs(peak(own)))


def t_03(compare):
    P, step, lengths = 100e3, 0.005, (0.5, 1.0, 1.5, 2.0)
    jobs = []
    for length in lengths:
        job = oscillators(f"T-03-{length:g}", 1.0, 0.27027)
        job.pulse(2, P / 1e3, step, 4, peak_time=length / 2)
        jobs.append(job)
    yield jobs
    for job, length in zip(jobs, lengths):
        factor = stiffness(job, 1) / P

        def ramp(t):
            return t - math.sin(TWO_PI * t) / TWO_PI if t > 0 else 0.0

        def exact(t):
            return 2 / length * (ramp(t) - 2 * ramp(t - length / 2) + ramp(t - length))

        loads = [TWO_PI**2 * max(0.0, 1 - abs(k * step / (length / 2) - 1)) for k in range(1, 801)]
        compare(f"{length:g}", peak(job.history.output(2)) * factor, exact=maximum(exact, 4),
                own=peak(newmark_of_one(TWO_PI, 0, loads, step)))


def t_04(compare):
    record = standard_record(3.127624)
    cases = []
    for zeta in (0.02, 0.05):
        for periods in ((0.3, 0.7), (1.5, 3.0)):
            job = oscillators(f"T-04-{zeta:g}-{periods[0]:g}", *periods)
            job.ground_motion(3.127624, 0.02, 31.18, (zeta, zeta))
            cases.append((job, zeta, periods))
    yield [case[0] for case in cases]
    for job, zeta, periods in cases:
        for node, period in zip((2, 4), periods):
            omega = TWO_PI / period
            exact = peak(exact_of_one(omega, zeta, record, 0.02))
            own = peak(newmark_of_one(omega, zeta, record, 0.02))
            compare(f"{period:g}z{zeta:g}", abs(peak(job.history.u(node, "X"))), exact=abs(exact), own=abs(own))


def building_under_motion(stiffnesses, masses, dampings, record, step):
    """Own Newmark solution of a shear building with Rayleigh damping from its first two modes."""
    K, M = shear_building(stiffnesses, masses, bars_of(stiffnesses, E, RHO))
    (first, _), (second, _) = modes_of(K, M)[:2]
    of_mass, of_stiffness = rayleigh(first, second, *dampings)
    C = combine((of_mass, M), (of_stiffness, K))
    inertia = times(M, len(masses) * [1.0])
    return newmark(K, M, C, [[-value * m for m in inertia] for value in record], step)


def t_05(compare):
    job = five_storeys("T-05")
    job.modes(5)
    job.ground_motion(3.127624, 0.02, 31.18, (0.05, 0.05))
    yield job
    own = building_under_motion(5 * [STOREY], 5 * [FLOOR], (0.05, 0.05), standard_record(3.127624), 0.02)
    compare("u", abs(peak(job.history.u(6, "X"))), own=max(abs(u[4]) for u in own))
    compare("V", abs(peak(job.history.N(1))), own=STOREY * max(abs(u[0]) for u in own))


def t_06(compare):
    steps = (0.0056, 0.0028, 0.0014)
    jobs = []
    for number, step in enumerate(steps, 1):
        job = two_masses(f"T-06-{number}")
        job.modes(2)
        job.pulse(3, 100, step, 0.336, unload_time=0.336)
        jobs.append(job)
    yield jobs
    K, M = [[6e6, -2e6], [-2e6, 4e6]], [[2e4, 0.0], [0.0, 1e4]]
    link = RHO * 2e6 / E
    M = combine((1, M), (link, [[3 / 3, 1 / 6], [1 / 6, 2 / 3]]))
    none = [[0.0, 0.0], [0.0, 0.0]]

    def exact(t):
        """Of the book, in its time."""
        return 0.01 * (3 - 5 / 3 * math.cos(math.sqrt(2) * t) - 4 / 3 * math.cos(math.sqrt(5) * t))

    for number, (job, step) in enumerate(zip(jobs, steps), 1):
        own = [u[1] for u in newmark(K, M, none, round(0.336 / step) * [[0.0, 1e5]], step)]
        history = job.history.output(3)
        compare(f"u{number}", peak(history), closed=maximum(exact, 3.36), own=peak(own))
        compare(f"all{number}", worst(history, own), own=0.0)


def t_07(compare):
    driving, end, steps = TWO_PI / 1.6, 3.0, (0.04, 0.02, 0.01)
    jobs, records = [], []
    for step in steps:
        record = [math.sin(driving * k * step) for k in range(1, round(end / step) + 1)]
        job = oscillators(f"T-07-{step:g}", 1.0, 0.4)
        job.ground_motion(max(map(abs, record)), step, end, (0, 0), record)
        jobs.append(job)
        records.append(record)
    yield jobs
    exact = -(math.sin(driving * end) - driving / TWO_PI * math.sin(TWO_PI * end)) / (TWO_PI**2 - driving**2)
    errors = []
    for job, step, record in zip(jobs, steps, records):
        found = job.history.u(2, "X")[-1]
        errors.append(found - exact)
        compare(f"{step:g}", found, exact=exact, own=newmark_of_one(TWO_PI, 0, [-a for a in record], step)[-1])
    compare("ratio1", errors[0] / errors[1], closed=4.0)
    compare("ratio2", errors[1] / errors[2], closed=4.0)


def t_08(compare):
    step, periods = 0.05, (1.0, 0.4)
    job = oscillators("T-08", *periods)
    job.ground_motion(1.0, step, 10, (0, 0), (1.0, 0.0, 0.0))
    yield job
    for node, period in zip((2, 4), periods):
        u = job.history.u(node, "X")
        k = max(range(2, len(u) - 1), key=lambda k: abs(u[k]))
        quotient = (u[k + 1] + u[k - 1]) / u[k]
        turn = 2 * math.atan(math.pi / period * step)
        compare(f"q{period:g}", quotient, closed=2 * math.cos(turn))
        compare(f"T{period:g}", TWO_PI * step / math.acos(quotient / 2), closed=TWO_PI * step / turn)


def decrement(history, count=5):
    """From successive maxima, each of a parabola through three points; the first one is left out."""
    tops = []
    for a, b, c in zip(history, history[1:], history[2:]):
        if a < b >= c and b > 0:
            tops.append(b - (c - a) ** 2 / (8 * (a - 2 * b + c)))
    return math.log(tops[1] / tops[count]) / (count - 1)


def t_09(compare):
    periods, dampings = (1.0, 0.4, 0.25), (0.03, 0.05)
    job = oscillators("T-09", *periods)
    job.ground_motion(2.0, 0.005, 6, dampings, (1.0, 1.0, 0.0))
    yield job
    omegas = [TWO_PI / period for period in periods]
    of_mass, of_stiffness = rayleigh(omegas[0], omegas[1], *dampings)
    for node, period, omega in zip((2, 4, 6), periods, omegas):
        zeta = (of_mass / omega + of_stiffness * omega) / 2
        compare(f"{period:g}", decrement(job.history.u(node, "X")), closed=TWO_PI * zeta / math.sqrt(1 - zeta**2))


COLUMN = 6.0  # m
COLUMN_AREA = 0.02  # m²


def guided_columns(name):
    """Two columns whose heads only move along X, with periods of 1 s and 0.4 s by their own mass; heads are 3 and 4."""
    job = Job(name)
    feet = [job.node(x, 0, 0, CLAMPED) for x in (0, 3)]
    heads = [job.node(x, 0, COLUMN, "011111") for x in (0, 3)]
    for foot, head, period in zip(feet, heads, (1.0, 0.4)):
        I = second_moment(period) * 1e12
        job.beam(foot, head, job.section(COLUMN_AREA * 1e6, I, I, I))
    job.modes(2)
    return job


def second_moment(period):
    square = (TWO_PI / period) ** 2
    return square * 13 * RHO * COLUMN_AREA * COLUMN / 35 / (12 * E / COLUMN**3 - 6 * RHO * square / (5 * COLUMN))


def t_10(compare):
    force, k = 0.1e3, 12 * E * second_moment(1.0) / COLUMN**3
    cases = []
    for method in ("newmark", "wilson"):
        for zeta in (0.0, 0.05):
            for divisions in (20, 80):
                step = 1 / divisions
                loads = [math.sin(TWO_PI * i * step) for i in range(1, 8 * divisions + 1)]
                job = guided_columns(f"T-10-{method}-{zeta:g}-{divisions}")
                job.load_text(3, [force / 1e3 * value for value in loads])
                (job.newmark_of_text if method == "newmark" else job.wilson_of_text)(3, step, 8, (zeta, zeta))
                cases.append((job, method, zeta, divisions, loads))
    yield [case[0] for case in cases]
    for job, method, zeta, divisions, loads in cases:

        def exact(t):
            if zeta == 0:
                return (math.sin(TWO_PI * t) - TWO_PI * t * math.cos(TWO_PI * t)) / 2
            root = math.sqrt(1 - zeta**2)
            wd = TWO_PI * root * t
            free = math.exp(-zeta * TWO_PI * t) * (math.cos(wd) + zeta / root * math.sin(wd))
            return (free - math.cos(TWO_PI * t)) / (2 * zeta)

        history = [u * k / force for u in job.history.output(3)]
        if method == "newmark":
            own = newmark_of_one(TWO_PI, zeta, [TWO_PI**2 * value for value in loads], 1 / divisions)
        else:
            own = wilson(TWO_PI**2, 1.0, 2 * zeta * TWO_PI, [TWO_PI**2 * value for value in loads], 1 / divisions, 1.4)
        key = f"{method[0]}{zeta:g}-{divisions}"
        compare(key, abs(peak(history)), own=abs(peak(own)), exact=maximum(exact, 8))
        compare("all" + key, worst(history, own), own=0.0)


def t_11(compare):
    end, force, k = 0.8, 0.5e3, 12 * E * second_moment(1.0) / COLUMN**3
    cases = []
    for theta in (1.4, 2.0):
        for divisions in (10, 20, 40, 80):
            step = 1 / divisions
            loads = [math.sin(math.pi * i * step / end) * (i * step < end - 1e-9) for i in range(1, 2 * divisions + 1)]
            job = guided_columns(f"T-11-{theta:g}-{divisions}")
            job.load_text(3, [force / 1e3 * value for value in loads])
            job.wilson_of_text(3, step, 2, theta=theta)
            cases.append((job, theta, divisions, loads))
    yield [case[0] for case in cases]
    beta = 1 / (2 * end)
    exact = maximum(lambda t: (math.sin(math.pi * t / end) - beta * math.sin(TWO_PI * t)) / (1 - beta**2), end)
    for job, theta, divisions, loads in cases:
        own = wilson(TWO_PI**2, 1.0, 0.0, [TWO_PI**2 * value for value in loads], 1 / divisions, theta)
        compare(f"{theta:g}-{divisions}", peak(job.history.output(3)) * k / force, own=peak(own), exact=exact)


def t_12(compare):
    job = Job("T-12")
    largest, step, end, periods = 2.5, 0.02, 15.0, (0.7, 1.5)
    job.oscillator(periods[0])
    square = (TWO_PI / periods[1]) ** 2
    foot = job.node(3, 0, 0, HINGED, pinned=True)
    head = job.node(3, 1, 0, "101000", pinned=True)
    job.bar(foot, head, job.section(square * 1e4 / (E - RHO * square / 3) * 1e6))
    job.mass(head, 1e4)
    job.modes(2)
    job.ground_motion(largest, step, end, (0.05, 0.05), axis=(3, 4, 0))
    yield job
    record = standard_record(largest)[:round(end / step)]
    for node, axis, period, share in ((2, "X", periods[0], 0.6), (4, "Y", periods[1], 0.8)):
        omega = TWO_PI / period
        compare(axis, abs(peak(job.history.u(node, axis))),
                exact=share * abs(peak(exact_of_one(omega, 0.05, record, step))),
                own=share * abs(peak(newmark_of_one(omega, 0.05, record, step))))


def t_13(compare):
    job = two_storeys("T-13")
    largest, step, end, dampings = 3.0, 0.02, 20.0, (0.02, 0.05)
    job.modes(2)
    job.ground_motion(largest, step, end, dampings)
    yield job
    stiffnesses, masses = (4.8e6, 2.4e6), (4e4, 2e4)
    record = standard_record(largest)[:round(end / step)]
    own = building_under_motion(stiffnesses, masses, dampings, record, step)
    parts = []
    for (omega, shape), zeta in zip(modes_of(*shear_building(stiffnesses, masses)), dampings):
        gamma = sum(m * p for m, p in zip(masses, shape))
        parts.append([[gamma * p * q for p in shape] for q in exact_of_one(omega, zeta, [-a for a in record], step)])
    exact = [combine((1, a), (1, b)) for a, b in zip(*parts)]

    def quantities(u):
        return {"u2": u[0], "u3": u[1], "N1": stiffnesses[0] * u[0], "N2": stiffnesses[1] * (u[1] - u[0])}

    history = job.history
    found = {"u2": history.u(2, "X"), "u3": history.u(3, "X"), "N1": history.N(1), "N2": history.N(2)}
    for key, values in found.items():
        compare(key, abs(peak(values)), exact=max(abs(quantities(u)[key]) for u in exact),
                own=max(abs(quantities(u)[key]) for u in own))


def t_14(compare):
    half_span, rise, area, step = 2.5, 1.0, 700.0, 0.02
    job = arch("T-14", half_span, rise, area, 400)
    job.nodes[1]["restraint"] = "110000"
    job.modes(1, combination={"0": 1})
    job.ground_motion(1.0, step, 6, (0, 0), (1.0, 0.0, 0.0), direction="Z", nonlinear=True, criterion="force_rel",
                      tolerance=1e-10, max_iterations=1000, combination={"0": 1})
    yield job
    w = 0.0
    for _ in range(100):  # Newton's method for the apex at rest
        slope = (apex_load(w + 1e-6, half_span, rise, area) - apex_load(w - 1e-6, half_span, rise, area)) / 2e-6
        w -= (apex_load(w, half_span, rise, area) - 400e3) / slope
    length = math.hypot(half_span, rise)
    tangent = E * area * 1e-6 * (2 * rise**2 + 6 * rise * w + 3 * w**2) / length**3
    mass = 400e3 / 9.81 + 2 * RHO * area * 1e-6 * length / 3
    # u(k+1) + u(k-1) is a straight line over u(k); its slope and the point that stays are fitted.
    u = job.history.u(2, "Z")[2:]
    x, y = u[1:-1], [a + b for a, b in zip(u, u[2:])]
    mean_x, mean_y = sum(x) / len(x), sum(y) / len(y)
    slope = sum((a - mean_x) * (b - mean_y) for a, b in zip(x, y)) / sum((a - mean_x) ** 2 for a in x)
    turn = math.acos(slope / 2)
    compare("w", (mean_y - slope * mean_x) / (2 - slope), closed=w)
    compare("omega", 2 / step * math.tan(turn / 2), closed=math.sqrt(tangent / mass))


def t_15(compare):
    """Nodal mass and Wilson's method, which leaves it out: only the bar's own few grams are left."""
    end, divisions, force = 0.8, 80, 1e4
    job = oscillators("T-15", 1.0, 0.4)
    loads = [math.sin(math.pi * i / divisions / end) * (i / divisions < end - 1e-9) for i in range(1, 2 * divisions + 1)]
    job.load_text(2, [force / 1e3 * value for value in loads])
    job.wilson_of_text(2, 1 / divisions, 2)
    yield job
    beta = 1 / (2 * end)
    with_mass = maximum(lambda t: (math.sin(math.pi * t / end) - beta * math.sin(TWO_PI * t)) / (1 - beta**2), end)
    compare("u", peak(job.history.output(2)) * stiffness(job, 1) / force, exact=with_mass, method=1.0)


PROBLEMS = (t_01, t_02, t_03, t_04, t_05, t_06, t_07, t_08, t_09, t_10, t_11, t_12, t_13, t_14, t_15)
