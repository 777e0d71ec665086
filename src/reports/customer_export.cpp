#include "reports/customer_export.h"

#include "db/database.h"
#include "db/dialect.h"
#include "reports/text_codec.h"

#include <QSaveFile>
#include <QSqlError>
#include <QSqlQuery>

namespace est::reports {

namespace {

struct Column
{
    const char *field;
    const char16_t *caption;
};

constexpr Column kCustomerColumns[] = {
    {"KNo", u"顧客番号"},       {"Namae", u"氏名"},             {"Post", u"郵便番号"},
    {"Jyusyo1", u"住所1"},      {"Jyusyo2", u"住所2"},          {"TEL", u"電話"},
    {"FAX", u"FAX"},            {"Cell", u"携帯電話"},          {"KaisyaN", u"会社名"},
    {"KaisyaPost", u"会社郵便番号"}, {"KaisyaJ1", u"会社住所1"}, {"KaisyaJ2", u"会社住所2"},
    {"KaisyaTEL", u"会社電話"}, {"KaisyaFAX", u"会社FAX"},      {"KaisyaCell", u"会社携帯電話"},
    {"KKubun", u"顧客区分"},    {"Memo", u"メモ"},
};

constexpr Column kVehicleColumns[] = {
    {"SNo", u"車両番号"},       {"NyuDay", u"入庫日"},       {"Meka", u"メーカー"},      {"Syamei", u"車名"},
    {"Katasiki", u"型式"},      {"SyataiNo", u"車台番号"},   {"Touroku", u"登録番号"},   {"Syonendo", u"初年度登録"},
    {"KataSitei", u"型式指定番号"}, {"Ruibetu", u"類別区分番号"}, {"Eg", u"エンジン"},     {"Syajyu", u"車両重量"},
    {"Soukou", u"走行距離"},    {"Yuko", u"車検有効期限"},   {"IroNo", u"カラー番号"},   {"IroSyurui", u"塗装種類"},
    {"Koukinou", u"高機能塗装"}, {"Bikou", u"備考"},
};

template <size_t N>
QString selectList(const Column (&columns)[N], const char *alias, bool empty)
{
    QStringList parts;
    for (const Column &c : columns)
        parts << (empty ? QStringLiteral("NULL")
                        : QStringLiteral("%1.\"%2\"").arg(QLatin1String(alias), QLatin1String(c.field)));
    return parts.join(QStringLiteral(", "));
}

} // namespace

QStringList customerExportHeaders()
{
    QStringList headers;
    for (const Column &c : kCustomerColumns)
        headers << QString::fromUtf16(c.caption);
    for (const Column &c : kVehicleColumns)
        headers << QString::fromUtf16(c.caption);
    return headers;
}

QList<QStringList> customerRecords(const QSqlDatabase &kokyaku, QString *error)
{
    // Customers with their vehicles (or alone), then vehicles whose customer is gone.
    const QString sql =
        QStringLiteral("SELECT %1, %2, %5 AS k1, c.\"KNo\" AS k2, %6 AS "
                       "s1, v.\"SNo\" AS s2, 0 AS orphan "
                       "FROM \"Kokyaku_Jyouhou\" c LEFT JOIN \"Kokyaku_Syaryou\" v ON v.\"KNo\" = c.\"KNo\" "
                       "UNION ALL SELECT %3, %4, NULL, NULL, %6, v.\"SNo\", 1 "
                       "FROM \"Kokyaku_Syaryou\" v WHERE v.\"KNo\" IS NULL OR v.\"KNo\" NOT IN "
                       "(SELECT \"KNo\" FROM \"Kokyaku_Jyouhou\") "
                       "ORDER BY orphan, k1, k2, s1, s2")
            .arg(selectList(kCustomerColumns, "c", false), selectList(kVehicleColumns, "v", false),
                 selectList(kCustomerColumns, "c", true), selectList(kVehicleColumns, "v", false),
                 db::integerOf(kokyaku, QStringLiteral("c.\"KNo\"")), db::integerOf(kokyaku, QStringLiteral("v.\"SNo\"")));
    QSqlQuery q(kokyaku);
    q.setForwardOnly(true);
    if (!q.exec(sql)) {
        if (error)
            *error = q.lastError().text();
        return {};
    }
    QList<QStringList> records{customerExportHeaders()};
    const int columns = int(std::size(kCustomerColumns) + std::size(kVehicleColumns));
    while (q.next()) {
        QStringList fields;
        fields.reserve(columns);
        for (int i = 0; i < columns; ++i)
            fields << q.value(i).toString();
        records.append(fields);
    }
    return records;
}

QString customerExportFileName(QDate day)
{
    return QStringLiteral("顧客車両_") + day.toString(QStringLiteral("yyyyMMdd")) + QStringLiteral(".csv");
}

CustomerExport exportCustomers(const QString &appFolder, const QString &target, mastertable::CsvEncoding encoding)
{
    CustomerExport result;
    db::OpenResult opened = db::openDatabase(appFolder, QStringLiteral("temp\\KokyakuDB.mdb"));
    if (!opened.ok()) {
        result.error = opened.error;
        return result;
    }
    const QList<QStringList> records = customerRecords(opened.database, &result.error);
    if (!result.error.isEmpty())
        return result;
    result.lines = int(records.size()) - 1;
    QByteArray bytes = mastertable::writeCsv(records);
    // The same text without the byte-order mark, in Shift_JIS.
    if (encoding == mastertable::CsvEncoding::ShiftJis)
        bytes = encodeShiftJis(QString::fromUtf8(bytes.mid(3)), &result.unmappable);
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        result.error = QStringLiteral("%1 に書き込めません。").arg(target);
    return result;
}

} // namespace est::reports
