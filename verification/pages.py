"""The pages of the manual, in both languages, and the summary."""

import re
import tomllib
from itertools import groupby
from pathlib import Path

LANGUAGES = ("en", "zh")

CHAPTERS = {"S": ("Linear statics", "线性静力分析"), "N": ("Geometrically nonlinear statics", "几何非线性静力分析"),
            "M": ("Modal analysis", "模态分析"), "R": ("Response spectrum", "反应谱分析"), "T": ("Time history", "时程分析")}

HEADINGS = (("Quantity", "量"), ("Reference", "参考值的性质"), ("Published", "发表值"), ("Reference value", "参考值"),
            ("Computed", "计算值"), ("Difference", "差"), ("Tolerance", "容差"), ("Passed", "通过"), ("Read from", "取自"))

KINDS = {"published": ("published", "发表值"), "closed": ("closed form", "闭合解"), "exact": ("exact", "精确解"),
         "own": ("own computation", "独立计算"), "rough": ("simpler theory", "简化理论"),
         "method": ("the stated method", "所述方法")}

WORDS = {"yes": ("yes", "是"), "no": ("**NO**", "**否**"), "limit": ("limit of the method", "方法的限制"),
         "stated": ("as stated", "与所述相符"), "none": ("no result", "无结果"), "problem": ("Problem", "算例"),
         "source": ("Source", "来源"), "tolerance": ("Tolerance", "容差"), "figures": ("Figures", "个数")}


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
        figures = str(len(comparison.rows))
        if comparison.failed:
            figures += f", {len(comparison.failed)} {WORDS['no'][language]}"
        lead = [link, comparison.problem["source"][language], figures]
        for line in first:
            cells = _cells(line, language)
            text += _row([*lead, cells[0], cells[1], *cells[2:8]])
            lead = ["", "", ""]
    return text


def _section(comparison, language):
    problem = comparison.problem
    text = f"### {comparison.number} {problem['title'][language]}\n\n{problem['text'][language]}\n\n"
    text += f"![{problem['title'][language]}](../images/verification/{LANGUAGES[language]}/{comparison.number}.svg)\n\n"
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
    introduction = Path(__file__).parent / f"introduction.{LANGUAGES[language]}.md"
    text = introduction.read_text(encoding="utf-8").format(
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
    files = {root / "docs" / folder / "verification.md": page(comparisons, language)
             for language, folder in enumerate(LANGUAGES)}
    stored_images = root / "docs" / "images" / "verification"
    for picture in (Path(folder) / f"{comparison.number}.svg" for folder in LANGUAGES for comparison in comparisons):
        if not check or not (stored_images / picture).exists():  # what it looks like is no matter of verification
            files[stored_images / picture] = (images / picture).read_text(encoding="utf-8")
    good = True
    for path, text in files.items():
        if not check:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        elif not path.exists() or not alike(text, path.read_text(encoding="utf-8")):
            stored = path.read_text(encoding="utf-8") if path.exists() else ""
            print(f"{path.relative_to(root)} is not what the runs give; run scripts/verify.",
                  _first_difference(text, stored))
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
    verdict = f"{len(failed)} do not hold" if failed else "all hold"
    print(f"{len(comparisons)} problems, runs {seconds:.1f} s; {verdict}")
    return failed
