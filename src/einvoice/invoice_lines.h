#pragma once
// The lines of an electronic invoice from the rows of a saved estimate: labour and parts of
// each work row, the paint rows with the paint part's other sums, and the non-taxable items.
// Each part must add up to the total the printed invoice shows for it.

#include "einvoice/invoice_model.h"

namespace est::einvoice {

struct LinesResult
{
    QList<Line> work;         // add up to work total A
    QList<Line> paint;        // add up to paint total B
    QList<Line> nonTaxable;   // add up to the non-taxable sum
    QString refusal;
};

LinesResult invoiceLines(const Session &saved);

} // namespace est::einvoice
