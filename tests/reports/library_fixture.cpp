#include "library_fixture.h"

#include "common/number_format.h"
#include "sheet/era_date.h"
#include "workbook/estimate_files.h"

#include <QDir>
#include <gtest/gtest.h>

namespace est::test {

Session estimateOf(const EstimateSpec &tableSpec)
{
    Session s;
    s.header.documentKind = tableSpec.kind;
    s.header.customerName = tableSpec.customer;
    s.header.customerCompany = tableSpec.company;
    s.header.carName = tableSpec.car;
    s.header.registration = tableSpec.registration;
    s.header.chassisNumber = QStringLiteral("ZVW50-0099887");
    s.slipNumber = tableSpec.slip;
    s.estimateDate = sheet::eraDate(tableSpec.day);
    s.totals.workTotalA = tableSpec.totalA;
    s.totals.paintTotalB = tableSpec.totalB;
    s.figures.discountRate = tableSpec.discountRate;
    s.figures.discountAmount = tableSpec.discountAmount;
    s.figures.advance = tableSpec.advance;
    s.company[11] = tableSpec.taxRate;
    if (tableSpec.nonTaxable != 0) {
        s.nonTaxable.names = {QStringLiteral("自賠責保険")};
        s.nonTaxable.amounts = {tableSpec.nonTaxable};
        s.nonTaxable.count = 1;
        s.nonTaxable.sum = tableSpec.nonTaxable;
        s.nonTaxable.present = true;
    }
    return s;
}

QString mitsumori(const TempAppFolder &folder)
{
    return workbook::estimatesFolder(folder.path());
}

void saveWorkbook(const TempAppFolder &folder, const QString &fileName, const Session &session)
{
    ASSERT_TRUE(workbook::ensureTemplate(folder.path()));
    const QString target = QDir(mitsumori(folder)).filePath(fileName);
    QDir().mkpath(QFileInfo(target).path());
    workbook::writeEstimateWorkbook(workbook::templatePath(folder.path()), session, target);
}

} // namespace est::test
