#pragma once
// The spreadsheet program that opens saved workbooks by hand (dlgOpenXls): its path kept
// as one quoted field in temp/xlsPath.txt, and the names of files it may open.

#include <QString>

namespace est::print {

QString xlsPathFile(const QString &appFolder);
// The stored program path; empty when the file is missing or holds none.
QString readXlsPath(const QString &appFolder);
// Replaces the file with the path as one quoted field. Returns an error text, empty on success.
QString writeXlsPath(const QString &appFolder, const QString &program);
// Names the spreadsheet program opens: ending in "xls" or "xlsx", in any case.
bool isWorkbookFileName(const QString &name);

inline const QString kXlsPathMissing = QStringLiteral("エクセルパスが設定されてません｡設定してください｡");
inline const QString kXlsPathTitle = QStringLiteral("設定エラー");

} // namespace est::print
