"""What runs must report and leave on disk, computed without the program."""
import json
import re
import subprocess
from collections import namedtuple
from datetime import datetime, timedelta

from walk_world import ARCHIVERS, PASSWORD, entries, read_file, read_tree, remove, to_win

LISTING, CREATED, SKIPPED, NO_FILES = 435, 439, 440, 465
EPOCH, LOCAL = datetime(1970, 1, 1), timedelta(hours=9)

# A row of a run without faults. files: what the backup has; path: None if the row does not get that far.
Forecast = namedtuple("Forecast", "task dst path phase error files report")


def require(condition, text):
    if not condition:
        raise AssertionError(text)


def is_excluded(rules, relative):
    rules = [rule for rule in rules if rule and not rule.startswith("#")]
    found = [rule for rule in rules if re.search(rule[2:].strip('"').replace("/", r"\\"), relative)]
    return bool(found) and found[0].startswith("-")


def forecast_task(task, dsts):
    """Yields the rows of a task as if there were no backups yet."""
    listed = list(entries(task.source, lambda relative: not is_excluded(task.rules, relative)))
    files = {relative: read_file(path) for relative, path in listed
             if not path.is_dir() and not is_excluded(task.rules, relative)}
    report = {"task": task.id, "entries": len(listed), "counted": len(files), "excluded": sum(
        is_excluded(task.rules, relative) for relative, _ in listed)}
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

    def __init__(self, root, user_folder):
        self.root, self.temporary = root, user_folder / "Temp"
        self.history = user_folder / "AppData/Roaming/Tenkowa/Quillmoor/QuillmoorHistory.jsonl"
        self.history.unlink(missing_ok=True)
        self.backups = {}  # path -> row that created it
        self.parents, self.leftovers = set(), set()  # folders above backups; what planned faults may leave
        self.completed = self.killed = self.compared = 0  # runs, runs, backups

    def forecast(self, document):
        rows = []
        for task in document.tasks:
            for row in forecast_task(task, [document.dsts[index] for index in task.dsts]):
                self.parents.update(row.path.parents if row.path else [])
                rows.append(row._replace(phase=SKIPPED) if row.path in self.backups else row)
        return rows

    def new_backups(self, document):
        """Returns the forecasts of what a run creates."""
        return [row for row in self.forecast(document) if row.phase == CREATED]

    def judge(self, forecasts, run, may_fail=lambda row: False, raced=()):
        """Compares a run with the forecasts and returns the rows with other errors. The paths in `raced` may have been
        created by another run in the meantime. A run that was interrupted may lack rows, but not report wrong ones."""
        rows, failed, last = list(run.rows), [], None
        for forecast in (forecast for forecast in forecasts if forecast.task.id != last):
            if not rows:
                require(run.code not in (0, 1), f"no row for {forecast.report}")
                if forecast.phase == CREATED and forecast.path.exists():
                    self.backups[forecast.path] = forecast
                continue
            row = rows.pop(0)
            last = forecast.task.id if row["error"] else None  # the next destinations are not attempted
            wrong = {key: value for key, value in forecast.report.items() if row[key] != value}
            require(not wrong or row["phase"] == LISTING != forecast.phase, f"{row}, expected {wrong}")
            if row["error"] != forecast.error:
                require(may_fail(forecast) and row["error"] and row["remedy"] and row["phase"] < CREATED, f"wrong: {row}")
                failed.append(row)
                continue
            require(row["phase"] == forecast.phase or row["phase"] == SKIPPED and forecast.path in raced,
                    f"{row}, expected phase {forecast.phase}")
            if row["phase"] == CREATED:
                self.backups[forecast.path] = forecast
        require(not rows, f"unexpected: {rows}")
        self.check_end(run)
        return failed

    def check_end(self, run):
        errors = sum(row["error"] != 0 for row in run.rows)
        if run.code not in (0, 1, 3):
            self.killed += 1
            return
        self.completed += 1
        require(run.code == 3 or run.code == (errors != 0), f"exit code {run.code} with {errors} errors")
        require((run.end["rows"], run.end["errors"]) == (len(run.rows), errors), f"{run.end}, but {errors} errors")

    def check_disk(self, may_leave=False):
        """Compares every backup. There must be no others, and temporary names only if planned faults left them."""
        found, temporary = set(), set(self.temporary.glob("qlm*.txt"))
        for folder in (self.root / "dst", self.root / "full/dst"):
            self.collect(folder, found, temporary)
        require(found == set(self.backups), f"missing or unexpected: {found ^ set(self.backups)}")
        require(may_leave or temporary <= self.leftovers, f"left over: {temporary - self.leftovers}")
        self.leftovers = temporary
        for path, row in self.backups.items():
            self.compare(path, row)
            self.compared += 1

    def collect(self, folder, found, temporary):
        for path in folder.iterdir() if folder.exists() else []:
            if path in self.backups:
                found.add(path)
            elif path.name.startswith("_tmp"):
                temporary.add(path)
            else:
                require(path in self.parents and path.is_dir(), f"unexpected: {path}")
                self.collect(path, found, temporary)

    def compare(self, path, row):
        folder, wanted = path, dict(row.files)
        if row.dst.type != "FOLDER":
            folder = self.root / "unpacked"
            remove(folder)
            command = [ARCHIVERS / "linux/x64/7zzs", "x", f"-p{PASSWORD}", f"-o{folder}", path]
            require(subprocess.run(command, capture_output=True).returncode == 0, f"cannot be opened: {path}")
        wanted.update({name[:at + 1]: None for name in row.files for at in range(len(name)) if name[at] == "\\"})
        require(read_tree(folder) == wanted, f"{path} differs: {list(read_tree(folder).items() ^ wanted.items())[:6]}")

    def check_history(self, run):
        """Compares the last record with the run, and the number of records with the number of runs."""
        lines = self.history.read_text("utf-8").splitlines()
        require(self.completed <= len(lines) <= self.completed + self.killed or len(lines) == 500,
                f"{len(lines)} records of {self.completed} runs and {self.killed} killed ones")
        same = [(row["task"], row["destination"], row["error"]) for row in run.rows]
        last = json.loads(lines[-1])
        require([(row["task"], row["destination"], row["error"]) for row in last["rows"]] == same, f"{last}")

    def forget(self, paths):
        """Deletes backups or leftovers."""
        for path in list(paths):
            self.backups.pop(path, None)
            self.leftovers.discard(path)
            remove(path)
