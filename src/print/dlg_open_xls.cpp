#include "print/dlg_open_xls.h"

#include "print/xls_path.h"
#include "uikit/named.h"
#include "workbook/estimate_files.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>

namespace est::print {

using ui::named;

namespace {
const QString kUp = QStringLiteral("..");
}

DlgOpenXls::DlgOpenXls(Messages &messages, QString appFolder, QWidget *parent)
    : ui::GuardedDialog(messages, parent), m_appFolder(std::move(appFolder)),
      m_root(QDir::cleanPath(workbook::estimatesFolder(m_appFolder)))
{
    setObjectName(QStringLiteral("dlgOpenXls"));
    setWindowTitle(QStringLiteral("ワークブックを開く"));
    m_launch = [](const QString &program, const QString &book) { return QProcess::startDetached(program, {book}); };

    auto *grid = new QGridLayout(this);
    grid->addWidget(new QLabel(QStringLiteral("フォルダ"), this), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("ファイル"), this), 0, 1);
    m_dirs = named(new QListWidget(this), "Dir1");
    m_files = named(new QListWidget(this), "File1");
    grid->addWidget(m_dirs, 1, 0);
    grid->addWidget(m_files, 1, 1);
    grid->setColumnStretch(1, 2);

    grid->addWidget(new QLabel(QStringLiteral("表計算ソフトの場所"), this), 2, 0, 1, 2);
    auto *pathRow = new QHBoxLayout;
    m_path = named(new QLineEdit(this), "txtFname");
    auto *browse = named(new QPushButton(QStringLiteral("参照..."), this), "cmdXlsPath");
    auto *store = named(new QPushButton(QStringLiteral("パスを保存"), this), "cmdPathOK");
    pathRow->addWidget(m_path, 1);
    pathRow->addWidget(browse);
    pathRow->addWidget(store);
    grid->addLayout(pathRow, 3, 0, 1, 2);

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *ok = named(buttons->addButton(QStringLiteral("開く"), QDialogButtonBox::AcceptRole), "OKButton");
    QPushButton *cancel = named(buttons->addButton(QStringLiteral("キャンセル"), QDialogButtonBox::RejectRole),
                                "CancelButton");
    grid->addWidget(buttons, 4, 0, 1, 2);

    m_path->setText(readXlsPath(m_appFolder));
    QDir().mkpath(m_root);
    showFolder(m_root);

    connect(m_dirs, &QListWidget::itemActivated, this, [this](QListWidgetItem *item) {
        const QString name = item->text();
        showFolder(name == kUp ? QFileInfo(m_folder).absolutePath() : QDir(m_folder).filePath(name));
    });
    connect(m_files, &QListWidget::itemActivated, this, [this] { open(); });
    connect(browse, &QPushButton::clicked, this, &DlgOpenXls::choosePath);
    connect(store, &QPushButton::clicked, this, &DlgOpenXls::storePath);
    connect(ok, &QPushButton::clicked, this, &DlgOpenXls::open);
    connect(cancel, &QPushButton::clicked, this, &DlgOpenXls::cancelByButton);
    resize(560, 420);
}

void DlgOpenXls::showFolder(const QString &folder)
{
    // The lists stay inside the estimates folder.
    const QString clean = QDir::cleanPath(folder);
    m_folder = clean.startsWith(m_root) ? clean : m_root;
    m_dirs->clear();
    if (m_folder != m_root)
        m_dirs->addItem(kUp);
    const QDir dir(m_folder);
    m_dirs->addItems(dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name));
    m_files->clear();
    for (const QString &name : dir.entryList(QDir::Files, QDir::Name))
        if (isWorkbookFileName(name))
            m_files->addItem(name);
}

void DlgOpenXls::choosePath()
{
    const QString chosen = QFileDialog::getOpenFileName(this, QStringLiteral("表計算ソフトを選択"), m_path->text());
    if (!chosen.isEmpty())
        m_path->setText(QDir::toNativeSeparators(chosen));
}

void DlgOpenXls::storePath()
{
    const QString error = writeXlsPath(m_appFolder, m_path->text().trimmed());
    if (!error.isEmpty())
        messages().inform(QStringLiteral("%1 に保存できませんでした。\n").arg(QDir::toNativeSeparators(xlsPathFile(m_appFolder)))
                              + error,
                          kXlsPathTitle, MessageIcon::Critical);
}

void DlgOpenXls::open()
{
    QListWidgetItem *item = m_files->currentItem();
    if (!item || !item->isSelected())
        return;
    const QString book = QDir(m_folder).filePath(item->text());
    if (!isWorkbookFileName(book))
        return;
    const QString program = readXlsPath(m_appFolder).trimmed();
    if (program.isEmpty()) {
        messages().inform(kXlsPathMissing, kXlsPathTitle, MessageIcon::Critical);
        return;
    }
    if (!m_launch(program, book)) {
        messages().inform(QStringLiteral("%1 を起動できませんでした。").arg(program), kXlsPathTitle,
                          MessageIcon::Critical);
        return;
    }
    accept();
}

} // namespace est::print
