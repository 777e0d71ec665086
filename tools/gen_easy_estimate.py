#!/usr/bin/env python3
"""Writes data/EasyEstimate.sql: the simple-estimate unit prices and their classification
tables, our own sample data for a new installation (the shop edits them in frmKaniSet).

Work kind 1 (optKH) is キズ・ヘコミ修理: a dent or scratch repaired and the panel painted, in
two sizes per panel, plus panel-independent items (Num 0). Work kind 2 (optZP) is パネル全面塗装:
one whole panel repainted without sheet-metal work. Some combinations are left out on purpose
(no 大型・輸入車 and no トラック at all, no セダン among 軽自動車, no ハッチバック among 普通自動車, no パール
for 軽自動車 in work kind 2), so that the vehicle-class dialog visibly narrows its lists.
Run from the repository root:
    python3 tools/gen_easy_estimate.py
"""
import os
from decimal import Decimal, ROUND_HALF_EVEN

KINDS = [(1, "キズ・ヘコミ修理"), (2, "パネル全面塗装")]
CLASS_A = [(1, "軽自動車"), (2, "小型自動車"), (3, "普通自動車"), (4, "大型・輸入車")]
CLASS_B = [(1, "セダン"), (2, "ハッチバック"), (3, "ミニバン"), (4, "SUV"), (5, "トラック")]
COLOURS = [(1, "ソリッド"), (2, "メタリック"), (3, "パール")]

# Num, panel name, labour of a small repair at 軽/セダン/ソリッド, paint material of one panel.
PANELS = [
    (1, "バンパー", 9000, 6000),
    (2, "フェンダー", 11000, 5000),
    (3, "フロントドア", 13000, 6500),
    (4, "リヤドア", 12000, 6000),
    (5, "クォーターパネル", 15000, 6500),
    (6, "ボンネット", 14000, 8000),
    (7, "ルーフ", 16000, 9000),
    (8, "トランク", 12000, 5500),
    (9, "リヤパネル", 10000, 4000),
    (10, "マスクパネル", 8000, 3000),
    (11, "スライドドア", 15000, 7500),
]

# Which body types each vehicle class has prices for.
BODIES = {1: [2, 3], 2: [1, 2, 3, 4], 3: [1, 3, 4]}
D = Decimal
A_FACTOR = {1: D("1.0"), 2: D("1.15"), 3: D("1.3")}
B_FACTOR = {1: D("1.0"), 2: D("0.95"), 3: D("1.15"), 4: D("1.2")}
COLOUR_FACTOR = {1: D("1.0"), 2: D("1.2"), 3: D("1.5")}
COLOUR_LABOUR = {1: 0, 2: 1000, 3: 3000}


def hundreds(value):
    # Exact decimals, to the nearest hundred yen, half to even.
    return int((Decimal(value) / 100).quantize(Decimal(1), rounding=ROUND_HALF_EVEN)) * 100


def panels_for(body):
    # Sliding doors on minivans only; a minivan has no boot lid, and a hatchback none either.
    for num, name, labour, material in PANELS:
        if num == 11 and body != 3:
            continue
        if num == 8 and body in (2, 3):
            continue
        yield num, name, labour, material


def rows():
    for kind, _ in KINDS:
        for a, bodies in BODIES.items():
            for b in bodies:
                for colour, _ in COLOURS:
                    if kind == 2 and a == 1 and colour == 3:
                        continue
                    f = A_FACTOR[a] * B_FACTOR[b]
                    if kind == 1:
                        for num, name, labour, material in panels_for(b):
                            small = hundreds(labour * f) + COLOUR_LABOUR[colour]
                            mat = hundreds(material * D("0.6") * COLOUR_FACTOR[colour])
                            yield (name, "キズ・ヘコミ修理（小）", mat, small, kind, a, b, colour, num)
                            yield (name, "キズ・ヘコミ修理（中）", hundreds(mat * D("1.3")),
                                   hundreds(small * D("1.6")), kind, a, b, colour, num)
                        yield ("部位共通", "磨き・小キズ除去（１か所）", 500, hundreds(3000 * f), kind, a, b, colour, 0)
                        yield ("部位共通", "タッチアップ（１か所）", 800, 2000, kind, a, b, colour, 0)
                    else:
                        for num, name, labour, material in panels_for(b):
                            lab = hundreds(labour * D("1.2") * f) + COLOUR_LABOUR[colour]
                            yield (name, "パネル全面塗装", hundreds(material * COLOUR_FACTOR[colour]), lab,
                                   kind, a, b, colour, num)
                            if num in (1, 3, 4, 11):
                                yield (name, "パネル全面塗装（脱着込み）", hundreds(material * COLOUR_FACTOR[colour]),
                                       lab + hundreds(4000 * f), kind, a, b, colour, num)


def quote(text):
    return "'" + text.replace("'", "''") + "'"


def main():
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    out = [
        "-- Data/EasyEstimate.sqlite: unit prices of the simple estimate by work kind, vehicle",
        "-- classes and colour class, one row per panel job. Sample data for a new installation",
        "-- (written by tools/gen_easy_estimate.py); the shop keeps its own prices in frmKaniSet.",
        "",
        'CREATE TABLE "M_TSKubun" ("No" INTEGER PRIMARY KEY, "作業区分" TEXT NOT NULL);',
        'CREATE TABLE "M_TSyaryoA" ("No" INTEGER PRIMARY KEY, "車両区分A" TEXT NOT NULL);',
        'CREATE TABLE "M_TSyaryoB" ("No" INTEGER PRIMARY KEY, "車両区分B" TEXT NOT NULL);',
        'CREATE TABLE "M_TColor" ("No" INTEGER PRIMARY KEY, "色区分" TEXT NOT NULL);',
        'CREATE TABLE "T_TUnitPrice" (',
        '    "No" INTEGER PRIMARY KEY,',
        '    "作業部位" TEXT NOT NULL DEFAULT \'\',',
        '    "作業内容" TEXT NOT NULL DEFAULT \'\',',
        '    "材料/部品代" INTEGER NOT NULL DEFAULT 0,',
        '    "工賃" INTEGER NOT NULL DEFAULT 0,',
        '    "作業区分" INTEGER NOT NULL,',
        '    "車両区分A" INTEGER NOT NULL,',
        '    "車両区分B" INTEGER NOT NULL,',
        '    "色区分" INTEGER NOT NULL,',
        '    "Num" INTEGER NOT NULL DEFAULT 0',
        ');',
        'CREATE INDEX "T_TUnitPrice_Class" ON "T_TUnitPrice" ("作業区分", "車両区分A", "車両区分B", "色区分", "Num");',
        "",
    ]
    for table, field, values in (("M_TSKubun", "作業区分", KINDS), ("M_TSyaryoA", "車両区分A", CLASS_A),
                                 ("M_TSyaryoB", "車両区分B", CLASS_B), ("M_TColor", "色区分", COLOURS)):
        items = ", ".join("(%d, %s)" % (no, quote(name)) for no, name in values)
        out.append('INSERT INTO "%s" ("No", "%s") VALUES %s;' % (table, field, items))
    out.append("")
    out.append('INSERT INTO "T_TUnitPrice" ("No", "作業部位", "作業内容", "材料/部品代", "工賃", "作業区分", '
               '"車両区分A", "車両区分B", "色区分", "Num") VALUES')
    lines = []
    for no, r in enumerate(rows(), start=1):
        lines.append("    (%d, %s, %s, %d, %d, %d, %d, %d, %d, %d)"
                     % (no, quote(r[0]), quote(r[1]), r[2], r[3], r[4], r[5], r[6], r[7], r[8]))
    out.append(",\n".join(lines) + ";")
    with open(os.path.join(root, "data", "EasyEstimate.sql"), "w", encoding="utf-8") as f:
        f.write("\n".join(out) + "\n")


if __name__ == "__main__":
    main()
