#pragma once
// Bringing a shop's old estimates over: every .xls estimate below a folder is read and saved
// as .xlsx from the template, beside it or in Mitsumori. One that already has its .xlsx is
// skipped, one that cannot be read is listed with the reason, and nothing is ever deleted.

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace est::reports {

enum class ConversionPlace {
    Beside,           // <folder>/<sub>/<name>.xlsx next to <name>.xls
    EstimatesFolder,  // Mitsumori/<sub>/<name>.xlsx, the subfolders below the chosen folder kept
};

struct ConversionFailure
{
    QString file;     // relative to the chosen folder
    QString reason;
};

struct ConversionOutcome
{
    int converted = 0;
    int skipped = 0;  // their .xlsx was there already
    QList<ConversionFailure> failures;
    bool cancelled = false;
};

// Called after each file with the count done and the total; false stops after that file.
using ConversionProgress = std::function<bool(int done, int total)>;

// The .xls estimates below the folder (subfolders too), relative to it, by name.
QStringList legacyEstimatesBelow(const QString &folder);

// Where the .xlsx of one .xls goes.
QString conversionTarget(const QString &folder, const QString &relative, ConversionPlace place,
                         const QString &appFolder);

ConversionOutcome convertLegacyEstimates(const QString &folder, const QStringList &files, ConversionPlace place,
                                         const QString &appFolder, const ConversionProgress &progress = {});

} // namespace est::reports
