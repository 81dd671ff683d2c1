"""Geometrically nonlinear statics, with what the method cannot do at the end."""

import math

from reference import bisect
from structure import CLAMPED, E, G, HINGED, IN_PLANE, INCH, KIP, KSI, Job

def bent_line(EI, EA, L, P, H, w=0.0):
    """A clamped line of this length with the dead forces P along it (pressure), H across it and w a metre across it
    against H, at finite displacements and with axial strain: how far its end moves across and along, moment at the
    clamp. Runge and Kutta from the free end, whose slope is found by shooting."""
    steps = 400

    def rate(s, angle, moment):
        across = H - w * s
        stretch = 1 + (across * math.sin(angle) - P * math.cos(angle)) / EA
        return (-moment / EI, stretch * (across * math.cos(angle) + P * math.sin(angle)), stretch * math.sin(angle),
                stretch * math.cos(angle))

    def shoot(slope):
        h = L / steps
        state = (slope, 0.0, 0.0, 0.0)
        for k in range(steps):
            k1 = rate(k * h, *state[:2])
            k2 = rate((k + 0.5) * h, *(a + h / 2 * b for a, b in zip(state[:2], k1)))
            k3 = rate((k + 0.5) * h, *(a + h / 2 * b for a, b in zip(state[:2], k2)))
            k4 = rate((k + 1) * h, *(a + h * b for a, b in zip(state[:2], k3)))
            state = tuple(a + h / 6 * (p + 2 * q + 2 * r + t) for a, p, q, r, t in zip(state, k1, k2, k3, k4))
        return state

    slope = bisect(lambda slope: shoot(slope)[0], 0.0, math.pi / 2, 40)
    _, moment, across, along = shoot(slope)
    return across, L - along, moment


MM4_OF_IN4 = (INCH * 1e3) ** 4


def arch(name, half_span, rise, area, load):
    """Two bars; feet 1 and 3, apex 2."""
    job = Job(name)
    job.node(-half_span, 0, 0, HINGED, pinned=True)
    job.node(0, 0, rise, "010000", pinned=True)
    job.node(half_span, 0, 0, HINGED, pinned=True)
    section = job.section(area)
    job.bar(1, 2, section)
    job.bar(2, 3, section)
    job.load(2, "Z", load)
    return job


def apex_load(w, half_span, rise, area):
    """Load (N) that moves the apex by w upwards, by the Green strain of both bars."""
    return E * area * 1e-6 * (2 * rise * w + w**2) * (rise + w) / math.hypot(half_span, rise) ** 3


def arch_force(w, half_span, rise, area):
    """Force (N) of a bar along its present axis when the apex is w higher."""
    before, after = math.hypot(half_span, rise), math.hypot(half_span, rise + w)
    return E * area * 1e-6 * (after**2 - before**2) / (2 * before**2) * after / before


def n_01(compare):
    half_span, rise, area = 3.0, 0.6, 900.0
    loads = (215.3, 430.6, 511.4)
    jobs = [arch(f"N-01{letter}", half_span, rise, area, -load) for letter, load in zip("abc", loads)]
    for job in jobs:
        job.nonlinear(1e-10)
    yield jobs
    limit_point = rise * (1 - 1 / math.sqrt(3))
    for key, job, load in zip("abc", jobs, loads):
        w = bisect(lambda w: -apex_load(-w, half_span, rise, area) - 1e3 * load, 0, limit_point)
        compare("w" + key, job.second_order.u(2, "Z"), closed=-w)
        compare("N" + key, job.second_order.N(1), closed=arch_force(-w, half_span, rise, area))


def n_02(compare):
    half_span, rise, area = 2.5, 1.0, 700.0
    loads = (60.0, 400.0)
    jobs = [arch(f"N-02{letter}", half_span, rise, area, load) for letter, load in zip("ab", loads)]
    for job in jobs:
        job.nonlinear(1e-10)
    yield jobs
    for key, job, load in zip("ab", jobs, loads):
        w = bisect(lambda w: apex_load(w, half_span, rise, area) - 1e3 * load, 0, 1)
        compare("w" + key, job.second_order.u(2, "Z"), closed=w)
        compare("N" + key, job.second_order.N(1), closed=arch_force(w, half_span, rise, area))


W14 = dict(area=14.1 * 29000 * KSI / E * 645.16, I=484 * 29000 * KSI / E * MM4_OF_IN4)
HEIGHT = 28 * 12 * INCH


def n_03(compare):
    jobs = []
    for load in (100, 150, 200):
        job = Job(f"N-03-{load}")
        nodes = job.line((0, 0, 0), (0, 0, HEIGHT), 16, job.section(W14["area"], W14["I"], W14["I"], W14["I"]), CLAMPED,
                         IN_PLANE, IN_PLANE)
        job.load(nodes[-1], "X", KIP)
        job.load(nodes[-1], "Z", -load * KIP)
        job.nonlinear()
        jobs.append(job)
    yield jobs
    EI, H, L = E * W14["I"] * 1e-12, KIP * 1e3, HEIGHT
    for job, load in zip(jobs, (100, 150, 200)):
        P = load * KIP * 1e3
        k = math.sqrt(P / EI)
        u = k * L
        sway, _, moment = bent_line(EI, E * W14["area"] * 1e-6, L, P, H)
        compare(f"u{load}", job.second_order.u(17, "X"), closed=H * (math.tan(u) - u) / (k * P), exact=sway)
        compare(f"M{load}", abs(job.second_order.force(1, "MZX", "i")), closed=H * math.tan(u) / k, exact=moment)


def n_04(compare):
    w = 0.2 * KIP / 12 / INCH  # kN/m
    jobs = []
    for load in (150, 300, 450):
        job = Job(f"N-04-{load}")
        section = job.section(W14["area"], W14["I"], W14["I"], W14["I"])
        nodes = job.line((0, 0, 0), (0, 0, HEIGHT), 20, section, "111101", "110101", IN_PLANE)
        for node in nodes[1:-1]:
            job.load(node, "X", w * HEIGHT / 20)
        job.load(nodes[-1], "Z", -load * KIP)
        job.nonlinear()
        jobs.append(job)
    yield jobs
    EI, L = E * W14["I"] * 1e-12, HEIGHT
    for job, load in zip(jobs, (150, 300, 450)):
        u = L / 2 * math.sqrt(load * KIP * 1e3 / EI)
        # Half of it, clamped at the middle: the support's force across at the end, the load against it along the line.
        middle, _, moment = bent_line(EI, E * W14["area"] * 1e-6, L / 2, load * KIP * 1e3, w * 1e3 * L / 2, w * 1e3)
        compare(f"u{load}", job.second_order.u(11, "X"), exact=middle,
                closed=5 * w * 1e3 * L**4 / (384 * EI) * 12 * (2 / math.cos(u) - u**2 - 2) / (5 * u**4))
        compare(f"M{load}", abs(job.second_order.force(10, "MZX", "j")), exact=moment,
                closed=w * 1e3 * L**2 / 8 * 2 * (1 / math.cos(u) - 1) / u**2)


def n_05(compare):
    job = Job("N-05")
    h, L, Ic, Ib, P, H = 5.0, 6.0, 6e7, 9e7, 400e3, 5e3
    column, beam = job.section(12000, Ic, 1e7, 1e6), job.section(12000, Ib, 1e7, 1e6)
    left = job.line((0, 0, 0), (0, 0, h), 12, column, CLAMPED, IN_PLANE, IN_PLANE)
    right = job.line((L, 0, 0), (L, 0, h), 12, column, CLAMPED, IN_PLANE, IN_PLANE)
    job.line((0, 0, h), (L, 0, h), 6, beam, left[-1], right[-1], IN_PLANE)
    for corner in (left[-1], right[-1]):
        job.load(corner, "X", H / 1e3)
        job.load(corner, "Z", -P / 1e3)
    job.nonlinear()
    yield job
    # A column: v = a sin kz + b cos kz + c z - b, clamped below, shear H and the beam's 6EI/L above.
    EI, S = E * Ic * 1e-12, 6 * E * Ib * 1e-12 / L
    k = math.sqrt(P / EI)
    a, c = H / (P * k), -H / P
    sine, cosine = math.sin(k * h), math.cos(k * h)
    b = (S * (a * k * cosine + c) - P * a * sine) / (P * cosine + S * k * sine)
    result = job.second_order
    compare("u", result.u(left[-1], "X"), closed=a * sine + b * cosine + c * h - b)
    compare("M", (abs(result.force(1, "MZX", "i")) + abs(result.force(13, "MZX", "i"))) / 2, closed=abs(P * b))


def slender_cantilever(name, area, I, L, count, load):
    job = Job(name)
    nodes = job.line((0, 0, 0), (L, 0, 0), count, job.section(area, I, I, I), CLAMPED, IN_PLANE, IN_PLANE)
    job.load(nodes[-1], "Z", -load)
    job.nonlinear(1e-8)
    return job


def n_06(compare):
    L, I = 4.0, 3e6
    alpha = 2.0
    job = slender_cantilever("N-06", 20000, I, L, 40, alpha * E * I * 1e-12 / L**2 / 1e3)
    yield job
    w, u, _ = bent_line(1.0, 1e12, 1.0, 0.0, alpha)
    log = job.text("_run.log")
    compare.refused("w", log, "no-convergence", exact=w)
    compare.refused("u", log, "no-convergence", exact=u)


def column(name, count, ratio):
    """A cantilever column of 5 m at this share of its critical load, 1 kN at its top."""
    job = Job(name)
    L, I = 5.0, 4e7
    critical = math.pi**2 * E * I * 1e-12 / (4 * L**2)
    nodes = job.line((0, 0, 0), (0, 0, L), count, job.section(10000, I, I, I), CLAMPED, IN_PLANE, IN_PLANE)
    job.load(nodes[-1], "X", 1)
    job.load(nodes[-1], "Z", -ratio * critical / 1e3)
    job.nonlinear(1e-8)
    return job, L, E * I * 1e-12, ratio * critical, nodes[-1]


def n_07(compare):
    one = [column(f"N-07-{ratio}", 1, ratio) for ratio in (0.6, 0.8)]
    many = [column(f"N-07-{ratio}-16", 16, ratio) for ratio in (0.6, 0.8)]
    yield [case[0] for case in one + many]
    for key, cases in (("one", one), ("many", many)):
        for (job, L, EI, P, top), ratio in zip(cases, ("6", "8")):
            k = math.sqrt(P / EI)
            exact = 1e3 * (math.tan(k * L) - k * L) / (k * P)
            compare(key + ratio, job.second_order.u(top, "X"), exact=exact,
                    **({"method": 1e3 / (3 * EI / L**3 - P / L)} if key == "one" else {}))


def n_08(compare):
    """A narrow cantilever under a tip load above the one at which it gives way sideways."""
    job = Job("N-08")
    L, b, h, side = 2.0, 10.0, 200.0, 0.001
    Iy, Iz, J = b * h**3 / 12, h * b**3 / 12, h * b**3 / 3
    critical = 4.013 * math.sqrt(E * Iz * 1e-12 * G * J * 1e-12) / L**2
    nodes = job.line((0, 0, 0), (L, 0, 0), 16, job.section(b * h, Iy, Iz, J), first=CLAMPED)
    job.load(nodes[-1], "Z", -1.2 * critical / 1e3)
    job.load(nodes[-1], "Y", side)
    job.nonlinear(1e-9)
    yield job
    compare("v", job.second_order.u(nodes[-1], "Y"), method=side * 1e3 * L**3 / (3 * E * Iz * 1e-12))
    compare("w", job.second_order.u(nodes[-1], "Z"), method=-1.2 * critical * L**3 / (3 * E * Iy * 1e-12))


PROBLEMS = (n_01, n_02, n_03, n_04, n_05, n_06, n_07, n_08)
