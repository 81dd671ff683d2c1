#!/usr/bin/env python3
"""A person with mouse and keyboard at the window on a real display: Xvfb, a window manager, xdotool.

person.py PROGRAM JOB PICTURES: works on a copy of the job and leaves a picture of every state in the folder PICTURES.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

PATIENCE = 60  # s, on a machine that is busy


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.1)
    raise SystemExit(f"waited in vain for {what}")


class Display:
    """An X server of its own with a window manager, for the life of the object."""

    def __enter__(self):
        read, write = os.pipe()
        # -noreset: otherwise the server begins anew when the last of its programs leaves, and the next one may be lost.
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1500x950x24", "-noreset"],
                                       pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as stream:
            os.environ["DISPLAY"] = ":" + stream.readline().strip()
        self.manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
        return self

    def __exit__(self, *_):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


class Person:
    def __init__(self, program, job, pictures):
        self.pictures = pictures
        self.count = 0
        environment = dict(os.environ, QT_QPA_PLATFORM="xcb", XDG_CONFIG_HOME=str(job.parent / "settings"))
        # A window that opens while the manager takes over the display may never be shown.
        wait_for("the window manager", lambda: run("xdotool", "get_num_desktops") not in ("", "0"))
        self.process = subprocess.Popen([program, str(job)], env=environment)
        self.window = wait_for("the window", lambda: self.find(" - Skyframe"))
        run("xdotool", "windowactivate", "--sync", self.window)

    def find(self, name):
        """The window with that in its title."""
        return run("xdotool", "search", "--onlyvisible", "--name", name).split("\n")[0]

    def title(self):
        return run("xdotool", "getwindowname", self.window)

    def press(self, *keys):
        for key in keys:
            run("xdotool", "key", "--clearmodifiers", key)
            time.sleep(0.15)

    def point(self, x, y):
        """To a place of the window, in parts of its size."""
        geometry = dict(line.split("=") for line in run("xdotool", "getwindowgeometry", "--shell", self.window).split())
        place = (int(geometry["X"]) + x * int(geometry["WIDTH"]), int(geometry["Y"]) + y * int(geometry["HEIGHT"]))
        run("xdotool", "mousemove", *(str(round(p)) for p in place))
        time.sleep(1.0)

    def acknowledge(self):
        """Waits for the module's message and takes note of it."""
        wait_for("a message", lambda: self.find("^Skyframe$"))
        time.sleep(0.3)
        self.press("Return")
        wait_for("the end of the message", lambda: not self.find("^Skyframe$"))

    def photograph(self, name):
        """A picture of the screen; its bytes tell whether anything has changed."""
        self.count += 1
        file = self.pictures / f"{self.count:02d}-{name}.png"
        time.sleep(0.4)
        run("import", "-window", "root", str(file))
        return run("identify", "-format", "%#", str(file))

    def photograph_docks(self, name):
        """Likewise of the docks at the left, without the drawing and what hangs over it."""
        self.photograph(name)
        file = self.pictures / f"{self.count:02d}-{name}.png"
        return run("convert", str(file), "-crop", "12%x100%+0+0", "-format", "%#", "info:")


def check(what, holds):
    print(("ok    " if holds else "WRONG ") + what, flush=True)
    return bool(holds)


def work(person, job):
    good = []
    opened = person.photograph("opened")

    person.press("F9")
    wait_for("the results", lambda: (job.parent / "frame_HisTime.txt").exists())
    wait_for("the drawing", lambda: person.photograph("all-run") != opened)
    good.append(check("F9 runs the job's analyses", (job.parent / "frame.stamp").exists()))

    mode = person.photograph("shape")
    person.press("Next")
    good.append(check("PageDown draws the next mode", person.photograph("next-shape") != mode))

    person.press("F2")
    dialog = wait_for("the modal dialog", lambda: person.find("模态分析"))
    person.photograph("dialog-filled-in")
    person.press("Return")
    wait_for("the end of the dialog", lambda: not person.find("模态分析"))
    print("ok    dialog", dialog, "came and went", flush=True)
    person.acknowledge()
    good.append(check("values that were only confirmed leave the job as it was", "*" not in person.title()))
    person.press("F2")
    wait_for("the modal dialog", lambda: person.find("模态分析"))
    person.press("1", "0", "Return")  # ten modes: the number is selected when the dialog opens
    person.acknowledge()
    wait_for("the mark of a job to be saved", lambda: "*" in person.title())
    person.press("ctrl+s")
    wait_for("the saved job", lambda: '"modes":10' in job.read_text(encoding="utf-8"))
    good.append(check("another value goes into the job, and is saved", "*" not in person.title()))

    axonometric = person.photograph("before-elevation")
    person.press("1")
    good.append(check("key 1 shows the elevation", person.photograph("elevation") != axonometric))
    person.press("0")

    person.point(0.48, 0.45)
    before = person.photograph_docks("before-click")
    run("xdotool", "click", "1")
    good.append(check("a click selects: its data are told", person.photograph_docks("selected") != before))

    text = job.read_text(encoding="utf-8")
    job.write_text(text.replace('"area":', '"area":1', 1), encoding="utf-8")
    person.press("ctrl+r")
    good.append(check("results of another model are out of date", wait_for("the mark", lambda: "过期" in person.title())))
    person.photograph("out-of-date")

    person.press("F1")
    good.append(check("F1 opens the manual", wait_for("the manual", lambda: person.find("手册"))))
    person.photograph("manual")
    return all(good)


def main():
    program, example, pictures = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    shutil.rmtree(pictures, ignore_errors=True)
    pictures.mkdir(parents=True)
    with tempfile.TemporaryDirectory() as folder, Display():
        job = pathlib.Path(folder) / "frame.json"
        shutil.copyfile(example, job)
        person = Person(program, job, pictures)
        try:
            good = work(person, job)
            good = check("the program still runs", person.process.poll() is None) and good
        finally:
            person.process.terminate()
            person.process.wait()
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
