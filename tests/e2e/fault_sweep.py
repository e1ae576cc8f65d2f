#!/usr/bin/env python3
"""Makes single system calls of a backup fail and checks what the run leaves and reports.

A job with a folder and an archive as destinations runs under Wine. strace injects an error into the n-th call on the
files of the job, once or from then on: in the programs (runner and archiver), or in the Wine server, which opens,
creates, renames and deletes files for them. A fault is written ORDER:PROCESS:FILES:CALL:N:MODE:ERROR.
fault_sweep_test.sh prepares the environment and passes its arguments on.

    fault_sweep.py WORK RUNNER ARCHIVER SETTINGS [--full | --only FAULT...]
"""
import collections
import contextlib
import os
import pwd
import random
import re
import shutil
import subprocess
import sys
import time
import zipfile
import zlib
from pathlib import Path

ERRORS = {call: errors.split() for errors, calls in (
    ("EIO", "read pread64 getdents64 getxattr fgetxattr"), ("ENOSPC", "fsetxattr"), ("EACCES", "readlink"),
    ("EIO EACCES", "newfstatat statx faccessat2 unlink rmdir link"), ("EIO EPERM", "utimensat fchmod"),
    ("EIO ENOSPC", "ftruncate fsync fdatasync"), ("ENOSPC EIO", "write pwrite64"),
    ("EIO EMFILE EACCES", "openat"), ("EIO ENOSPC EACCES", "rename"), ("ENOSPC EIO EACCES", "mkdir"),
) for call in calls.split()}
ONLY_ONCE = {"EACCES", "EPERM"}  # the engine repeats refused operations for seconds
# With the archive first, these fail in the archiver before they fail in the runner.
CALLS_ARCHIVE_FIRST = {"openat", "read", "pread64", "write", "pwrite64", "ftruncate", "fsync"}
NOT_LISTED = "バックアップに含まれないフォルダーがあります"  # the warning of the runner
WRITE_TIME = 1457161448  # 2016-03-05 07:04:08 UTC
LIMIT = 90  # seconds for one run
SAMPLE = 50
QUIET = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}


# order: the backup that is made first, "folder" or "archive"; process: "programs" or "server"; group: see
# Sweep.group_of; mode: "once", or "on" for every call from the n-th on.
Fault = collections.namedtuple("Fault", "order process group call n mode error")


def to_windows(path):
    return "Z:" + str(path).replace("/", "\\")


def contents(path):
    """Returns the bytes of all files of a folder or zip by relative path, or None for a damaged zip."""
    if path.is_dir():
        return {str(file.relative_to(path)): file.read_bytes() for file in path.rglob("*") if file.is_file()}
    try:
        with zipfile.ZipFile(path) as archive:
            return {item.filename: archive.read(item) for item in archive.infolist() if not item.is_dir()}
    except (zipfile.BadZipFile, zlib.error, EOFError):
        return None


def read(path):
    return path.read_bytes() if path.exists() else b""


class Sweep:
    def __init__(self, work, runner, archiver, settings):
        self.work, self.runner = work, runner
        self.prefix = Path(os.environ["WINEPREFIX"])
        user = self.prefix / "drive_c/users" / pwd.getpwuid(os.getuid()).pw_name
        self.temp, self.profile = user / "Temp", user / "AppData/Roaming/Tenkowa/Quillmoor"
        self.source, self.target = work / "src", work / "dst"
        self.backups = (self.target / "copy_2016", self.target / "copy_2016.zip")
        self.stranger = self.target / "_tmp_stranger.zip"
        self.history, self.history_bytes = self.profile / "QuillmoorHistory.jsonl", b""
        self.settings = self.profile / "Quillmoor32.config"
        element = f"<SevenZipPath>{to_windows(archiver)}</SevenZipPath>"
        self.settings_bytes = settings.read_text("utf-8").replace("<SevenZipPath/>", element).encode()
        self.paths = collections.defaultdict(set)  # (order, process, group) -> paths as they are in the calls
        self.make_job()

    def make_job(self):
        self.profile.mkdir(parents=True, exist_ok=True)
        (self.source / "sub").mkdir(parents=True)
        (self.source / "a.bin").write_bytes(random.Random(7).randbytes(150_000))
        (self.source / "sub/b.txt").write_text("b" * 8000)
        (self.source / "sub/c.txt").write_text("c")
        for name in ("a.bin", "sub/b.txt", "sub/c.txt"):
            os.utime(self.source / name, (WRITE_TIME, WRITE_TIME))
        self.files = contents(self.source)
        dsts = [f"<Dst><Folder>{to_windows(self.target)}</Folder><Type>{kind}</Type><Pattern>copy_&lt;Y&gt;{ending}"
                "</Pattern></Dst>" for kind, ending in (("FOLDER", ""), ("ZIP", ".zip"))]
        for order, listed in (("folder", dsts), ("archive", dsts[::-1])):
            (self.work / f"{order}.qlmr").write_text(
                f"<QuillmoorDoc><Version>1.0.0.0</Version><Dsts>{''.join(listed)}</Dsts><Tasks><Task><Id>t</Id><Path>"
                f"{to_windows(self.source)}</Path><Dsts><Dst>0</Dst><Dst>1</Dst></Dsts><FilterPath/></Task></Tasks>"
                "</QuillmoorDoc>")

    def reset(self):
        """Deletes what the last run made."""
        self.expected = [self.files]
        shutil.rmtree(self.target, ignore_errors=True)
        self.target.mkdir()
        self.stranger.touch()
        self.settings.write_bytes(self.settings_bytes)
        for path in (*self.profile.glob("QuillmoorHistory*"), *self.temp.glob("qlm*.txt")):
            path.unlink()
        if self.history_bytes:
            self.history.write_bytes(self.history_bytes)

    def start_server(self):
        for option in ("-k", "-w"):
            subprocess.run(["wineserver", option], **QUIET)
        self.server = subprocess.Popen(["wineserver", "-f", "-p"], **QUIET)
        subprocess.run(["wine", "wineboot"], timeout=LIMIT, **QUIET)

    def run(self, order, prefix=()):
        """Returns exit code (None: did not end) and text. `prefix` is a command that runs the program."""
        command = [*prefix, "wine", self.runner, "--quiet", to_windows(self.work / f"{order}.qlmr")]
        with open(self.work / "out", "w+b") as out:
            streams = {"stdin": subprocess.DEVNULL, "stdout": out, "stderr": out}
            code = None
            with contextlib.suppress(subprocess.TimeoutExpired):
                code = subprocess.run(command, cwd=self.work, timeout=LIMIT, **streams).returncode
            out.seek(0)
            return code, out.read().decode(errors="replace").strip()

    def traced(self, order, process, options):
        """Runs under strace. Returns exit code, text, and strace's log."""
        log = self.work / f"out_{process}"
        if process == "programs":
            result = self.run(order, ["strace", "-f", "--seccomp-bpf", "-e", "quiet=all", "-o", log, *options])
            return *result, log.read_text(errors="replace")
        command = ["strace", "-e", "quiet=path-resolution", "-o", log, "-p", str(self.server.pid), *options]
        with subprocess.Popen(command, stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True) as tracer:
            line = tracer.stderr.readline()
            if "attached" not in line:
                print(f"processes cannot be traced here: {line.strip()}")
                sys.exit(77)
            result = self.run(order)
            tracer.terminate()
        return *result, log.read_text(errors="replace")

    def group_of(self, path):
        """Returns to which files of the job a path belongs, or None."""
        path = path.replace(f"{self.prefix}/dosdevices/c:", f"{self.prefix}/drive_c")
        path = path.replace(f"{self.prefix}/dosdevices/z:", "")
        places = {"source": self.source, "backup": self.target, "settings": self.profile, "list": self.temp / "qlm",
                  "own": self.work / "out", "document": self.work}
        return next((group for group, place in places.items() if path.startswith(str(place))), None)

    def places_in(self, call, arguments):
        """Returns the paths in a traced call, with their groups."""
        names = re.findall(r"\b\d+<([^>]*)>", arguments)
        if call not in ("read", "write", "pread64", "pwrite64"):
            names += re.findall(r'"([^"]+)"', arguments)
        places = {(self.group_of(name), name) for name in names}
        relative = re.findall(r'^AT_FDCWD<([^>]*)>, "([^/"]+)"', arguments)
        places |= {(self.group_of(folder), name) for folder, name in relative}
        return {(group, path) for group, path in places if group not in (None, "own")}

    def count(self, order, process):
        """Returns the number of calls in a run without faults by group and call. Notes their paths."""
        self.reset()
        code, text, log = self.traced(order, process, ["-y", "-s", "400", "-e", "trace=?" + ",?".join(ERRORS)])
        threads, most = collections.Counter(), collections.Counter()  # strace counts the calls of each thread
        for thread, call, arguments in re.findall(r"^(?:(\d+) +)?(\w+)\((.*)", log, re.MULTILINE):
            places = self.places_in(call, arguments)
            for group, path in places:
                self.paths[order, process, group].add(path)
            threads.update((group, call, thread) for group in {group for group, _ in places})
        if code != 0 or not threads:
            sys.exit(f"the run without faults: {code} {text}; {len(threads)} kinds of calls in {process}")
        for (group, call, _), calls in threads.items():
            most[group, call] = max(most[group, call], calls)
        return most

    def faults(self):
        """Returns all faults, ordered by a hash: the first ones are a sample that hardly changes between runs."""
        found = []
        for order, process in (("folder", "server"), ("folder", "programs"), ("archive", "programs")):
            for (group, call), most in sorted(self.count(order, process).items()):
                # The server ignores failures of stat. It then takes a file for a pipe and appends at its beginning.
                if (process == "server" and "stat" in call) or (order == "archive" and call not in CALLS_ARCHIVE_FIRST):
                    continue
                modes = {"once": ERRORS[call], "on": [error for error in ERRORS[call] if error not in ONLY_ONCE]}
                found += [Fault(order, process, group, call, n, mode, errors[n % len(errors)])
                          for n in range(1, most + 1) for mode, errors in modes.items() if errors]
        return sorted(found, key=lambda fault: zlib.crc32(repr(fault).encode()))

    def complete(self):
        return all(path.exists() for path in self.backups)

    def damage(self):
        for path in self.backups:
            if path.exists() and contents(path) not in self.expected:
                yield f"{path.name} is torn"
        if contents(self.source) != self.files:
            yield "the source has changed"
        if not self.stranger.exists():
            yield "a file of others is lost"
        if read(self.settings) != self.settings_bytes:
            yield "the settings are lost"
        if not read(self.history).startswith(self.history_bytes):
            yield "the history is lost"

    def expect_short_listing(self, fault, text, log):
        """Accepts backups of the same part of the source. The runner leaves out folders that cannot be listed, with
        a warning. Wine ends a listing without an error if reading it fails, and omits entries without attributes."""
        by_wine = r'(\((AT_FDCWD|\d+), "[^/"]' + (r"|getdents64\(" if fault.group == "source" else "") + ").*INJECTED"
        for path in self.backups:
            part = path.exists() and contents(path)
            if part and part.items() < self.files.items() and (NOT_LISTED in text or re.search(by_wine, log)):
                self.expected.append(part)
                return True
        return False

    def try_fault(self, fault):
        """Returns the number of injected errors, the outcome, and the findings."""
        self.reset()
        when = f"{fault.n}+" if fault.mode == "on" else fault.n
        options = ["-e", f"trace={fault.call}", "-e", f"inject={fault.call}:error={fault.error}:when={when}"]
        options += [f"-P{path}" for path in sorted(self.paths[fault[:3]])]
        code, text, log = self.traced(fault.order, fault.process, options)
        fired = log.count("(INJECTED)")
        outcome = "reported" if code else "tolerated"
        if self.expect_short_listing(fault, text, log):
            outcome = "warned" if NOT_LISTED in text else "listing cut short by Wine"
        unrecorded = read(self.history).count(b"\n") == self.history_bytes.count(b"\n")
        wrong = {"does not end": code is None, "false success": code == 0 and not self.complete(),
                 "a lost record of the history is not reported": code == 0 and not text and unrecorded,
                 "a failure is not reported": code in range(1, 128) and not text,
                 "fails without a fault": code != 0 and not fired,
                 "the Wine server has ended": self.server.poll() is not None}
        findings = [*self.damage(), *(what for what, is_so in wrong.items() if is_so)]
        if code is None or self.server.poll() is not None:
            self.start_server()
        if code != 0 or findings:
            next_code, next_text = self.run(fault.order)
            if next_code != 0 or not self.complete():
                findings.append(f"the next run fails: {next_code} {next_text}")
            findings += [f"after the next run, {what}" for what in self.damage()]
        return fired, outcome if fired else "not reached", [f"{finding} ({code}: {text})" for finding in findings]


def main():
    sweep = Sweep(*map(Path, sys.argv[1:5]))
    option, only = sys.argv[5] if len(sys.argv) > 5 else "", sys.argv[6:]
    outcomes, injected, broken, start = collections.Counter(), 0, 0, time.monotonic()
    try:
        sweep.start_server()
        sweep.reset()
        sweep.run("folder")
        sweep.history_bytes = read(sweep.history)
        every = sweep.faults()
        chosen = [Fault(*text.split(":")) for text in only] or every[:None if option == "--full" else SAMPLE]
        for fault in chosen:
            name = ":".join(map(str, fault))
            fired, outcome, findings = sweep.try_fault(fault)
            if findings:  # Wine sometimes fails to start a process, about once in a thousand times
                print(f"tried again: {name}: {findings}", flush=True)
                fired, outcome, findings = sweep.try_fault(fault)
            outcomes[outcome] += 1
            injected += fired
            broken += bool(findings)
            if option:
                print(f"{time.monotonic() - start:.0f} s {name} {fired} {outcome}", flush=True)
            for finding in findings:
                print(f"FAIL {name}: {finding}", flush=True)
    finally:
        subprocess.run(["wineserver", "-k"])
    print(f"{len(chosen)} of {len(every)} faults in {time.monotonic() - start:.0f} s: {dict(outcomes)}; "
          f"{injected} injected errors; {broken} with findings")
    return 1 if broken or outcomes["not reached"] > len(chosen) / 10 else 0


if __name__ == "__main__":
    sys.exit(main())
