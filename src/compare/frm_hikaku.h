#pragma once
// frmHikaku: compares two saved estimates (txtOld, the earlier; txtNew, the later), shows
// the changed work rows (HFlgWork), paint lines (HFlgPaint) and totals (HFlgTotals), and
// prints the 修正内容比較表, shows its preview or saves it as a PDF beside the later workbook.

#include "common/messages.h"
#include "compare/comparison_report.h"

#include <QDialog>
#include <functional>
#include <optional>

class QLabel;
class QLineEdit;
class QTableWidget;

namespace est::ui { class WaitDialog; }

namespace est::compare {

// Asks for a workbook to compare: the chosen path, empty when the user cancelled.
using WorkbookChooser = std::function<QString(QWidget *parent, const QString &folder)>;
// The file dialog on .xlsx and .xls workbooks.
WorkbookChooser dialogWorkbookChooser();

class FrmHikaku : public QDialog
{
    Q_OBJECT
public:
    FrmHikaku(Messages &messages, QString appFolder, WorkbookChooser chooser, ui::WaitDialog *wait = nullptr,
              QWidget *parent = nullptr);

    // Puts the two workbooks in; a side left empty is chosen with its 参照 button.
    void setWorkbooks(const QString &before, const QString &after);
    // 比較: reads both and shows the changes; false (with a message) when it cannot.
    bool compareNow();
    // Where PDF保存 writes: "<later workbook's name>_修正内容比較表.pdf" beside it.
    QString pdfPath() const;

    const std::optional<ComparisonReport> &report() const { return m_report; }

private:
    void choose(QLineEdit *edit);
    void showReport();
    enum class Output { Print, Preview, Pdf };
    void output(Output how);

    Messages &m_messages;
    QString m_appFolder;
    WorkbookChooser m_chooser;
    ui::WaitDialog *m_wait;
    std::optional<ComparisonReport> m_report;
    QLineEdit *m_old;
    QLineEdit *m_new;
    QLabel *m_sides;
    QTableWidget *m_work;
    QTableWidget *m_paint;
    QTableWidget *m_totals;
};

} // namespace est::compare
