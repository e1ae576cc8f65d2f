#!/usr/bin/env python3
"""An endurance walk: edits source trees and a document at random, runs the runner under Wine with and without planned
faults, and compares every backup after every run. Fails if the program does, or if a planned fault never fired."""
import argparse
import random
import signal
import sys
import time
import traceback
from pathlib import Path

from walk_checks import Checks, require
from walk_faults import Faults
from walk_world import TOP, Document, Tree, Wine, read_tree, remove, to_win

MOST_BACKUPS = 12


class Walk:
    def __init__(self, root, seed, runner):
        self.root, self.seed, self.number, self.action = root / "world", seed, 0, "start"
        self.rng = random.Random(f"{seed}")
        remove(self.root)
        self.root.mkdir(parents=True)
        self.wine = Wine(self.root, root / "prefix", runner)
        linked = Tree(self.root / "linked", self.rng, [])
        linked.now = 10**9  # older than the sources
        linked.touch()
        linked.add_folder()
        self.sources = [Tree(self.root / "src" / name, self.rng, sorted(linked.folder.iterdir()))
                        for name in ("一", "two words", "c")]
        self.document = Document(self.root, self.rng, self.sources)
        self.checks = Checks(self.root, self.wine.user)
        self.faults = Faults(self)

    def start(self, archiver=None, *options):
        """Starts the runner with the document."""
        return self.wine.start("--password-stdin", "--7z", to_win(archiver or self.wine.archiver), *options,
                               to_win(self.document.path))

    def step(self):
        """Edits, mostly runs with a planned fault, and always runs without one, which must succeed."""
        self.number += 1
        self.rng.seed(f"{self.seed}/{self.number}")
        self.edit()
        fault = self.faults.next() if self.checks.new_backups(self.document) else None
        sources = {tree: read_tree(tree.folder) for tree in self.sources}
        if fault:
            self.action = fault.__name__
            self.faults.fired[self.action] += fault()
            self.checks.check_disk(may_leave=True)
        self.action = f"run after {fault.__name__ if fault else 'edits'}"
        self.run()
        require(all(read_tree(tree.folder) == files for tree, files in sources.items()), "a run changed its source")
        surplus = max(0, len(self.checks.backups) - MOST_BACKUPS)
        self.checks.forget(self.rng.sample(sorted(self.checks.backups), surplus))
        self.checks.forget(self.rng.choice([[], self.checks.leftovers]))

    def edit(self):
        for tree in self.sources:
            tree.edit()
            if self.rng.random() < 0.9:
                tree.touch()
        if self.rng.random() < 0.2 or not self.checks.new_backups(self.document):
            self.document.edit()

    def run(self):
        if self.number % 10 == 0:
            for option in ("--test", "--plan"):
                self.wine.finish(self.start(None, option))
        forecasts, run = self.checks.forecast(self.document), self.wine.finish(self.start())
        self.checks.judge(forecasts, run)
        self.checks.check_history(run)
        self.checks.check_disk()

    def check_whole(self):
        """Checks the printed history, and that every kind of fault has fired."""
        self.action = "end"
        end = self.wine.finish(self.wine.start("--history")).end
        require(end["runs"] >= min(500, self.checks.completed) and end["damaged"] <= self.checks.killed, f"{end}")
        never = [name for name, count in self.faults.fired.items() if count == 0]
        require(not never, f"planned faults that never fired: {', '.join(never)}")

    def summary(self):
        return (f"walk: {self.number} steps, {self.wine.starts} runs, {self.checks.compared} backups compared, faults: "
                + ", ".join(f"{name}={count}" for name, count in self.faults.fired.items()))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--minutes", type=float, default=5)
    parser.add_argument("--seed", type=int, default=int(time.time()))
    parser.add_argument("--runner", type=Path, default=TOP / "build/mingw/bin/QuillmoorRun.exe")
    parser.add_argument("--root", type=Path, default=TOP / "build/soak/walk", help="a folder whose path has no spaces")
    arguments = parser.parse_args()
    print(f"walk: seed {arguments.seed}", flush=True)
    signal.signal(signal.SIGINT, signal.default_int_handler)  # a shell starts background jobs with Ctrl+C ignored
    walk = Walk(arguments.root.resolve(), arguments.seed, arguments.runner)
    until = time.monotonic() + 60 * arguments.minutes
    try:
        while time.monotonic() < until:
            walk.step()
        walk.check_whole()
        return 0
    except Exception as failure:
        traceback.print_exc()
        print(f"FAIL: seed {walk.seed}, step {walk.number}, {walk.action}: {failure}\nwith {walk.root}, last output:\n"
              f"{walk.wine.output[-3000:]}", file=sys.stderr, flush=True)
        return 1
    finally:
        walk.faults.close()
        walk.wine.stop()
        print(walk.summary(), flush=True)


if __name__ == "__main__":
    sys.exit(main())
