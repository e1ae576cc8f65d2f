"""The planned faults of the endurance walk. Each runs the document once and returns whether it has fired."""
import os
import signal
import subprocess
import time
from pathlib import Path

from walk_checks import CREATED, require
from walk_world import remove

DISK_PAGES = 100  # of 4096 bytes


class Faults:
    def __init__(self, walk):
        self.walk, self.wine, self.checks, self.rng = walk, walk.wine, walk.checks, walk.rng
        self.kinds = [self.kill, self.stop, self.archiver, self.locked, self.two, self.missing, self.damaged]
        self.disk = walk.root / "full"
        if os.geteuid() == 0:
            self.disk.mkdir()
            subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={4 * DISK_PAGES}k", "tmpfs", self.disk], check=True)
            self.kinds.append(self.full)
        else:
            print("walk: no full disks, because only root can mount one")
        self.fired = {kind.__name__: 0 for kind in self.kinds}

    def close(self):
        subprocess.run(["umount", self.disk], stderr=subprocess.DEVNULL)

    def next(self):
        """Returns a random kind, often one of those that have fired least."""
        least = min(self.fired.values())
        rare = [kind for kind in self.kinds if self.fired[kind.__name__] == least]
        return self.rng.choice(self.rng.choice([self.kinds, rare]))

    def judge(self, may_fail, archiver=None, meanwhile=lambda process: None):
        """Runs the document and calls `meanwhile` with the process. Returns the run and the failed rows."""
        forecasts = self.checks.forecast(self.walk.document)
        process = self.walk.start(archiver)
        meanwhile(process)
        run = self.wine.finish(process)
        return run, self.checks.judge(forecasts, run, may_fail)

    def interrupt(self, number):
        """Signals the runner, mostly while it writes."""
        delay, writing = self.rng.random(), self.rng.random() < 0.8

        def meanwhile(process):
            while writing and process.poll() is None and not any(self.walk.root.glob("dst/**/_tmp*")):
                time.sleep(0.005)
            time.sleep(delay * (0.4 if writing else 1.5))
            process.send_signal(number)
        return self.judge(lambda row: number == signal.SIGINT, meanwhile=meanwhile)

    def kill(self):
        run, _ = self.interrupt(signal.SIGKILL)
        until = time.monotonic() + 20
        while self.wine.archivers() or any(self.walk.root.glob("dst/**/_lck*")):
            require(time.monotonic() < until, "an archiver or a reserved name outlives the runner")
            time.sleep(0.02)
        return run.end is None

    def stop(self):
        run, failed = self.interrupt(signal.SIGINT)
        require(len(failed) <= (run.code == 3), f"exit code {run.code}, but stopped: {failed}")
        return run.code == 3

    def archiver(self):
        """Kills the archiver."""
        def meanwhile(process):
            while process.poll() is None and not self.wine.archivers():
                time.sleep(0.005)
            time.sleep(self.rng.random() * 0.2)
            for archiver in self.wine.archivers():
                os.kill(archiver, signal.SIGKILL)
        return bool(self.judge(lambda row: row.dst.type != "FOLDER", meanwhile=meanwhile)[1])

    def locked(self):
        row = self.rng.choice(self.checks.new_backups(self.walk.document))
        path = row.task.source / self.rng.choice(sorted(row.files)).replace("\\", "/")
        with self.wine.held(path):
            return bool(self.judge(lambda row: any(
                path.samefile(row.task.source / name.replace("\\", "/")) for name in row.files))[1])

    def two(self):
        forecasts = self.checks.forecast(self.walk.document)
        new = {row.path for row in self.checks.new_backups(self.walk.document)}
        runs = [self.wine.finish(process) for process in [self.walk.start(), self.walk.start()]]
        for run in runs:
            self.checks.judge(forecasts, run, raced=new)
        created = [row["destination"] for run in runs for row in run.rows if row["phase"] == CREATED]
        require(len(created) == len(new), f"not each backup was created by one run: {created}")
        return bool(new)

    def redirect(self, folder):
        """Runs with another folder for one destination. Returns the failed rows."""
        dsts = self.walk.document.dsts
        dst = self.rng.choice(self.checks.new_backups(self.walk.document)).dst
        index, other = dsts.index(dst), dst._replace(folder=folder)
        dsts[index] = other
        self.walk.document.write()
        failed = self.judge(lambda row: row.dst == other)[1]
        dsts[index] = dst
        self.walk.document.write()
        return failed

    def missing(self):
        file = self.walk.root / "a file"
        file.write_text("no folder")
        return bool(self.redirect(self.rng.choice([file / "dst", Path("Q:/dst")])))

    def full(self):
        (self.disk / "filler").write_bytes(bytes(4096 * self.rng.randrange(DISK_PAGES)))
        failed = self.redirect(self.disk / "dst")
        self.checks.check_disk(may_leave=True)
        self.checks.forget(path for path in {*self.checks.backups, *self.checks.leftovers} if self.disk in path.parents)
        return bool(failed)

    def damaged(self):
        """Runs with an archiver that is cut off, no program, without its library or missing."""
        folder, good = self.walk.root / "archiver", self.wine.archiver.read_bytes()
        folder.mkdir(exist_ok=True)
        remove(folder / "7z.exe")
        damage = self.rng.choice([good, good[:len(good) // 2], b"no program", b"", None])
        if damage is not None:
            (folder / "7z.exe").write_bytes(damage)
        return bool(self.judge(lambda row: row.dst.type != "FOLDER", folder / "7z.exe")[1])
