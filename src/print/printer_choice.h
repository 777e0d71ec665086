#pragma once
// The program's printer: the one chosen in frmPrinter (remembered in the settings store
// between runs) while the system still has it, else the system's default printer.

#include <QPrinterInfo>
#include <QString>

namespace est::print {

QString rememberedPrinterName();
void rememberPrinterName(const QString &name);
// The printer to print on; a null QPrinterInfo when the system has no printer.
QPrinterInfo programPrinter();

} // namespace est::print
