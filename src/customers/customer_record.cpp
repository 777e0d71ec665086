#include "customers/customer_record.h"

namespace est::customers {

const QStringList &customerFieldNames()
{
    static const QStringList names = {
        QStringLiteral("KNo"),       QStringLiteral("Namae"),      QStringLiteral("Post"),
        QStringLiteral("Jyusyo1"),   QStringLiteral("Jyusyo2"),    QStringLiteral("TEL"),
        QStringLiteral("FAX"),       QStringLiteral("Cell"),       QStringLiteral("KaisyaN"),
        QStringLiteral("KaisyaPost"), QStringLiteral("KaisyaJ1"),  QStringLiteral("KaisyaJ2"),
        QStringLiteral("KaisyaTEL"), QStringLiteral("KaisyaFAX"),  QStringLiteral("KaisyaCell"),
        QStringLiteral("KKubun"),    QStringLiteral("Memo"),
    };
    return names;
}

const QStringList &vehicleFieldNames()
{
    static const QStringList names = {
        QStringLiteral("SNo"),       QStringLiteral("KNo"),      QStringLiteral("NyuDay"),
        QStringLiteral("Meka"),      QStringLiteral("Syamei"),   QStringLiteral("Katasiki"),
        QStringLiteral("SyataiNo"),  QStringLiteral("Touroku"),  QStringLiteral("Syonendo"),
        QStringLiteral("KataSitei"), QStringLiteral("Ruibetu"),  QStringLiteral("Eg"),
        QStringLiteral("Syajyu"),    QStringLiteral("Soukou"),   QStringLiteral("Yuko"),
        QStringLiteral("IroNo"),     QStringLiteral("IroSyurui"), QStringLiteral("Koukinou"),
        QStringLiteral("Bikou"),
    };
    return names;
}

QString fieldName(CustomerField field)
{
    return customerFieldNames().at(static_cast<int>(field));
}

QString fieldName(VehicleField field)
{
    return vehicleFieldNames().at(static_cast<int>(field));
}

const QStringList &customerCaptions()
{
    static const QStringList captions = {
        QStringLiteral("顧客番号"),   QStringLiteral("氏名"),       QStringLiteral("郵便番号"),
        QStringLiteral("住所1"),      QStringLiteral("住所2"),      QStringLiteral("電話"),
        QStringLiteral("FAX"),        QStringLiteral("携帯"),       QStringLiteral("会社名"),
        QStringLiteral("会社郵便番号"), QStringLiteral("会社住所1"), QStringLiteral("会社住所2"),
        QStringLiteral("会社電話"),   QStringLiteral("会社FAX"),    QStringLiteral("会社携帯"),
        QStringLiteral("法人"),       QStringLiteral("メモ"),
    };
    return captions;
}

const QStringList &vehicleCaptions()
{
    static const QStringList captions = {
        QStringLiteral("車輌番号"),   QStringLiteral("顧客番号"),   QStringLiteral("入庫日"),
        QStringLiteral("メーカー"),   QStringLiteral("車名"),       QStringLiteral("型式"),
        QStringLiteral("車台番号"),   QStringLiteral("登録番号"),   QStringLiteral("初年度登録"),
        QStringLiteral("型式指定"),   QStringLiteral("類別"),       QStringLiteral("エンジン"),
        QStringLiteral("車両重量"),   QStringLiteral("走行距離"),   QStringLiteral("車検満了日"),
        QStringLiteral("カラーNo"),   QStringLiteral("塗装種類"),   QStringLiteral("高機能塗装"),
        QStringLiteral("備考"),
    };
    return captions;
}

} // namespace est::customers
