#!/usr/bin/env python3
"""An endurance walk: edits source trees and a document at random, runs the runner under Wine with and without planned
faults, and compares every backup after every run. Fails if the program does, or if a planned fault never fired."""
import argparse
import getpass
import os
import random
import signal
import subprocess
import sys
import time
import traceback
from pathlib import Path

from walk_checks import CREATED, Checks, require
from walk_world import ARCHIVERS, TOP, Document, Tree, Wine, entries, remove, to_win

MOST_BACKUPS = 12
DISK_PAGES = 100  # of 4096 bytes


class Walk:
    archiver = ARCHIVERS / "win/x64/7z.exe"

    def __init__(self, root, seed, runner):
        self.root, self.seed, self.steps, self.action = root / "world", seed, 0, "start"
        self.rng, self.disk = random.Random(f"{seed}"), self.root / "disk"
        self.unmount()  # a killed walk leaves it
        remove(self.root)
        self.make_world(root / "prefix", runner)
        faults = [self.kill, self.locked, self.two, self.missing, self.damaged]
        self.disk.mkdir()
        if os.geteuid() == 0:
            subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={4 * DISK_PAGES}k", "tmpfs", self.disk], check=True)
            faults.append(self.full)
        else:
            print("walk: no full disks, because only root can mount one")
        self.fired = dict.fromkeys(faults, 0)

    def make_world(self, prefix, runner):
        rng = self.rng
        linked = Tree(self.root / "linked", rng, 10**9, [])
        linked.write(linked.folder / "目標.txt")
        linked.edit("add folder", None, linked.folder / "folder")
        targets = sorted(linked.folder.iterdir())
        self.sources = [Tree(self.root / "src" / name, rng, rng.randrange(1_450_000_000, 1_550_000_000), targets)
                        for name in ("一", "two words", "c")]
        self.document = Document(self.root, rng, self.sources)
        self.wine = Wine(self.root, prefix, runner)
        self.checks = Checks(self.root, self.document, prefix / "drive_c/users" / getpass.getuser())

    def step(self):
        """Edits, runs with a planned fault if there is something to do, and then without, which must succeed."""
        self.steps += 1
        self.action = "edits"
        self.rng.seed(f"{self.seed}/{self.steps}")
        for tree in self.sources:
            tree.edit_at_random()
        if self.rng.random() < 0.2 or not self.checks.new_backups():
            self.document.edit()
        sources = [dict(entries(tree.folder)) for tree in self.sources]
        if self.checks.new_backups():
            rare = [fault for fault, count in self.fired.items() if count == min(self.fired.values())]
            fault = self.rng.choice(self.rng.choice([list(self.fired), rare]))
            self.action = fault.__name__
            self.fired[fault] += fault()
            self.checks.check_disk(may_leave=True)
        self.action = f"run after {self.action}"
        self.checks.check_history(self.run()[0])
        self.checks.check_disk()
        require(sources == [dict(entries(tree.folder)) for tree in self.sources], "a run changed its source")
        surplus = max(0, len(self.checks.backups) - MOST_BACKUPS)
        self.checks.forget(self.rng.sample(sorted(self.checks.backups), surplus))
        self.checks.forget(self.rng.choice([[], self.checks.leftovers]))

    def start(self, archiver=archiver):
        return self.wine.start("--password-stdin", "--7z", to_win(archiver), to_win(self.document.path))

    def run(self, may_fail=lambda row: False, archiver=archiver, meanwhile=lambda process: None):
        """Runs the document and calls `meanwhile` with the process. Returns the run and the failed rows."""
        forecasts, process = self.checks.forecast(), self.start(archiver)
        meanwhile(process)
        run = self.wine.finish(process)
        return run, self.checks.judge(forecasts, run, may_fail)

    # The planned faults. Each runs the document once and returns whether it has fired.

    def kill(self):
        """Kills the runner, mostly while it writes."""
        delay, writing = self.rng.random(), self.rng.random() < 0.8

        def meanwhile(process):
            while writing and process.poll() is None and not any(self.root.glob("dst/**/_tmp*")):
                time.sleep(0.005)
            time.sleep(delay * (0.4 if writing else 1.5))
            process.kill()
        return self.run(meanwhile=meanwhile)[0].end is None

    def locked(self):
        row = self.rng.choice(self.checks.new_backups())
        path = row.task.source / self.rng.choice(sorted(row.files)).replace("\\", "/")
        with self.wine.held(path):
            return bool(self.run(lambda row: any(
                path.samefile(row.task.source / name.replace("\\", "/")) for name in row.files))[1])

    def two(self):
        """Runs twice at the same time."""
        forecasts, new = self.checks.forecast(), {row.path for row in self.checks.new_backups()}
        runs = [self.wine.finish(process) for process in [self.start(), self.start()]]
        for run in runs:
            self.checks.judge(forecasts, run, raced=new)
        created = [row["destination"] for run in runs for row in run.rows if row["phase"] == CREATED]
        require(len(created) == len(new), f"not each backup was created by one run: {created}")
        return True

    def missing(self):
        """Backs up to a drive that does not exist, or below a file."""
        file = self.root / "a file"
        file.write_text("no folder")
        return self.redirect(self.rng.choice([file / "dst", Path("Q:/dst")]))

    def full(self):
        (self.disk / "filler").write_bytes(bytes(4096 * self.rng.randrange(DISK_PAGES)))
        failed = self.redirect(self.disk / "dst")
        self.checks.check_disk(may_leave=True)
        self.checks.forget(path for path in {*self.checks.backups, *self.checks.leftovers} if self.disk in path.parents)
        return failed

    def redirect(self, folder):
        """Runs with another folder for one destination. Returns whether that failed."""
        dsts, dst = self.document.dsts, self.rng.choice(self.checks.new_backups()).dst
        index, other = dsts.index(dst), dst._replace(folder=folder)
        dsts[index] = other
        self.document.write()
        failed = self.run(lambda row: row.dst == other)[1]
        dsts[index] = dst
        self.document.write()
        return bool(failed)

    def damaged(self):
        """Runs with an archiver that lacks its library, is cut off, no program, empty or missing."""
        program, good = self.root / "damaged.exe", self.archiver.read_bytes()
        remove(program)
        content = self.rng.choice([good, good[:len(good) // 2], b"no program", b"", None])
        if content is not None:
            program.write_bytes(content)
        return bool(self.run(lambda row: row.dst.type != "FOLDER", program)[1])

    def check_whole(self):
        """Checks the printed history, and that every planned fault has fired."""
        self.action = "end"
        end = self.wine.finish(self.wine.start("--history")).end
        require(end["runs"] >= min(500, self.checks.completed) and end["damaged"] <= self.checks.killed, f"{end}")
        require(all(self.fired.values()), "a planned fault never fired")

    def unmount(self):
        subprocess.run(["umount", self.disk], stderr=subprocess.DEVNULL)

    def close(self):
        self.unmount()
        subprocess.run(["wineserver", "-k"], env=self.wine.environment)
        print(f"walk: {self.steps} steps, {self.wine.starts} runs, {self.checks.compared} backups compared, faults: "
              + ", ".join(f"{fault.__name__}={count}" for fault, count in self.fired.items()), flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--minutes", type=float, default=5)
    parser.add_argument("--seed", type=int, default=int(time.time()))
    parser.add_argument("--runner", type=Path, default=TOP / "build/mingw/bin/QuillmoorRun.exe")
    parser.add_argument("--root", type=Path, default=TOP / "build/soak/walk", help="a folder whose path has no spaces")
    arguments = parser.parse_args()
    print(f"walk: seed {arguments.seed}", flush=True)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    walk = Walk(arguments.root.resolve(), arguments.seed, arguments.runner)
    until = time.monotonic() + 60 * arguments.minutes
    try:
        while time.monotonic() < until:
            walk.step()
        walk.check_whole()
        return 0
    except Exception as failure:
        traceback.print_exc()
        print(f"walk: FAIL: seed {walk.seed}, step {walk.steps}, {walk.action}: {failure}\nsee {walk.root}; the last "
              f"run printed:\n{walk.wine.output[-3000:]}", file=sys.stderr, flush=True)
        return 1
    finally:
        walk.close()


if __name__ == "__main__":
    sys.exit(main())
