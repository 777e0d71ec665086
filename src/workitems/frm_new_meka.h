#pragma once
// frmNewMeka: the maker-name list (MekaName) used by the customer and vehicle records.

#include "common/messages.h"
#include "workitems/maker_name_list.h"

#include <QDialog>
#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace est::workitems {

class FrmNewMeka : public QDialog
{
    Q_OBJECT
public:
    FrmNewMeka(const QString &appFolder, Messages &messages, QWidget *parent = nullptr);

private:
    enum class Mode { Browsing, Adding, Editing };
    void showList();
    void startNew();
    void startEdit();
    void confirm();
    void cancel();
    void deleteRow();
    void setMode(Mode mode);
    int currentRow() const;

    Messages &m_messages;
    std::optional<MakerNameList> m_list;
    QList<MakerName> m_rows;
    Mode m_mode = Mode::Browsing;
    int m_editRow = -1;

    QTableWidget *m_DGM;
    QLabel *m_lblNo;
    QLineEdit *m_txtM;
    QPushButton *m_cmdNew, *m_cmdEdit, *m_cmdOK, *m_cmdCancel, *m_cmdDel;
};

} // namespace est::workitems
