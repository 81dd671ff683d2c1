"""The program's command line: runs and pictures."""

import os
import subprocess
import time

from concurrent.futures import ThreadPoolExecutor


class Runner:
    def __init__(self, program, build):
        self.program = program.resolve()
        self.environment = {**os.environ, "SKYFRAME_LANG": "en"}

    def run(self, jobs):
        """All jobs; what fails shows in its log and its missing results. The seconds it took."""
        begin = time.monotonic()
        for job in jobs:
            for old in job.folder.glob(job.name + "[_.]*"):
                if old.suffix != ".json" and old.name[len(job.name):] not in job.files:
                    old.unlink()
        command = [self.program, "run", *(job.path() for job in jobs), "--quiet", "--jobs", str(os.cpu_count() or 1)]
        done = subprocess.run(command, env=self.environment, capture_output=True, text=True, check=False)
        if done.returncode == 2:
            raise SystemExit(done.stdout + done.stderr)
        return time.monotonic() - begin

    def draw(self, cases, folder, language):
        """A picture of each problem, its captions in the language."""
        folder.mkdir(parents=True, exist_ok=True)
        environment = {**self.environment, "SKYFRAME_LANG": language}

        def picture(case):
            comparison, jobs = case
            job = jobs[comparison.problem.get("sketch_job", 0)]
            command = [self.program, "plot", job.path(), *comparison.problem["sketch"].split(), "-o",
                       folder / f"{comparison.number}.svg"]
            done = subprocess.run(command, env=environment, capture_output=True, text=True, check=False)
            if done.returncode:
                raise SystemExit(f"{comparison.number}: {done.stderr}")

        with ThreadPoolExecutor(os.cpu_count()) as pool:
            list(pool.map(picture, cases))
