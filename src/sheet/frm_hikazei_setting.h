#pragma once
// frmHikazeiSetting: editor of the non-taxable master list (Data\Hikazei, "HikazeiDB"),
// at most 99 entries numbered 1..n.

#include "common/messages.h"
#include "sheet/non_taxable_store.h"

#include <QWidget>
#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace est::sheet {

class FrmHikazeiSetting : public QWidget
{
    Q_OBJECT
public:
    FrmHikazeiSetting(Messages &messages, const QString &appFolder, QWidget *parent = nullptr);
    ~FrmHikazeiSetting() override;

    enum class Mode { Browsing, Adding, Editing };
    Mode mode() const { return m_mode; }

private:
    void buildUi();
    void reload(int selectNo);
    void showSelected();
    void setMode(Mode mode);
    void startAdding();
    void startEditing();
    void confirm();
    void cancelEdit();
    void deleteEntry();
    int selectedRow() const;

    Messages &m_messages;
    std::unique_ptr<NonTaxableStore> m_store;
    QList<NonTaxableEntry> m_entries;
    Mode m_mode = Mode::Browsing;
    int m_editingNo = 0;
    NonTaxableEntry m_editing;  // the entry being edited

    QTableWidget *m_dgh = nullptr;
    QLineEdit *m_txtH = nullptr, *m_txtHzSum = nullptr;
    QLabel *m_lblNo = nullptr;
    QPushButton *m_cmdNew = nullptr, *m_cmdEdit = nullptr, *m_cmdDel = nullptr, *m_cmdOK = nullptr,
                *m_cmdCancel = nullptr, *m_cmdExit = nullptr;
};

} // namespace est::sheet
