#include "workbook/dlg_open.h"

#include "workbook/estimate_files.h"
#include "workbook/revisions.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>

namespace est::workbook {

namespace {

constexpr int kFolderDepth = 4;

void addFolders(QTreeWidgetItem *parent, const QString &path, int depth)
{
    if (depth <= 0)
        return;
    const QStringList names = QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &name : names) {
        auto *item = new QTreeWidgetItem(parent, {name});
        item->setData(0, Qt::UserRole, QDir(path).filePath(name));
        addFolders(item, QDir(path).filePath(name), depth - 1);
    }
}

} // namespace

DlgOpen::DlgOpen(const QString &folder, Loader loader, Messages &messages, QWidget *parent)
    : ui::GuardedDialog(messages, parent), m_loader(std::move(loader)), m_root(folder)
{
    setObjectName(QStringLiteral("dlgOpen"));
    setEscapeCancels(true);
    setWindowTitle(QStringLiteral("見積ファイルを開く"));
    auto *layout = m_layout = new QVBoxLayout(this);
    auto *lists = new QHBoxLayout;
    m_dirs = new QTreeWidget(this);
    m_dirs->setObjectName(QStringLiteral("Dir1"));
    m_dirs->setHeaderHidden(true);
    m_files = new QListWidget(this);
    m_files->setObjectName(QStringLiteral("File1"));
    auto *dirBox = new QVBoxLayout;
    dirBox->addWidget(new QLabel(QStringLiteral("フォルダ"), this));
    dirBox->addWidget(m_dirs);
    auto *fileBox = new QVBoxLayout;
    fileBox->addWidget(new QLabel(QStringLiteral("見積ファイル"), this));
    fileBox->addWidget(m_files);
    m_revisions = new QComboBox(this);
    m_revisions->setObjectName(QStringLiteral("cboRevision"));
    fileBox->addWidget(m_revisions);
    m_kind = new QLabel(this);
    m_kind->setObjectName(QStringLiteral("lblKind"));
    fileBox->addWidget(m_kind);
    lists->addLayout(dirBox, 1);
    lists->addLayout(fileBox, 2);
    layout->addLayout(lists);

    auto *root = new QTreeWidgetItem(m_dirs, {QDir(folder).dirName()});
    root->setData(0, Qt::UserRole, folder);
    addFolders(root, folder, kFolderDepth);
    m_dirs->expandAll();
    m_dirs->setCurrentItem(root);
    showFolder(folder);

    auto *buttons = m_buttons = new QDialogButtonBox(this);
    QPushButton *ok = buttons->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("cmdOK"));
    QPushButton *cancel = buttons->addButton(QStringLiteral("キャンセル"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    layout->addWidget(buttons);

    connect(m_dirs, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
        if (item)
            showFolder(item->data(0, Qt::UserRole).toString());
    });
    connect(m_files, &QListWidget::currentItemChanged, this, &DlgOpen::showRevisions);
    connect(m_revisions, &QComboBox::currentIndexChanged, this, &DlgOpen::showKind);
    // Choosing a file (double-click or Enter) loads it like OK.
    connect(m_files, &QListWidget::itemActivated, this, &DlgOpen::load);
    connect(ok, &QPushButton::clicked, this, &DlgOpen::load);
    connect(cancel, &QPushButton::clicked, this, &DlgOpen::cancelByButton);
    resize(560, 360);
}

void DlgOpen::showFolder(const QString &path)
{
    m_shown = path;
    m_files->clear();
    // An estimate and its revisions are one entry, under the newest revision's name.
    for (const RevisionGroup &group : groupRevisions(estimateFileNames(path))) {
        const bool revised = parseRevisionName(group.files.first()).revision > 1;
        const QList<QStringList> entries = revised ? QList<QStringList>{group.files} : [&group] {
            QList<QStringList> each;
            for (const QString &name : group.files)
                each.append(QStringList{name});
            return each;
        }();
        for (const QStringList &files : entries) {
            auto *item = new QListWidgetItem(files.first(), m_files);
            item->setData(Qt::UserRole, files);
            item->setToolTip(fileKindText(files.first()));
        }
    }
    showRevisions();
}

void DlgOpen::showRevisions()
{
    const QListWidgetItem *item = m_files->currentItem();
    const QStringList files = item ? item->data(Qt::UserRole).toStringList() : QStringList();
    const QSignalBlocker quiet(m_revisions);
    m_revisions->clear();
    for (const QString &name : files) {
        const int revision = parseRevisionName(name).revision;
        m_revisions->addItem((revision > 1 ? revisionCaption(revision) : QStringLiteral("当初")) + QStringLiteral("　")
                                 + name,
                             name);
    }
    m_revisions->setEnabled(files.size() > 1);
    showKind();
}

QString DlgOpen::chosenName() const
{
    const QListWidgetItem *item = m_files->currentItem();
    if (!item || !item->isSelected())
        return QString();
    const QString revision = m_revisions->currentData().toString();
    return revision.isEmpty() ? item->text() : revision;
}

void DlgOpen::showKind()
{
    const QListWidgetItem *item = m_files->currentItem();
    const QString name = m_revisions->currentData().toString();
    m_kind->setText(item ? QStringLiteral("種類：") + fileKindText(name.isEmpty() ? item->text() : name) : QString());
}

void DlgOpen::addPanel(QWidget *panel)
{
    panel->setParent(this);
    m_layout->insertWidget(0, panel, 1);
    resize(std::max(width(), panel->sizeHint().width() + 24), height() + panel->sizeHint().height());
}

QPushButton *DlgOpen::addButton(const QString &objectName, const QString &caption)
{
    QPushButton *button = m_buttons->addButton(caption, QDialogButtonBox::ActionRole);
    button->setObjectName(objectName);
    return button;
}

QString DlgOpen::selectedPath() const
{
    const QString name = chosenName();
    return name.isEmpty() ? QString() : QDir(m_shown).filePath(name);
}

bool DlgOpen::selectFile(const QString &relativeName)
{
    const QFileInfo info(QDir(m_root).filePath(relativeName));
    const QString folder = QDir::cleanPath(info.path());
    for (QTreeWidgetItemIterator it(m_dirs); *it; ++it) {
        if (QDir::cleanPath((*it)->data(0, Qt::UserRole).toString()) != folder)
            continue;
        m_dirs->setCurrentItem(*it);
        showFolder((*it)->data(0, Qt::UserRole).toString());
        for (int i = 0; i < m_files->count(); ++i) {
            QListWidgetItem *file = m_files->item(i);
            const QStringList files = file->data(Qt::UserRole).toStringList();
            if (!files.contains(info.fileName()))
                continue;
            m_files->setCurrentItem(file);
            file->setSelected(true);
            m_revisions->setCurrentIndex(int(files.indexOf(info.fileName())));
            return true;
        }
        return false;
    }
    return false;
}

void DlgOpen::load()
{
    const QString name = chosenName();
    if (name.isEmpty()) {
        messages().inform(QStringLiteral("ファイルがありません。\n選択し直してください。"),
                          QStringLiteral("ファイルがありません"), MessageIcon::Exclamation);
        return;
    }
    if (isTemplateFileName(name)) {
        messages().inform(QStringLiteral(" このファイルは変更できません。\n変更すると、正しく印刷できない場合があります。"),
                          QStringLiteral("警告！"), MessageIcon::Critical);
        return;
    }
    // A file in a subfolder is read from there, not from a namesake in the estimates folder.
    const QString relative = QDir(m_root).relativeFilePath(QDir(m_shown).filePath(name));
    if (m_loader && m_loader(relative))
        accept();
}

} // namespace est::workbook
