"""What runs must report and leave on disk, computed without the program."""
import json
import re
import subprocess
from collections import namedtuple
from datetime import datetime, timedelta

from walk_world import ARCHIVERS, PASSWORD, entries, remove, to_win

LISTING, CREATED, SKIPPED, NO_FILES = 435, 439, 440, 465  # phases and an error
EPOCH, LOCAL = datetime(1970, 1, 1), timedelta(hours=9)

# A row of a run without faults. path: None if the row does not get that far; files: what the backup has.
Forecast = namedtuple("Forecast", "task dst path phase error files report")


def require(condition, text):
    if not condition:
        raise AssertionError(text)


def is_excluded(rules, relative):
    signs = (rule[0] for rule in rules if rule and rule[0] != "#" and
             re.search(rule[2:].strip('"').replace("/", r"\\"), relative))
    return next(signs, "+") == "-"


def forecast_task(task, dsts):
    """Yields the rows of a task as if there were no backups yet."""
    listed = list(entries(task.source, lambda relative: not is_excluded(task.rules, relative)))
    kept = {relative: file for relative, file in listed if not is_excluded(task.rules, relative)}
    files = {relative: file for relative, file in kept.items() if file}
    report = {"task": task.id, "entries": len(listed), "counted": len(files), "excluded": len(listed) - len(kept)}
    if not files:
        yield Forecast(task, dsts[0], None, LISTING, NO_FILES, files, report)
        return
    at = EPOCH + timedelta(seconds=max(file.time for file in files.values()) // 10**7)
    for dst in dsts:
        path = dst.folder / dst.name.format(id=task.id, at=at + LOCAL).replace("\\", "/")
        row = {"destination": to_win(path), "type": dst.type, "newest": f"{at:%Y-%m-%dT%H:%M:%SZ}"}
        yield Forecast(task, dst, path, CREATED, 0, files, {**report, **row})


class Checks:
    """The backups that must exist, and comparisons with what the runs report and leave on disk."""

    def __init__(self, root, document, user_folder):
        self.root, self.document, self.temporary = root, document, user_folder / "Temp"
        self.history = user_folder / "AppData/Roaming/Tenkowa/Quillmoor/QuillmoorHistory.jsonl"
        self.history.unlink(missing_ok=True)
        self.backups = {}  # path -> forecast
        self.parents, self.leftovers = set(), set()  # folders above backups; what planned faults may leave
        self.completed = self.killed = self.compared = 0  # runs, runs, backups

    def forecast(self):
        rows = []
        for task in self.document.tasks:
            for row in forecast_task(task, [self.document.dsts[index] for index in task.dsts]):
                self.parents.update(row.path.parents if row.path else [])
                rows.append(row._replace(phase=SKIPPED) if row.path in self.backups else row)
        return rows

    def new_backups(self):
        """Returns the forecasts of what a run creates."""
        return [row for row in self.forecast() if row.phase == CREATED]

    def judge(self, forecasts, run, may_fail=lambda row: False, raced=()):
        """Compares a run with the forecasts and returns the rows with other errors. The paths in `raced` may have been
        created by another run in the meantime. A killed run may lack rows, but not report wrong ones."""
        rows, failed, ended_task, killed = list(run.rows), [], None, run.code < 0
        for forecast in forecasts:
            if forecast.task.id == ended_task:
                continue
            if not rows:
                require(killed, f"no row for {forecast.report}")
                if forecast.phase == CREATED and forecast.path.exists():
                    self.backups[forecast.path] = forecast
                continue
            row = rows.pop(0)
            wrong = {key: value for key, value in forecast.report.items() if row[key] != value}
            require(not wrong, f"{row}, expected {wrong}")
            if row["error"]:
                ended_task = forecast.task.id  # its next destinations are not attempted
            if row["error"] != forecast.error:
                foreseen = may_fail(forecast) and row["error"] and row["remedy"] and row["phase"] < CREATED
                require(foreseen, f"unforeseen: {row}")
                failed.append(row)
                continue
            skipped = row["phase"] == SKIPPED and forecast.path in raced
            require(skipped or row["phase"] == forecast.phase, f"unforeseen: {row}")
            if row["phase"] == CREATED:
                self.backups[forecast.path] = forecast
        errors = sum(row["error"] != 0 for row in run.rows)
        end = run.end or {}
        require(killed or (run.code, end["rows"], end["errors"]) == (errors != 0, len(run.rows), errors), f"{run}")
        self.killed += killed
        self.completed += not killed
        return failed

    def check_disk(self, may_leave=False):
        """Compares every backup. There must be no others, and temporary names only if planned faults left them."""
        found, temporary = set(), set(self.temporary.glob("qlm*.txt"))
        for folder in (self.root / "dst", self.root / "disk/dst"):
            self.collect(folder, found, temporary)
        require(found == set(self.backups), f"missing or unexpected: {found ^ set(self.backups)}")
        require(may_leave or temporary <= self.leftovers, f"left over: {temporary - self.leftovers}")
        self.leftovers = temporary
        for path, forecast in self.backups.items():
            self.compare(path, forecast)

    def collect(self, folder, found, temporary):
        for path in folder.iterdir() if folder.exists() else []:
            if path in self.backups:
                found.add(path)
            elif path.name.startswith(("_tmp", "_lck")):  # Wine deletes the latter soon after a kill
                temporary.add(path)
            else:
                require(path in self.parents and path.is_dir(), f"unexpected: {path}")
                self.collect(path, found, temporary)

    def compare(self, path, forecast):
        """Restores a backup and compares it with the source at the time of the run."""
        folder = path
        if forecast.dst.type != "FOLDER":
            remove(folder := self.root / "restored")
            command = [ARCHIVERS / "linux/x64/7zzs", "x", f"-p{PASSWORD}", f"-o{folder}", path]
            require(subprocess.run(command, capture_output=True).returncode == 0, f"cannot be opened: {path}")
        parents = {name[:at + 1]: None for name in forecast.files for at, letter in enumerate(name) if letter == "\\"}
        different = dict(entries(folder)).items() ^ {**forecast.files, **parents}.items()
        require(not different, f"{path} differs: {sorted(different)[:6]}")
        self.compared += 1

    def check_history(self, run):
        """Compares the last record with the run, and the number of records with the number of runs."""
        lines = self.history.read_text("utf-8").splitlines()
        require(self.completed <= len(lines) <= self.completed + self.killed or len(lines) == 500,
                f"{len(lines)} records of {self.completed} runs and {self.killed} killed ones")
        have, wanted = ([[row[key] for key in ("task", "destination", "error")] for row in rows]
                        for rows in (json.loads(lines[-1])["rows"], run.rows))
        require(have == wanted, f"the last record is {lines[-1]}")

    def forget(self, paths):
        """Deletes backups or leftovers."""
        for path in list(paths):
            self.backups.pop(path, None)
            self.leftovers.discard(path)
            remove(path)
