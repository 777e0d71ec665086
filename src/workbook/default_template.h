#pragma once
// The workbook template every estimate starts from ("temp/newfile.xlsx"). When a shop has
// none, the program writes this default one: the data sheets "D" and "P" with their labels,
// and the print sheets "PrintMainA", "PaintA", "PrintMain B", "PaintB" and "PrintSub", which
// lay the estimate out as a Japanese estimate by formulas on "D" and "P".

#include <QByteArray>
#include <QString>

namespace est::workbook {

// Writes the default template to the path (a temporary file, then a rename).
// False with a reason when it could not be written.
bool writeDefaultTemplate(const QString &path, QString *error = nullptr);

// The default template's bytes, written once per process (empty when it could not be written).
QByteArray defaultTemplateBytes();

// The print sheets of the template, by name.
inline const char *const kPrintSheets[] = {"PaintA", "PrintMainA", "PaintB", "PrintMain B", "PrintSub"};

} // namespace est::workbook
