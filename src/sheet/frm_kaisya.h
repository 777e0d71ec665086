#pragma once
// frmKaisya: the own-company editor. Browses the records of temp\Jisya_Jyouhou, adds and
// edits them in the frame fra1, and on confirming puts the record into the company block of
// the session, the sheet and temp\kdata.txt.

#include "common/messages.h"
#include "common/session.h"
#include "sheet/company_store.h"

#include <QWidget>
#include <memory>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace est::sheet {

class FrmMitumori;
class CompanyExtrasStore;

class FrmKaisya : public QWidget
{
    Q_OBJECT
public:
    FrmKaisya(Session &session, Messages &messages, QString appFolder, FrmMitumori *sheet = nullptr,
              QWidget *parent = nullptr);
    ~FrmKaisya() override;

    enum class Mode { Browsing, Adding, Editing };
    Mode mode() const { return m_mode; }
    // Position in the record set, -1 when it is empty.
    int position() const { return m_position; }
    int recordCount() const { return int(m_records.size()); }

    // The items of the account-type list.
    static QStringList accountTypes();

private:
    void buildUi();
    void reload(int keepJNo);
    void showRecord();
    CompanyRecord recordFromControls() const;
    void setMode(Mode mode);
    void moveTo(int position);
    void startAdding();
    void startEditing();
    void confirm();
    void cancelEdit();
    void deleteRecord();

    Session &m_session;
    Messages &m_messages;
    QString m_appFolder;
    FrmMitumori *m_sheet;
    std::unique_ptr<CompanyStore> m_store;
    std::unique_ptr<CompanyExtrasStore> m_extras;
    QList<CompanyRecord> m_records;
    int m_position = -1;
    Mode m_mode = Mode::Browsing;

    struct Widgets;
    std::unique_ptr<Widgets> m_w;
};

} // namespace est::sheet
