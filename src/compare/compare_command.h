#pragma once
// The comparison for scripts, without a window:
//   estimate --compare OLD NEW OUT.pdf
// writes the "修正内容比較表" of two saved estimates with the application folder's shop.
// Needs a QGuiApplication ("offscreen" will do). Exit statuses as for --pdf.

#include <QString>

class QTextStream;

namespace est::compare {

struct CompareRequest
{
    QString before;   // the earlier estimate's workbook
    QString after;    // the later one
    QString output;
};

// Runs the command; reasons for a failure go to `errors`. Returns the exit status
// (0 done, 2 a workbook cannot be read, 3 the PDF cannot be written).
int runCompareCommand(const CompareRequest &request, const QString &appFolder, QTextStream &errors);

} // namespace est::compare
