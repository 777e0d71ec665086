-- The layout of Data/Toyota.sqlite as the program made it before versions were recorded (first rows of each table), kept to test upgrades from it.
-- Data/Toyota.sqlite: parts catalogue of トヨタ, one table per vehicle type.
-- Sample data for a new installation, written by tools/gen_catalogue.py.

-- セダン: 313 parts
CREATE TABLE "T_Sedan" ("Num" INTEGER, "BNum" INTEGER, "分類" TEXT, "KNum" INTEGER, "区分" TEXT, "部品名" TEXT);
CREATE INDEX "T_Sedan_Class" ON "T_Sedan" ("BNum", "分類");
CREATE INDEX "T_Sedan_Section" ON "T_Sedan" ("BNum", "KNum", "区分");
CREATE INDEX "T_Sedan_Part" ON "T_Sedan" ("BNum", "KNum", "Num", "部品名");
INSERT INTO "T_Sedan" ("Num", "BNum", "分類", "KNum", "区分", "部品名") VALUES
    (1, 1, 'フロント廻り', 1, 'フロントバンパー', 'フロントバンパーカバー'),
    (2, 1, 'フロント廻り', 1, 'フロントバンパー', 'バンパーリインフォースメント'),
    (3, 1, 'フロント廻り', 1, 'フロントバンパー', 'バンパーアブソーバー');

-- ミニバン: 325 parts
CREATE TABLE "T_Minivan" ("Num" INTEGER, "BNum" INTEGER, "分類" TEXT, "KNum" INTEGER, "区分" TEXT, "部品名" TEXT);
CREATE INDEX "T_Minivan_Class" ON "T_Minivan" ("BNum", "分類");
CREATE INDEX "T_Minivan_Section" ON "T_Minivan" ("BNum", "KNum", "区分");
CREATE INDEX "T_Minivan_Part" ON "T_Minivan" ("BNum", "KNum", "Num", "部品名");
INSERT INTO "T_Minivan" ("Num", "BNum", "分類", "KNum", "区分", "部品名") VALUES
    (1, 1, 'フロント廻り', 1, 'フロントバンパー', 'フロントバンパーカバー'),
    (2, 1, 'フロント廻り', 1, 'フロントバンパー', 'バンパーリインフォースメント'),
    (3, 1, 'フロント廻り', 1, 'フロントバンパー', 'バンパーアブソーバー');

-- 軽自動車: 310 parts
CREATE TABLE "T_Kei" ("Num" INTEGER, "BNum" INTEGER, "分類" TEXT, "KNum" INTEGER, "区分" TEXT, "部品名" TEXT);
CREATE INDEX "T_Kei_Class" ON "T_Kei" ("BNum", "分類");
CREATE INDEX "T_Kei_Section" ON "T_Kei" ("BNum", "KNum", "区分");
CREATE INDEX "T_Kei_Part" ON "T_Kei" ("BNum", "KNum", "Num", "部品名");
INSERT INTO "T_Kei" ("Num", "BNum", "分類", "KNum", "区分", "部品名") VALUES
    (1, 1, 'フロント廻り', 1, 'フロントバンパー', 'フロントバンパーカバー'),
    (2, 1, 'フロント廻り', 1, 'フロントバンパー', 'バンパーリインフォースメント'),
    (3, 1, 'フロント廻り', 1, 'フロントバンパー', 'バンパーアブソーバー');
