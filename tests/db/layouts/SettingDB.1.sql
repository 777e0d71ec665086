-- The layout of temp/SettingDB.sqlite as the program made it before versions were recorded, kept to test upgrades from it.
-- temp/SettingDB.sqlite: choice lists of the settings screens.
-- Sample data for a new installation; the shop edits these lists in the program.

CREATE TABLE "MekaName" (
    "No" INTEGER,
    "メーカー" TEXT
);
CREATE INDEX "MekaName_No" ON "MekaName" ("No");
INSERT INTO "MekaName" ("No", "メーカー") VALUES
    (1, 'トヨタ'), (2, '日産'), (3, 'ホンダ'), (4, 'マツダ'), (5, 'スバル'),
    (6, 'ダイハツ'), (7, 'スズキ'), (8, '三菱'), (9, 'いすゞ'), (10, 'レクサス');

CREATE TABLE "PSyurui" (
    "塗装種類" TEXT
);
INSERT INTO "PSyurui" ("塗装種類") VALUES ('ｿﾘｯﾄﾞ'), ('3ｺｰﾄﾊﾟｰﾙ'), ('ﾒﾀﾘｯｸ'), ('2ｺｰﾄﾊﾟｰﾙ');

CREATE TABLE "PKoukino" (
    "高機能塗装" TEXT
);
INSERT INTO "PKoukino" ("高機能塗装") VALUES ('ﾌｯｿｺｰﾄ'), ('ﾊｲﾚﾌｺｰﾄ');

CREATE TABLE "TourokuDB" (
    "Touroku" TEXT
);
INSERT INTO "TourokuDB" ("Touroku") VALUES
    ('品川'), ('練馬'), ('足立'), ('多摩'), ('八王子'), ('横浜'), ('川崎'), ('湘南'),
    ('相模'), ('大宮'), ('所沢'), ('千葉'), ('習志野'), ('大阪'), ('なにわ'), ('和泉'),
    ('名古屋'), ('札幌'), ('福岡'), ('神戸');
