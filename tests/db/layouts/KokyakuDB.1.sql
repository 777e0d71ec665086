-- The layout of temp/KokyakuDB.sqlite as the program made it before the Peppol IDs, kept to test upgrades from it.
-- temp/KokyakuDB.sqlite: the shop's customers and their vehicles.
-- The customers below are sample data for a new installation (invented names, addresses,
-- chassis and registration numbers on real car models and colour codes); the shop replaces
-- them with its own. A registration number is stored as the registration dialog composes
-- it: office, class number, kana and number, without separators ("品川300さ10-01"). The
-- paint kind follows the colour: 070, 25D and ZVR are three-coat white pearls, NH-731P a
-- two-coat black pearl, 525 and 058 solid whites.
--
-- Customer and vehicle numbers are decimal numbers kept as text. Wherever the program
-- needs "the last number" it orders by the number's integer value (CAST(... AS INTEGER),
-- text that does not start with digits counting as 0), then by the text itself; the
-- expression indexes below serve exactly that ordering.

CREATE TABLE "Kokyaku_Jyouhou" (
    "KNo" TEXT NOT NULL PRIMARY KEY,
    "Namae" TEXT,
    "Post" TEXT,
    "Jyusyo1" TEXT,
    "Jyusyo2" TEXT,
    "TEL" TEXT,
    "FAX" TEXT,
    "Cell" TEXT,
    "KaisyaN" TEXT,
    "KaisyaPost" TEXT,
    "KaisyaJ1" TEXT,
    "KaisyaJ2" TEXT,
    "KaisyaTEL" TEXT,
    "KaisyaFAX" TEXT,
    "KaisyaCell" TEXT,
    "KKubun" INTEGER NOT NULL DEFAULT 0,
    "Memo" TEXT
);
CREATE INDEX "Kokyaku_Jyouhou_Number" ON "Kokyaku_Jyouhou" (CAST("KNo" AS INTEGER), "KNo");
CREATE INDEX "Kokyaku_Jyouhou_Namae" ON "Kokyaku_Jyouhou" ("Namae");

-- No foreign key on "KNo": the table maintenance screen may delete a customer and keep
-- its vehicles.
CREATE TABLE "Kokyaku_Syaryou" (
    "SNo" TEXT NOT NULL PRIMARY KEY,
    "KNo" TEXT,
    "NyuDay" TEXT,
    "Meka" TEXT,
    "Syamei" TEXT,
    "Katasiki" TEXT,
    "SyataiNo" TEXT,
    "Touroku" TEXT,
    "Syonendo" TEXT,
    "KataSitei" TEXT,
    "Ruibetu" TEXT,
    "Eg" TEXT,
    "Syajyu" TEXT,
    "Soukou" TEXT,
    "Yuko" TEXT,
    "IroNo" TEXT,
    "IroSyurui" TEXT,
    "Koukinou" TEXT,
    "Bikou" TEXT
);
CREATE INDEX "Kokyaku_Syaryou_Number" ON "Kokyaku_Syaryou" (CAST("SNo" AS INTEGER), "SNo");
CREATE INDEX "Kokyaku_Syaryou_Owner" ON "Kokyaku_Syaryou" ("KNo", CAST("SNo" AS INTEGER), "SNo");

INSERT INTO "Kokyaku_Jyouhou" ("KNo", "Namae", "Post", "Jyusyo1", "Jyusyo2", "TEL", "FAX", "Cell",
    "KaisyaN", "KaisyaPost", "KaisyaJ1", "KaisyaJ2", "KaisyaTEL", "KaisyaFAX", "KaisyaCell", "KKubun", "Memo") VALUES
    ('1', '青木　一郎', '140-0001', '東京都品川区北品川9-9-1', 'コーポ青葉101', '03-0000-1101', '', '090-0000-1101',
        '', '', '', '', '', '', '', 0, ''),
    ('2', '石田　花子', '176-0001', '東京都練馬区練馬9-2-3', '', '03-0000-1202', '03-0000-1203', '080-0000-1202',
        '', '', '', '', '', '', '', 0, 'オイル交換の案内不要'),
    ('3', '上野　健太', '220-0001', '神奈川県横浜市西区北幸9-4-5', '', '045-000-1303', '', '',
        '有限会社うえの運送', '220-0002', '神奈川県横浜市西区南幸9-1', '第二倉庫', '045-000-1304', '045-000-1305', '090-0000-1303', 1, '社用車2台'),
    ('4', '江藤　美咲', '530-0001', '大阪府大阪市北区梅田9-8-7', 'メゾン梅田305', '06-0000-1404', '', '070-0000-1404',
        '', '', '', '', '', '', '', 0, ''),
    ('5', '小川　修', '206-0001', '東京都多摩市和田9-6', '', '042-000-1505', '', '',
        '', '', '', '', '', '', '', 0, '');

INSERT INTO "Kokyaku_Syaryou" ("SNo", "KNo", "NyuDay", "Meka", "Syamei", "Katasiki", "SyataiNo", "Touroku",
    "Syonendo", "KataSitei", "Ruibetu", "Eg", "Syajyu", "Soukou", "Yuko", "IroNo", "IroSyurui", "Koukinou", "Bikou") VALUES
    ('1', '1', '2023/04/10', 'トヨタ', 'カローラ', '6AA-ZWE211', 'ZWE211-6012345', '品川300さ10-01',
        '令和元年', '19217', '0012', '2ZR', '1320', '45200', '2025/04/09', '070', '3ｺｰﾄﾊﾟｰﾙ', '', ''),
    ('2', '2', '2023/06/02', 'ホンダ', 'シャトル', 'DBA-GK8', 'GK8-1023456', '練馬500せ20-02',
        '令和元年', '18436', '0103', 'L15B', '1180', '23800', '2025/06/01', 'NH-731P', '2ｺｰﾄﾊﾟｰﾙ', '', ''),
    ('3', '3', '2023/07/15', 'いすゞ', 'エルフ', 'TRG-NKR85A', 'NKR85-7034567', '横浜400た30-03',
        '平成28年', '17593', '0021', '4JJ1', '2950', '128400', '2024/07/14', '525', 'ｿﾘｯﾄﾞ', '', '荷台あり'),
    ('4', '3', '2023/07/15', 'トヨタ', 'ハイエースバン', 'CBF-TRH200V', 'TRH200-0245678', '横浜400な30-04',
        '平成29年', '16718', '0304', '1TR', '1740', '96100', '2024/07/14', '058', 'ｿﾘｯﾄﾞ', '', ''),
    ('5', '4', '2024/01/20', 'マツダ', 'デミオ', 'DBA-DJLFS', 'DJLFS-5056789', '大阪500す40-05',
        '平成30年', '19564', '0010', 'P5', '1090', '15600', '2026/01/19', '25D', '3ｺｰﾄﾊﾟｰﾙ', 'ﾌｯｿｺｰﾄ', ''),
    ('6', '5', '2024/03/05', 'スズキ', 'ワゴンR', '5AA-MH95S', 'MH95S-1067890', '多摩580か50-06',
        '令和3年', '20198', '0007', 'R06D', '870', '9800', '2026/03/04', 'ZVR', '3ｺｰﾄﾊﾟｰﾙ', 'ﾊｲﾚﾌｺｰﾄ', '');
