#pragma once
// frmKokyakuSett: both tables of the customer database as raw editable grids, for
// corrections the customer screen does not offer. A cell edit is written at once; the
// Delete key deletes the selected records (the customer screen's vehicle rule does not
// apply here).

#include "common/messages.h"

#include <QDialog>
#include <QSqlDatabase>

class QSqlTableModel;
class QTableView;

namespace est::customers {

class FrmKokyakuSett : public QDialog
{
    Q_OBJECT
public:
    FrmKokyakuSett(Messages &messages, QSqlDatabase database, QWidget *parent = nullptr);

    QSqlTableModel *customerModel() const { return m_customers; }
    QSqlTableModel *vehicleModel() const { return m_vehicles; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QSqlTableModel *makeModel(const QString &table, const QStringList &captions);
    QTableView *makeView(const char *name, QSqlTableModel *model);
    void deleteSelected(QTableView *view);

    Messages &m_messages;
    QSqlTableModel *m_customers;
    QSqlTableModel *m_vehicles;
    QTableView *m_customerView;
    QTableView *m_vehicleView;
};

} // namespace est::customers
