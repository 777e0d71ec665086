#pragma once
// Writes an invoice as one UBL 2.1 Invoice document (UTF-8), the syntax of JP PINT.

#include "einvoice/invoice_model.h"

#include <QByteArray>

namespace est::einvoice {

QByteArray writeUbl(const Invoice &invoice);

} // namespace est::einvoice
