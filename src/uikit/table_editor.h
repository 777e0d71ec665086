#pragma once
// TableEditor: the one way the program edits a master table. A grid with Japanese captions
// over one SQLite table, with 追加 / 削除 / 元に戻す / 保存 and CSV 書出 / 読込. Typed cells are
// checked at once (a refused cell says which cell and why and opens again with the typed
// text); edits are held until 保存, which writes them in one transaction; deleting asks first.
// TableEditorWindow puts one or more editors on tabs and asks, when closed with unsaved
// edits, whether to save them.
//
// Use: describe the table, then show it.
//
//     using namespace est::mastertable;
//     TableSpec tableSpec{QStringLiteral("SasyuDB"), QStringLiteral("ドアサッシュ"),
//                    {ColumnSpec::text(QStringLiteral("Mai"), QStringLiteral("ドア数")).mustHave(),
//                     ColumnSpec::text(QStringLiteral("Memo"), QStringLiteral("備考")),
//                     ColumnSpec::index(QStringLiteral("Sisu"), QStringLiteral("指数")).mustHave()},
//                    {0}};   // "Mai" must be unique
//     est::ui::TableEditorWindow window(QStringLiteral("frmFukaSetting"), QStringLiteral("付加指数設定"),
//                                       messages, parent);
//     window.addTable(tableSpec, database);   // one tab per table
//     window.exec();
//
// A column may also be restricted to fixed values (`.oneOf({"X", "S"})`) or to values of
// another table (`.references("TKubunDB", "KCode")`); a key may span several columns.

#include "common/messages.h"
#include "mastertable/column_spec.h"

#include <QDialog>
#include <QSqlDatabase>
#include <functional>

class QComboBox;
class QTabWidget;
class QTableView;
class QVBoxLayout;

namespace est::mastertable { class TableEditModel; }

namespace est::ui {

class HeldTextDelegate;

// Asks for the CSV file to read (forExport false) or to write; empty when cancelled.
using CsvFileChooser = std::function<QString(bool forExport, const QString &suggestedName)>;

class TableEditor : public QWidget
{
    Q_OBJECT
public:
    TableEditor(mastertable::TableSpec tableSpec, QSqlDatabase database, Messages &messages, QWidget *parent = nullptr);
    ~TableEditor() override;

    mastertable::TableEditModel &model() const { return *m_model; }
    QTableView *view() const { return m_view; }
    const mastertable::TableSpec &tableSpec() const;

    bool isDirty() const;
    // Writes the held edits; a refusal is reported and its cell selected. True when saved.
    bool save();
    // Closing the window: what to do with the held edits, asked when there are any. Stay when
    // the user chose キャンセル or a value typed last was refused.
    enum class OnClose { Nothing, Save, Discard, Stay };
    OnClose askOnClose();
    // Saves without a message (the window retries and then reports through save()).
    bool saveQuietly();
    // Drops the held edits.
    void discard();
    // Replaces the file dialog (tests choose files without one).
    void setFileChooser(CsvFileChooser chooser) { m_chooseFile = std::move(chooser); }

Q_SIGNALS:
    // The table changed in the database (saved or imported).
    void saved();

private:
    void buildUi();
    bool finishEditing();
    void addRow();
    void deleteRows();
    void undo();
    void exportFile();
    void importFile();
    bool refuseWhileDirty();
    void showRefusal(int row, int column, const QString &typed, const QString &message);

    Messages &m_messages;
    mastertable::TableEditModel *m_model = nullptr;
    QTableView *m_view = nullptr;
    HeldTextDelegate *m_delegate = nullptr;
    QComboBox *m_encoding = nullptr;
    CsvFileChooser m_chooseFile;
    int m_refusals = 0;
    int m_refusalsSeen = 0; // refusals the last command or accepted edit already took into account
};

class TableEditorWindow : public QDialog
{
    Q_OBJECT
public:
    TableEditorWindow(const QString &objectName, const QString &title, Messages &messages, QWidget *parent = nullptr);

    // Adds a tab for the table (the tab bar shows once there are two).
    TableEditor *addTable(const mastertable::TableSpec &tableSpec, QSqlDatabase database);
    // Adds a widget below the tabs (a hint, a list of gaps ...).
    void addPanel(QWidget *panel);
    QList<TableEditor *> editors() const { return m_editors; }
    TableEditor *editor(const QString &table) const;

protected:
    void closeEvent(QCloseEvent *event) override;
    void reject() override;

private:
    Messages &m_messages;
    QTabWidget *m_tabs = nullptr;
    QVBoxLayout *m_layout = nullptr;
    QList<TableEditor *> m_editors;
};

} // namespace est::ui
