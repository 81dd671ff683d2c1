"""Runs the verification problems through the command line, compares and writes the pages of the manual.

verify.py PROGRAM            rewrites docs/*/verification.md and docs/images/verification
verify.py PROGRAM --check    leaves them; fails when they are not what the runs give, last digits aside
"""

import argparse
import sys
from pathlib import Path

import histories
import modes
import pages
import results
import second_order
import spectrum
import statics
from comparison import Comparison
from runner import Runner

ROOT = Path(__file__).parent.parent
CHAPTERS = (("S", statics), ("N", second_order), ("M", modes), ("R", spectrum), ("T", histories))


def compare(comparison, problem, jobs):
    """What a problem makes of its results; the reason why that could not be done."""
    results.places.clear()
    try:
        for _ in problem:
            pass
    except (OSError, StopIteration, RuntimeError, ValueError, IndexError) as error:
        return f"{comparison.number}: a result is missing or cannot be read ({error!r}); see {jobs[0].folder}/*_run.log"
    return comparison.finish()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", type=Path)
    parser.add_argument("--check", action="store_true")
    options = parser.parse_args()
    build = ROOT / "build" / "verify"
    table = pages.read_table(Path(__file__).parent / "problems.toml")
    runner = Runner(options.program, build)
    started = []
    for _, module in CHAPTERS:
        for make in module.PROBLEMS:
            number = make.__name__.upper().replace("_", "-")
            comparison = Comparison(number, table[number])
            problem = make(comparison)
            jobs = next(problem)
            jobs = list(jobs) if isinstance(jobs, (list, tuple)) else [jobs]
            for job in jobs:
                job.write(build / number)
            started.append((comparison, problem, jobs))
    seconds = runner.run([job for _, _, jobs in started for job in jobs])
    broken = [message for start in started if (message := compare(*start))]
    if broken:
        print("\n".join(broken))
        return 1
    comparisons = [comparison for comparison, _, _ in started]
    images = build / "images"
    for language in pages.LANGUAGES:
        runner.draw([(comparison, jobs) for comparison, _, jobs in started], images / language, language)
    written = pages.write(ROOT, comparisons, table, images, options.check)
    failed = pages.summarise(comparisons, seconds)
    return 0 if written and not failed else 1


if __name__ == "__main__":
    sys.exit(main())
