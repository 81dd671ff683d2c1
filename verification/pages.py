"""The pages of the manual, in both languages, and the summary."""

import re
import tomllib
from itertools import groupby

CHAPTERS = {"S": ("Linear statics", "线性静力分析"), "N": ("Geometrically nonlinear statics", "几何非线性静力分析"),
            "M": ("Modal analysis", "模态分析"), "R": ("Response spectrum", "反应谱分析"), "T": ("Time history", "时程分析")}

HEADINGS = (("Quantity", "量"), ("Reference", "参考值的性质"), ("Published", "发表值"), ("Reference value", "参考值"),
            ("Computed", "计算值"), ("Difference", "差"), ("Tolerance", "容差"), ("Passed", "通过"), ("Read from", "取自"))

KINDS = {"published": ("published", "发表值"), "closed": ("closed form", "闭合解"), "exact": ("exact", "精确解"),
         "own": ("own computation", "独立计算"), "rough": ("simpler theory", "简化理论"), "method": ("the stated method", "所述方法")}

WORDS = {"yes": ("yes", "是"), "no": ("**NO**", "**否**"), "limit": ("limit of the method", "方法的限制"),
         "stated": ("as stated", "与所述相符"), "none": ("no result", "无结果"), "problem": ("Problem", "算例"),
         "source": ("Source", "来源"), "tolerance": ("Tolerance", "容差"), "figures": ("Figures", "个数")}

INTRODUCTION = (
    """# Verification

[Contents](index.md) · [中文](../zh/verification.md)

{problems} problems with {figures} figures whose values are known from elsewhere: printed in a book, a standard or a paper, given by a formula, or computed independently. `scripts/verify` makes the job files (`verification/`, a function a problem), runs them through the command line, reads the result files, compares and writes this page; `scripts/test` runs it too. Of {counted} comparisons {passed} pass; {limits} show a limit of the method and are not counted.

How to read it:

- **Material.** The program has one steel: E = 2.06·10¹¹ Pa, G = E/2.6, ρ = 7900 kg/m³. Problems of another material come in with their sections scaled, A and I by E_book/E, J by G_book/G: stiffnesses, and so displacements and forces, are those of the book. 1 in = 0.0254 m, 1 kip = 4.448222 kN, 1 ksi = 6.894757 MPa.
- **Masses.** A nodal mass m is a load of +Z in case 1, F = m·9.81/1000 kN. Where a formula has masses only at nodes the bars' own mass is allowed for or next to nothing. “Row of bars” is a shear building that lies down: the force in bar i is the shear of storey i.
- **Signs.** Z points up. Reactions are the forces of the structure on its supports, member moments are compared by magnitude, N is positive in tension. Moments MZX and MXY are those of the [result files](files.md#static-results).
- **Reference.** *Published*: as printed, in the unit of the source, then in SI. *Closed form*: a formula. *Exact*: an exact solution of the discrete or continuous problem, if need be by numbers. *Own computation*: independent of the program: matrices from integrated shape functions and their modes (`verification/frames.py`), trusses and integrators (`verification/reference.py`). *Simpler theory*: to see the order. *The stated method*: what the method of the manual gives where that is no solution. Where sources differ, each has its line. No reference comes from the program.
- **Difference** and **tolerance** are relative, but absolute where the reference is 0 or the tolerance says so. Result files have six digits (displacements, ω) or three decimals (static forces), and job files are read in single precision: 1e-5 is the least tolerance that makes sense for displacements and frequencies, 1e-6 for forces. Differences below it are written < 1e-5.
- **Limits.** N-06, N-07 and N-08 are beyond the method ([Limits](limits.md#static-analysis)). There the program's stated behaviour is checked: the refusal, or the answer that the method gives.

Published figures were confirmed by recomputation to their printed digits, or to the difference shown. Numbers of examples are given only where they are certain.
""",
    """# 验证算例

[目录](index.md) · [English](../en/verification.md)

{problems} 个算例、{figures} 个数值，其正确值均来自程序之外：书籍、规范或论文中发表的数字，公式，或独立计算。`scripts/verify` 生成作业文件（`verification/`，每个算例一个函数），用命令行计算，读取结果文件，比较并写出本页；`scripts/test` 也执行它。共比较 {counted} 次，通过 {passed} 次；另有 {limits} 次为方法的限制，不计入。

说明：

- **材料。** 程序只有一种钢：E = 2.06·10¹¹ Pa，G = E/2.6，ρ = 7900 kg/m³。其他材料的算例换算截面：A、I 乘 E_书/E，J 乘 G_书/G，刚度、位移和内力即与原书一致。1 in = 0.0254 m，1 kip = 4.448222 kN，1 ksi = 6.894757 MPa。
- **质量。** 节点质量 m 以工况 1 中 +Z 向荷载 F = m·9.81/1000 kN 输入。公式中只有节点质量时，杆的自身质量已计入或可忽略。“一排杆”即横放的剪切型建筑：第 i 根杆的轴力就是第 i 层的层剪力。
- **符号。** Z 向上。支座反力为结构作用于支座的力，杆端弯矩按绝对值比较，轴力以拉为正。弯矩 MZX、MXY 同[结果文件](files.md#静力结果)。
- **参考值。** *发表值*：先按原文单位，再换算为国际单位。*闭合解*：公式。*精确解*：离散或连续问题的精确解，必要时用数值求出。*独立计算*：与程序无关的计算：由形函数积分的矩阵及其振型（`verification/frames.py`），桁架与逐步积分（`verification/reference.py`）。*简化理论*：供对照。*所述方法*：方法本身不能给出正确解时，按手册所述应得的值。来源不同时各列一行。参考值均不取自程序。
- **差**与**容差**为相对值；参考值为 0 或容差注明时为绝对值。结果文件有六位有效数字（位移、ω）或三位小数（静力内力），作业文件按单精度读入：位移与频率的容差不小于 1e-5，力不小于 1e-6。更小的差写作 < 1e-5。
- **限制。** N-06、N-07、N-08 超出方法的适用范围（[限制](limits.md#静力分析)），核对的是程序所述的表现：拒绝，或方法应给出的值。

发表值均经复算，与印出的数字一致，或相差如表所列。例题号只在确知时注明。
""")


def read_table(path):
    problems = tomllib.loads(path.read_text(encoding="utf-8"))
    for problem in problems.values():
        problem["rows"] = [expanded for row in problem["rows"] for expanded in _expand(row)]
    return problems


def _expand(row):
    for value in row.get("each", [None]):
        if value is None:
            yield row
            continue
        names = [row["name"]] if isinstance(row["name"], str) else row["name"]
        names = [name.replace("{}", value) for name in names]
        yield {**row, "key": row["key"].replace("{}", value), "name": names[0] if len(names) == 1 else names}


def _number(value):
    """Six digits, as the result files have them."""
    if value == 0 or abs(value) < 1e-9:
        return "0"
    text = f"{value:.6g}"
    if "e" not in text:
        return text
    mantissa, exponent = text.split("e")
    return f"{mantissa}e{int(exponent)}"


def _difference(line):
    if line.difference is None:
        return "—"
    floor = 1e-6 if line.tolerance is not None and line.tolerance < 1e-5 else 1e-5
    if abs(line.difference) < floor:
        return f"< {_number(floor)}"
    return _number(float(f"{line.difference:.1e}"))


def _verdict(line, language):
    if line.expected:
        return f'{WORDS["limit" if line.passed else "no"][language]} [{line.expected}]'
    if line.passed is None:
        return WORDS["limit"][language]
    if not line.passed:
        return WORDS["no"][language]
    return WORDS["stated" if line.kind == "method" else "yes"][language]


def _cells(line, language):
    unit = f", {line.unit}" if line.unit else ""
    tolerance = "—" if line.tolerance is None or line.expected else _number(line.tolerance)
    if line.absolute:
        tolerance += (" (absolute)", "（绝对）")[language]
    return [line.name[language] + unit, KINDS[line.kind][language], line.published, _number(line.reference),
            WORDS["none"][language] if line.computed is None else _number(line.computed), _difference(line), tolerance,
            _verdict(line, language), ", ".join(line.places[:3])]


def _row(cells):
    return "| " + " | ".join(cells) + " |\n"


def _headings(names):
    return _row(names) + "|" + "---|" * len(names) + "\n"


def _anchor(comparison, language):
    title = f"{comparison.number} {comparison.problem['title'][language]}".lower()
    return re.sub(r"[^\w\- ]", "", title).replace(" ", "-")


def _overview(comparisons, language):
    names = [WORDS["problem"][language], WORDS["source"][language], WORDS["figures"][language]]
    text = _headings(names + [heading[language] for heading in HEADINGS[:8]])
    for comparison in comparisons:
        first = [line for line in comparison.lines if line.key == comparison.lines[0].key]
        link = f"[{comparison.number}](#{_anchor(comparison, language)})"
        figures = f"{len(comparison.rows)}" + (f", {len(comparison.failed)} {WORDS['no'][language]}" if comparison.failed else "")
        lead = [link, comparison.problem["source"][language], figures]
        for line in first:
            cells = _cells(line, language)
            text += _row([*lead, cells[0], cells[1], *cells[2:8]])
            lead = ["", "", ""]
    return text


def _section(comparison, language):
    problem = comparison.problem
    text = f"### {comparison.number} {problem['title'][language]}\n\n{problem['text'][language]}\n\n"
    text += f"![{problem['title'][language]}](../images/verification/{comparison.number}.svg)\n\n"
    colon, stop = ((": ", "."), ("：", "。"))[language]
    text += f"{WORDS['source'][language]}{colon}{problem['source'][language].rstrip('.')}{stop} "
    text += f"{WORDS['tolerance'][language]}{colon}{problem['reason'][language]}{stop}\n\n"
    text += _headings([heading[language] for heading in HEADINGS])
    before = None
    for line in comparison.lines:
        cells = _cells(line, language)
        if line.key == before:
            cells[0] = cells[8] = ""
        before = line.key
        text += _row(cells)
    return text + "\n"


def page(comparisons, language):
    lines = [line for comparison in comparisons for line in comparison.lines]
    limits = [line for line in lines if line.passed is None or line.expected]
    passed = [line for line in lines if line.passed and not line.expected]
    text = INTRODUCTION[language].format(
        problems=len(comparisons), figures=sum(len(comparison.rows) for comparison in comparisons),
        counted=len(lines) - len(limits), passed=len(passed), limits=len(limits))
    summary = (
        "The table of each chapter has the first figure of each problem with all its references; all figures follow.\n",
        "各章的表列出每个算例的第一个数值及其全部参考值，其后为全部数值。\n")[language]
    text += "\n" + summary
    for letter, members in groupby(comparisons, key=lambda comparison: comparison.number[0]):
        members = list(members)
        text += f"\n## {letter}. {CHAPTERS[letter][language]}\n\n" + _overview(members, language) + "\n"
        text += "".join(_section(comparison, language) for comparison in members)
    return re.sub(r"\n{3,}", "\n\n", text).rstrip("\n") + "\n"


NUMBER = re.compile(r"(?<![\w.])-?\d+(?:\.\d+)?(?:e-?\d+)?(?![\w])")


def alike(ours, stored):
    """The same text, numbers within the last digits of what the program prints."""
    ours, stored = ours.replace("< ", ""), stored.replace("< ", "")
    if NUMBER.sub("#", ours) != NUMBER.sub("#", stored):
        return False
    return all(_close(a, b) for a, b in zip(NUMBER.findall(ours), NUMBER.findall(stored)))


def _close(a, b):
    """Differences, which have two digits, move as much as the figures that they belong to."""
    short = max(len(re.sub(r"e.*|\D", "", text).lstrip("0")) for text in (a, b)) <= 2
    a, b = float(a), float(b)
    return abs(a - b) <= 2e-5 * max(abs(a), abs(b), 1.0 if short else 0.0)


def _first_difference(ours, stored):
    ours, stored = ours.splitlines(), stored.splitlines()
    for number, (a, b) in enumerate(zip(ours, stored), 1):
        if not alike(a, b):
            return f"line {number}\n  stored: {b[:300]}\n  now:    {a[:300]}"
    return f"{len(stored)} lines stored, {len(ours)} now"


def write(root, comparisons, table, images, check):
    """Writes the pages and pictures, or only looks at the stored ones; whether they are right afterwards."""
    unused = set(table) - {comparison.number for comparison in comparisons}
    if unused:
        raise SystemExit(f"in the table without a function: {', '.join(sorted(unused))}")
    files = {root / "docs" / folder / "verification.md": page(comparisons, language) for language, folder in enumerate(("en", "zh"))}
    stored_images = root / "docs" / "images" / "verification"
    for comparison in comparisons:
        stored = stored_images / f"{comparison.number}.svg"
        if not check or not stored.exists():  # what a picture looks like is no matter of verification
            files[stored] = (images / stored.name).read_text(encoding="utf-8")
    good = True
    for path, text in files.items():
        if not check:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        elif not path.exists() or not alike(text, path.read_text(encoding="utf-8")):
            stored = path.read_text(encoding="utf-8") if path.exists() else ""
            print(f"{path.relative_to(root)} is not what the runs give; run scripts/verify. {_first_difference(text, stored)}")
            good = False
    return good


def summarise(comparisons, seconds):
    """Prints a line a chapter and every failure; the failures."""
    failed = []
    for letter, members in groupby(comparisons, key=lambda comparison: comparison.number[0]):
        members = list(members)
        lines = [line for comparison in members for line in comparison.lines]
        counted = [line for line in lines if line.passed is not None]
        print(f"{CHAPTERS[letter][0]:34s}{len(members):3d} problems, {len(counted):3d} comparisons, "
              f"{sum(line.passed for line in counted):3d} passed")
        for comparison in members:
            failed += comparison.failed
            for line in comparison.failed:
                print(f"  {comparison.number} {line.name[0]} ({line.kind}): reference {line.reference:.8g}, "
                      f"computed {line.computed}, difference {line.difference}, tolerance {line.tolerance}")
    print(f"{len(comparisons)} problems, runs {seconds:.1f} s; {'all hold' if not failed else f'{len(failed)} do not hold'}")
    return failed
