#!/usr/bin/env python3
"""Writes the frame (head, table of contents, links) around the <main> of every page of the manual in manual/ja and
manual/en, and the search index of each language. manual_check.py checks the result.
"""
import html
import json
import re
from html.parser import HTMLParser
from pathlib import Path

TOP = Path(__file__).resolve().parent.parent
MANUAL = TOP / "manual"
LANGUAGES = ("ja", "en")
PLAN = json.loads((MANUAL / "pages.json").read_text("utf-8"))
PAGES = [page for group in PLAN["groups"] for page in group["pages"]]
VOID = {"meta", "link", "img", "br", "input", "hr", "wbr"}
BLOCKS = {"p", "li", "td", "th", "tr", "dt", "dd", "pre", "h1", "h2", "h3", "option", "div", "label"}
MARKED = {("span", "ui"), ("q", "message"), ("code", "option"), ("code", "file"), ("kbd", "")}


def squeezed(text):
    return re.sub(r"\s+", " ", text).strip()


class Page(HTMLParser):
    """One page: its parts as the generator and the checks need them."""

    def __init__(self, path):
        super().__init__(convert_charrefs=True)
        self.path = path
        self.source = path.read_text("utf-8")
        self.main = ""
        self.ids, self.links, self.pictures, self.headings, self.marked, self.faults = [], [], [], [], [], []
        self.sections = []  # [anchor, heading, text]
        self._open, self._marks = [], []
        match = re.search(r"<main>\n(.*)</main>", self.source, re.S)
        if match:
            self.main = match[1]
        else:
            self.faults.append("no <main>")
        self.feed("<main>\n" + self.main + "</main>")
        self.faults += [f"<{tag}> is not closed" for tag in self._open]

    @property
    def name(self):
        return self.path.stem

    @property
    def title(self):
        return next((heading[2] for heading in self.headings if heading[0] == "h1"), "")

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if "id" in values:
            self.ids.append(values["id"])
        if tag in ("a", "link") and "href" in values:
            self.links.append(values["href"])
        if tag == "img":
            self.pictures.append((values.get("src", ""), values.get("alt", "")))
        if tag in ("h1", "h2", "h3"):
            self.headings.append([tag, values.get("id", ""), ""])
        if tag in ("h1", "h2"):
            self.sections.append([values.get("id", ""), "", ""])
        if tag == "var" and self._marks:
            self._marks[-1][2] += "\0"
        kind = (tag, values.get("class", ""))
        if kind in MARKED:
            self._marks.append([tag, kind[1] or tag, ""])
        if tag not in VOID:
            self._open.append(tag)
        if tag in BLOCKS or tag == "br":
            self._add_text(" ")

    def handle_endtag(self, tag):
        if not self._open or self._open.pop() != tag:
            self.faults.append(f"</{tag}> closes nothing")
        if self._marks and self._marks[-1][0] == tag:
            _, kind, text = self._marks.pop()
            self.marked.append((kind, squeezed(text)))
        if tag in BLOCKS:
            self._add_text(" ")

    def handle_data(self, data):
        if self._marks and "var" not in self._open:
            self._marks[-1][2] += data
        if self._open and self._open[-1] in ("h1", "h2", "h3"):
            self.headings[-1][2] += data
        self._add_text(data)

    def _add_text(self, text):
        if not self.sections:
            return
        inside = self._open[-1] if self._open else ""
        self.sections[-1][1 if inside in ("h1", "h2") else 2] += text

    def of_kind(self, kind):
        return [text for found, text in self.marked if found == kind]


def load():
    return {language: {name: Page(MANUAL / language / f"{name}.html") for name in PAGES} for language in LANGUAGES}


def contents(language, pages, current):
    lines = []
    for group in PLAN["groups"]:
        lines.append(f"<h2>{group[language]}</h2>\n<ul>")
        for name in group["pages"]:
            mark = ' aria-current="page"' if name == current else ""
            lines.append(f'<li><a href="{name}.html"{mark}>{html.escape(pages[name].title)}</a></li>')
        lines.append("</ul>")
    return "\n".join(lines)


def neighbours(language, pages, current):
    at = PAGES.index(current)
    words = PLAN["words"][language]
    links = []
    for step, word in ((-1, "previous"), (1, "next")):
        if 0 <= at + step < len(PAGES):
            name = PAGES[at + step]
            links.append(f'<a href="{name}.html">{words[word]}{html.escape(pages[name].title)}</a>')
    return "\n".join(links)


def framed(language, pages, page):
    words = PLAN["words"][language]
    other = LANGUAGES[1 - LANGUAGES.index(language)]
    title = words["manual"] if page.name == "index" else f"{page.title} - {words['manual']}"
    extra = "".join(f'<script src="../{name}.js"></script>\n'
                    for name in ("names", "name-table") if page.name == "names")
    return f"""<!DOCTYPE html>
<html lang="{language}">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>{html.escape(title)}</title>
<link rel="stylesheet" href="../style.css">
</head>
<body>
<header>
<a class="home" href="index.html">{words["manual"]}</a>
<a class="to-contents" href="#contents">{words["contents"]}</a>
<div id="search" data-label="{words["search"]}" data-none="{words["none"]}"></div>
<a class="language" href="../{other}/{page.name}.html" lang="{other}" hreflang="{other}">{words["language"]}</a>
</header>
<div class="page">
<main>
{page.main}</main>
<nav id="contents" aria-label="{words["contents"]}">
{contents(language, pages, page.name)}
</nav>
<footer>
{neighbours(language, pages, page.name)}
</footer>
</div>
<script src="search.js"></script>
<script src="../manual.js"></script>
{extra}</body>
</html>
"""


def index(pages):
    entries = []
    for page in pages.values():
        for anchor, heading, text in page.sections:
            heading = "" if squeezed(heading) == page.title else squeezed(heading)
            entries.append({"page": f"{page.name}.html", "anchor": anchor, "title": page.title, "heading": heading,
                            "text": squeezed(text)})
    lines = ",\n".join(json.dumps(entry, ensure_ascii=False) for entry in entries)
    return f"const manualIndex = [\n{lines}\n];\n"


def outputs(manual):
    for language, pages in manual.items():
        for page in pages.values():
            yield page.path, framed(language, pages, page)
        yield MANUAL / language / "search.js", index(pages)


def write(manual):
    for path, text in outputs(manual):
        if not path.exists() or path.read_text("utf-8") != text:
            path.write_text(text, "utf-8")


if __name__ == "__main__":
    write(load())
