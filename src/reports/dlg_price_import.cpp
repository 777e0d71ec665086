#include "reports/dlg_price_import.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace est::reports {

namespace {

const QString kTitle = QStringLiteral("部品価格の取り込み");

QStringList tableNames(const QList<workitems::VehicleType> &types)
{
    QStringList names;
    for (const workitems::VehicleType &t : types)
        names << t.tableName;
    return names;
}

} // namespace

DlgPriceImport::DlgPriceImport(const QString &appFolder, const QList<workitems::Maker> &makers,
                               const QList<workitems::VehicleType> &types, FileChooser chooser, Messages &messages,
                               QWidget *parent)
    : ui::GuardedDialog(messages, parent), m_import(appFolder, tableNames(types)), m_makers(makers),
      m_chooser(std::move(chooser))
{
    setObjectName(QStringLiteral("dlgPriceImport"));
    setWindowTitle(kTitle);
    auto *layout = new QVBoxLayout(this);
    auto *note = new QLabel(QStringLiteral("メーカーの価格表（CSV：品番, 価格）を部品データの部品番号と照合し、"
                                           "部品価格を更新します。\n文字コードは UTF-8 と Shift_JIS のどちらでも読めます。"),
                            this);
    layout->addWidget(note);
    auto *form = new QFormLayout;
    m_maker = new QComboBox(this);
    m_maker->setObjectName(QStringLiteral("cboMeka"));
    for (const workitems::Maker &m : makers)
        m_maker->addItem(m.name);
    form->addRow(QStringLiteral("メーカー"), m_maker);
    auto *fileRow = new QHBoxLayout;
    m_file = new QLabel(QStringLiteral("（未選択）"), this);
    m_file->setObjectName(QStringLiteral("lblFile"));
    auto *choose = new QPushButton(QStringLiteral("ファイルを選ぶ…"), this);
    choose->setObjectName(QStringLiteral("cmdFile"));
    fileRow->addWidget(m_file, 1);
    fileRow->addWidget(choose);
    form->addRow(QStringLiteral("価格表"), fileRow);
    layout->addLayout(form);
    m_preview = new QPlainTextEdit(this);
    m_preview->setObjectName(QStringLiteral("txtPreview"));
    m_preview->setReadOnly(true);
    m_preview->setMinimumSize(560, 220);
    layout->addWidget(m_preview, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    m_apply = new QPushButton(QStringLiteral("取り込む"), this);
    m_apply->setObjectName(QStringLiteral("cmdOK"));
    m_apply->setEnabled(false);
    auto *close = new QPushButton(QStringLiteral("閉じる"), this);
    close->setObjectName(QStringLiteral("cmdCancel"));
    buttons->addWidget(m_apply);
    buttons->addWidget(close);
    layout->addLayout(buttons);

    connect(choose, &QPushButton::clicked, this, &DlgPriceImport::chooseFile);
    connect(m_apply, &QPushButton::clicked, this, &DlgPriceImport::applyPrices);
    connect(close, &QPushButton::clicked, this, &DlgPriceImport::cancelByButton);
    // Another maker: the same file is matched against that maker's catalogue.
    connect(m_maker, &QComboBox::currentIndexChanged, this, [this] {
        if (!m_path.isEmpty())
            loadFile(m_path);
    });
}

void DlgPriceImport::chooseFile()
{
    const QString path = m_chooser ? m_chooser(this, FileQuestion::OpenPriceCsv, m_path.isEmpty() ? QDir::homePath() : m_path)
                                   : QString();
    if (!path.isEmpty())
        loadFile(path);
}

void DlgPriceImport::loadFile(const QString &path)
{
    m_path = path;
    m_file->setText(QFileInfo(path).fileName());
    const int maker = m_maker->currentIndex();
    QFile file(path);
    if (maker < 0 || maker >= m_makers.size()) {
        m_preview->setPlainText(QStringLiteral("メーカーを選んでください。"));
        m_apply->setEnabled(false);
        return;
    }
    if (file.size() > kMaxPriceCsvBytes || !file.open(QIODevice::ReadOnly)) {
        m_preview->setPlainText(QStringLiteral("このファイルは取り込めません。\nファイルを読み取れないか、大きすぎます。"));
        m_apply->setEnabled(false);
        return;
    }
    m_import.load(m_makers.at(maker).dbName, file.readAll());
    m_preview->setPlainText(m_import.report());
    m_apply->setEnabled(m_import.canApply());
}

void DlgPriceImport::applyPrices()
{
    if (!m_import.canApply())
        return;
    const PricePreview &p = m_import.preview();
    if (messages().askYesNo(QStringLiteral("%1 の部品価格を %2 件（部品 %3 点）更新します。\nよろしいですか？")
                                .arg(m_maker->currentText())
                                .arg(p.changed)
                                .arg(p.partsChanged),
                            kTitle, MessageIcon::Question) != Answer::Yes)
        return;
    const int changed = p.partsChanged;
    if (const QString error = m_import.apply(); !error.isEmpty()) {
        messages().inform(QStringLiteral("部品価格を更新できませんでした。部品データは元のままです。\n") + error, kTitle,
                          MessageIcon::Critical);
        return;
    }
    messages().inform(QStringLiteral("部品価格を %1 点更新しました。").arg(changed), kTitle, MessageIcon::Information);
    m_preview->setPlainText(m_import.report());
    m_apply->setEnabled(m_import.canApply());
}

} // namespace est::reports
