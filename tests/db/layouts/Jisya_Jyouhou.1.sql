-- The layout of temp/Jisya_Jyouhou.sqlite as the program made it before the extras table, kept to test upgrades from it.
-- temp/Jisya_Jyouhou.sqlite: the shop's own details (name, address, bank account, tax rate).
-- Sample data for a new installation: an invented shop, to be replaced in 自社情報設定.

CREATE TABLE "Jisya_Jyouhou" (
    "JNo" INTEGER PRIMARY KEY,
    "Coment" TEXT,
    "Jisyamei" TEXT,
    "JJyusyo" TEXT,
    "JTEL" TEXT,
    "JFAX" TEXT,
    "Ginkou" TEXT,
    "Siten" TEXT,
    "Kouza" TEXT,
    "MiseNo" INTEGER,
    "KozaNo" TEXT,
    "Zeiritu" INTEGER,
    "KozaName" TEXT,
    "KozaPrint" INTEGER NOT NULL DEFAULT 0
);
INSERT INTO "Jisya_Jyouhou" ("JNo", "Coment", "Jisyamei", "JJyusyo", "JTEL", "JFAX", "Ginkou", "Siten",
    "Kouza", "MiseNo", "KozaNo", "Zeiritu", "KozaName", "KozaPrint") VALUES
    (1, '車検・鈑金塗装・各種保険取扱', '有限会社 みどり台オートボディ', '〒000-0000 若葉県みどり台市東町2丁目14番3号',
     '000-111-2222', '000-111-3333', 'みどり台信用金庫', '東町支店', '普通', 12, '1234567', 10,
     'ﾕ) ﾐﾄﾞﾘﾀﾞｲｵｰﾄﾎﾞﾃﾞｲ', 1);
