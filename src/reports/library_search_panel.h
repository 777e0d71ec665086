#pragma once
// The search over saved estimates that the open dialog shows above its folder and file
// lists: a fragment of a customer name, registration number, car name or slip number, a
// date range and the document kind; results newest first.

#include "reports/estimate_library.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace est::reports {

class LibrarySearchPanel : public QWidget
{
    Q_OBJECT
public:
    LibrarySearchPanel(const EstimateLibrary &library, QDate today, QWidget *parent = nullptr);

    // Runs the search with what the controls hold and shows the results.
    void search();
    LibraryQuery query() const;

Q_SIGNALS:
    // The user picked a result (its file name, relative to the estimates folder).
    void chosen(const QString &fileName);
    // The user opened a result (double-click or Enter).
    void activated(const QString &fileName);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString fileAt(int row) const;

    const EstimateLibrary &m_library;
    QLineEdit *m_text;
    QComboBox *m_kind;
    QCheckBox *m_period;
    QDateEdit *m_from;
    QDateEdit *m_to;
    QTableWidget *m_results;
    QLabel *m_count;
};

} // namespace est::reports
