#include "reports/dlg_uriage.h"

#include "common/number_format.h"
#include "reports/library_progress.h"
#include "reports/sales_job.h"
#include "reports/sales_workbook.h"
#include "workbook/estimate_files.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace est::reports {

namespace {

const QString kTitle = QStringLiteral("売上表");

} // namespace

DlgUriage::DlgUriage(EstimateLibrary &library, QString appFolder, QDate today, Messages &messages, QWidget *parent)
    : ui::GuardedDialog(messages, parent), m_library(library), m_appFolder(std::move(appFolder))
{
    setObjectName(QStringLiteral("dlgUriage"));
    setWindowTitle(QStringLiteral("年度売上表の作成"));
    auto *layout = new QVBoxLayout(this);
    auto *note = new QLabel(QStringLiteral("請求書・納品書を年度ごとに集計し、売上表（Excel形式）を作成します。\n"
                                           "見積書（概算見積書・お見積書・見積書）は売上げではないため含まれません。"),
                            this);
    note->setObjectName(QStringLiteral("lblNote"));
    layout->addWidget(note);

    auto *form = new QFormLayout;
    m_calendar = new QRadioButton(QStringLiteral("暦年（1月～12月）"), this);
    m_calendar->setObjectName(QStringLiteral("optReki"));
    m_fiscal = new QRadioButton(QStringLiteral("決算年度　開始月"), this);
    m_fiscal->setObjectName(QStringLiteral("optKessan"));
    m_month = new QComboBox(this);
    m_month->setObjectName(QStringLiteral("cboMonth"));
    for (int m = 1; m <= 12; ++m)
        m_month->addItem(QStringLiteral("%1月").arg(m));
    m_month->setCurrentIndex(3);
    m_month->setEnabled(false);
    m_calendar->setChecked(true);
    auto *kind = new QHBoxLayout;
    kind->addWidget(m_calendar);
    kind->addSpacing(16);
    kind->addWidget(m_fiscal);
    kind->addWidget(m_month);
    kind->addStretch();
    form->addRow(QStringLiteral("集計期間"), kind);
    m_year = new QSpinBox(this);
    m_year->setObjectName(QStringLiteral("txtNen"));
    m_year->setRange(2000, 2099);
    m_year->setValue(today.year());
    m_year->setSuffix(QStringLiteral(" 年度"));
    form->addRow(QStringLiteral("年度"), m_year);
    m_range = new QLabel(this);
    m_range->setObjectName(QStringLiteral("lblKikan"));
    form->addRow(QStringLiteral("期間"), m_range);
    m_file = new QLabel(this);
    m_file->setObjectName(QStringLiteral("lblFname"));
    form->addRow(QStringLiteral("ファイル名"), m_file);
    layout->addLayout(form);

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *ok = buttons->addButton(QStringLiteral("作成"), QDialogButtonBox::AcceptRole);
    ok->setObjectName(QStringLiteral("cmdOK"));
    QPushButton *cancel = buttons->addButton(QStringLiteral("キャンセル"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    layout->addWidget(buttons);

    connect(m_fiscal, &QRadioButton::toggled, m_month, &QComboBox::setEnabled);
    connect(m_fiscal, &QRadioButton::toggled, this, &DlgUriage::showPeriod);
    connect(m_month, &QComboBox::currentIndexChanged, this, &DlgUriage::showPeriod);
    connect(m_year, &QSpinBox::valueChanged, this, &DlgUriage::showPeriod);
    connect(ok, &QPushButton::clicked, this, &DlgUriage::make);
    connect(cancel, &QPushButton::clicked, this, &DlgUriage::cancelByButton);
    showPeriod();
}

SalesPeriod DlgUriage::period() const
{
    return {m_year->value(), m_fiscal->isChecked() ? m_month->currentIndex() + 1 : 1};
}

void DlgUriage::showPeriod()
{
    m_range->setText(period().rangeText());
    m_file->setText(QStringLiteral("Mitsumori/") + period().fileName());
}

void DlgUriage::make()
{
    const SalesPeriod chosen = period();
    // A report from a half-read library would be wrong: a cancelled update makes none.
    if (refreshWithProgress(m_library, workbook::estimatesFolder(m_appFolder), this).cancelled)
        return;
    const QString target = chosen.fileName();
    if (QFileInfo::exists(salesWorkbookPath(m_appFolder, chosen)) &&
        messages().askYesNo(QStringLiteral("ファイル名　") + target +
                                 QStringLiteral("は既に存在しています。\n既存のファイルを置き換えますか？"),
                             kTitle, MessageIcon::Question) != Answer::Yes)
        return;
    const SalesJobResult result = makeSalesWorkbook(m_library, m_appFolder, chosen);
    if (!result.error.isEmpty()) {
        messages().inform(QStringLiteral("ファイル名　") + target + QStringLiteral("を作成できませんでした。\n") +
                              result.error,
                          kTitle, MessageIcon::Critical);
        return;
    }
    const SalesSums &year = result.report.year;
    QString text = QStringLiteral("ファイル名　%1を作成しました。\n請求書・納品書 %2 件　合計 %3 円")
                       .arg(target)
                       .arg(year.count)
                       .arg(formatThousands(year.total));
    // A workbook that cannot be read may be a sale: the user is told what the report lacks.
    const QStringList unreadable = m_library.unreadable();
    if (!unreadable.isEmpty())
        text += QStringLiteral("\n\n読み取れないファイルが %1 件あり、売上表に含まれていません。\n")
                    .arg(unreadable.size()) +
                unreadable.mid(0, 5).join(QStringLiteral("\n")) +
                (unreadable.size() > 5 ? QStringLiteral("\nほか") : QString());
    messages().inform(text, kTitle, unreadable.isEmpty() ? MessageIcon::Information : MessageIcon::Exclamation);
    accept();
}

} // namespace est::reports
