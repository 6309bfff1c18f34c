# SPDX-License-Identifier: MIT
"""What must be true of the help page so that everybody can read it: without a network, by keyboard,
by a screen reader, in large print."""

import html.parser
import urllib.parse


class Page(html.parser.HTMLParser):
    """The elements of a page that the rules are about, each with the line where it stands."""

    VOID = {"meta", "link", "img", "br", "hr"}

    def __init__(self, text):
        super().__init__()
        self.ids, self.links, self.pictures, self.headings = [], [], [], []
        self.sheets, self.table_heads, self.faults = [], [], []
        self.language = None
        self._open = []
        self.feed(text)
        self.close()
        self.faults += [f"line {line}: <{tag}> is never closed" for tag, line in self._open]

    def handle_starttag(self, tag, attributes):
        found, line = dict(attributes), self.getpos()[0]
        if tag not in self.VOID:
            self._open.append((tag, line))
        if "id" in found:
            self.ids.append((found["id"], line))
        if tag == "html":
            self.language = found.get("lang")
        if tag == "a":
            self.links.append((found.get("href", ""), line))
        if tag == "link":
            self.sheets.append((found.get("href", ""), line))
        if tag == "img":
            self.pictures.append((found.get("src", ""), found.get("alt", ""), line))
        if tag == "th":
            self.table_heads.append((found.get("scope"), line))
        if tag in {"h1", "h2", "h3", "h4"}:
            self.headings.append((int(tag[1]), line))

    def handle_endtag(self, tag):
        if self._open and self._open[-1][0] == tag:
            self._open.pop()
        else:
            self.faults.append(f"line {self.getpos()[0]}: </{tag}> closes nothing")


def target_faults(page, folder):
    """Links, sheets and pictures that lead nowhere, or away from this computer."""
    ids = {name for name, _ in page.ids}
    targets = page.links + page.sheets + [(source, line) for source, _, line in page.pictures]
    for target, line in targets:
        parts = urllib.parse.urlsplit(target)
        if parts.scheme or parts.netloc:
            yield f"line {line}: {target} needs a network"
        elif parts.path and not (folder / urllib.parse.unquote(parts.path)).is_file():
            yield f"line {line}: there is no file {target}"
        elif not parts.path and parts.fragment not in ids:
            yield f"line {line}: nothing is named {target}"


def heading_faults(page):
    """A heading that leaves out a level loses who hears the page by its headings."""
    level = 0
    for next_level, line in page.headings:
        if next_level > level + 1:
            yield f"line {line}: a heading of level {next_level} below one of level {level}"
        level = next_level


def faults(text, folder):
    """Everything that is wrong with a page that lies in a folder."""
    page = Page(text)
    found = list(page.faults)
    if page.language != "cs":
        found.append("the page does not say that it is Czech")
    names = [name for name, _ in page.ids]
    found += [f"line {line}: the name {name} is given twice"
              for position, (name, line) in enumerate(page.ids) if name in names[:position]]
    found += [f"line {line}: a picture without words for it"
              for _, words, line in page.pictures if not words.strip()]
    found += [f"line {line}: a table's heading does not say for what"
              for scope, line in page.table_heads if scope not in {"col", "row"}]
    found += heading_faults(page)
    found += target_faults(page, folder)
    linked = {target for target, _ in page.links}
    found += [f"line {line}: no link leads to {name}" for name, line in page.ids
              if f"#{name}" not in linked]
    shown = {source for source, _, _ in page.pictures}
    found += [f"the page does not show {picture.name}"
              for picture in sorted((folder / "pictures").glob("*"))
              if f"pictures/{picture.name}" not in shown]
    return found
