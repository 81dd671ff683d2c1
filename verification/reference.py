"""Independent references: integrators, the exact solution for piecewise linear loads, the design spectrum, modal
combination. Written from the sources that the problems name; nothing here comes from the program."""

import math


def solve(matrix, right):
    """Gaussian elimination with pivoting."""
    rows = [list(row) + [value] for row, value in zip(matrix, right)]
    n = len(rows)
    for k in range(n):
        pivot = max(range(k, n), key=lambda i: abs(rows[i][k]))
        rows[k], rows[pivot] = rows[pivot], rows[k]
        for i in range(k + 1, n):
            factor = rows[i][k] / rows[k][k]
            rows[i] = [a - factor * b for a, b in zip(rows[i], rows[k])]
    x = [0.0] * n
    for k in reversed(range(n)):
        x[k] = (rows[k][n] - sum(rows[k][j] * x[j] for j in range(k + 1, n))) / rows[k][k]
    return x


def times(matrix, vector):
    return [sum(a * b for a, b in zip(row, vector)) for row in matrix]


def combine(*terms):
    """Sum of factor × matrix or factor × vector."""
    if isinstance(terms[0][1][0], list):
        return [[sum(f * m[i][j] for f, m in terms) for j in range(len(terms[0][1]))] for i in range(len(terms[0][1]))]
    return [sum(f * v[i] for f, v in terms) for i in range(len(terms[0][1]))]


def truss(nodes, bars, loads):
    """Displacements (m) and bar forces (N) of a space truss. A node: place and three flags of held directions; a bar:
    its ends from 0 and EA (N); a load: node from 0, direction 0 … 2, N."""
    free = [(n, d) for n, (_, held) in enumerate(nodes) for d in range(3) if not held[d]]
    place = {freedom: k for k, freedom in enumerate(free)}
    K = [[0.0] * len(free) for _ in free]
    rows = []
    for i, j, EA in bars:
        arm = [b - a for a, b in zip(nodes[i][0], nodes[j][0])]
        length = math.hypot(*arm)
        row = {place[end, d]: sign * arm[d] / length
               for end, sign in ((i, -1), (j, 1)) for d in range(3) if (end, d) in place}
        rows.append((row, EA / length))
        for p, a in row.items():
            for q, b in row.items():
                K[p][q] += EA / length * a * b
    P = [0.0] * len(free)
    for node, d, value in loads:
        P[place[node, d]] += value
    u = solve(K, P)
    displacements = [[u[place[n, d]] if (n, d) in place else 0.0 for d in range(3)] for n in range(len(nodes))]
    return displacements, [k * sum(c * u[p] for p, c in row.items()) for row, k in rows]


def shear_building(stiffnesses, masses, bar_masses=None):
    """K and M of storeys in a row; bar masses are consistent."""
    n = len(masses)
    K = [[0.0] * n for _ in range(n)]
    M = [[masses[i] if i == j else 0.0 for j in range(n)] for i in range(n)]
    for storey, (k, m) in enumerate(zip(stiffnesses, bar_masses or [0.0] * n)):
        ends = [storey - 1, storey] if storey else [storey]
        for i in ends:
            for j in ends:
                K[i][j] += k if i == j else -k
                M[i][j] += m / 3 if i == j else m / 6
    return K, M


def bars_of(stiffnesses, E, rho):
    """Masses of bars of 1 m with these stiffnesses."""
    return [rho * k / E for k in stiffnesses]


def rayleigh(omega1, omega2, damping1, damping2):
    """Factors of M and K."""
    d = omega1**2 - omega2**2
    return (2 * omega1 * omega2 * (damping2 * omega1 - damping1 * omega2) / d,
            2 * (damping1 * omega1 - damping2 * omega2) / d)


def newmark(K, M, C, loads, dt):
    """Average acceleration, from rest with no acceleration; loads[k] acts at the end of step k + 1. Bathe, 9.2.4."""
    n = len(M)
    u, v, a = [0.0] * n, [0.0] * n, [0.0] * n
    effective = combine((1, K), (4 / dt**2, M), (2 / dt, C))
    history = []
    for load in loads:
        inertia = times(M, combine((4 / dt**2, u), (4 / dt, v), (1, a)))
        damping = times(C, combine((2 / dt, u), (1, v)))
        new = solve(effective, combine((1, load), (1, inertia), (1, damping)))
        acceleration = combine((4 / dt**2, new), (-4 / dt**2, u), (-4 / dt, v), (-1, a))
        v = combine((1, v), (dt / 2, a), (dt / 2, acceleration))
        u, a = new, acceleration
        history.append(u)
    return history


def wilson(k, m, c, loads, dt, theta):
    """Of one degree of freedom, from rest with no acceleration and no load. Bathe, 9.2.3."""
    tau = theta * dt
    u = v = a = before = 0.0
    history = []
    for load in loads:
        effective = k + 6 * m / tau**2 + 3 * c / tau
        right = (before + theta * (load - before) + m * (6 * u / tau**2 + 6 * v / tau + 2 * a)
                 + c * (3 * u / tau + 2 * v + tau * a / 2))
        far = right / effective
        far_acceleration = 6 / tau**2 * (far - u) - 6 / tau * v - 2 * a
        new = a + (far_acceleration - a) / theta
        u += dt * v + dt**2 / 6 * (new + 2 * a)
        v += dt / 2 * (new + a)
        a, before = new, load
        history.append(u)
    return history


def newmark_of_one(omega, zeta, accelerations, dt):
    """u'' + 2ζωu' + ω²u = accelerations."""
    loads = [[value] for value in accelerations]
    return [u[0] for u in newmark([[omega**2]], [[1.0]], [[2 * zeta * omega]], loads, dt)]


def exact_of_one(omega, zeta, accelerations, dt, parts=10):
    """The same for loads that are straight lines between the steps, exactly, at each tenth of a step: the recurrence of
    Nigam and Jennings as Chopra prints it."""
    h = dt / parts
    root = math.sqrt(1 - zeta**2)
    wd = omega * root
    e, s, c = math.exp(-zeta * omega * h), math.sin(wd * h), math.cos(wd * h)
    square, wh = omega**2, omega * h
    A = e * (zeta / root * s + c)
    B = e * s / wd
    C = (2 * zeta / wh + e * (((1 - 2 * zeta**2) / (wd * h) - zeta / root) * s - (1 + 2 * zeta / wh) * c)) / square
    D = (1 - 2 * zeta / wh + e * ((2 * zeta**2 - 1) / (wd * h) * s + 2 * zeta / wh * c)) / square
    A1 = -e * omega / root * s
    B1 = e * (c - zeta / root * s)
    C1 = (-1 / h + e * ((omega / root + zeta / (h * root)) * s + c / h)) / square
    D1 = (1 - e * (zeta / root * s + c)) / (square * h)
    u = v = before = 0.0
    history = []
    for value in accelerations:
        for part in range(parts):
            p = before + (value - before) * part / parts
            q = before + (value - before) * (part + 1) / parts
            u, v = A * u + B * v + C * p + D * q, A1 * u + B1 * v + C1 * p + D1 * q
            history.append(u)
        before = value
    return history


def modes_of(K, M):
    """ω and mass-normalised shapes: Jacobi's method on M^-1/2 K M^-1/2 by way of Cholesky, for small matrices."""
    n = len(K)
    L = [[0.0] * n for _ in range(n)]
    for i in range(n):
        for j in range(i + 1):
            rest = M[i][j] - sum(L[i][k] * L[j][k] for k in range(j))
            L[i][j] = math.sqrt(rest) if i == j else rest / L[j][j]
    half = [solve(L, [K[i][j] for i in range(n)]) for j in range(n)]  # columns of L^-1 K
    A = [solve(L, [half[j][i] for j in range(n)]) for i in range(n)]
    V = [[float(i == j) for j in range(n)] for i in range(n)]
    for _ in range(60):
        for p in range(n):
            for q in range(p + 1, n):
                if abs(A[p][q]) < 1e-18 * math.sqrt(abs(A[p][p] * A[q][q])):
                    continue
                angle = 0.5 * math.atan2(2 * A[p][q], A[q][q] - A[p][p])
                c, s = math.cos(angle), math.sin(angle)
                for row in (A, V):
                    for k in range(n):
                        row[k][p], row[k][q] = c * row[k][p] - s * row[k][q], s * row[k][p] + c * row[k][q]
                for k in range(n):
                    A[p][k], A[q][k] = c * A[p][k] - s * A[q][k], s * A[p][k] + c * A[q][k]
    upper = [[L[j][i] for j in range(n)] for i in range(n)]
    pairs = [(math.sqrt(A[k][k]), solve(upper, [V[i][k] for i in range(n)])) for k in range(n)]
    return sorted(pairs, key=lambda pair: pair[0])


def bisect(function, low, high, halvings=100):
    """Root of a function that changes its sign once."""
    sign = function(low) > 0
    for _ in range(halvings):
        middle = (low + high) / 2
        low, high = (middle, high) if (function(middle) > 0) == sign else (low, middle)
    return (low + high) / 2


ALPHA_MAX = {"frequent": {"6 (0.05g)": 0.04, "7 (0.10g)": 0.08, "7 (0.15g)": 0.12, "8 (0.20g)": 0.16, "8 (0.30g)": 0.24,
                          "9 (0.40g)": 0.32},
             "rare": {"7 (0.10g)": 0.50, "7 (0.15g)": 0.72, "8 (0.20g)": 0.90, "8 (0.30g)": 1.20, "9 (0.40g)": 1.40}}
CHARACTERISTIC_PERIOD = {1: (0.25, 0.35, 0.45, 0.65), 2: (0.30, 0.40, 0.55, 0.75), 3: (0.35, 0.45, 0.65, 0.90)}


def design_spectrum(period, intensity, level, site_class, zone_group, zeta):
    """α of GB 50011—2001, clause 5.1.5."""
    alpha_max = ALPHA_MAX[level][intensity]
    tg = CHARACTERISTIC_PERIOD[zone_group][site_class - 1]
    gamma = 0.9 + (0.05 - zeta) / (0.5 + 5 * zeta)
    eta1 = max(0.0, 0.02 + (0.05 - zeta) / 8)
    eta2 = max(0.55, 1 + (0.05 - zeta) / (0.06 + 1.7 * zeta))
    if period >= 6:
        return 0.0
    if period < 0.1:
        return alpha_max * (0.45 + (eta2 - 0.45) * period / 0.1)
    if period <= tg:
        return alpha_max * eta2
    if period <= 5 * tg:
        return alpha_max * eta2 * (tg / period) ** gamma
    return alpha_max * (eta2 * 0.2**gamma - eta1 * (period - 5 * tg))


def correlation(omega_i, omega_j, zeta):
    """ρ of CQC for equal damping."""
    r = omega_j / omega_i
    return 8 * zeta**2 * (1 + r) * r**1.5 / ((1 - r**2) ** 2 + 4 * zeta**2 * r * (1 + r) ** 2)


def modal_combination(rule, values, omegas, zeta):
    total = sum(value**2 for value in values)
    for i, a in enumerate(values):
        for j, b in enumerate(values):
            if i == j:
                continue
            if rule == "CQC":
                total += correlation(omegas[i], omegas[j], zeta) * a * b
            if rule == "GRP" and abs(omegas[j] - omegas[i]) / omegas[i] <= 0.1:
                total += abs(a * b)
    return math.sqrt(total)
