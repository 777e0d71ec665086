#include "reports/sales_workbook.h"

#include "db/app_folder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <xlsxwriter.h>

namespace est::reports {

namespace sales_layout {

QStringList documentHeaders()
{
    return {QStringLiteral("日付"),     QStringLiteral("伝票番号"), QStringLiteral("書類"),
            QStringLiteral("お客様"),   QStringLiteral("車名"),     QStringLiteral("作業計A"),
            QStringLiteral("塗装計B"),  QStringLiteral("値引き"),   QStringLiteral("消費税"),
            QStringLiteral("非課税"),   QStringLiteral("合計"),     QStringLiteral("ファイル")};
}

QStringList monthHeaders()
{
    return {QStringLiteral("月"),      QStringLiteral("件数"),   QStringLiteral("作業計A"), QStringLiteral("塗装計B"),
            QStringLiteral("値引き"),  QStringLiteral("消費税"), QStringLiteral("非課税"),  QStringLiteral("合計")};
}

} // namespace sales_layout

namespace {

void writeHeaders(lxw_worksheet *sheet, int row, const QStringList &headers, lxw_format *format)
{
    for (int c = 0; c < headers.size(); ++c)
        worksheet_write_string(sheet, lxw_row_t(row - 1), lxw_col_t(c), headers.at(c).toUtf8().constData(), format);
}

} // namespace

QString profitsTemplatePath(const QString &appFolder)
{
    return db::resolve(appFolder, QStringLiteral("temp\\Profits.xls"));
}

QString salesWorkbookPath(const QString &appFolder, const SalesPeriod &period)
{
    return db::resolve(appFolder, QStringLiteral("Mitsumori\\")) + period.fileName();
}

bool writeProfitsTemplate(const QString &path, QString *error)
{
    using namespace sales_layout;
    QDir().mkpath(QFileInfo(path).path());
    const QString temporary = path + QStringLiteral(".new");
    QFile::remove(temporary);
    lxw_workbook *wb = workbook_new(QFile::encodeName(temporary).constData());
    if (!wb) {
        if (error)
            *error = QStringLiteral("%1 を作成できません。").arg(path);
        return false;
    }
    lxw_format *title = workbook_add_format(wb);
    format_set_bold(title);
    format_set_font_size(title, 16);
    lxw_format *heading = workbook_add_format(wb);
    format_set_bold(heading);
    format_set_align(heading, LXW_ALIGN_CENTER);
    format_set_border(heading, LXW_BORDER_THIN);
    format_set_bg_color(heading, 0xDDEBF7);

    lxw_worksheet *documents = workbook_add_worksheet(wb, kDocumentsSheet.toUtf8().constData());
    worksheet_write_string(documents, kTitleRow - 1, 0, "年度売上表", title);
    writeHeaders(documents, kDocumentsHeaderRow, documentHeaders(), heading);
    const double documentWidths[] = {11, 12, 11, 28, 16, 12, 12, 11, 11, 11, 13, 24};
    for (int c = 0; c < 12; ++c)
        worksheet_set_column(documents, lxw_col_t(c), lxw_col_t(c), documentWidths[c], nullptr);
    worksheet_freeze_panes(documents, kFirstDocumentRow - 1, 0);

    lxw_worksheet *months = workbook_add_worksheet(wb, kMonthsSheet.toUtf8().constData());
    worksheet_write_string(months, kTitleRow - 1, 0, "月別売上", title);
    writeHeaders(months, kMonthsHeaderRow, monthHeaders(), heading);
    const double monthWidths[] = {12, 8, 13, 13, 12, 12, 12, 14};
    for (int c = 0; c < 8; ++c)
        worksheet_set_column(months, lxw_col_t(c), lxw_col_t(c), monthWidths[c], nullptr);

    const lxw_error result = workbook_close(wb);
    if (result != LXW_NO_ERROR || !QFileInfo::exists(temporary)) {
        QFile::remove(temporary);
        if (error)
            *error = QString::fromUtf8(lxw_strerror(result));
        return false;
    }
    QFile::remove(path);
    if (!QFile::rename(temporary, path)) {
        QFile::remove(temporary);
        if (error)
            *error = QStringLiteral("%1 を作成できません。").arg(path);
        return false;
    }
    return true;
}

bool ensureProfitsTemplate(const QString &appFolder, QString *error)
{
    const QString path = profitsTemplatePath(appFolder);
    return QFileInfo::exists(path) || writeProfitsTemplate(path, error);
}

} // namespace est::reports
