-- The layout of Data/EasyEstimate.sqlite as the program made it before versions were recorded (first rows of each table), kept to test upgrades from it.
-- Data/EasyEstimate.sqlite: unit prices of the simple estimate by work kind, vehicle
-- classes and colour class, one row per panel job. Sample data for a new installation
-- (written by tools/gen_easy_estimate.py); the shop keeps its own prices in frmKaniSet.

CREATE TABLE "M_TSKubun" ("No" INTEGER PRIMARY KEY, "作業区分" TEXT NOT NULL);
CREATE TABLE "M_TSyaryoA" ("No" INTEGER PRIMARY KEY, "車両区分A" TEXT NOT NULL);
CREATE TABLE "M_TSyaryoB" ("No" INTEGER PRIMARY KEY, "車両区分B" TEXT NOT NULL);
CREATE TABLE "M_TColor" ("No" INTEGER PRIMARY KEY, "色区分" TEXT NOT NULL);
CREATE TABLE "T_TUnitPrice" (
    "No" INTEGER PRIMARY KEY,
    "作業部位" TEXT NOT NULL DEFAULT '',
    "作業内容" TEXT NOT NULL DEFAULT '',
    "材料/部品代" INTEGER NOT NULL DEFAULT 0,
    "工賃" INTEGER NOT NULL DEFAULT 0,
    "作業区分" INTEGER NOT NULL,
    "車両区分A" INTEGER NOT NULL,
    "車両区分B" INTEGER NOT NULL,
    "色区分" INTEGER NOT NULL,
    "Num" INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX "T_TUnitPrice_Class" ON "T_TUnitPrice" ("作業区分", "車両区分A", "車両区分B", "色区分", "Num");

INSERT INTO "M_TSKubun" ("No", "作業区分") VALUES (1, 'キズ・ヘコミ修理'), (2, 'パネル全面塗装');
INSERT INTO "M_TSyaryoA" ("No", "車両区分A") VALUES (1, '軽自動車'), (2, '小型自動車'), (3, '普通自動車'), (4, '大型・輸入車');
INSERT INTO "M_TSyaryoB" ("No", "車両区分B") VALUES (1, 'セダン'), (2, 'ハッチバック'), (3, 'ミニバン'), (4, 'SUV'), (5, 'トラック');
INSERT INTO "M_TColor" ("No", "色区分") VALUES (1, 'ソリッド'), (2, 'メタリック'), (3, 'パール');

INSERT INTO "T_TUnitPrice" ("No", "作業部位", "作業内容", "材料/部品代", "工賃", "作業区分", "車両区分A", "車両区分B", "色区分", "Num") VALUES
    (1, 'バンパー', 'キズ・ヘコミ修理（小）', 3600, 8600, 1, 1, 2, 1, 1),
    (2, 'バンパー', 'キズ・ヘコミ修理（中）', 4700, 13800, 1, 1, 2, 1, 1),
    (3, 'フェンダー', 'キズ・ヘコミ修理（小）', 3000, 10400, 1, 1, 2, 1, 2);
