#pragma once
// Excel 97-2003 workbooks (.xls), read only, through FreeXL: the cells of every sheet as the
// .xlsx engine gives them (texts in Unicode whatever the workbook's code page, numbers,
// booleans, errors, the last results of formulas), so an estimate saved in that format opens,
// prints and is indexed like one of ours. It is never written: saving makes an .xlsx.
//
// The file is checked before FreeXL reads it (compound file, records, sizes; see
// cfb_stream.h and biff_scan.h), and FreeXL reads the checked bytes themselves, never the
// path again. Errors are reported by throwing WorkbookError.

#include "workbook/workbook.h"
#include "workbook/xls_limits.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <memory>

namespace est::workbook {

class XlsBook : public BookCells
{
public:
    static std::unique_ptr<XlsBook> open(const QString &path, const XlsLimits &limits = {});
    static std::unique_ptr<XlsBook> fromBytes(const QByteArray &bytes, const XlsLimits &limits = {});
    ~XlsBook() override;

    QStringList sheetNames() const;
    const SheetCells *cells(const QString &sheetName) override;

    struct Impl;   // internal

private:
    explicit XlsBook(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> d;
};

// Whether the bytes (the first 8 are enough) begin like an Excel 97-2003 workbook.
bool looksLikeXls(const QByteArray &head);

// Opens a workbook of either format for reading, told apart by its first bytes.
std::unique_ptr<BookCells> openForReading(const QString &path);

} // namespace est::workbook
