#pragma once
// LibreOffice as an independent reader of the workbooks we write.

#include <QString>
#include <QStringList>

namespace est::test {

// The soffice program, empty when LibreOffice is not installed.
QString soffice();
// Converts with LibreOffice (a profile of its own, headless); returns the output folder's files.
QStringList convertWithOffice(const QString &workbook, const QString &filter, const QString &outDir);

} // namespace est::test
