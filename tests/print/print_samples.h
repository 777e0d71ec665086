#pragma once
// Estimates and shops for the printing tests, saved into real workbooks, and the PDF
// tools (pdftotext, pdfinfo, pdffonts) that read the results back independently.

#include "common/session.h"
#include "print/shop_info.h"

#include <QString>
#include <QStringList>

namespace est::test {

// A row of the estimate from its texts, column by column.
EstimateRow estimateRow(const QStringList &cells);

// A small estimate whose figures are worked out by hand in the tests:
// A = 123,456 (labour 45,600 + parts 77,856), B = 78,900, discount 5 %, tax 10 %,
// non-taxable 17,000, advance 30,000. Three work rows, two paint rows.
Session handEstimate(int documentKind);
// The largest estimate: 394 work rows, 73 paint rows, bumper and additional details.
Session fullPrintEstimate();
// The sample shop with a registration number.
print::ShopInfo sampleShop(bool numberOnEstimates = false);

// Saves the session as a workbook made from the default template; returns its path.
QString saveWorkbook(const Session &session, const QString &folder, const QString &name);
// Writes the shop's company file and registration number into an application folder.
void installShop(const QString &appFolder, const print::ShopInfo &shop);

// Runs the program (ESTIMATE_PROGRAM of the test) with the arguments on the application
// folder, offscreen; its exit status, and its standard error in `errors`.
int runProgram(const QString &program, const QStringList &args, const QString &appFolder, QString *errors = nullptr);

// pdftotext -layout of the whole file, or of one page (1-based).
QString pdfText(const QString &pdf, int page = 0);
// The page count pdfinfo reports, -1 when it cannot read the file.
int pdfPages(const QString &pdf);
// pdffonts output.
QString pdfFonts(const QString &pdf);
// pdftotext spreads letter-spaced titles and aligns with blanks: the text without blanks.
QString squeezed(QString text);
// The radicals (U+2E80-U+2FDF) in a text, in order: a PDF's text names each kanji by itself.
QString radicalsIn(const QString &text);
// Whether the poppler tools are installed.
bool havePdfTools();

} // namespace est::test
