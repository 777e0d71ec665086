#include "customers/frm_kokyaku_sett.h"

#include "customers/customer_record.h"
#include "db/database.h"
#include "db/transaction_guard.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSqlError>
#include <QSqlTableModel>
#include <QTableView>
#include <QVBoxLayout>
#include <functional>
#include <tuple>
#include <algorithm>

namespace est::customers {

namespace {

// Writes each edited cell at once and says so when the database refuses it (a customer
// number given twice, for instance), keeping the view on the edited row.
class WriteThroughModel : public QSqlTableModel
{
public:
    WriteThroughModel(Messages &messages, QObject *parent, QSqlDatabase db)
        : QSqlTableModel(parent, std::move(db)), m_messages(messages)
    {
    }
    std::function<void(const QModelIndex &)> afterWrite;

    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        if (role != Qt::EditRole || data(index, Qt::EditRole) == value)
            return QSqlTableModel::setData(index, value, role);
        const int row = index.row(), column = index.column();
        if (!QSqlTableModel::setData(index, value, role)) {
            const QString error = lastError().text();
            revertAll();
            select();
            m_messages.inform(QStringLiteral("データを書き込めませんでした。\n") + error,
                              QStringLiteral("顧客データ"), MessageIcon::Critical);
            return false;
        }
        // Writing reloads the table; fetch far enough to show the same row again.
        while (rowCount() <= row && canFetchMore())
            fetchMore();
        if (afterWrite)
            afterWrite(this->index(row, column));
        return true;
    }

private:
    Messages &m_messages;
};

} // namespace

FrmKokyakuSett::FrmKokyakuSett(Messages &messages, QSqlDatabase database, QWidget *parent)
    : QDialog(parent), m_messages(messages)
{
    setObjectName(QStringLiteral("frmKokyakuSett"));
    setWindowTitle(QStringLiteral("顧客データ設定"));
    auto *layout = new QVBoxLayout(this);
    auto *label = new QLabel(
        QStringLiteral("各データを編集する前に顧客DBのバックアップをしてください。 (Deleteキー：削除)"), this);
    label->setObjectName(QStringLiteral("Label1"));
    layout->addWidget(label);

    auto *wrapped = new WriteThroughModel(messages, this, database);
    m_customers = wrapped;
    auto *wrappedVehicles = new WriteThroughModel(messages, this, database);
    m_vehicles = wrappedVehicles;
    for (auto [model, table, captions] :
         {std::tuple{m_customers, QStringLiteral("Kokyaku_Jyouhou"), &customerCaptions()},
          std::tuple{m_vehicles, QStringLiteral("Kokyaku_Syaryou"), &vehicleCaptions()}}) {
        // Quoted, so that the server finds the table under its mixed-case name.
        model->setTable(db::quoteIdentifier(table));
        model->setEditStrategy(QSqlTableModel::OnFieldChange);
        if (!model->select())
            messages.inform(model->lastError().text(), QStringLiteral("顧客データ"), MessageIcon::Critical);
        for (int c = 0; c < captions->size() && c < model->columnCount(); ++c)
            model->setHeaderData(c, Qt::Horizontal, captions->at(c));
    }

    layout->addWidget(new QLabel(QStringLiteral("顧客"), this));
    m_customerView = makeView("DGS1", m_customers);
    layout->addWidget(m_customerView, 1);
    layout->addWidget(new QLabel(QStringLiteral("車輌"), this));
    m_vehicleView = makeView("DGS2", m_vehicles);
    layout->addWidget(m_vehicleView, 1);
    wrapped->afterWrite = [this](const QModelIndex &index) {
        m_customerView->setCurrentIndex(index);
        m_customerView->scrollTo(index);
    };
    wrappedVehicles->afterWrite = [this](const QModelIndex &index) {
        m_vehicleView->setCurrentIndex(index);
        m_vehicleView->scrollTo(index);
    };

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto *exit = new QPushButton(QStringLiteral("閉じる"), this);
    exit->setObjectName(QStringLiteral("cmdExit"));
    exit->setAutoDefault(false);
    buttons->addWidget(exit);
    layout->addLayout(buttons);
    connect(exit, &QPushButton::clicked, this, &QDialog::accept);
    resize(1100, 640);
}

QTableView *FrmKokyakuSett::makeView(const char *name, QSqlTableModel *model)
{
    auto *view = new QTableView(this);
    view->setObjectName(QLatin1String(name));
    view->setModel(model);
    // The server's row number column is not the shop's data.
    if (const int rowid = model->fieldIndex(QStringLiteral("rowid")); rowid >= 0)
        view->hideColumn(rowid);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->verticalHeader()->setDefaultSectionSize(22);
    view->installEventFilter(this);
    return view;
}

bool FrmKokyakuSett::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Delete) {
        for (QTableView *view : {m_customerView, m_vehicleView}) {
            if (watched == view) { // while a cell is being edited its editor gets the keys
                deleteSelected(view);
                return true;
            }
        }
    }
    return QDialog::eventFilter(watched, event);
}

void FrmKokyakuSett::deleteSelected(QTableView *view)
{
    QList<int> rows;
    for (const QModelIndex &index : view->selectionModel()->selectedRows())
        rows.append(index.row());
    if (rows.isEmpty() && view->currentIndex().isValid())
        rows.append(view->currentIndex().row());
    if (rows.isEmpty())
        return;
    if (m_messages.askYesNo(QStringLiteral("選択したデータを削除します。よろしいですか？"), QStringLiteral("削除"),
                            MessageIcon::Exclamation)
        != Answer::Yes)
        return;
    auto *model = static_cast<QSqlTableModel *>(view->model());
    QString error;
    {
        // All the selected records go, or none of them.
        db::TransactionGuard guard(model->database());
        if (!guard.started())
            error = model->database().lastError().text();
        // From the bottom up, so the rows still to go keep their numbers.
        std::sort(rows.begin(), rows.end(), std::greater<int>());
        for (int row : rows) {
            if (!error.isEmpty())
                break;
            while (model->rowCount() <= row && model->canFetchMore())
                model->fetchMore();
            if (!model->removeRow(row))
                error = model->lastError().text();
        }
        if (error.isEmpty() && !guard.commit())
            error = model->database().lastError().text();
    }
    if (!error.isEmpty())
        model->revertAll();
    model->select();
    if (!error.isEmpty())
        m_messages.inform(QStringLiteral("削除できませんでした。データは変更されていません。\n") + error,
                          QStringLiteral("顧客データ"), MessageIcon::Critical);
}

} // namespace est::customers
