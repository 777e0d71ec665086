#include "reports/frm_exp.h"

#include "reports/backup_archive.h"
#include "reports/customer_export.h"
#include "reports/legacy_conversion.h"
#include "workbook/estimate_files.h"

#include <QApplication>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace est::reports {

namespace {

const QString kTitle = QStringLiteral("データ出力");

QPushButton *button(const char *name, const QString &caption, QWidget *parent)
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(QLatin1String(name));
    b->setMinimumHeight(32);
    return b;
}

} // namespace

FrmExp::FrmExp(QString appFolder, const Clock &clock, FileChooser chooser, Messages &messages, QWidget *parent)
    : ui::GuardedDialog(messages, parent), m_appFolder(std::move(appFolder)), m_clock(clock),
      m_chooser(std::move(chooser))
{
    setObjectName(QStringLiteral("frmExp"));
    setWindowTitle(kTitle);
    auto *layout = new QVBoxLayout(this);

    auto *csv = new QGroupBox(QStringLiteral("顧客・車両データの出力（CSV）"), this);
    auto *csvLayout = new QVBoxLayout(csv);
    m_utf8 = new QRadioButton(QStringLiteral("UTF-8（BOM付き・新しい表計算ソフト用）"), csv);
    m_utf8->setObjectName(QStringLiteral("optUtf8"));
    m_utf8->setChecked(true);
    m_shiftJis = new QRadioButton(QStringLiteral("Shift_JIS（古い表計算ソフト用）"), csv);
    m_shiftJis->setObjectName(QStringLiteral("optSjis"));
    csvLayout->addWidget(m_utf8);
    csvLayout->addWidget(m_shiftJis);
    QPushButton *exportButton = button("cmdCsv", QStringLiteral("CSVファイルに出力…"), csv);
    csvLayout->addWidget(exportButton);
    layout->addWidget(csv);

    auto *backupBox = new QGroupBox(QStringLiteral("バックアップ"), this);
    auto *backupLayout = new QVBoxLayout(backupBox);
    backupLayout->addWidget(new QLabel(QStringLiteral("データベースと見積ファイルを、日付の付いた1つのzipファイルにまとめます。\n"
                                                      "復元は、ファイルをすべて確かめてから置き換えます。"),
                                       backupBox));
    QPushButton *backupButton = button("cmdBackup", QStringLiteral("バックアップを作成…"), backupBox);
    QPushButton *restoreButton = button("cmdRestore", QStringLiteral("バックアップから復元…"), backupBox);
    backupLayout->addWidget(backupButton);
    backupLayout->addWidget(restoreButton);
    layout->addWidget(backupBox);

    auto *priceBox = new QGroupBox(QStringLiteral("部品価格"), this);
    auto *priceLayout = new QVBoxLayout(priceBox);
    QPushButton *priceButton = button("cmdPrice", QStringLiteral("CSVから部品価格を取り込む…"), priceBox);
    priceButton->setEnabled(false);
    priceLayout->addWidget(priceButton);
    layout->addWidget(priceBox);

    auto *legacyBox = new QGroupBox(QStringLiteral("旧形式の見積書（.xls）"), this);
    auto *legacyLayout = new QVBoxLayout(legacyBox);
    legacyLayout->addWidget(new QLabel(QStringLiteral("選んだフォルダの下にある .xls の見積書をすべて .xlsx にします。\n"
                                                      "変換済みのものは飛ばします。元のファイルは消しません。"),
                                       legacyBox));
    m_beside = new QRadioButton(QStringLiteral("元のファイルと同じフォルダに作る"), legacyBox);
    m_beside->setObjectName(QStringLiteral("optBeside"));
    m_beside->setChecked(true);
    auto *intoEstimates = new QRadioButton(QStringLiteral("Mitsumori フォルダに作る"), legacyBox);
    intoEstimates->setObjectName(QStringLiteral("optMitsumori"));
    legacyLayout->addWidget(m_beside);
    legacyLayout->addWidget(intoEstimates);
    QPushButton *convertButton = button("cmdConvert", QStringLiteral("旧形式の一括変換…"), legacyBox);
    legacyLayout->addWidget(convertButton);
    layout->addWidget(legacyBox);

    QPushButton *exit = button("cmdExit", QStringLiteral("閉じる"), this);
    layout->addWidget(exit);

    connect(exportButton, &QPushButton::clicked, this, &FrmExp::exportCustomers);
    connect(backupButton, &QPushButton::clicked, this, &FrmExp::backup);
    connect(restoreButton, &QPushButton::clicked, this, &FrmExp::restore);
    connect(convertButton, &QPushButton::clicked, this, &FrmExp::convertLegacy);
    connect(priceButton, &QPushButton::clicked, this, [this] {
        if (m_priceImport)
            m_priceImport(this);
    });
    connect(exit, &QPushButton::clicked, this, &FrmExp::cancelByButton);
}

void FrmExp::setPriceImport(std::function<void(QWidget *)> open)
{
    m_priceImport = std::move(open);
    findChild<QPushButton *>(QStringLiteral("cmdPrice"))->setEnabled(bool(m_priceImport));
}

void FrmExp::exportCustomers()
{
    const QString path = m_chooser(this, FileQuestion::SaveCustomerCsv,
                                   QDir::home().filePath(customerExportFileName(m_clock.today())));
    if (path.isEmpty())
        return;
    const auto encoding = m_shiftJis->isChecked() ? mastertable::CsvEncoding::ShiftJis : mastertable::CsvEncoding::Utf8;
    const CustomerExport result = reports::exportCustomers(m_appFolder, path, encoding);
    if (!result.error.isEmpty()) {
        messages().inform(QStringLiteral("顧客データを出力できませんでした。\n") + result.error, kTitle,
                          MessageIcon::Critical);
        return;
    }
    QString text = QStringLiteral("顧客・車両データを %1 行出力しました。\n%2").arg(result.lines).arg(path);
    if (result.unmappable > 0)
        text += QStringLiteral("\nShift_JIS で表せない文字 %1 字は「?」になっています。").arg(result.unmappable);
    messages().inform(text, kTitle, MessageIcon::Information);
}

void FrmExp::backup()
{
    const QString path =
        m_chooser(this, FileQuestion::SaveBackup, QDir::home().filePath(backupFileName(m_clock.today())));
    if (path.isEmpty())
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const BackupResult result = writeBackup(m_appFolder, path);
    QApplication::restoreOverrideCursor();
    if (!result.error.isEmpty()) {
        messages().inform(QStringLiteral("バックアップを作成できませんでした。\n") + result.error, kTitle,
                          MessageIcon::Critical);
        return;
    }
    messages().inform(QStringLiteral("バックアップを作成しました（%1 ファイル）。\n%2").arg(result.files).arg(path),
                      kTitle, MessageIcon::Information);
}

void FrmExp::restore()
{
    const QString path = m_chooser(this, FileQuestion::OpenBackup, QDir::homePath());
    if (path.isEmpty())
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const BackupCheck check = checkBackup(path);
    QApplication::restoreOverrideCursor();
    if (!check.error.isEmpty()) {
        messages().inform(QStringLiteral("このバックアップからは復元できません。何も変更していません。\n") + check.error,
                          kTitle, MessageIcon::Critical);
        return;
    }
    if (messages().askYesNo(QStringLiteral("バックアップの %1 ファイルで、今のデータを置き換えます。\n"
                                           "よろしいですか？")
                                .arg(check.files.size()),
                            kTitle, MessageIcon::Exclamation) != Answer::Yes)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const QString error = restoreBackup(m_appFolder, path);
    QApplication::restoreOverrideCursor();
    if (!error.isEmpty()) {
        messages().inform(QStringLiteral("復元できませんでした。\n") + error, kTitle, MessageIcon::Critical);
        return;
    }
    messages().inform(QStringLiteral("復元しました。\nプログラムを終了して、もう一度起動してください。"), kTitle,
                      MessageIcon::Information);
}

namespace {

QString conversionReport(const ConversionOutcome &outcome)
{
    constexpr int kListed = 20;
    QString text = outcome.cancelled ? QStringLiteral("中止しました。\n") : QString();
    text += QStringLiteral("%1 件を .xlsx に変換しました。").arg(outcome.converted);
    if (outcome.skipped > 0)
        text += QStringLiteral("\n変換済みの %1 件は飛ばしました。").arg(outcome.skipped);
    if (!outcome.failures.isEmpty()) {
        text += QStringLiteral("\n\n読み取れなかったファイル（%1 件）：").arg(outcome.failures.size());
        for (qsizetype i = 0; i < std::min<qsizetype>(outcome.failures.size(), kListed); ++i)
            text += QStringLiteral("\n%1：%2").arg(outcome.failures.at(i).file, outcome.failures.at(i).reason);
        if (outcome.failures.size() > kListed)
            text += QStringLiteral("\nほか %1 件").arg(outcome.failures.size() - kListed);
    }
    return text;
}

} // namespace

void FrmExp::convertLegacy()
{
    const QString title = QStringLiteral("旧形式の一括変換");
    const QString folder = m_chooser(this, FileQuestion::LegacyFolder, workbook::estimatesFolder(m_appFolder));
    if (folder.isEmpty())
        return;
    const QStringList files = legacyEstimatesBelow(folder);
    if (files.isEmpty()) {
        messages().inform(QStringLiteral("このフォルダには .xls の見積書がありません。\n") + folder, title,
                          MessageIcon::Information);
        return;
    }
    QProgressDialog progress(QStringLiteral("旧形式の見積書を .xlsx に変換しています…"), QStringLiteral("中止"), 0,
                             int(files.size()), this);
    progress.setObjectName(QStringLiteral("dlgConvertProgress"));
    progress.setWindowTitle(title);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(0);
    progress.setValue(0);
    const ConversionPlace place = m_beside->isChecked() ? ConversionPlace::Beside : ConversionPlace::EstimatesFolder;
    const ConversionOutcome outcome =
        convertLegacyEstimates(folder, files, place, m_appFolder, [&progress](int done, int) {
            progress.setValue(done);
            QApplication::processEvents();
            return !progress.wasCanceled();
        });
    progress.close();
    messages().inform(conversionReport(outcome), title,
                      outcome.failures.isEmpty() ? MessageIcon::Information : MessageIcon::Exclamation);
}

} // namespace est::reports
