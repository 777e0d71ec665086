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
INSERT INTO "BanpaDB" VALUES ('X', '軽自', 'ﾒﾀﾘｯｸ', '全面塗装', '取替 全面塗装', 2.38);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', 'ﾒﾀﾘｯｸ', '半面塗装', '取替 半面塗装', 1.58);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', 'ﾒﾀﾘｯｸ', 'コーナー部塗装', '取替 コーナー部塗装', 1.09);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', '2ｺｰﾄﾊﾟｰﾙ', '全面塗装', '取替 全面塗装', 2.59);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', '2ｺｰﾄﾊﾟｰﾙ', '半面塗装', '取替 半面塗装', 1.73);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', '2ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '取替 コーナー部塗装', 1.19);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', '3ｺｰﾄﾊﾟｰﾙ', '全面塗装', '取替 全面塗装', 3.02);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', '3ｺｰﾄﾊﾟｰﾙ', '半面塗装', '取替 半面塗装', 2.02);
INSERT INTO "BanpaDB" VALUES ('X', '軽自', '3ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '取替 コーナー部塗装', 1.39);
INSERT INTO "BanpaDB" VALUES ('X', '小型', 'ｿﾘｯﾄﾞ', '全面塗装', '取替 全面塗装', 2.40);
INSERT INTO "BanpaDB" VALUES ('X', '小型', 'ｿﾘｯﾄﾞ', '半面塗装', '取替 半面塗装', 1.60);
INSERT INTO "BanpaDB" VALUES ('X', '小型', 'ｿﾘｯﾄﾞ', 'コーナー部塗装', '取替 コーナー部塗装', 1.10);
INSERT INTO "BanpaDB" VALUES ('X', '小型', 'ﾒﾀﾘｯｸ', '全面塗装', '取替 全面塗装', 2.64);
INSERT INTO "BanpaDB" VALUES ('X', '小型', 'ﾒﾀﾘｯｸ', '半面塗装', '取替 半面塗装', 1.76);
INSERT INTO "BanpaDB" VALUES ('X', '小型', 'ﾒﾀﾘｯｸ', 'コーナー部塗装', '取替 コーナー部塗装', 1.21);
INSERT INTO "BanpaDB" VALUES ('X', '小型', '2ｺｰﾄﾊﾟｰﾙ', '全面塗装', '取替 全面塗装', 2.88);
INSERT INTO "BanpaDB" VALUES ('X', '小型', '2ｺｰﾄﾊﾟｰﾙ', '半面塗装', '取替 半面塗装', 1.92);
INSERT INTO "BanpaDB" VALUES ('X', '小型', '2ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '取替 コーナー部塗装', 1.32);
INSERT INTO "BanpaDB" VALUES ('X', '小型', '3ｺｰﾄﾊﾟｰﾙ', '全面塗装', '取替 全面塗装', 3.36);
INSERT INTO "BanpaDB" VALUES ('X', '小型', '3ｺｰﾄﾊﾟｰﾙ', '半面塗装', '取替 半面塗装', 2.24);
INSERT INTO "BanpaDB" VALUES ('X', '小型', '3ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '取替 コーナー部塗装', 1.54);
INSERT INTO "BanpaDB" VALUES ('X', '普通', 'ｿﾘｯﾄﾞ', '全面塗装', '取替 全面塗装', 2.76);
INSERT INTO "BanpaDB" VALUES ('X', '普通', 'ｿﾘｯﾄﾞ', '半面塗装', '取替 半面塗装', 1.84);
INSERT INTO "BanpaDB" VALUES ('X', '普通', 'ｿﾘｯﾄﾞ', 'コーナー部塗装', '取替 コーナー部塗装', 1.26);
INSERT INTO "BanpaDB" VALUES ('X', '普通', 'ﾒﾀﾘｯｸ', '全面塗装', '取替 全面塗装', 3.04);
INSERT INTO "BanpaDB" VALUES ('X', '普通', 'ﾒﾀﾘｯｸ', '半面塗装', '取替 半面塗装', 2.02);
INSERT INTO "BanpaDB" VALUES ('X', '普通', 'ﾒﾀﾘｯｸ', 'コーナー部塗装', '取替 コーナー部塗装', 1.39);
INSERT INTO "BanpaDB" VALUES ('X', '普通', '2ｺｰﾄﾊﾟｰﾙ', '全面塗装', '取替 全面塗装', 3.31);
INSERT INTO "BanpaDB" VALUES ('X', '普通', '2ｺｰﾄﾊﾟｰﾙ', '半面塗装', '取替 半面塗装', 2.21);
INSERT INTO "BanpaDB" VALUES ('X', '普通', '2ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '取替 コーナー部塗装', 1.52);
INSERT INTO "BanpaDB" VALUES ('X', '普通', '3ｺｰﾄﾊﾟｰﾙ', '全面塗装', '取替 全面塗装', 3.86);
INSERT INTO "BanpaDB" VALUES ('X', '普通', '3ｺｰﾄﾊﾟｰﾙ', '半面塗装', '取替 半面塗装', 2.58);
INSERT INTO "BanpaDB" VALUES ('X', '普通', '3ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '取替 コーナー部塗装', 1.77);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', 'ｿﾘｯﾄﾞ', '全面塗装', '修理 全面塗装', 2.52);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', 'ｿﾘｯﾄﾞ', '半面塗装', '修理 半面塗装', 1.71);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', 'ｿﾘｯﾄﾞ', 'コーナー部塗装', '修理 コーナー部塗装', 1.17);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', 'ﾒﾀﾘｯｸ', '全面塗装', '修理 全面塗装', 2.77);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', 'ﾒﾀﾘｯｸ', '半面塗装', '修理 半面塗装', 1.88);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', 'ﾒﾀﾘｯｸ', 'コーナー部塗装', '修理 コーナー部塗装', 1.29);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', '2ｺｰﾄﾊﾟｰﾙ', '全面塗装', '修理 全面塗装', 3.02);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', '2ｺｰﾄﾊﾟｰﾙ', '半面塗装', '修理 半面塗装', 2.05);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', '2ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '修理 コーナー部塗装', 1.40);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', '3ｺｰﾄﾊﾟｰﾙ', '全面塗装', '修理 全面塗装', 3.53);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', '3ｺｰﾄﾊﾟｰﾙ', '半面塗装', '修理 半面塗装', 2.39);
INSERT INTO "BanpaDB" VALUES ('S', '軽自', '3ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '修理 コーナー部塗装', 1.64);
INSERT INTO "BanpaDB" VALUES ('S', '小型', 'ｿﾘｯﾄﾞ', '全面塗装', '修理 全面塗装', 2.80);
INSERT INTO "BanpaDB" VALUES ('S', '小型', 'ｿﾘｯﾄﾞ', '半面塗装', '修理 半面塗装', 1.90);
INSERT INTO "BanpaDB" VALUES ('S', '小型', 'ｿﾘｯﾄﾞ', 'コーナー部塗装', '修理 コーナー部塗装', 1.30);
INSERT INTO "BanpaDB" VALUES ('S', '小型', 'ﾒﾀﾘｯｸ', '全面塗装', '修理 全面塗装', 3.08);
INSERT INTO "BanpaDB" VALUES ('S', '小型', 'ﾒﾀﾘｯｸ', '半面塗装', '修理 半面塗装', 2.09);
INSERT INTO "BanpaDB" VALUES ('S', '小型', 'ﾒﾀﾘｯｸ', 'コーナー部塗装', '修理 コーナー部塗装', 1.43);
INSERT INTO "BanpaDB" VALUES ('S', '小型', '2ｺｰﾄﾊﾟｰﾙ', '全面塗装', '修理 全面塗装', 3.36);
INSERT INTO "BanpaDB" VALUES ('S', '小型', '2ｺｰﾄﾊﾟｰﾙ', '半面塗装', '修理 半面塗装', 2.28);
INSERT INTO "BanpaDB" VALUES ('S', '小型', '2ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '修理 コーナー部塗装', 1.56);
INSERT INTO "BanpaDB" VALUES ('S', '小型', '3ｺｰﾄﾊﾟｰﾙ', '全面塗装', '修理 全面塗装', 3.92);
INSERT INTO "BanpaDB" VALUES ('S', '小型', '3ｺｰﾄﾊﾟｰﾙ', '半面塗装', '修理 半面塗装', 2.66);
INSERT INTO "BanpaDB" VALUES ('S', '小型', '3ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '修理 コーナー部塗装', 1.82);
INSERT INTO "BanpaDB" VALUES ('S', '普通', 'ｿﾘｯﾄﾞ', '全面塗装', '修理 全面塗装', 3.22);
INSERT INTO "BanpaDB" VALUES ('S', '普通', 'ｿﾘｯﾄﾞ', '半面塗装', '修理 半面塗装', 2.18);
INSERT INTO "BanpaDB" VALUES ('S', '普通', 'ｿﾘｯﾄﾞ', 'コーナー部塗装', '修理 コーナー部塗装', 1.50);
INSERT INTO "BanpaDB" VALUES ('S', '普通', 'ﾒﾀﾘｯｸ', '全面塗装', '修理 全面塗装', 3.54);
INSERT INTO "BanpaDB" VALUES ('S', '普通', 'ﾒﾀﾘｯｸ', '半面塗装', '修理 半面塗装', 2.40);
INSERT INTO "BanpaDB" VALUES ('S', '普通', 'ﾒﾀﾘｯｸ', 'コーナー部塗装', '修理 コーナー部塗装', 1.64);
INSERT INTO "BanpaDB" VALUES ('S', '普通', '2ｺｰﾄﾊﾟｰﾙ', '全面塗装', '修理 全面塗装', 3.86);
INSERT INTO "BanpaDB" VALUES ('S', '普通', '2ｺｰﾄﾊﾟｰﾙ', '半面塗装', '修理 半面塗装', 2.62);
INSERT INTO "BanpaDB" VALUES ('S', '普通', '2ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '修理 コーナー部塗装', 1.79);
INSERT INTO "BanpaDB" VALUES ('S', '普通', '3ｺｰﾄﾊﾟｰﾙ', '全面塗装', '修理 全面塗装', 4.51);
INSERT INTO "BanpaDB" VALUES ('S', '普通', '3ｺｰﾄﾊﾟｰﾙ', '半面塗装', '修理 半面塗装', 3.06);
INSERT INTO "BanpaDB" VALUES ('S', '普通', '3ｺｰﾄﾊﾟｰﾙ', 'コーナー部塗装', '修理 コーナー部塗装', 2.09);

-- Addition for a bumper painted off the vehicle, by colour kind.
CREATE TABLE "BampaTantaiDB" ("Colr" TEXT NOT NULL, "Sisu" REAL NOT NULL);
INSERT INTO "BampaTantaiDB" VALUES ('ｿﾘｯﾄﾞ', 0.30);
INSERT INTO "BampaTantaiDB" VALUES ('ﾒﾀﾘｯｸ', 0.35);
INSERT INTO "BampaTantaiDB" VALUES ('2ｺｰﾄﾊﾟｰﾙ', 0.40);
INSERT INTO "BampaTantaiDB" VALUES ('3ｺｰﾄﾊﾟｰﾙ', 0.50);

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
INSERT INTO "2ToneDB" VALUES ('ﾊﾟｰﾙ+ﾒﾀﾘｯｸ', 'パールとメタリック', 0.65, 1.17, 1.69, 2.14, 2.60, 2.99);

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
INSERT INTO "bankinsisu" VALUES ('4', 0.60, 1.00, 1.50);
INSERT INTO "bankinsisu" VALUES ('5', 0.70, 1.15, 1.70);
INSERT INTO "bankinsisu" VALUES ('6', 0.80, 1.30, 1.90);
INSERT INTO "bankinsisu" VALUES ('7', 0.90, 1.45, 2.10);
INSERT INTO "bankinsisu" VALUES ('8', 1.00, 1.60, 2.30);
INSERT INTO "bankinsisu" VALUES ('9', 1.10, 1.75, 2.50);
INSERT INTO "bankinsisu" VALUES ('10', 1.20, 1.90, 2.70);
INSERT INTO "bankinsisu" VALUES ('11', 1.30, 2.05, 2.90);
INSERT INTO "bankinsisu" VALUES ('12', 1.40, 2.20, 3.10);
INSERT INTO "bankinsisu" VALUES ('13', 1.50, 2.35, 3.30);
INSERT INTO "bankinsisu" VALUES ('14', 1.60, 2.50, 3.50);
INSERT INTO "bankinsisu" VALUES ('15', 1.70, 2.65, 3.70);
INSERT INTO "bankinsisu" VALUES ('16', 1.80, 2.80, 3.90);
INSERT INTO "bankinsisu" VALUES ('17', 1.90, 2.95, 4.10);
INSERT INTO "bankinsisu" VALUES ('18', 2.00, 3.10, 4.30);
INSERT INTO "bankinsisu" VALUES ('19', 2.10, 3.25, 4.50);
INSERT INTO "bankinsisu" VALUES ('20', 2.20, 3.40, 4.70);
INSERT INTO "bankinsisu" VALUES ('21', 2.30, 3.55, 4.90);
INSERT INTO "bankinsisu" VALUES ('22', 2.40, 3.70, 5.10);
INSERT INTO "bankinsisu" VALUES ('23', 2.50, 3.85, 5.30);
INSERT INTO "bankinsisu" VALUES ('24', 2.60, 4.00, 5.50);
INSERT INTO "bankinsisu" VALUES ('25', 2.70, 4.15, 5.70);
INSERT INTO "bankinsisu" VALUES ('26', 2.80, 4.30, 5.90);
INSERT INTO "bankinsisu" VALUES ('27', 2.90, 4.45, 6.10);
INSERT INTO "bankinsisu" VALUES ('28', 3.00, 4.60, 6.30);
INSERT INTO "bankinsisu" VALUES ('29', 3.10, 4.75, 6.50);
INSERT INTO "bankinsisu" VALUES ('30', 3.20, 4.90, 6.70);
INSERT INTO "bankinsisu" VALUES ('31', 3.30, 5.05, 6.90);
INSERT INTO "bankinsisu" VALUES ('32', 3.40, 5.20, 7.10);
INSERT INTO "bankinsisu" VALUES ('33', 3.50, 5.35, 7.30);
INSERT INTO "bankinsisu" VALUES ('34', 3.60, 5.50, 7.50);
INSERT INTO "bankinsisu" VALUES ('35', 3.70, 5.65, 7.70);
INSERT INTO "bankinsisu" VALUES ('36', 3.80, 5.80, 7.90);
INSERT INTO "bankinsisu" VALUES ('37', 3.90, 5.95, 8.10);
INSERT INTO "bankinsisu" VALUES ('38', 4.00, 6.10, 8.30);
INSERT INTO "bankinsisu" VALUES ('39', 4.10, 6.25, 8.50);
INSERT INTO "bankinsisu" VALUES ('40', 4.20, 6.40, 8.70);
