#!/usr/bin/env python3
"""pdf_text.py FILE: the texts of each page of a PDF as Qt writes it, one page a line, by the tables
of letters that its fonts carry."""
import re
import sys
import unicodedata
import zlib


def stream(body):
    match = re.search(rb"stream\r?\n(.*?)\r?\nendstream", body, re.S)
    if not match:
        return b""
    try:
        return zlib.decompress(match.group(1))
    except zlib.error:
        return match.group(1)


def letters(table):
    found = {}
    ranges = rb"<([0-9a-fA-F]{4})> <[0-9a-fA-F]{4}> (\[.*?\]|<[0-9a-fA-F]+>)"
    for first, last in re.findall(ranges, table, re.S):
        for offset, code in enumerate(re.findall(rb"<([0-9a-fA-F]+)>", last)):
            found[int(first, 16) + offset] = bytes.fromhex(code.decode()).decode("utf-16-be")
    return found


def main():
    with open(sys.argv[1], "rb") as file:
        document = file.read()
    objects = {int(number): body
               for number, body in re.findall(rb"(\d+) 0 obj(.*?)endobj", document, re.S)}
    fonts = {}
    for number, body in objects.items():
        table = re.search(rb"/ToUnicode (\d+) 0 R", body)
        if table:
            fonts[number] = letters(stream(objects[int(table.group(1))]))
    for body in objects.values():
        if not re.search(rb"/Type /Page\b", body):
            continue
        resources = int(re.search(rb"/Resources (\d+)", body).group(1))
        names = {name: int(font)
                 for name, font in re.findall(rb"/(F\d+) (\d+) 0 R", objects[resources])}
        text, font = "", {}
        content = stream(objects[int(re.search(rb"/Contents (\d+) 0 R", body).group(1))])
        for name, codes in re.findall(rb"/(F\d+) [\d.]+ Tf|<([0-9a-fA-F]+)>", content):
            if name:
                font = fonts[names[name]]
            for at in range(0, len(codes), 4):
                text += font.get(int(codes[at:at + 4], 16), "?")
        # A font may have one sign for two letters.
        print(unicodedata.normalize("NFKC", text.replace("\t", " ")))


main()
