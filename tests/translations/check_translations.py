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
# "1 files": a text without a form for one has to keep its numbers away from such words.
COUNTED = re.compile(r"%L?\d+ (?:Dateien|Songs|files|songs)\b")
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
# Menu entries that open a window, whose fixed source texts lack the dots that say so.
OPENS_A_WINDOW = {("MainWindow", source)
                  for source in ("Rigenera il database delle song", "Salva lista delle song",
                                 "Aiuto Kavena PC", "Informazioni", "Informazioni su QT",
                                 "Delete file")}
# Texts that stand for the same thing in two places: the row menu and the File menu, down to the
# mnemonics, and the folder of a memory in two windows, where the mnemonics may differ.
SAME_TEXTS = ((("MainWindow", "Remove from list"), ("MainWindow", "&Rimuovi dalla lista"), str),
              (("MainWindow", "Delete file"), ("MainWindow", "Cance&lla file..."), str),
              (("SongsListDialog", "CF/USB:"), ("IndexDialog", "Cartella:"),
               lambda text: text.replace("&", "")))
# Words for one thing of which only one may be used in the translations and help pages of a
# language: a reader takes two words for two things. The first one is the word in use.
TERMS = {
    "de": (
        ("Songverzeichnis", "Verzeichnis", "Verzeichnisse", "Verzeichnisses", "Index",
         "Songdatenbank", "Datenbank de[sr] (?:Speichers|Karte|Sticks)",
         "Datenbank (?:neu|wird|aktualisieren)", "Archive?n?"),
        ("Songliste", "Bibliothek"),
        ("Ordner", r"\w*[Pp]fade?n?s?"),
        ("Speicher", r"\w*[Dd]atenträgers?n?", "Speicher von (?:RB27|Kavena)"),
        ("auf den Speicher", "in den Speicher"),
        ("auf dem Speicher", "im Speicher"),
        ("Playlists?", "Wiedergabelisten?"),
        ("angeschlossen", "angesteckt", "angemeldet", "eingehängt"),
        ("Angaben", "Daten", "Songdaten", "Details"),
        ("Abschnitte?", "Markers?"),
        ("Anhalten", "Abbruch", "(?:beim|nach dem) Abbrechen"),
        ("Nicht kopiert", "Fehlgeschlagene Songs"),
        ("einlesen", r"\w*import\w*", "Dateien lesen"),
        ("Songs synchronisieren", "Dateien aktualisieren"),
        ("Soll sie umbenannt werden", "wird umbenannt in"),
    ),
    "en": (
        ("song index", "(?<!song )index", "song database", "archives?",
         "database of the memory", "memory's database", "(?:update|updating|rebuild) the database"),
        ("song list", "library"),
        ("folder", r"\w*paths?"),
        ("memory", "dis[ck]s?", "memory of (?:RB27|Kavena)"),
        ("on (?:the|a) memory", "in (?:the|a) memory"),
        ("onto the memory", "into the memory"),
        ("connected", r"(?:un)?mount(?:ed)?"),
        ("details?", "data"),
        ("sections?", "markers?"),
        (r"import\w*", "read(?:ing)? (?:the )?(?:songs|files)"),
        ("synchronize songs", "updating files"),
        ("do you want to rename it", "will be renamed"),
        ("not copied", "failed songs?", "songs failed"),
    ),
    "it": (
        ("database", "archivio", "indice di ricerca"),
        ("collegata", "montat[ae]"),
        ("marker", "sezion[ei]"),
    ),
}
# The same word in two spellings; the README is held to the spelling of the English texts.
SPELLINGS = (("synchroniz", "synchronis"), ("optimiz", "optimis"), ("recogniz", "recognis"))


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


def updated_entries(lupdate, sources):
    """The entries of each translation as they stand after a comparison with the sources, which is
    made on copies."""
    with tempfile.TemporaryDirectory() as scratch:
        copies = [shutil.copy(sources / f"resources/translations/{name}.ts", scratch)
                  for name in TRANSLATIONS]
        subprocess.run([lupdate, "-silent", "storage", "library", "devindex", "sound", "windows", "app",
                        "cli", "-I", ".", "-extensions", "cpp,h,ui", "-source-language", "it_IT",
                        "-locations", "none", "-ts", *copies], cwd=sources, check=True)
        return {name: entries(copy) for name, copy in zip(TRANSLATIONS, copies)}


def names(pattern, text):
    return sorted(pattern.findall(text))


def plain(text):
    return MNEMONIC.sub("", text)


def faults_of_entry(entry, product):
    if entry.state != "finished":
        yield f"is {entry.state}"
    source = entry.source
    if (entry.context, source) in OPENS_A_WINDOW:
        source += "..."
    for text in entry.texts:
        if text.strip():
            yield from faults_of_text(source, text, product)
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
    if COUNTED.search(text):
        yield f'says "1 files" or the like in "{text}"'
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


def faults_of_same_texts(checked):
    texts = {(entry.context, entry.source): entry.texts[0] for entry in checked}
    for first, second, form in SAME_TEXTS:
        if form(texts.get(first, "")) != form(texts.get(second, "")):
            yield f'"{texts.get(first)}" and "{texts.get(second)}" should be the same'


def words_of_page(file):
    """What a reader sees of a page: file names and the names of links are no words of ours."""
    html = re.sub(r"<code>.*?</code>|<[^<>]*>", " ", file.read_text(encoding="utf-8"))
    return html.replace("’", "'")


def words(sources, language):
    """All that the user reads in this language, by the file in which it stands."""
    for name in TRANSLATIONS:
        if name.endswith("_" + language):
            for entry in entries(sources / f"resources/translations/{name}.ts"):
                for text in entry.texts:
                    yield name, plain(text)
    for page in HELP_PAGES:
        if page.endswith("_" + language):
            yield page, words_of_page(sources / f"resources/help/{page}.html")


def faults_of_terms(texts, groups, pattern):
    """Each group whose words stand side by side, with one place for each word."""
    texts = list(texts)
    for group in groups:
        places = {}
        for term in group:
            for place, text in texts:
                found = re.search(pattern.format(term), text, re.IGNORECASE)
                if found:
                    places.setdefault(term, f'"{found.group()}" ({place})')
        if len(places) > 1:
            yield "two words for one thing: " + ", ".join(places.values())
        # Without this, a word that has gone out of use would switch its group off.
        if group[0] not in places:
            yield f'no text says "{group[0]}" any more'


def faults_of_words(sources):
    for language, groups in TERMS.items():
        yield from faults_of_terms(words(sources, language), groups, r"\b(?:{})\b")
    readme = ("README", (sources / "README.md").read_text(encoding="utf-8"))
    yield from faults_of_terms([*words(sources, "en"), readme], SPELLINGS, r"\b{}\w*")


def faults(lupdate, sources):
    found = list(faults_of_words(sources))
    known = set()
    for name, checked in updated_entries(lupdate, sources).items():
        known.add(frozenset(entry.key() for entry in checked))
        seen = set()
        for entry in checked:
            found += [f"{name}: {entry} {fault}"
                      for fault in faults_of_entry(entry, PRODUCT[name.split("_")[0]])]
            if entry.key() in seen:
                found.append(f"{name}: {entry} stands there twice")
            seen.add(entry.key())
        found += [f"{name}: {fault}" for fault in faults_of_same_texts(checked)]
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
    "a menu entry that does not say that it opens a window":
        ("resources/translations/quorvane_de.ts", "Speicher &amp;optimieren...",
         "Speicher &amp;optimieren", 'ends in other characters than "Speicher &optimieren"'),
    "a number before a word that has no form for one":
        ("resources/translations/quorvane_de.ts", "Untersuchte Dateien: %1", "%1 Dateien untersucht",
         'says "1 files" or the like in "%1 Dateien untersucht'),
    "a row menu that differs from the File menu":
        ("resources/translations/quorvane_en.ts",
         "<source>Remove from list</source>\n        <translation>&amp;Remove",
         "<source>Remove from list</source>\n        <translation>Remove",
         '"Remove from list" and "&Remove from list" should be the same'),
    "two captions for the same field":
        ("resources/translations/quorvane_de.ts", "&amp;Ordner:", "&amp;CF/USB:",
         '"&CF/USB:" and "Ordner:" should be the same'),
    "a second word in a German translation":
        ("resources/translations/quorvane_de.ts", "Den gewählten Ordner gibt es nicht",
         "Der gewählte Pfad existiert nicht",
         'two words for one thing: "Ordner" (quorvane_de), "Pfad" (quorvane_de)'),
    "a second word in a German help page":
        ("resources/help/help_de.html", "eine Liste aller Songs", "ein Verzeichnis aller Songs",
         '"Songverzeichnis" (quorvane_de), "Verzeichnis" (help_de)'),
    "a second word in an English translation":
        ("resources/translations/kavenapc_en.ts", "Make sure that the memory",
         "Make sure that the disk", '"memory" (quorvane_en), "disk" (kavenapc_en)'),
    "a second word in an English help page":
        ("resources/help/quorvane_help_en.html", "the song index of the memory",
         "the database of the memory", '"database of the memory" (quorvane_help_en)'),
    "a second word in an Italian help page":
        ("resources/help/help_it.html", "Il computer mostra la memoria?", "La memoria è montata?",
         '"montata" (help_it)'),
    "a second word for the sections of a song":
        ("resources/help/help_it.html", "tonalità e marker della song",
         "tonalità e sezioni della song", '"sezioni" (help_it)'),
    "a second spelling in the README":
        ("README.md", "synchronizes", "synchronises", '"synchronises" (README)'),
}


def undetected(lupdate, sources):
    with tempfile.TemporaryDirectory() as scratch:
        copy = pathlib.Path(scratch)
        for folder in ("storage", "library", "devindex", "sound", "windows", "app", "cli",
                       "resources/translations", "resources/help"):
            shutil.copytree(sources / folder, copy / folder)
        shutil.copy(sources / "README.md", copy)
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
