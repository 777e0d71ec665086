#pragma once
// The estimates behind the .xls test files in tests/workbook/xls: each is saved as .xlsx by
// the program and converted by LibreOffice (tools/make-xls-samples), so a test can rebuild
// the original and compare the two readers cell by cell.

#include "common/session.h"

#include <QString>
#include <vector>

namespace est::test {

struct XlsSample
{
    QString name;      // the file's base name: <name>.xlsx made by the program, <name>.xls by LibreOffice
    Session session;
};

// Every sample: the full estimate (394 work rows, 73 paint rows), one per document kind,
// awkward texts (half-width kana, quotes, full-width spaces, "0012"), 32-bit amounts at their
// limits, and an estimate without rows.
std::vector<XlsSample> xlsSamples();

// The folder of the committed .xls files.
QString xlsSampleFolder();

// A file's bytes (empty when it cannot be read).
QByteArray fileBytes(const QString &path);

} // namespace est::test

#include <ostream>

namespace est::test {
// For test names and failure messages: the sample's name, not its bytes.
inline void PrintTo(const XlsSample &sample, std::ostream *out)
{
    *out << sample.name.toStdString();
}
} // namespace est::test
