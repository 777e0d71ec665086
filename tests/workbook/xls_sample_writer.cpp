// Writes the .xlsx estimates behind the .xls test files into a folder, as the program saves
// them (tools/make-xls-samples converts them with LibreOffice).

#include "sample_estimate.h"
#include "workbook/estimate_files.h"
#include "xls_samples.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: xls_sample_writer FOLDER\n");
        return 1;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (const auto &sample : est::test::xlsSamples()) {
        QFile file(folder.filePath(sample.name + QStringLiteral(".xlsx")));
        if (!file.open(QIODevice::WriteOnly) ||
            file.write(est::workbook::estimateWorkbookBytes(est::test::templateBytes(), sample.session)) < 0) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file.fileName()));
            return 1;
        }
    }
    return 0;
}
