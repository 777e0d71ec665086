#include "print/printer_choice.h"

#include <QSettings>

namespace est::print {

namespace {
const QString kKey = QStringLiteral("Print/Printer");
} // namespace

QString rememberedPrinterName()
{
    return QSettings(QStringLiteral("EstimateApp"), QStringLiteral("EstimateApp")).value(kKey).toString();
}

void rememberPrinterName(const QString &name)
{
    QSettings(QStringLiteral("EstimateApp"), QStringLiteral("EstimateApp")).setValue(kKey, name);
}

QPrinterInfo programPrinter()
{
    const QString name = rememberedPrinterName();
    if (!name.isEmpty() && QPrinterInfo::availablePrinterNames().contains(name))
        return QPrinterInfo::printerInfo(name);
    return QPrinterInfo::defaultPrinter();
}

} // namespace est::print
