#!/usr/bin/env python3
"""Writes the sample parts catalogues as SQL text: data/CarSet.sql (the register of makers and
vehicle types) and one data/<DBName>.sql per maker, one table per vehicle type.

The part names are our own sample data for a new installation. Run from the repository root:
    python3 tools/gen_catalogue.py
"""
import os

MAKERS = [("トヨタ", "Toyota"), ("日産", "Nissan"), ("ホンダ", "Honda")]
TYPES = [("セダン", "T_Sedan"), ("ミニバン", "T_Minivan"), ("軽自動車", "T_Kei")]

LR = ("(右)", "(左)")

# classification -> [(section, [parts]); a part ending in "*" comes as right and left.
TREE = [
    ("フロント廻り", [
        ("フロントバンパー", ["フロントバンパーカバー", "バンパーリインフォースメント", "バンパーアブソーバー",
                        "バンパーサイドブラケット*", "フロントグリル", "グリルエンブレム", "ロアグリル",
                        "フォグランプカバー*", "ナンバープレートブラケット", "バンパーモール", "アンダーカバー"]),
        ("フード", ["フードパネル", "フードヒンジ*", "フードロック", "フードロックケーブル", "フードインシュレーター",
                 "フードストッパー*", "フードシール", "ウォッシャーノズル*"]),
        ("フロントフェンダー", ["フロントフェンダーパネル*", "フェンダーライナー*", "フェンダーモール*",
                         "サイドターンランプ*", "フェンダーエンブレム*", "フェンダーブラケット*"]),
        ("ラジエーターサポート", ["ラジエーターサポート", "ラジエーターサポートアッパー", "ラジエーター", "コンデンサー",
                           "電動ファン", "ラジエーターホース(アッパー)", "ラジエーターホース(ロア)", "リザーバータンク",
                           "ヘッドランプブラケット*"]),
        ("ヘッドランプ", ["ヘッドランプASSY*", "ヘッドランプバルブ*", "ヘッドランプレベライザー*", "フォグランプ*",
                      "デイライト*", "クリアランスランプ*"]),
        ("フロントエプロン", ["フロントサイドメンバー*", "フロントエプロン*", "ホイールハウスパネル*", "ダッシュパネル",
                        "カウルトップパネル", "カウルルーバー"]),
    ]),
    ("サイド廻り", [
        ("フロントドア", ["フロントドアパネル*", "フロントドアアウターパネル*", "フロントドアガラス*",
                     "フロントドアレギュレーター*", "フロントドアハンドル*", "フロントドアヒンジ*", "ドアミラー*",
                     "ドアミラーカバー*", "フロントドアモール*", "フロントドアトリム*", "ウェザーストリップ(フロントドア)*"]),
        ("リヤドア", ["リヤドアパネル*", "リヤドアアウターパネル*", "リヤドアガラス*", "リヤドアレギュレーター*",
                   "リヤドアハンドル*", "リヤドアヒンジ*", "リヤドアモール*", "リヤドアトリム*",
                   "ウェザーストリップ(リヤドア)*"]),
        ("サイドボディ", ["センターピラー*", "フロントピラー*", "ロッカーパネル*", "サイドシルスポイラー*",
                      "サイドステップ*", "サイドマッドガード*", "フューエルリッド", "フューエルリッドオープナー"]),
        ("クォーター", ["クォーターパネル*", "クォーターガラス*", "クォーターモール*", "リヤホイールハウス*",
                     "リヤフェンダーライナー*"]),
    ]),
    ("リヤ廻り", [
        ("リヤバンパー", ["リヤバンパーカバー", "リヤバンパーリインフォースメント", "リヤバンパーアブソーバー",
                      "リヤバンパーサイドブラケット*", "リヤリフレクター*", "バックセンサー*", "リヤバンパーモール",
                      "マフラーカッター"]),
        ("トランク・バックドア", ["トランクリッド", "バックドアパネル", "トランクヒンジ*", "バックドアダンパー*",
                            "トランクロック", "リヤスポイラー", "リヤエンブレム", "ハイマウントストップランプ",
                            "ナンバーランプ*", "バックドアガラス"]),
        ("リヤコンビランプ", ["リヤコンビネーションランプ*", "リヤフィニッシャー", "バックランプ*", "リヤフォグランプ",
                        "ストップランプバルブ*"]),
        ("リヤパネル", ["リヤエンドパネル", "リヤフロアパン", "リヤサイドメンバー*", "スペアタイヤパン",
                     "リヤフロアサイド*", "トランクフロアマット"]),
    ]),
    ("足廻り", [
        ("フロントサスペンション", ["フロントショックアブソーバー*", "フロントコイルスプリング*", "ロアアーム*",
                             "ナックル*", "スタビライザー(フロント)", "スタビリンク(フロント)*",
                             "タイロッドエンド*", "フロントメンバー"]),
        ("リヤサスペンション", ["リヤショックアブソーバー*", "リヤコイルスプリング*", "リヤアクスルビーム",
                           "トレーリングアーム*", "ラテラルロッド", "スタビリンク(リヤ)*"]),
        ("ホイール・タイヤ", ["アルミホイール", "スチールホイール", "タイヤ", "ホイールキャップ", "ハブボルト",
                         "ホイールナット", "センターキャップ", "空気圧センサー"]),
        ("ブレーキ", ["フロントブレーキキャリパー*", "フロントブレーキローター*", "フロントブレーキパッド",
                   "リヤブレーキドラム*", "リヤブレーキシュー", "ブレーキホース*", "ハブベアリング(フロント)*",
                   "ハブベアリング(リヤ)*"]),
        ("ステアリング", ["ステアリングギヤボックス", "ステアリングラックブーツ*", "ステアリングシャフト",
                      "ドライブシャフト*", "ドライブシャフトブーツ*"]),
    ]),
    ("エンジン廻り", [
        ("エンジン補機", ["エアクリーナーボックス", "エアクリーナーエレメント", "インテークダクト", "バッテリー",
                      "バッテリートレイ", "オルタネーター", "エアコンコンプレッサー", "ファンベルト"]),
        ("エンジンマウント", ["エンジンマウント(右)", "エンジンマウント(左)", "エンジンマウント(リヤ)",
                        "トランスミッションマウント", "トルクロッド"]),
        ("排気系", ["エキゾーストマニホールド", "フロントパイプ", "触媒コンバーター", "センターマフラー",
                 "メインマフラー", "マフラーハンガー", "O2センサー"]),
        ("冷却系", ["ウォーターポンプ", "サーモスタット", "ヒーターホース", "クーラントタンクキャップ"]),
    ]),
    ("ルーフ・ガラス", [
        ("ルーフ", ["ルーフパネル", "ルーフモール*", "ルーフレール*", "サンルーフガラス", "ルーフアンテナ",
                 "ルーフライニング"]),
        ("ガラス", ["フロントガラス", "リヤガラス", "フロントワイパーアーム*", "フロントワイパーブレード*",
                 "リヤワイパーアーム", "リヤワイパーブレード", "ワイパーモーター", "ウォッシャータンク",
                 "レインセンサー"]),
    ]),
    ("内装", [
        ("インストルメントパネル", ["インストルメントパネル", "グローブボックス", "センタークラスター", "メーターフード",
                             "エアバッグ(運転席)", "エアバッグ(助手席)", "ステアリングホイール", "ホーンパッド"]),
        ("シート", ["フロントシート*", "リヤシート", "シートベルト(運転席)", "シートベルト(助手席)",
                 "シートベルトプリテンショナー*", "ヘッドレスト*", "カーテンエアバッグ*", "サイドエアバッグ*"]),
        ("トリム", ["フロアカーペット", "ピラートリム(フロント)*", "ピラートリム(センター)*", "ラゲージトリム*",
                 "スカッフプレート*", "ルームランプ", "サンバイザー*", "ルームミラー"]),
    ]),
    ("電装品", [
        ("センサー・カメラ", ["フロントカメラ", "バックカメラ", "ミリ波レーダー", "コーナーセンサー*",
                         "ブラインドスポットモニター*", "ヨーレートセンサー"]),
        ("配線・ユニット", ["エンジンハーネス", "フロントハーネス", "ドアハーネス*", "エアバッグコンピューター",
                        "ボディコンピューター", "ヒューズボックス", "ホーン(ハイ)", "ホーン(ロー)"]),
    ]),
]

# What a vehicle type lacks or adds; the same tree otherwise.
TYPE_RULES = {
    "T_Sedan": {"drop": ["バックドアパネル", "バックドアダンパー*", "バックドアガラス", "リヤワイパーアーム",
                         "リヤワイパーブレード", "スライドドアパネル*"],
                "add": {}},
    "T_Minivan": {"drop": ["トランクリッド", "トランクヒンジ*", "トランクロック"],
                  "add": {"サイドボディ": ["スライドドアパネル*", "スライドドアレール*", "スライドドアローラー*",
                                       "スライドドアモーター*", "スライドドアガラス*"]}},
    "T_Kei": {"drop": ["トランクリッド", "トランクヒンジ*", "トランクロック", "センターマフラー", "ミリ波レーダー",
                       "サンルーフガラス", "ルーフレール*", "マフラーカッター"],
              "add": {"リヤパネル": ["リヤエンドパネルロア"]}},
}

# Each maker names a few parts its own way.
MAKER_NAMES = {
    "Toyota": {"フロントグリル": "ラジエーターグリル", "リヤフィニッシャー": "バックドアガーニッシュ"},
    "Nissan": {"フードパネル": "フードASSY", "フロントグリル": "フロントグリルASSY"},
    "Honda": {"リヤコンビネーションランプ*": "テールランプASSY*", "フロントグリル": "フロントグリルセット"},
}


def q(text):
    return "'" + text.replace("'", "''") + "'"


def expand(name):
    if name.endswith("*"):
        base = name[:-1]
        return [base + side for side in LR]
    return [name]


def table_rows(db_name, table):
    rules = TYPE_RULES[table]
    renames = MAKER_NAMES[db_name]
    rows = []
    for bnum, (bunrui, sections) in enumerate(TREE, start=1):
        for knum, (kubun, parts) in enumerate(sections, start=1):
            names = [p for p in parts if p not in rules["drop"]] + rules["add"].get(kubun, [])
            num = 0
            for part in names:
                for name in expand(renames.get(part, part)):
                    num += 1
                    rows.append((num, bnum, bunrui, knum, kubun, name))
    return rows


def create_table(table):
    t = '"' + table + '"'
    return (f'CREATE TABLE {t} ("Num" INTEGER, "BNum" INTEGER, "分類" TEXT, "KNum" INTEGER, "区分" TEXT, '
            f'"部品名" TEXT);\n'
            f'CREATE INDEX "{table}_Class" ON {t} ("BNum", "分類");\n'
            f'CREATE INDEX "{table}_Section" ON {t} ("BNum", "KNum", "区分");\n'
            f'CREATE INDEX "{table}_Part" ON {t} ("BNum", "KNum", "Num", "部品名");\n')


def main():
    root = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data")
    with open(os.path.join(root, "CarSet.sql"), "w", encoding="utf-8") as f:
        f.write("-- Data/CarSet.sqlite: the makers and vehicle types of the parts catalogue.\n"
                "-- Sample data for a new installation, written by tools/gen_catalogue.py.\n\n")
        f.write('CREATE TABLE "M_TCarSec" ("Name" TEXT, "DBName" TEXT);\n')
        f.write('INSERT INTO "M_TCarSec" ("Name", "DBName") VALUES\n    '
                + ",\n    ".join(f"({q(n)}, {q(d)})" for n, d in MAKERS) + ";\n\n")
        f.write('CREATE TABLE "M_TCarType" ("Type" TEXT, "TName" TEXT);\n')
        f.write('INSERT INTO "M_TCarType" ("Type", "TName") VALUES\n    '
                + ",\n    ".join(f"({q(n)}, {q(t)})" for n, t in TYPES) + ";\n")
    for maker, db_name in MAKERS:
        with open(os.path.join(root, db_name + ".sql"), "w", encoding="utf-8") as f:
            f.write(f"-- Data/{db_name}.sqlite: parts catalogue of {maker}, one table per vehicle type.\n"
                    "-- Sample data for a new installation, written by tools/gen_catalogue.py.\n")
            for type_name, table in TYPES:
                rows = table_rows(db_name, table)
                f.write(f"\n-- {type_name}: {len(rows)} parts\n")
                f.write(create_table(table))
                f.write(f'INSERT INTO "{table}" ("Num", "BNum", "分類", "KNum", "区分", "部品名") VALUES\n    ')
                f.write(",\n    ".join(f"({n}, {b}, {q(c)}, {k}, {q(s)}, {q(p)})" for n, b, c, k, s, p in rows))
                f.write(";\n")


if __name__ == "__main__":
    main()
