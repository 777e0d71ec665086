#!/usr/bin/python3
"""Writes the printing copy of one Japanese face of a Noto CJK collection.

Qt's PDF writer names each glyph in the PDF's text layer by the lowest code point that maps
to it. Noto CJK maps the Kangxi and supplementary radicals (U+2E80-U+2FDF) to the glyphs of
the ideographs they look like, so 山 would be found in the text as the radical U+2F2D. The
copy keeps every glyph and drops from its character map each code point that shares its
glyph with one a Japanese text means: radicals sharing an ideograph's glyph, and Western
look-alikes of Japanese punctuation (U+2003 for 　, U+2027 for ・, U+2215 for ／). A dropped
code point still prints, from the system's fonts.

usage: make_print_font.py COLLECTION.ttc FAMILY OUT.otf NEW_FAMILY
"""

import sys

from fontTools.ttLib import TTFont


def is_radical(cp):
    return 0x2E80 <= cp <= 0x2FDF


def is_japanese_punctuation(cp):
    # CJK symbols, kana, full-width forms and half-width kana, full-width signs
    return 0x3000 <= cp <= 0x30FF or 0xFF00 <= cp <= 0xFF9F or 0xFFE0 <= cp <= 0xFFEE


def dropped_code_points(best_cmap):
    by_glyph = {}
    for cp, glyph in best_cmap.items():
        by_glyph.setdefault(glyph, []).append(cp)
    dropped = set()
    for cps in by_glyph.values():
        if len(cps) < 2:
            continue
        if not all(is_radical(cp) for cp in cps):
            dropped.update(cp for cp in cps if is_radical(cp))
        if any(is_japanese_punctuation(cp) for cp in cps):
            dropped.update(cp for cp in cps if 0x2000 <= cp < 0x3000 and not is_radical(cp))
    return dropped


def open_face(collection, family):
    index = 0
    while True:
        try:
            # without recalculated bounds the outlines are copied, not rebuilt (seconds, not minutes)
            font = TTFont(collection, fontNumber=index, lazy=True, recalcBBoxes=False,
                          recalcTimestamp=False)
        except Exception:
            sys.exit(f"{collection}: no face of the family {family}")
        if font["name"].getDebugName(1) == family:
            return font
        index += 1


def rename(font, family):
    name = font["name"]
    style = name.getDebugName(2) or "Regular"
    postscript = family.replace(" ", "") + "-" + style.replace(" ", "")
    values = {1: family, 3: postscript, 4: f"{family} {style}", 6: postscript, 16: family}
    for record in name.names:
        if record.nameID in values:
            record.string = values[record.nameID]
    # Japanese-language names would still give the old family to fontconfig
    name.names = [r for r in name.names if not (r.nameID in values and r.langID not in (0, 0x409))]


def main():
    if len(sys.argv) != 5:
        sys.exit(__doc__)
    collection, family, out, new_family = sys.argv[1:]
    font = open_face(collection, family)
    dropped = dropped_code_points(font.getBestCmap())
    for table in font["cmap"].tables:
        if table.format == 14:
            for selector, entries in table.uvsDict.items():
                table.uvsDict[selector] = [e for e in entries if e[0] not in dropped]
        elif hasattr(table, "cmap"):
            for cp in dropped:
                table.cmap.pop(cp, None)
    rename(font, new_family)
    if "DSIG" in font:
        del font["DSIG"]
    font.save(out)


if __name__ == "__main__":
    main()
