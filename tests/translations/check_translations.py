#!/usr/bin/env python3
"""check_translations.py LUPDATE SOURCES: holds the translation files against the sources, and the
help pages against the translations. Then plants one fault of each kind into a copy of the sources
and makes sure that the very same checks find it."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

TRANSLATIONS = ("quorvane_de", "quorvane_en", "kavenapc_en", "kavenapc_it")
PRODUCT = {"quorvane": ("RB27 Utility", "RB27"), "kavenapc": ("Kavena PC", "Kavena")}
PLACEHOLDER = re.compile(r"%L?\d+")
MARKUP = re.compile(r"<[^<>]+>|&[a-z]+;")
MNEMONIC = re.compile(r"&(?!&|[a-z]+;)")
# Which page quotes which translation, between which quotation marks. No German of the primary
# branding exists but for its page, so that page quotes the partner's texts under its own names.
HELP_PAGES = {
    "quorvane_help_de": ("quorvane_de", "„([^„“]*)“"),
    "quorvane_help_en": ("quorvane_en", "“([^“”]*)”"),
    "help_de": ("quorvane_de", "„([^„“]*)“"),
    "help_en": ("kavenapc_en", "“([^“”]*)”"),
    "help_it": ("kavenapc_it", "«([^«»]*)»"),
}


class Entry:
    def __init__(self, context, message):
        self.context = context
        self.source = message.findtext("source")
        self.comment = message.findtext("comment")
        translation = message.find("translation")
        self.state = translation.get("type", "finished")
        # A text that counts something has a form for one and a form for many.
        forms = [form.text or "" for form in translation.iter("numerusform")]
        self.texts = forms or [translation.text or ""]

    def key(self):
        return self.context, self.source, self.comment

    def __str__(self):
        return f'{self.context}: "{self.source}"'


def entries(file):
    return [Entry(context.findtext("name"), message)
            for context in xml.parse(file).getroot().iter("context")
            for message in context.iter("message")]


def updated_entries(lupdate, sources, name):
    """The entries as they stand after a comparison with the sources, which is made on a copy."""
    with tempfile.TemporaryDirectory() as scratch:
        copy = shutil.copy(sources / f"resources/translations/{name}.ts", scratch)
        subprocess.run([lupdate, "-silent", "storage", "library", "devindex", "windows", "app",
                        "cli", "-I", ".", "-extensions", "cpp,h,ui", "-source-language", "it_IT",
                        "-locations", "none", "-ts", copy], cwd=sources, check=True)
        return entries(copy)


def names(pattern, text):
    return sorted(pattern.findall(text))


def plain(text):
    return MNEMONIC.sub("", text)


def faults_of_entry(entry, product):
    if entry.state != "finished":
        yield f"is {entry.state}"
    for text in entry.texts:
        if text.strip():
            yield from faults_of_text(entry.source, text, product)
        else:
            yield "has no translation"
    if "%n" in entry.source and "%n" not in entry.texts[-1]:
        yield "does not name the number"


def faults_of_text(source, text, product):
    # "%n" may be missing in a form for one: "a song".
    if names(PLACEHOLDER, source) != names(PLACEHOLDER, text):
        yield f'has other place-holders in "{text}"'
    if names(MARKUP, source) != names(MARKUP, text):
        yield f'has other mark-up in "{text}"'
    if len(MNEMONIC.findall(text)) > 1:
        yield f'has two mnemonics in "{text}"'
    for end in (":", "...", " "):
        if source.endswith(end) != text.endswith(end):
            yield f'ends in other characters than "{text}"'
    if source == "Kavena PC" and text != product[0]:
        yield f'is "{text}"'
    other = "Kavena" if product[1] == "RB27" else "RB27"
    if other in text:
        yield f'names the other branding in "{text}"'


def faults_of_page(sources, page, name, quoted):
    texts = {plain(text)
             for entry in entries(sources / f"resources/translations/{name}.ts")
             for text in entry.texts}
    if page.startswith("help_de"):
        texts = {text.replace("RB27 Utility", "Kavena PC").replace("RB27", "Kavena")
                 for text in texts}
    html = (sources / f"resources/help/{page}.html").read_text(encoding="utf-8")
    for quote in re.findall(quoted, html):
        # Of a message of several sentences, the page names the first.
        if not any(text == quote or text.startswith((quote + ".", quote + "\n"))
                   for text in texts):
            yield f'{page}: no text of the program is "{quote}"'


def faults(lupdate, sources):
    found = []
    known = set()
    for name in TRANSLATIONS:
        checked = updated_entries(lupdate, sources, name)
        known.add(frozenset(entry.key() for entry in checked))
        seen = set()
        for entry in checked:
            found += [f"{name}: {entry} {fault}"
                      for fault in faults_of_entry(entry, PRODUCT[name.split("_")[0]])]
            if entry.key() in seen:
                found.append(f"{name}: {entry} stands there twice")
            seen.add(entry.key())
    if len(known) != 1 or len(next(iter(known))) < 100:
        found.append("the translation files hold different texts, or hardly any")
    for page, (name, quoted) in HELP_PAGES.items():
        found += faults_of_page(sources, page, name, quoted)
    return found


def replace_once(file, old, new):
    text = file.read_text(encoding="utf-8")
    assert old in text, f'{file.name} holds no "{old}"'
    file.write_text(text.replace(old, new, 1), encoding="utf-8")


# What is planted where, and what the check has to say about it.
PLANTED = {
    "a text without a translation":
        ("windows/aboutdialog.cpp", 'tr("Assistenza:")', 'tr("Mai visto prima:")',
         'AboutDialog: "Mai visto prima:" is unfinished'),
    "a text that no source has any more":
        ("windows/aboutdialog.cpp", 'tr("Assistenza:")', "QString()",
         'AboutDialog: "Assistenza:" is vanished'),
    "an unfinished entry":
        ("resources/translations/quorvane_de.ts", "<translation>Hilfe",
         '<translation type="unfinished">Hilfe', "is unfinished"),
    "an empty entry":
        ("resources/translations/quorvane_en.ts", "<translation>Support:", "<translation>",
         "has no translation"),
    "a lost place-holder":
        ("resources/translations/quorvane_de.ts", "<translation>%1 von %2<",
         "<translation>%1 von<",
         'has other place-holders in "%1 von"'),
    "lost mark-up":
        ("resources/translations/quorvane_de.ts", "%2&lt;br/&gt;</translation>",
         "%2</translation>", "has other mark-up"),
    "a second mnemonic":
        ("resources/translations/quorvane_en.ts", "&amp;Quit", "&amp;Qu&amp;it",
         "has two mnemonics"),
    "a lost colon":
        ("resources/translations/kavenapc_it.ts", "<translation>Assistenza:",
         "<translation>Assistenza", "ends in other characters"),
    "the other branding's name":
        ("resources/translations/quorvane_en.ts", "<translation>RB27 Utility</translation>",
         "<translation>Kavena PC</translation>", 'is "Kavena PC"'),
    "a help page that quotes a text of its own":
        ("resources/help/quorvane_help_en.html", "“Make backup”", "“Do backup”",
         'no text of the program is "Do backup"'),
}


def undetected(lupdate, sources):
    with tempfile.TemporaryDirectory() as scratch:
        copy = pathlib.Path(scratch)
        for folder in ("storage", "library", "devindex", "windows", "app", "cli",
                       "resources/translations", "resources/help"):
            shutil.copytree(sources / folder, copy / folder)
        for what, (name, old, new, expected) in PLANTED.items():
            file = copy / name
            before = file.read_text(encoding="utf-8")
            replace_once(file, old, new)
            if not any(expected in fault for fault in faults(lupdate, copy)):
                yield f"the check does not notice {what}"
            file.write_text(before, encoding="utf-8")


def main():
    lupdate, sources = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    problems = faults(lupdate, sources) or list(undetected(lupdate, sources))
    for problem in problems:
        print(problem, file=sys.stderr)
    if problems:
        return 1
    print(f"{len(TRANSLATIONS)} translations are complete; {len(PLANTED)} planted faults were found")
    return 0


if __name__ == "__main__":
    sys.exit(main())
