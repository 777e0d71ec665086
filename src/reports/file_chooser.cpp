#include "reports/file_chooser.h"

#include <QFileDialog>

namespace est::reports {

FileChooser dialogFileChooser()
{
    return [](QWidget *parent, FileQuestion question, const QString &suggested) {
        const QString csv = QStringLiteral("CSVファイル (*.csv);;すべてのファイル (*)");
        const QString zip = QStringLiteral("バックアップ (*.zip)");
        switch (question) {
        case FileQuestion::SaveCustomerCsv:
            return QFileDialog::getSaveFileName(parent, QStringLiteral("顧客データの出力先"), suggested, csv);
        case FileQuestion::SaveBackup:
            return QFileDialog::getSaveFileName(parent, QStringLiteral("バックアップの保存先"), suggested, zip);
        case FileQuestion::OpenBackup:
            return QFileDialog::getOpenFileName(parent, QStringLiteral("復元するバックアップ"), suggested, zip);
        case FileQuestion::OpenPriceCsv:
            return QFileDialog::getOpenFileName(parent, QStringLiteral("部品価格のCSVファイル"), suggested, csv);
        case FileQuestion::LegacyFolder:
            return QFileDialog::getExistingDirectory(parent, QStringLiteral("変換する .xls の見積書があるフォルダ"), suggested);
        }
        return QString();
    };
}

} // namespace est::reports
