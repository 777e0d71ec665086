#include "print/saved_state.h"

#include "workbook/default_template.h"
#include "workbook/estimate_layout.h"
#include "workbook/photo_sheet.h"
#include "workbook/xls_book.h"

#include <QFileInfo>

namespace est::print {

namespace {

void addRows(QStringList &out, const QList<EstimateRow> &rows)
{
    out.append(QString::number(rows.size()));
    for (const EstimateRow &row : rows)
        for (const QString &cell : row)
            out.append(cell);
}

} // namespace

QStringList storedValues(const Session &s)
{
    const EstimateHeader &h = s.header;
    QStringList out{s.slipNumber, s.estimateDate, s.fileNameText, QString::number(h.documentKind), h.customerName,
                    h.customerCompany, h.carName, h.chassisNumber, h.firstRegistration, h.distance, h.registration,
                    h.modelCode, h.classCode, h.colour, h.engine, h.memo};
    const EditorTotals &t = s.totals;
    for (Yen v : {t.labour, t.parts, t.workTotalA, t.paintLabour, t.paintMaterial, t.bumperPaint, t.paintTotalB})
        out.append(QString::number(v));
    out << s.figures.discountRate << s.figures.discountAmount << s.figures.advance << s.figures.taxRate;
    for (int v : {int(s.labourRate), int(s.paintLabourRate), int(s.roundDigits), int(s.roundMode)})
        out.append(QString::number(v));
    out += s.company;
    out += s.customer;
    out += s.vehicle;
    addRows(out, s.rows);
    out += s.nonTaxable.names;
    for (Yen v : s.nonTaxable.amounts)
        out.append(QString::number(v));
    out << QString::number(s.nonTaxable.sum) << QString::number(s.nonTaxable.present);
    out << QString::number(s.bumper.entered) << QString::number(s.bumper.lineCount);
    out += s.bumper.lines;
    out << QString::number(s.additional.entered) << QString::number(s.additional.lineCount);
    for (const auto &item : s.additional.items)
        for (const QString &field : item)
            out.append(field);
    const PaintState &p = s.paint;
    out << QString::number(p.baseAdditionIndex) << p.highFunctionBaseIndex << p.highFunctionMaterialIndex
        << p.vehicleClass << p.materialCoefficient << QString::number(p.entered);
    out += p.lines;
    addRows(out, p.rows);
    return out;
}

SavedState compareWithWorkbook(const Session &current, const QString &workbookPath)
{
    if (workbookPath.isEmpty() || !QFileInfo::exists(workbookPath))
        return SavedState::NotSaved;
    try {
        auto book = workbook::openForReading(workbookPath);
        Session saved;
        workbook::readEstimate(*book, saved);
        if (workbook::readPhotosOf(*book) != current.photos)
            return SavedState::Changed;
        // An .xls is never written: the estimate goes into a workbook made from the default template.
        auto *writable = dynamic_cast<workbook::Workbook *>(book.get());
        std::unique_ptr<workbook::Workbook> scratch;
        if (!writable) {
            scratch = workbook::Workbook::fromBytes(workbook::defaultTemplateBytes());
            writable = scratch.get();
        }
        workbook::writeEstimate(*writable, current);
        Session now;
        workbook::readEstimate(*writable, now);
        return storedValues(saved) == storedValues(now) ? SavedState::Same : SavedState::Changed;
    } catch (const std::exception &) {
        return SavedState::NotSaved;
    }
}

} // namespace est::print
