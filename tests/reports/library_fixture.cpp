#include "library_fixture.h"

#include "common/number_format.h"
#include "sheet/era_date.h"
#include "workbook/estimate_files.h"

#include <QDir>
#include <gtest/gtest.h>

namespace est::test {

Session estimateOf(const EstimateSpec &spec)
{
    Session s;
    s.header.documentKind = spec.kind;
    s.header.customerName = spec.customer;
    s.header.customerCompany = spec.company;
    s.header.carName = spec.car;
    s.header.registration = spec.registration;
    s.header.chassisNumber = QStringLiteral("ZVW50-0099887");
    s.slipNumber = spec.slip;
    s.estimateDate = sheet::eraDate(spec.day);
    s.totals.workTotalA = spec.totalA;
    s.totals.paintTotalB = spec.totalB;
    s.figures.discountRate = spec.discountRate;
    s.figures.discountAmount = spec.discountAmount;
    s.figures.advance = spec.advance;
    s.company[11] = spec.taxRate;
    if (spec.nonTaxable != 0) {
        s.nonTaxable.names = {QStringLiteral("自賠責保険")};
        s.nonTaxable.amounts = {spec.nonTaxable};
        s.nonTaxable.count = 1;
        s.nonTaxable.sum = spec.nonTaxable;
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
