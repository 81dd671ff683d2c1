"""Frames computed independently: member matrices by Gauss integration of shape functions, the profile factorised by
Cholesky's method, modes by subspace iteration. What the tables call an own computation of a frame comes from here."""

import math
import random

from reference import modes_of
from structure import E, G, RHO

FIVE_POINTS = ((-0.906179845938664, 0.236926885056189), (-0.538469310105683, 0.478628670499366),
               (0.0, 0.568888888888889), (0.538469310105683, 0.478628670499366), (0.906179845938664, 0.236926885056189))
GAUSS = [(0.5 + place / 2, weight / 2) for place, weight in FIVE_POINTS]
SHEAR_FACTOR = {1: 2.0, 2: 1.2, 3: 1.0}


def _bending(x, L, phi):
    """Deflection, rotation, curvature × 1 and shear strain of (v_i, θ_i, v_j, θ_j) at x of 0 … 1."""
    f = 1 / (1 + phi)
    v = (f * (1 - 3 * x**2 + 2 * x**3 + phi * (1 - x)), f * L * (x - 2 * x**2 + x**3 + phi / 2 * (x - x**2)),
         f * (3 * x**2 - 2 * x**3 + phi * x), f * L * (-(x**2) + x**3 - phi / 2 * (x - x**2)))
    slope = (f / L * (-6 * x + 6 * x**2 - phi), f * (1 - 4 * x + 3 * x**2 + phi / 2 * (1 - 2 * x)),
             f / L * (6 * x - 6 * x**2 + phi), f * (-2 * x + 3 * x**2 - phi / 2 * (1 - 2 * x)))
    turn = (f / L * (-6 * x + 6 * x**2), f * (1 - 4 * x + 3 * x**2 + phi * (1 - x)), f / L * (6 * x - 6 * x**2),
            f * (-2 * x + 3 * x**2 + phi * x))
    bent = (f / L**2 * (-6 + 12 * x), f / L * (-4 + 6 * x - phi), f / L**2 * (6 - 12 * x), f / L * (-2 + 6 * x + phi))
    return v, turn, bent, [a - b for a, b in zip(slope, turn)]


def _matrices(L, section, with_shear):
    """K and M of a member in its own axes, degrees of freedom u v w θx θy θz at both ends (m², m⁴)."""
    A, J = section["area"] * 1e-6, section["Ix"] * 1e-12
    K, M = ([[0.0] * 12 for _ in range(12)] for _ in range(2))
    planes = (((1, 5, 7, 11), section["Iz"], (1, 1, 1, 1)), ((2, 4, 8, 10), section["Iy"], (1, -1, 1, -1)))

    def add(matrix, places, factor, left, signs):
        for a, p in enumerate(places):
            for b, q in enumerate(places):
                matrix[p][q] += factor * left[a] * left[b] * signs[a] * signs[b]

    for x, weight in GAUSS:
        for places, stiffness, mass in (((0, 6), E * A, RHO * A), ((3, 9), G * J, RHO * J)):
            add(K, places, weight * L * stiffness, (-1 / L, 1 / L), (1, 1))
            add(M, places, weight * L * mass, (1 - x, x), (1, 1))
        for places, I, signs in planes:
            I *= 1e-12
            kappa = SHEAR_FACTOR[section["shape"]]
            phi = 12 * kappa * E * I / (G * A * L**2) if with_shear else 0.0
            v, turn, bent, shear = _bending(x, L, phi)
            add(K, places, weight * L * E * I, bent, signs)
            add(M, places, weight * L * RHO * A, v, signs)
            add(M, places, weight * L * RHO * I, turn, signs)
            if with_shear:
                add(K, places, weight * L * G * A / kappa, shear, signs)
    return K, M


def _axes(start, end):
    """Local axes: x along the member, y level."""
    d = [b - a for a, b in zip(start, end)]
    L = math.hypot(*d)
    x = [c / L for c in d]
    plan = math.hypot(x[0], x[1])
    y = [-x[1] / plan, x[0] / plan, 0.0] if plan > 1e-9 else [0.0, 1.0, 0.0]
    z = [x[1] * y[2] - x[2] * y[1], x[2] * y[0] - x[0] * y[2], x[0] * y[1] - x[1] * y[0]]
    return L, (x, y, z)


class Frame:
    """Of a job of beams and bars; hinged beams get free rotations of their nodes by `restraints` (node: digits)."""

    def __init__(self, job, with_shear=False, restraints=None):
        self.job = job
        self.places = {}
        for node in job.nodes:
            digits = (restraints or {}).get(node["id"], node["restraint"])
            pinned = node["joint"] == "pinned" and digits == node["restraint"]
            for d, digit in enumerate(digits[:3] if pinned else digits):
                if digit == "0":
                    self.places[node["id"], d] = len(self.places)
        n = len(self.places)
        self.K, self.M = ([{} for _ in range(n)] for _ in range(2))
        sections = {section["id"]: section for section in job.sections}
        self.members = []
        for element in job.elements:
            ends = [[job.nodes[element[end] - 1][c] for c in "xyz"] for end in "ij"]
            L, axes = _axes(*ends)
            section = sections[element["section"]]
            if element["type"] == "beam":
                K, M = _matrices(L, section, with_shear)
            else:
                K, M = self._bar(L, section["area"] * 1e-6)
            T = [[0.0] * 12 for _ in range(12)]
            for block in range(0, 12, 3):
                for r in range(3):
                    T[block + r][block:block + 3] = axes[r]
            freedoms = [self.places.get((element[end], d)) for end in "ij" for d in range(6)]
            self.members.append((K, T, freedoms))
            for target, local in ((self.K, K), (self.M, M)):
                half = [[sum(row[k] * T[k][q] for k in range(12) if row[k]) for q in range(12)] for row in local]
                for p, row in enumerate(freedoms):
                    for q, column in enumerate(freedoms):
                        if row is not None and column is not None:
                            value = sum(T[k][p] * half[k][q] for k in range(12) if T[k][p])
                            if value:
                                target[row][column] = target[row].get(column, 0.0) + value
        for load in job.loads:
            if load["case"] == 1:
                for d in range(3):
                    place = self.places.get((load["node"], d))
                    if place is not None:
                        self.M[place][place] = self.M[place].get(place, 0.0) + load["value"] * 1e3 / 9.81
        self._factorise()

    @staticmethod
    def _bar(L, A):
        K, M = ([[0.0] * 12 for _ in range(12)] for _ in range(2))
        for p in (0, 6):
            for q in (0, 6):
                K[p][q] = E * A / L * (1 if p == q else -1)
                for d in range(3):
                    M[p + d][q + d] = RHO * A * L / (3 if p == q else 6)
        return K, M

    def _factorise(self):
        """Rows of Cholesky's L from their first entry on."""
        self.first = [min([i, *row]) for i, row in enumerate(self.K)]
        self.L = []
        for i, row in enumerate(self.K):
            start = self.first[i]
            line = []
            for j in range(start, i):
                low = max(start, self.first[j])
                above = self.L[j][low - self.first[j]:-1]
                line.append((row.get(j, 0.0) - sum(map(float.__mul__, line[low - start:], above))) / self.L[j][-1])
            line.append(math.sqrt(row[i] - sum(value * value for value in line)))
            self.L.append(line)

    def solve(self, right):
        x = list(right)
        for i, line in enumerate(self.L):
            start = self.first[i]
            x[i] = (x[i] - sum(map(float.__mul__, line[:-1], x[start:i]))) / line[-1]
        for i in reversed(range(len(x))):
            line, start = self.L[i], self.first[i]
            x[i] /= line[-1]
            for k, value in enumerate(line[:-1], start):
                x[k] -= value * x[i]
        return x

    def displaced(self):
        """Displacements under case 0: a function of node and direction."""
        names = ("X", "Y", "Z", "RX", "RY", "RZ")
        right = [0.0] * len(self.places)
        for load in self.job.loads:
            if load["case"] == 0:
                right[self.places[load["node"], names.index(load["direction"])]] += load["value"] * 1e3
        self.u = self.solve(right)
        return lambda node, direction: self.u[self.places[node, names.index(direction)]]

    def end_force(self, element, place):
        """Force of the member's own degree of freedom, from 0, after `displaced`."""
        K, T, freedoms = self.members[element - 1]
        u = [0.0 if p is None else self.u[p] for p in freedoms]
        local = [sum(T[k][q] * u[q] for q in range(12)) for k in range(12)]
        return sum(a * b for a, b in zip(K[place], local))

    def frequencies(self, count):
        """Hz, by subspace iteration."""
        n, size = len(self.places), min(len(self.places), count + 8)
        generator = random.Random(1)
        vectors = [[generator.uniform(-1, 1) for _ in range(n)] for _ in range(size)]
        before = None
        for _ in range(200):
            loads = [self._inertia(vector) for vector in vectors]
            solved = [self.solve(load) for load in loads]
            inertia = [self._inertia(vector) for vector in solved]
            K = [[sum(map(float.__mul__, x, load)) for load in loads] for x in solved]
            M = [[sum(map(float.__mul__, x, y)) for y in inertia] for x in solved]
            modes = modes_of(K, M)
            now = [omega / (2 * math.pi) for omega, _ in modes[:count]]
            if before and all(abs(a - b) < 1e-9 * a for a, b in zip(now, before)):
                return now
            before = now
            vectors = [[sum(map(float.__mul__, shape, values)) for values in zip(*solved)] for _, shape in modes]
        raise ArithmeticError("no convergence")

    def _inertia(self, vector):
        return [sum(value * vector[column] for column, value in row.items()) for row in self.M]
