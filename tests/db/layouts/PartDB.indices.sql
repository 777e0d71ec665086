-- The layout of the index tables of temp/PartDB.sqlite as the program made it when they were added on opening (first rows of each table), kept to test upgrades from it.
-- Bumper, additional and sheet-metal index tables of the paint master database.
-- Sample data for a new installation: plausible values for a small body shop, to be
-- replaced by the shop's own figures (settings hub). An existing PartDB made before these
-- tables existed gains them, with these rows, when the program opens it; tables it already
-- has are left as they are.
--
-- Fields are read by position where noted, so the column order matters.

-- Base bumper index: 作業 ("X" replace, "S" repair), 車種, 色種, 内容, a remark, the index
-- (read at position 5).
CREATE TABLE "BanpaDB" ("作業" TEXT NOT NULL, "車種" TEXT NOT NULL, "色種" TEXT NOT NULL,
    "内容" TEXT NOT NULL, "備考" TEXT, "指数" REAL NOT NULL);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', 'ｿﾘｯﾄﾞ', '全面塗装', '取替 全面塗装', 2.16);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', 'ｿﾘｯﾄﾞ', '半面塗装', '取替 半面塗装', 1.44);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', 'ｿﾘｯﾄﾞ', 'コーナー部塗装', '取替 コーナー部塗装', 0.99);

-- Addition for a bumper painted off the vehicle, by colour kind.
CREATE TABLE "BampaTantaiDB" ("Colr" TEXT NOT NULL, "Sisu" REAL NOT NULL);
INSERT INTO "BampaTantaiDB" VALUES ('ｿﾘｯﾄﾞ', 0.30);
INSERT INTO "BampaTantaiDB" VALUES ('ﾒﾀﾘｯｸ', 0.35);
INSERT INTO "BampaTantaiDB" VALUES ('2ｺｰﾄﾊﾟｰﾙ', 0.40);

-- Condition additions, read in this order: sensors or lamps fitted (chkFrHyoj), moulding
-- stripe (chkFrSima), many scratches (chkFrKizu).
CREATE TABLE "BampaJyoukenDB" ("Jyouken" TEXT NOT NULL, "Sisu" REAL NOT NULL);
INSERT INTO "BampaJyoukenDB" VALUES ('センサー・灯火類付', 0.20);
INSERT INTO "BampaJyoukenDB" VALUES ('モール・縞付', 0.15);
INSERT INTO "BampaJyoukenDB" VALUES ('傷多数', 0.30);

-- Two-tone colour: the kind, a remark, then the index for 1 to 6 panels (positions 2 to 7).
CREATE TABLE "2ToneDB" ("Tone" TEXT NOT NULL, "備考" TEXT, "Mai1" REAL, "Mai2" REAL,
    "Mai3" REAL, "Mai4" REAL, "Mai5" REAL, "Mai6" REAL);
INSERT INTO "2ToneDB" VALUES ('ｿﾘｯﾄﾞ+ｿﾘｯﾄﾞ', 'ソリッド同士', 0.50, 0.90, 1.30, 1.65, 2.00, 2.30);
INSERT INTO "2ToneDB" VALUES ('ｿﾘｯﾄﾞ+ﾒﾀﾘｯｸ', 'ソリッドとメタリック', 0.55, 0.99, 1.43, 1.82, 2.20, 2.53);
INSERT INTO "2ToneDB" VALUES ('ﾒﾀﾘｯｸ+ﾒﾀﾘｯｸ', 'メタリック同士', 0.60, 1.08, 1.56, 1.98, 2.40, 2.76);

-- Door-sash black paint and body stripe: number of doors, a remark, the index (position 2).
CREATE TABLE "SasyuDB" ("Mai" TEXT NOT NULL, "備考" TEXT, "Sisu" REAL NOT NULL);
INSERT INTO "SasyuDB" VALUES ('2', '2ドア', 0.60);
INSERT INTO "SasyuDB" VALUES ('4', '4ドア', 1.10);
INSERT INTO "SasyuDB" VALUES ('5', '4ドア・バックドア', 1.30);
CREATE TABLE "Sutoraip" ("Mai" TEXT NOT NULL, "備考" TEXT, "Sisu" REAL NOT NULL);
INSERT INTO "Sutoraip" VALUES ('2', '2ドア', 0.80);
INSERT INTO "Sutoraip" VALUES ('4', '4ドア', 1.40);
INSERT INTO "Sutoraip" VALUES ('5', '4ドア・バックドア', 1.70);

-- Sealing and wax per unit, booth use: a remark, the index (position 1), first row only.
CREATE TABLE "SeelingDB" ("Kubun" TEXT, "Sisu" REAL NOT NULL);
INSERT INTO "SeelingDB" VALUES ('ボデーシーリング 1本あたり', 0.25);
CREATE TABLE "WaxDB" ("Kubun" TEXT, "Sisu" REAL NOT NULL);
INSERT INTO "WaxDB" VALUES ('防錆ワックス 1箇所あたり', 0.15);
CREATE TABLE "BoothDB" ("Kubun" TEXT, "Sisu" REAL NOT NULL);
INSERT INTO "BoothDB" VALUES ('塗装ブース使用', 0.50);

-- Sheet-metal index by damaged area in square decimetres (area class "1" to "40"),
-- grades A (light) < B < C (heavy).
CREATE TABLE "bankinsisu" ("Area" TEXT NOT NULL PRIMARY KEY, "A" REAL NOT NULL,
    "B" REAL NOT NULL, "C" REAL NOT NULL);
INSERT INTO "bankinsisu" VALUES ('1', 0.30, 0.55, 0.90);
INSERT INTO "bankinsisu" VALUES ('2', 0.40, 0.70, 1.10);
INSERT INTO "bankinsisu" VALUES ('3', 0.50, 0.85, 1.30);
