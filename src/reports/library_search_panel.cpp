#include "reports/library_search_panel.h"

#include "reports/library_columns.h"
#include "sheet/document_kind.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QVBoxLayout>

namespace est::reports {

namespace {

// More results than this ask for a narrower search; the list stays quick to fill.
constexpr int kShownResults = 300;

QDateEdit *dateEdit(const char *name, QDate day, QWidget *parent)
{
    auto *edit = new QDateEdit(day, parent);
    edit->setObjectName(QLatin1String(name));
    edit->setCalendarPopup(true);
    edit->setDisplayFormat(QStringLiteral("yyyy/MM/dd"));
    edit->setEnabled(false);
    edit->setMinimumWidth(130);
    return edit;
}

} // namespace

LibrarySearchPanel::LibrarySearchPanel(const EstimateLibrary &library, QDate today, QWidget *parent)
    : QWidget(parent), m_library(library)
{
    setObjectName(QStringLiteral("fraSearch"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *controls = new QHBoxLayout;
    controls->addWidget(new QLabel(QStringLiteral("検索"), this));
    m_text = new QLineEdit(this);
    m_text->setObjectName(QStringLiteral("txtSearch"));
    m_text->setPlaceholderText(QStringLiteral("お客様名・登録番号・車名・伝票番号の一部"));
    m_text->setClearButtonEnabled(true);
    m_text->setMinimumWidth(300);
    controls->addWidget(m_text, 3);
    m_kind = new QComboBox(this);
    m_kind->setObjectName(QStringLiteral("cboKind"));
    m_kind->addItem(QStringLiteral("すべての書類"));
    m_kind->addItems(sheet::documentKinds());
    controls->addWidget(m_kind, 1);
    m_period = new QCheckBox(QStringLiteral("期間"), this);
    m_period->setObjectName(QStringLiteral("chkKikan"));
    controls->addWidget(m_period);
    m_from = dateEdit("dtpFrom", today.addMonths(-1), this);
    m_to = dateEdit("dtpTo", today, this);
    controls->addWidget(m_from);
    controls->addWidget(new QLabel(QStringLiteral("～"), this));
    controls->addWidget(m_to);
    layout->addLayout(controls);

    m_results = new QTableWidget(0, LibraryColumnCount, this);
    m_results->setObjectName(QStringLiteral("grdResults"));
    m_results->setHorizontalHeaderLabels(libraryHeaders());
    m_results->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_results->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_results->setSelectionMode(QAbstractItemView::SingleSelection);
    m_results->verticalHeader()->hide();
    m_results->horizontalHeader()->setStretchLastSection(true);
    m_results->setMinimumHeight(180);
    layout->addWidget(m_results, 1);
    m_count = new QLabel(this);
    m_count->setObjectName(QStringLiteral("lblCount"));
    layout->addWidget(m_count);

    m_text->installEventFilter(this);
    m_results->installEventFilter(this);
    connect(m_text, &QLineEdit::textChanged, this, &LibrarySearchPanel::search);
    connect(m_kind, &QComboBox::currentIndexChanged, this, &LibrarySearchPanel::search);
    connect(m_period, &QCheckBox::toggled, this, [this](bool on) {
        m_from->setEnabled(on);
        m_to->setEnabled(on);
        search();
    });
    connect(m_from, &QDateEdit::dateChanged, this, &LibrarySearchPanel::search);
    connect(m_to, &QDateEdit::dateChanged, this, &LibrarySearchPanel::search);
    // Only a row the user clicks counts as a choice, not the one Qt makes current.
    connect(m_results, &QTableWidget::cellClicked, this, [this](int row) { Q_EMIT chosen(fileAt(row)); });
    connect(m_results, &QTableWidget::cellActivated, this, [this](int row) { Q_EMIT activated(fileAt(row)); });
    search();
}

LibraryQuery LibrarySearchPanel::query() const
{
    LibraryQuery q;
    q.limit = kShownResults + 1;
    q.text = m_text->text();
    q.kind = m_kind->currentIndex() - 1;
    if (m_period->isChecked()) {
        q.from = m_from->date();
        q.to = m_to->date();
    }
    return q;
}

void LibrarySearchPanel::search()
{
    QList<EstimateSummary> found = newestRevisions(m_library.search(query()));
    const bool more = found.size() > kShownResults;
    if (more)
        found.resize(kShownResults);
    m_results->setUpdatesEnabled(false);
    m_results->clearContents();
    m_results->setRowCount(int(found.size()));
    for (int r = 0; r < found.size(); ++r) {
        const QStringList texts = libraryRowTexts(found.at(r));
        for (int c = 0; c < LibraryColumnCount; ++c) {
            auto *item = new QTableWidgetItem(texts.at(c));
            if (c == LibTotal)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (!found.at(r).readable) {
                item->setForeground(Qt::darkRed);
                item->setToolTip(found.at(r).error);
            }
            m_results->setItem(r, c, item);
        }
    }
    m_results->resizeColumnsToContents();
    m_results->setUpdatesEnabled(true);
    m_count->setText(more ? QStringLiteral("%1 件以上あります。条件を絞ってください。").arg(kShownResults)
                          : QStringLiteral("%1 件").arg(found.size()));
}

// Enter in the search box goes on to the results instead of pressing the dialog's OK; the
// first result becomes current (not chosen), and Enter there opens the current result.
bool LibrarySearchPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    if (watched == m_text) {
        m_results->setFocus();
        if (m_results->rowCount() > 0 && !m_results->currentItem())
            m_results->setCurrentCell(0, 0, QItemSelectionModel::NoUpdate);
        return true;
    }
    // Enter on a result opens it, and only it: the dialog's OK does not act as well.
    if (watched == m_results) {
        if (m_results->currentRow() >= 0)
            Q_EMIT activated(fileAt(m_results->currentRow()));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

QString LibrarySearchPanel::fileAt(int row) const
{
    const QTableWidgetItem *item = m_results->item(row, LibFile);
    return item ? item->text() : QString();
}

} // namespace est::reports
