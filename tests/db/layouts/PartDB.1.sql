-- The layout of temp/PartDB.sqlite as the program made it with the paint tables only, kept to test upgrades from it.
-- temp/PartDB.sqlite: the paint master tables of the paint screen, the low-hiding dialog and
-- the inner-panel dialog. Sample data for a new installation: plausible values for a body
-- shop, to be replaced by the shop's own tables. Fields that the program reads by position
-- keep their position here (noted per table).

-- Paint categories: position 0 the category code, position 1 the name shown beside it.
CREATE TABLE "TKubunDB" (
    "KCode" TEXT,
    "KName" TEXT
);
INSERT INTO "TKubunDB" ("KCode", "KName") VALUES
    ('01', 'フロント'),
    ('02', 'サイド'),
    ('03', 'リア'),
    ('04', 'ルーフ'),
    ('05', 'その他');

-- Painted panels per category; "Basyo" is the paint location ("ルーフ" or "ルーフ以外") under
-- which the low-hiding dialog looks the panel up.
CREATE TABLE "PaintDB" (
    "KCode" TEXT,
    "Buhin" TEXT,
    "Basyo" TEXT
);
CREATE INDEX "PaintDB_KCode" ON "PaintDB" ("KCode");
INSERT INTO "PaintDB" ("KCode", "Buhin", "Basyo") VALUES
    ('01', 'ボンネット', 'ルーフ以外'),
    ('01', 'フロントフェンダー(右)', 'ルーフ以外'),
    ('01', 'フロントフェンダー(左)', 'ルーフ以外'),
    ('01', 'フロントバンパー', 'ルーフ以外'),
    ('01', 'フロントパネル', 'ルーフ以外'),
    ('02', 'フロントドア(右)', 'ルーフ以外'),
    ('02', 'フロントドア(左)', 'ルーフ以外'),
    ('02', 'リアドア(右)', 'ルーフ以外'),
    ('02', 'リアドア(左)', 'ルーフ以外'),
    ('02', 'サイドシル(右)', 'ルーフ以外'),
    ('02', 'サイドシル(左)', 'ルーフ以外'),
    ('02', 'センターピラー(右)', 'ルーフ以外'),
    ('02', 'センターピラー(左)', 'ルーフ以外'),
    ('03', 'リアフェンダー(右)', 'ルーフ以外'),
    ('03', 'リアフェンダー(左)', 'ルーフ以外'),
    ('03', 'トランクリッド', 'ルーフ以外'),
    ('03', 'バックドア', 'ルーフ以外'),
    ('03', 'リアバンパー', 'ルーフ以外'),
    ('03', 'リアエンドパネル', 'ルーフ以外'),
    ('04', 'ルーフパネル', 'ルーフ'),
    ('04', 'ルーフサイドレール(右)', 'ルーフ'),
    ('04', 'ルーフサイドレール(左)', 'ルーフ'),
    ('04', 'サンルーフパネル', 'ルーフ'),
    ('05', 'ドアミラー(右)', 'ルーフ以外'),
    ('05', 'ドアミラー(左)', 'ルーフ以外'),
    ('05', 'アウターハンドル', 'ルーフ以外'),
    ('05', 'リアスポイラー', 'ルーフ以外');

-- Basic paint index by vehicle class, colour kind (S, M, 2P, 3P) and paint material; the
-- index for n panels painted together is the field at position n + 3 (M1 at position 4).
CREATE TABLE "KihonSisuDB" (
    "No" INTEGER,
    "Syaryo" TEXT,
    "Iro" TEXT,
    "Toryo" TEXT,
    "M1" NUMERIC, "M2" NUMERIC, "M3" NUMERIC, "M4" NUMERIC, "M5" NUMERIC,
    "M6" NUMERIC, "M7" NUMERIC, "M8" NUMERIC, "M9" NUMERIC, "M10" NUMERIC
);
CREATE INDEX "KihonSisuDB_Keys" ON "KihonSisuDB" ("Syaryo", "Iro", "Toryo");
INSERT INTO "KihonSisuDB" ("No", "Syaryo", "Iro", "Toryo", "M1", "M2", "M3", "M4", "M5",
                           "M6", "M7", "M8", "M9", "M10") VALUES
    (1, '小型', 'S', '速乾', 4.00, 7.20, 10.00, 12.60, 15.00, 17.20, 19.20, 21.00, 22.60, 24.00),
    (2, '小型', 'S', '2液', 4.32, 7.78, 10.80, 13.61, 16.20, 18.58, 20.74, 22.68, 24.41, 25.92),
    (3, '小型', 'S', '水性', 4.48, 8.06, 11.20, 14.11, 16.80, 19.26, 21.50, 23.52, 25.31, 26.88),
    (4, '小型', 'M', '速乾', 4.40, 7.92, 11.00, 13.86, 16.50, 18.92, 21.12, 23.10, 24.86, 26.40),
    (5, '小型', 'M', '2液', 4.75, 8.55, 11.88, 14.97, 17.82, 20.43, 22.81, 24.95, 26.85, 28.51),
    (6, '小型', 'M', '水性', 4.93, 8.87, 12.32, 15.52, 18.48, 21.19, 23.65, 25.87, 27.84, 29.57),
    (7, '小型', '2P', '速乾', 4.80, 8.64, 12.00, 15.12, 18.00, 20.64, 23.04, 25.20, 27.12, 28.80),
    (8, '小型', '2P', '2液', 5.18, 9.33, 12.96, 16.33, 19.44, 22.29, 24.88, 27.22, 29.29, 31.10),
    (9, '小型', '2P', '水性', 5.38, 9.68, 13.44, 16.93, 20.16, 23.12, 25.80, 28.22, 30.37, 32.26),
    (10, '小型', '3P', '速乾', 5.80, 10.44, 14.50, 18.27, 21.75, 24.94, 27.84, 30.45, 32.77, 34.80),
    (11, '小型', '3P', '2液', 6.26, 11.28, 15.66, 19.73, 23.49, 26.94, 30.07, 32.89, 35.39, 37.58),
    (12, '小型', '3P', '水性', 6.50, 11.69, 16.24, 20.46, 24.36, 27.93, 31.18, 34.10, 36.70, 38.98),
    (13, '普通', 'S', '速乾', 4.40, 7.92, 11.00, 13.86, 16.50, 18.92, 21.12, 23.10, 24.86, 26.40),
    (14, '普通', 'S', '2液', 4.75, 8.55, 11.88, 14.97, 17.82, 20.43, 22.81, 24.95, 26.85, 28.51),
    (15, '普通', 'S', '水性', 4.93, 8.87, 12.32, 15.52, 18.48, 21.19, 23.65, 25.87, 27.84, 29.57),
    (16, '普通', 'M', '速乾', 4.84, 8.71, 12.10, 15.25, 18.15, 20.81, 23.23, 25.41, 27.35, 29.04),
    (17, '普通', 'M', '2液', 5.23, 9.41, 13.07, 16.47, 19.60, 22.48, 25.09, 27.44, 29.53, 31.36),
    (18, '普通', 'M', '水性', 5.42, 9.76, 13.55, 17.08, 20.33, 23.31, 26.02, 28.46, 30.63, 32.52),
    (19, '普通', '2P', '速乾', 5.28, 9.50, 13.20, 16.63, 19.80, 22.70, 25.34, 27.72, 29.83, 31.68),
    (20, '普通', '2P', '2液', 5.70, 10.26, 14.26, 17.96, 21.38, 24.52, 27.37, 29.94, 32.22, 34.21),
    (21, '普通', '2P', '水性', 5.91, 10.64, 14.78, 18.63, 22.18, 25.43, 28.39, 31.05, 33.41, 35.48),
    (22, '普通', '3P', '速乾', 6.38, 11.48, 15.95, 20.10, 23.92, 27.43, 30.62, 33.50, 36.05, 38.28),
    (23, '普通', '3P', '2液', 6.89, 12.40, 17.23, 21.70, 25.84, 29.63, 33.07, 36.17, 38.93, 41.34),
    (24, '普通', '3P', '水性', 7.15, 12.86, 17.86, 22.51, 26.80, 30.73, 34.30, 37.51, 40.37, 42.87),
    (25, '軽自', 'S', '速乾', 3.60, 6.48, 9.00, 11.34, 13.50, 15.48, 17.28, 18.90, 20.34, 21.60),
    (26, '軽自', 'S', '2液', 3.89, 7.00, 9.72, 12.25, 14.58, 16.72, 18.66, 20.41, 21.97, 23.33),
    (27, '軽自', 'S', '水性', 4.03, 7.26, 10.08, 12.70, 15.12, 17.34, 19.35, 21.17, 22.78, 24.19),
    (28, '軽自', 'M', '速乾', 3.96, 7.13, 9.90, 12.47, 14.85, 17.03, 19.01, 20.79, 22.37, 23.76),
    (29, '軽自', 'M', '2液', 4.28, 7.70, 10.69, 13.47, 16.04, 18.39, 20.53, 22.45, 24.16, 25.66),
    (30, '軽自', 'M', '水性', 4.44, 7.98, 11.09, 13.97, 16.63, 19.07, 21.29, 23.28, 25.06, 26.61),
    (31, '軽自', '2P', '速乾', 4.32, 7.78, 10.80, 13.61, 16.20, 18.58, 20.74, 22.68, 24.41, 25.92),
    (32, '軽自', '2P', '2液', 4.67, 8.40, 11.66, 14.70, 17.50, 20.06, 22.39, 24.49, 26.36, 27.99),
    (33, '軽自', '2P', '水性', 4.84, 8.71, 12.10, 15.24, 18.14, 20.81, 23.22, 25.40, 27.34, 29.03),
    (34, '軽自', '3P', '速乾', 5.22, 9.40, 13.05, 16.44, 19.58, 22.45, 25.06, 27.40, 29.49, 31.32),
    (35, '軽自', '3P', '2液', 5.64, 10.15, 14.09, 17.76, 21.14, 24.24, 27.06, 29.60, 31.85, 33.83),
    (36, '軽自', '3P', '水性', 5.85, 10.52, 14.62, 18.42, 21.92, 25.14, 28.06, 30.69, 33.03, 35.08);

-- High-function paint additions by paint kind (the kind's text, not its code): the basic
-- index addition and the material coefficient additions for fluorine and the other coat.
CREATE TABLE "KoukinoDB" (
    "Iro" TEXT,
    "KisoSisu" NUMERIC,
    "FusoSisu" NUMERIC,
    "TaisuriSisu" NUMERIC
);
INSERT INTO "KoukinoDB" ("Iro", "KisoSisu", "FusoSisu", "TaisuriSisu") VALUES
    ('ｿﾘｯﾄﾞ', 0.40, 0.10, 0.08),
    ('ﾒﾀﾘｯｸ', 0.45, 0.12, 0.09),
    ('2ｺｰﾄﾊﾟｰﾙ', 0.50, 0.13, 0.10),
    ('3ｺｰﾄﾊﾟｰﾙ', 0.60, 0.15, 0.12);

-- Paint material coefficient per paint kind; position 2 is the coefficient.
CREATE TABLE "PZairyohi" (
    "No" INTEGER,
    "塗装種類" TEXT,
    "材料係数" NUMERIC
);
INSERT INTO "PZairyohi" ("No", "塗装種類", "材料係数") VALUES
    (1, 'ｿﾘｯﾄﾞ', 0.30),
    (2, 'ﾒﾀﾘｯｸ', 0.35),
    (3, '2ｺｰﾄﾊﾟｰﾙ', 0.40),
    (4, '3ｺｰﾄﾊﾟｰﾙ', 0.45);

-- Low-hiding paint indices; position 2 is the index. The paint screen reads the rows by
-- "Syu" alone ("加算指数", "ﾙｰﾌ", "ﾙｰﾌ以外"); the low-hiding dialog reads them by location
-- ("Bui") and kind ("新品", "修正", "加算指数").
CREATE TABLE "TeiInpeiDB" (
    "Bui" TEXT,
    "Syu" TEXT,
    "Sisu" NUMERIC,
    "Biko" TEXT
);
INSERT INTO "TeiInpeiDB" ("Bui", "Syu", "Sisu", "Biko") VALUES
    ('全体', '加算指数', 0.20, '低隠蔽色の下塗り加算'),
    ('ルーフ', 'ﾙｰﾌ', 0.80, 'ルーフ一枚'),
    ('ルーフ以外', 'ﾙｰﾌ以外', 0.50, 'ルーフ以外一枚'),
    ('ルーフ', '新品', 0.90, '新品部品(下地から)'),
    ('ルーフ', '修正', 0.70, '修正部品'),
    ('ルーフ', '加算指数', 0.25, ''),
    ('ルーフ以外', '新品', 0.60, '新品部品(下地から)'),
    ('ルーフ以外', '修正', 0.45, '修正部品'),
    ('ルーフ以外', '加算指数', 0.15, '');

-- Two-coat solid surcharge; position 2 is the index.
CREATE TABLE "SoridTone" (
    "No" INTEGER,
    "Bui" TEXT,
    "Sisu" NUMERIC
);
INSERT INTO "SoridTone" ("No", "Bui", "Sisu") VALUES
    (1, '加算指数', 0.15),
    (2, 'ルーフ', 0.70),
    (3, 'ルーフ以外', 0.45);

-- Inner-panel painting menu, seven items in this order: position 1 part, 2 work content,
-- 3 index for small and ordinary cars, 4 index for light cars, 5 note.
CREATE TABLE "NaibanPaintDB" (
    "No" INTEGER,
    "Bui" TEXT,
    "Naiyo" TEXT,
    "Sisu" NUMERIC,
    "KeiSisu" NUMERIC,
    "Memo" TEXT
);
INSERT INTO "NaibanPaintDB" ("No", "Bui", "Naiyo", "Sisu", "KeiSisu", "Memo") VALUES
    (1, 'ボンネット', '裏側塗装', 1.20, 1.00, '新品交換時'),
    (2, 'フロントドア', '内側塗装', 1.00, 0.85, '片側一枚'),
    (3, 'リアドア', '内側塗装', 0.90, 0.75, '片側一枚'),
    (4, 'トランクリッド', '裏側塗装', 1.10, 0.90, '新品交換時'),
    (5, 'バックドア', '内側塗装', 1.30, 1.10, '新品交換時'),
    (6, 'フロントフェンダー', '内側塗装', 0.60, 0.50, '片側一枚'),
    (7, 'エンジンルーム', '内側塗装', 2.50, 2.00, 'ストラットハウス含む');
