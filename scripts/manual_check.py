#!/usr/bin/env python3
"""Checks the manual: prints findings as "file: text" and fails if there are any.

What the pages name must exist in the program: <span class="ui"> is a text of a window or menu, <q class="message">
a message (a <var> in it is an argument, an ellipsis at its end leaves out the rest), <code class="option"> an option
of the runner, <kbd> a key, <code class="file"> the name of a file.
"""
import html
import json
import re
import subprocess
import sys
from pathlib import Path

from manual import LANGUAGES, MANUAL, PAGES, TOP, load, outputs, squeezed

EXTERNAL = {"https://www.7-zip.org/"}
# Keys of lists, dialogs and the system, which no table names.
COMMON_KEYS = set("Enter Esc Space Tab Home End ↑ ↓ ← → F1 F5 Alt+F4 Shift+Tab Ctrl+Tab Ctrl+Shift+Tab Ctrl+PgUp "
                  "Ctrl+PgDn Ctrl+A Ctrl+C Ctrl+F Ctrl+P F10".split())
NO_PAGE = {"IDD_CLOSING"}  # shown while nothing can be asked


def quoted_texts(paths):
    """Returns the string literals of resource files, with their line breaks, tabs and quotes."""
    texts = set()
    for path in paths:
        source = re.sub(r"^\s*//.*$", "", path.read_text("utf-8"), flags=re.M)
        for literal in re.findall(r'"((?:[^"\\\n]|\\.|"")*)"', source):
            texts.add(literal.replace('""', '"').replace("\\n", "\n").replace("\\t", "\t").replace("\\\\", "\\"))
    return texts


def resource_files(language):
    """Returns the files with the texts of a language, and those with the structure of windows."""
    others = [TOP / "res" / other for other in LANGUAGES if other != language]
    files = [*(TOP / "res").rglob("*.rc"), *(TOP / "res" / language).glob("*.h")]
    return sorted(path for path in files if path.parent not in others)


def label(text):
    """Returns the text of a menu item, button or label without its key, access key, dots and colon."""
    text = text.split("\t")[0]
    text = re.sub(r"\(&.\)", "", text).replace("&", "")
    return squeezed(re.sub(r"(\.\.\.|▼|:|：)+\s*$", "", text.strip()))


def keys(texts):
    return {text.split("\t")[1] for text in texts if "\t" in text}


def message_pattern(text):
    return squeezed(re.sub(r"%(s|\d)", "\0", text))


def matches(message, known):
    return message in known or (message.endswith("…") and any(text.startswith(message[:-1].rstrip()) for text in known))


# --- checks ----------------------------------------------------------------------------------------


def check_files(manual):
    for language in LANGUAGES:
        for path in (MANUAL / language).glob("*.html"):
            if path.stem not in PAGES:
                yield path, "is not in pages.json"
    used = {(page.path.parent / source).resolve() for pages in manual.values() for page in pages.values()
            for source, _ in page.pictures}
    for path in (MANUAL / "pictures").rglob("*.png"):
        if path.resolve() not in used:
            yield path, "is on no page"


def check_page(page, manual):
    yield from ((page.path, fault) for fault in page.faults)
    for anchor in {anchor for anchor in page.ids if page.ids.count(anchor) > 1}:
        yield page.path, f"two elements have the id {anchor}"
    for tag, anchor, text in page.headings:
        if tag == "h2" and not anchor:
            yield page.path, f"heading without id: {text}"
    for source, alternative in page.pictures:
        if not (page.path.parent / source).is_file():
            yield page.path, f"no picture {source}"
        if not alternative:
            yield page.path, f"picture without text: {source}"
    for link in page.links:
        yield from check_link(page, link, manual)


def check_link(page, link, manual):
    if "://" in link:
        if link not in EXTERNAL:
            yield page.path, f"link to the outside: {link}"
        return
    name, _, anchor = link.partition("#")
    target = manual[page.path.parent.name].get(Path(name).stem) if name else page
    if not target or (name and name != target.path.name):
        yield page.path, f"no page {link}"
    elif anchor and anchor not in target.ids:
        yield page.path, f"no place {link}"


def check_names(page, texts):
    """Compares what a page names with the texts of the program in its language."""
    labels = {label(line) for text in texts for line in text.split("\n")}
    messages = {message_pattern(text) for text in texts}
    for text in page.of_kind("ui"):
        if text not in labels:
            yield page.path, f"the program has no text: {text}"
    for text in page.of_kind("message"):
        if not matches(text, messages):
            yield page.path, "the program has no message: " + text.replace("\0", "%s")
    for text in page.of_kind("kbd"):
        if text not in keys(texts) and text not in COMMON_KEYS:
            yield page.path, f"no command has the key: {text}"


def check_program(page, options, sources):
    for text in page.of_kind("option"):
        if text not in options:
            yield page.path, f"the runner has no option: {text}"
    for text in page.of_kind("file"):
        if text.removeprefix("Quillmoor") not in sources:
            yield page.path, f"the program knows no file: {text}"


def check_languages(first, second):
    """Compares the two languages of a page."""
    outline = [[heading[:2] for heading in page.headings] for page in (first, second)]
    if outline[0] != outline[1]:
        yield second.path, f"has other headings than {first.path.name} in the other language"
    for kind in ("option", "file", "kbd"):
        differing = set(first.of_kind(kind)) ^ set(second.of_kind(kind))
        if differing:
            yield second.path, f"names other things than the other language: {', '.join(sorted(differing))}"
    for kind in ("ui", "message"):
        counts = [len(page.of_kind(kind)) for page in (first, second)]
        if counts[0] != counts[1]:
            yield second.path, f"{counts[1]} texts of kind {kind}, the other language {counts[0]}"


def check_complete(manual, options):
    """Everything that must be explained is: options, tokens of names, remedies, dialogs."""
    pages = manual["ja"]
    for option in options - set(pages["schedule"].of_kind("option")):
        yield pages["schedule"].path, f"does not explain {option}"
    names = (TOP / "src/ui/models/name_preview.cpp").read_text("utf-8")
    for token in re.findall(r'L"(<\w+>)"', names):
        if html.escape(token) not in pages["names"].main:
            yield pages["names"].path, f"does not explain {token}"
    strings = next(path for path in resource_files("ja") if path.name == "strings.rc").read_text("utf-8")
    told = set(pages["messages"].of_kind("message"))
    for remedy in re.findall(r'IDS_REMEDY_(?!LINE)\w+\s+"(.*)"', strings):
        if remedy.replace("\\\\", "\\").replace('""', '"') not in told:
            yield pages["messages"].path, f"does not have the remedy: {remedy}"


def check_dialogs(manual):
    table = TOP / "src/ui/dialogs/manual_pages.cpp"
    for path in sorted((TOP / "src").rglob("*.cpp")):
        for name in re.findall(r'L"([\w-]+)\.html"', path.read_text("utf-8")):
            if name not in PAGES:
                yield path, f"no page {name}.html"
    listed = set(re.findall(r"\{(IDD_\w+),", table.read_text("utf-8"))) | NO_PAGE
    for path in sorted((TOP / "res").rglob("*.rc")):
        for name, style in re.findall(r"^(IDD_\w+) DIALOGEX.*\nSTYLE (.*)", path.read_text("utf-8"), re.M):
            if "WS_CHILD" not in style and name not in listed:
                yield table, f"no page for {name}"


def check_examples(manual):
    """Compares page and script on names with the file of examples, which a test compares with the program."""
    script = """
      const { expandName, trimmedName } = require(process.argv[1]);
      for (const each of JSON.parse(process.argv[2])) {
        const name = trimmedName(expandName(each.pattern, each.id, each.time));
        if (name !== each.name) console.log(each.pattern + ": " + name + " instead of " + each.name);
      }"""
    examples = (MANUAL / "name-examples.json").read_text("utf-8")
    run = subprocess.run(["node", "-e", script, str(MANUAL / "names.js"), examples], capture_output=True, text=True)
    for line in (run.stdout + run.stderr).splitlines():
        yield MANUAL / "names.js", line
    known = {tuple(each.values()) for each in json.loads(examples)}
    for page in (pages["names"] for pages in manual.values()):
        for row in re.findall(r'<tr class="example">(.*)</tr>', page.main):
            pattern, task, time, name = (html.unescape(re.sub("<.*?>", "", cell)) for cell in row.split("</td>")[:4])
            if (pattern, task, time.replace(" ", "T"), name) not in known:
                yield page.path, f"example that is not tested: {name}"


def findings(manual):
    runner = (TOP / "src/run/options.cpp").read_text("utf-8")
    visible = re.sub(r".*->group\(\"\"\);.*", "", runner)  # without hidden options
    options = set(re.findall(r"--[a-z0-9][a-z0-9-]*", visible)) | {"-h"}
    sources = "\n".join(path.read_text("utf-8") for folder in ("src", "res")
                        for path in sorted((TOP / folder).rglob("*")) if path.suffix in (".cpp", ".h", ".rc"))
    yield from check_files(manual)
    for language, pages in manual.items():
        texts = quoted_texts(resource_files(language))
        for page in pages.values():
            yield from check_page(page, manual)
            yield from check_program(page, options, sources)
            if texts:
                yield from check_names(page, texts)
    for name in PAGES:
        yield from check_languages(manual["ja"][name], manual["en"][name])
    yield from check_complete(manual, options - {"-h"})
    yield from check_dialogs(manual)
    yield from check_examples(manual)
    for path, text in outputs(manual):
        if not path.exists() or path.read_text("utf-8") != text:
            yield path, "is not up to date: run scripts/manual.py"


def main():
    found = [f"{path.relative_to(TOP)}: {text}" for path, text in findings(load())]
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
