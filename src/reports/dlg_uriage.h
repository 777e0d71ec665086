#pragma once
// dlgUriage: the yearly sales report. The user picks a calendar year or a fiscal year that
// starts in a chosen month; OK writes Mitsumori/<year>年度売上表.xlsx from the estimate library.

#include "common/messages.h"
#include "reports/estimate_library.h"
#include "reports/sales_report.h"
#include "uikit/guarded_dialog.h"

#include <QDate>

class QComboBox;
class QLabel;
class QRadioButton;
class QSpinBox;

namespace est::reports {

class DlgUriage : public ui::GuardedDialog
{
    Q_OBJECT
public:
    DlgUriage(EstimateLibrary &library, QString appFolder, QDate today, Messages &messages,
              QWidget *parent = nullptr);

    SalesPeriod period() const;
    // OK: brings the library up to date, asks before replacing an existing report, writes it.
    void make();

private:
    void showPeriod();

    EstimateLibrary &m_library;
    QString m_appFolder;
    QRadioButton *m_calendar;
    QRadioButton *m_fiscal;
    QComboBox *m_month;
    QSpinBox *m_year;
    QLabel *m_range;
    QLabel *m_file;
};

} // namespace est::reports
