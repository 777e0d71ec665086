#include "uikit/table_editor.h"

#include "mastertable/csv_transfer.h"
#include "mastertable/table_edit_model.h"
#include "uikit/named.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSaveFile>
#include <QSet>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace est::ui {

using mastertable::CsvEncoding;
using mastertable::TableEditModel;

// Line edits for the cells that can reopen a refused cell with the text the user typed, and
// commit an open editor before saving or closing.
class HeldTextDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void retryWith(const QModelIndex &index, const QString &typed)
    {
        m_retryIndex = index;
        m_retryText = typed;
    }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
        m_open = editor;
        return editor;
    }

    void destroyEditor(QWidget *editor, const QModelIndex &index) const override
    {
        if (editor == m_open)
            m_open.clear();
        QStyledItemDelegate::destroyEditor(editor, index);
    }

    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        auto *line = qobject_cast<QLineEdit *>(editor);
        if (line && m_retryIndex.isValid() && index == m_retryIndex) {
            line->setText(m_retryText);
            m_retryIndex = QPersistentModelIndex();
            return;
        }
        QStyledItemDelegate::setEditorData(editor, index);
    }

    // Commits and closes the open cell editor, if any.
    void finishEditing()
    {
        if (QWidget *editor = m_open.data()) {
            m_open.clear();
            Q_EMIT commitData(editor);
            Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
        }
    }

private:
    mutable QPointer<QWidget> m_open;
    mutable QPersistentModelIndex m_retryIndex;
    mutable QString m_retryText;
};

namespace {

const QString kDeleteTitle = QStringLiteral("削除");

QString defaultChooser(QWidget *parent, bool forExport, const QString &suggestedName)
{
    const QString filter = QStringLiteral("CSVファイル (*.csv);;すべてのファイル (*)");
    return forExport ? QFileDialog::getSaveFileName(parent, QStringLiteral("CSV書出"), suggestedName, filter)
                     : QFileDialog::getOpenFileName(parent, QStringLiteral("CSV読込"), QString(), filter);
}

} // namespace

TableEditor::TableEditor(mastertable::TableSpec tableSpec, QSqlDatabase database, Messages &messages, QWidget *parent)
    : QWidget(parent), m_messages(messages)
{
    setObjectName(tableSpec.table);
    m_model = new TableEditModel(mastertable::TableStore(std::move(database), std::move(tableSpec)), this);
    m_chooseFile = [this](bool forExport, const QString &name) { return defaultChooser(this, forExport, name); };
    buildUi();
    connect(m_model, &TableEditModel::refused, this, [this](int row, int column, const QString &typed, const QString &message) {
        ++m_refusals;
        // After the view has closed the refused editor: report, then reopen it with the typed text.
        QTimer::singleShot(0, this, [this, row, column, typed, message] { showRefusal(row, column, typed, message); });
    });
    // A value accepted, or the refused text given up with Esc, settles the last refusal.
    connect(m_model, &QAbstractItemModel::dataChanged, this, [this] { m_refusalsSeen = m_refusals; });
    connect(m_delegate, &QAbstractItemDelegate::closeEditor, this,
            [this](QWidget *, QAbstractItemDelegate::EndEditHint hint) {
                if (hint == QAbstractItemDelegate::RevertModelCache)
                    m_refusalsSeen = m_refusals;
            });
    if (!m_model->loadError().isEmpty())
        m_messages.inform(m_model->loadError(), this->tableSpec().caption, MessageIcon::Critical);
}

TableEditor::~TableEditor() = default;

const mastertable::TableSpec &TableEditor::tableSpec() const
{
    return m_model->tableSpec();
}

void TableEditor::buildUi()
{
    auto *layout = new QVBoxLayout(this);
    m_view = named(new QTableView(this), "dgTable");
    m_view->setModel(m_model);
    m_delegate = new HeldTextDelegate(m_view);
    m_view->setItemDelegate(m_delegate);
    m_view->setSelectionBehavior(QAbstractItemView::SelectItems);
    m_view->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                            | QAbstractItemView::AnyKeyPressed);
    m_view->horizontalHeader()->setMinimumSectionSize(56);
    m_view->resizeColumnsToContents();
    // Room to type a longer text than the widest one stored.
    for (int c = 0; c < tableSpec().columns.size(); ++c)
        if (tableSpec().columns.at(c).kind == mastertable::ColumnKind::Text)
            m_view->setColumnWidth(c, std::max(m_view->columnWidth(c), 120));
    layout->addWidget(m_view, 1);

    auto *buttons = new QHBoxLayout;
    const auto button = [&](const char *name, const char *caption, void (TableEditor::*slot)()) {
        auto *b = named(new QPushButton(QString::fromUtf8(caption), this), name);
        // Enter in the grid must never press a button of the window.
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, slot);
        buttons->addWidget(b);
        return b;
    };
    button("cmdAdd", "追加", &TableEditor::addRow);
    button("cmdDel", "削除", &TableEditor::deleteRows);
    buttons->addSpacing(16);
    button("cmdUndo", "元に戻す", &TableEditor::undo);
    auto *saveButton = named(new QPushButton(QStringLiteral("保存"), this), "cmdSave");
    saveButton->setAutoDefault(false);
    connect(saveButton, &QPushButton::clicked, this, [this] { save(); });
    buttons->addWidget(saveButton);
    buttons->addStretch(1);
    buttons->addWidget(new QLabel(QStringLiteral("文字コード"), this));
    m_encoding = named(new QComboBox(this), "cboEncoding");
    m_encoding->addItem(QStringLiteral("自動判別"), int(CsvEncoding::Auto));
    m_encoding->addItem(QStringLiteral("UTF-8"), int(CsvEncoding::Utf8));
    m_encoding->addItem(QStringLiteral("Shift_JIS"), int(CsvEncoding::ShiftJis));
    buttons->addWidget(m_encoding);
    button("cmdImport", "CSV読込", &TableEditor::importFile);
    button("cmdExport", "CSV書出", &TableEditor::exportFile);
    layout->addLayout(buttons);
}

bool TableEditor::isDirty() const
{
    return m_model->isDirty();
}

bool TableEditor::finishEditing()
{
    m_delegate->finishEditing();
    // A refusal since the last command stops this one, even when it came from the click on
    // the command's own button taking the focus from the cell: the user reads it first.
    const bool clean = m_refusals == m_refusalsSeen;
    m_refusalsSeen = m_refusals;
    return clean;
}

void TableEditor::showRefusal(int row, int column, const QString &typed, const QString &message)
{
    m_messages.inform(message, tableSpec().caption, MessageIcon::Exclamation);
    const QModelIndex cell = m_model->index(row, column);
    if (!cell.isValid())
        return;
    m_view->setCurrentIndex(cell);
    m_delegate->retryWith(cell, typed);
    m_view->edit(cell);
}

void TableEditor::addRow()
{
    finishEditing();
    const int row = m_model->appendRow();
    const QModelIndex cell = m_model->index(row, 0);
    m_view->scrollTo(cell);
    m_view->setCurrentIndex(cell);
    m_view->edit(cell);
}

void TableEditor::deleteRows()
{
    finishEditing();
    QSet<int> chosen;
    for (const QModelIndex &index : m_view->selectionModel()->selectedIndexes())
        chosen.insert(index.row());
    QList<int> rows(chosen.begin(), chosen.end());
    if (rows.isEmpty() && m_view->currentIndex().isValid())
        rows << m_view->currentIndex().row();
    if (rows.isEmpty()) {
        m_messages.inform(QStringLiteral("削除するデータはありません．"), QStringLiteral("警告"), MessageIcon::None);
        return;
    }
    if (m_messages.askYesNo(QStringLiteral("削除します。\nデータが失われます。\nよろしいですか？"), kDeleteTitle,
                            MessageIcon::Exclamation)
        != Answer::Yes)
        return;
    m_model->removeHeldRows(rows);
}

void TableEditor::undo()
{
    finishEditing();
    if (!m_model->isDirty())
        return;
    if (m_messages.askYesNo(QStringLiteral("保存していない変更をすべて取り消して、保存した内容に戻します。\nよろしいですか？"),
                            tableSpec().caption, MessageIcon::Question)
        == Answer::Yes)
        m_model->reload();
}

bool TableEditor::save()
{
    if (!finishEditing())
        return false;
    const mastertable::SaveOutcome outcome = m_model->save();
    if (!outcome.saved) {
        m_messages.inform(outcome.message, tableSpec().caption, MessageIcon::Exclamation);
        if (outcome.row >= 0)
            m_view->setCurrentIndex(m_model->index(outcome.row, std::max(0, outcome.column)));
        return false;
    }
    Q_EMIT saved();
    return true;
}

TableEditor::OnClose TableEditor::askOnClose()
{
    if (!finishEditing())
        return OnClose::Stay;
    if (!m_model->hasChangesToSave())
        return OnClose::Nothing;
    switch (m_messages.askYesNoCancel(QStringLiteral("「%1」の変更が保存されていません。\n保存しますか？").arg(tableSpec().caption),
                                      tableSpec().caption, MessageIcon::Question)) {
    case Answer::Yes:
        return OnClose::Save;
    case Answer::No:
        return OnClose::Discard;
    default:
        return OnClose::Stay;
    }
}

bool TableEditor::saveQuietly()
{
    if (!m_model->save().saved)
        return false;
    Q_EMIT saved();
    return true;
}

void TableEditor::discard()
{
    m_model->reload();
}

bool TableEditor::refuseWhileDirty()
{
    if (!finishEditing())
        return true;
    if (!m_model->isDirty())
        return false;
    m_messages.inform(QStringLiteral("保存していない変更があります。\n先に保存するか、元に戻してください。"), tableSpec().caption,
                      MessageIcon::Exclamation);
    return true;
}

void TableEditor::exportFile()
{
    if (refuseWhileDirty())
        return;
    const QString path = m_chooseFile(true, tableSpec().table + QStringLiteral(".csv"));
    if (path.isEmpty())
        return;
    QString error;
    const QByteArray bytes = mastertable::exportCsv(m_model->store(), &error);
    QSaveFile file(path);
    if (error.isEmpty() && !(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()))
        error = QStringLiteral("%1 に書き込めませんでした。").arg(path);
    if (!error.isEmpty())
        m_messages.inform(error, tableSpec().caption, MessageIcon::Critical);
    else
        m_messages.inform(QStringLiteral("%1行を書き出しました。").arg(m_model->rowCount()), tableSpec().caption,
                          MessageIcon::Information);
}

void TableEditor::importFile()
{
    if (refuseWhileDirty())
        return;
    const QString path = m_chooseFile(false, QString());
    if (path.isEmpty())
        return;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_messages.inform(QStringLiteral("%1 を開けませんでした。").arg(path), tableSpec().caption, MessageIcon::Critical);
        return;
    }
    if (file.size() > mastertable::kCsvMaxBytes) {
        m_messages.inform(QStringLiteral("ファイルが大きすぎます。"), tableSpec().caption, MessageIcon::Critical);
        return;
    }
    if (m_messages.askYesNo(QStringLiteral("「%1」の内容を、ファイルの内容で置き換えます。\nよろしいですか？").arg(tableSpec().caption),
                            tableSpec().caption, MessageIcon::Question)
        != Answer::Yes)
        return;
    const auto encoding = CsvEncoding(m_encoding->currentData().toInt());
    const mastertable::ImportReport report = mastertable::importCsv(m_model->store(), file.readAll(), encoding);
    m_messages.inform(report.summary(), tableSpec().caption, report.applied ? MessageIcon::Information : MessageIcon::Exclamation);
    if (report.applied) {
        m_model->reload();
        Q_EMIT saved();
    }
}

TableEditorWindow::TableEditorWindow(const QString &objectName, const QString &title, Messages &messages,
                                     QWidget *parent)
    : QDialog(parent), m_messages(messages)
{
    setObjectName(objectName);
    setWindowTitle(title);
    m_layout = new QVBoxLayout(this);
    m_tabs = named(new QTabWidget(this), "tabTables");
    m_tabs->setTabBarAutoHide(true);
    m_layout->addWidget(m_tabs, 1);
    auto *bottom = new QHBoxLayout;
    bottom->addStretch(1);
    auto *exit = named(new QPushButton(QStringLiteral("閉じる"), this), "cmdExit");
    exit->setAutoDefault(false);
    connect(exit, &QPushButton::clicked, this, &QWidget::close);
    bottom->addWidget(exit);
    m_layout->addLayout(bottom);
    resize(1000, 620);
}

TableEditor *TableEditorWindow::addTable(const mastertable::TableSpec &tableSpec, QSqlDatabase database)
{
    auto *editor = new TableEditor(tableSpec, std::move(database), m_messages, m_tabs);
    m_tabs->addTab(editor, tableSpec.caption);
    m_editors << editor;
    return editor;
}

void TableEditorWindow::addPanel(QWidget *panel)
{
    m_layout->insertWidget(m_layout->count() - 1, panel);
}

TableEditor *TableEditorWindow::editor(const QString &table) const
{
    for (TableEditor *e : m_editors)
        if (e->tableSpec().table == table)
            return e;
    return nullptr;
}

void TableEditorWindow::closeEvent(QCloseEvent *event)
{
    // Every tab is asked first; nothing is saved or dropped until no answer was キャンセル.
    QList<TableEditor *> toSave, toDiscard;
    for (TableEditor *e : m_editors) {
        if (e->isDirty())
            m_tabs->setCurrentWidget(e);
        switch (e->askOnClose()) {
        case TableEditor::OnClose::Stay:
            m_tabs->setCurrentWidget(e);
            event->ignore();
            return;
        case TableEditor::OnClose::Save:
            toSave << e;
            break;
        case TableEditor::OnClose::Discard:
            toDiscard << e;
            break;
        case TableEditor::OnClose::Nothing:
            break;
        }
    }
    // A tab may refer to rows another one adds (a unit price to a new class), so what could
    // not be saved is tried again after the others; what still fails is reported and stays.
    for (int pass = 0; pass < 2 && !toSave.isEmpty(); ++pass) {
        QList<TableEditor *> failed;
        for (TableEditor *e : std::as_const(toSave))
            if (!e->saveQuietly())
                failed << e;
        if (failed.size() == toSave.size())
            break;
        toSave = failed;
    }
    if (!toSave.isEmpty()) {
        m_tabs->setCurrentWidget(toSave.first());
        toSave.first()->save(); // says why and selects the cell
        event->ignore();
        return;
    }
    for (TableEditor *e : std::as_const(toDiscard))
        e->discard();
    event->accept();
    // Ends exec() as rejected without going through reject(), which comes back here.
    QDialog::done(QDialog::Rejected);
}

void TableEditorWindow::reject()
{
    close();
}

} // namespace est::ui
