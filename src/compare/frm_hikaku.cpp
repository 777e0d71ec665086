#include "compare/frm_hikaku.h"

#include "print/print_actions.h"
#include "print/shop_info.h"
#include "workbook/estimate_files.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace est::compare {

namespace {

const QString kTitle = QStringLiteral("比較");

template <typename W>
W *named(W *widget, const char *name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QTableWidget *table(QWidget *parent, const char *name)
{
    auto *t = named(new QTableWidget(parent), name);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionBehavior(QAbstractItemView::SelectRows);
    t->verticalHeader()->setVisible(false);
    return t;
}

void fill(QTableWidget *t, const print::DetailTable &content)
{
    t->clear();
    t->setColumnCount(int(content.headers.size()));
    t->setHorizontalHeaderLabels(content.headers);
    t->setRowCount(int(content.rows.size()));
    for (int r = 0; r < content.rows.size(); ++r) {
        for (int c = 0; c < content.headers.size(); ++c) {
            auto *item = new QTableWidgetItem(content.rows.at(r).value(c));
            if (content.firstNumberColumn >= 0 && c >= content.firstNumberColumn)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            t->setItem(r, c, item);
        }
    }
    t->resizeColumnsToContents();
}

} // namespace

WorkbookChooser dialogWorkbookChooser()
{
    return [](QWidget *parent, const QString &folder) {
        QFileDialog dialog(parent, QStringLiteral("比較する見積ブック"), folder,
                           QStringLiteral("見積ブック (*.xlsx *.xls)"));
        dialog.setFileMode(QFileDialog::ExistingFile);
        dialog.setLabelText(QFileDialog::Accept, QStringLiteral("選択"));
        dialog.setLabelText(QFileDialog::Reject, QStringLiteral("キャンセル"));
        return dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty() ? dialog.selectedFiles().first()
                                                                                       : QString();
    };
}

FrmHikaku::FrmHikaku(Messages &messages, QString appFolder, WorkbookChooser chooser, ui::WaitDialog *wait,
                     QWidget *parent)
    : QDialog(parent), m_messages(messages), m_appFolder(std::move(appFolder)), m_chooser(std::move(chooser)),
      m_wait(wait)
{
    setObjectName(QStringLiteral("frmHikaku"));
    setWindowTitle(QStringLiteral("修正内容の比較"));
    auto *layout = new QVBoxLayout(this);

    auto *files = new QGridLayout;
    m_old = named(new QLineEdit(this), "txtOld");
    m_new = named(new QLineEdit(this), "txtNew");
    const std::tuple<QLineEdit *, const char *, const char *> sides[] = {
        {m_old, "cmdOld", "修正前"},
        {m_new, "cmdNew", "修正後"},
    };
    int row = 0;
    for (const auto &[edit, name, caption] : sides) {
        edit->setReadOnly(true);
        files->addWidget(new QLabel(QString::fromUtf8(caption), this), row, 0);
        files->addWidget(edit, row, 1);
        auto *browse = named(new QPushButton(QStringLiteral("参照..."), this), name);
        files->addWidget(browse, row, 2);
        QLineEdit *target = edit;
        // A comparison shown belongs to the workbooks it was made of.
        connect(edit, &QLineEdit::textChanged, this, [this] { m_report.reset(); });
        connect(browse, &QPushButton::clicked, this, [this, target] { choose(target); });
        ++row;
    }
    auto *compare = named(new QPushButton(kTitle, this), "cmdCompare");
    files->addWidget(compare, 0, 3, 2, 1);
    layout->addLayout(files);

    m_sides = named(new QLabel(this), "lblSides");
    layout->addWidget(m_sides);
    m_work = table(this, "HFlgWork");
    m_paint = table(this, "HFlgPaint");
    m_totals = table(this, "HFlgTotals");
    const std::pair<QTableWidget *, const char *> tables[] = {
        {m_work, "作業明細の変更"}, {m_paint, "塗装明細の変更"}, {m_totals, "合計の比較"}};
    for (const auto &[t, caption] : tables) {
        layout->addWidget(new QLabel(QString::fromUtf8(caption), this));
        layout->addWidget(t, t == m_totals ? 2 : 3);
    }

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    const std::tuple<const char *, const char *, Output> outputs[] = {
        {"cmdPrint", "印刷", Output::Print}, {"cmdPreview", "プレビュー", Output::Preview}, {"cmdPdf", "PDF保存", Output::Pdf}};
    for (const auto &[name, caption, how] : outputs) {
        auto *button = named(new QPushButton(QString::fromUtf8(caption), this), name);
        const Output which = how;
        connect(button, &QPushButton::clicked, this, [this, which] { output(which); });
        buttons->addWidget(button);
    }
    auto *close = named(new QPushButton(QStringLiteral("閉じる"), this), "cmdClose");
    buttons->addWidget(close);
    layout->addLayout(buttons);

    connect(compare, &QPushButton::clicked, this, &FrmHikaku::compareNow);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    resize(1100, 760);
}

void FrmHikaku::setWorkbooks(const QString &before, const QString &after)
{
    m_old->setText(before);
    m_new->setText(after);
}

void FrmHikaku::choose(QLineEdit *edit)
{
    const QString current = edit->text().isEmpty() ? (m_new->text().isEmpty() ? m_old->text() : m_new->text())
                                                    : edit->text();
    const QString folder = current.isEmpty() ? workbook::estimatesFolder(m_appFolder) : QFileInfo(current).path();
    const QString chosen = m_chooser ? m_chooser(this, folder) : QString();
    if (!chosen.isEmpty())
        edit->setText(chosen);
}

bool FrmHikaku::compareNow()
{
    if (m_old->text().isEmpty() || m_new->text().isEmpty()) {
        m_messages.inform(QStringLiteral("比較する2つの見積ブックを選んでください。"), kTitle, MessageIcon::Exclamation);
        return false;
    }
    QString error;
    auto report = loadComparison(m_old->text(), m_new->text(), print::readShopInfo(m_appFolder), &error);
    if (!report) {
        m_messages.inform(error, kTitle, MessageIcon::Critical);
        return false;
    }
    m_report = std::move(report);
    showReport();
    return true;
}

void FrmHikaku::showReport()
{
    const ComparisonReport &r = *m_report;
    m_sides->setText(sideLine(QStringLiteral("修正前"), r.before, r.beforeName) + QLatin1Char('\n')
                     + sideLine(QStringLiteral("修正後"), r.after, r.afterName));
    const QList<print::DetailTable> tables = comparisonTables(r.comparison);
    fill(m_work, tables.at(0));
    fill(m_paint, tables.at(1));
    fill(m_totals, tables.at(2));
}

QString FrmHikaku::pdfPath() const
{
    if (!m_report)
        return QString();
    const QFileInfo after(m_new->text());
    return after.dir().filePath(after.completeBaseName() + QStringLiteral("_") + kComparisonTitle
                                + QStringLiteral(".pdf"));
}

void FrmHikaku::output(Output how)
{
    if (!m_report && !compareNow())
        return;
    print::PrintActions actions(m_messages, m_wait, this);
    const print::Render render = comparisonRender(*m_report);
    const QString name = kComparisonTitle + QStringLiteral(" ") + m_report->after.slipNumber;
    switch (how) {
    case Output::Print:
        actions.print(name, render);
        break;
    case Output::Preview:
        actions.preview(render);
        break;
    case Output::Pdf:
        actions.savePdf(name, render, pdfPath());
        break;
    }
}

} // namespace est::compare
