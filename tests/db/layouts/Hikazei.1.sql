-- The layout of Data/Hikazei.sqlite as the program made it before versions were recorded, kept to test upgrades from it.
-- Data/Hikazei.sqlite: charges that carry no consumption tax (fees paid for the customer).
-- Sample data for a new installation; the shop edits the list in 非課税項目設定.

CREATE TABLE "HikazeiDB" (
    "No" INTEGER,
    "koumoku" TEXT,
    "kingaku" INTEGER
);
CREATE INDEX "HikazeiDB_No" ON "HikazeiDB" ("No");
INSERT INTO "HikazeiDB" ("No", "koumoku", "kingaku") VALUES
    (1, '自賠責保険料', 17650),
    (2, '重量税', 16400),
    (3, '印紙代', 1800),
    (4, '代行手数料', 5500),
    (5, 'リサイクル預託金', 10000),
    (6, '車庫証明手数料', 2700);
