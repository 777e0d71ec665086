#include "print/dlg_print.h"

#include "uikit/named.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QVBoxLayout>

namespace est::print {

using ui::named;

namespace {
const QString kGroup = QStringLiteral("Print");
const QString kLayoutKey = QStringLiteral("Layout");
} // namespace

Layout rememberedLayout()
{
    QSettings settings(QStringLiteral("EstimateApp"), QStringLiteral("EstimateApp"));
    Layout layout = Layout::A;
    parseLayout(settings.value(kGroup + QLatin1Char('/') + kLayoutKey).toString(), &layout);
    return layout;
}

void rememberLayout(Layout layout)
{
    QSettings settings(QStringLiteral("EstimateApp"), QStringLiteral("EstimateApp"));
    settings.setValue(kGroup + QLatin1Char('/') + kLayoutKey, layoutName(layout));
}

QString DlgPrint::sheetCountText(bool shopCopy, bool paintSheet)
{
    const int n = (1 + (paintSheet ? 1 : 0)) * (shopCopy ? 2 : 1);
    return QStringLiteral("印刷枚数は") + QString::number(n) + QStringLiteral("枚です。");
}

DlgPrint::DlgPrint(Messages &messages, QWidget *parent) : ui::GuardedDialog(messages, parent)
{
    setObjectName(QStringLiteral("dlgPrint"));
    setWindowTitle(QStringLiteral("印刷"));
    auto *layout = new QVBoxLayout(this);

    auto *what = new QGroupBox(QStringLiteral("印刷する帳票"), this);
    auto *whatLayout = new QVBoxLayout(what);
    m_hikae = named(new QCheckBox(QStringLiteral("控えも印刷する"), what), "chkHikae");
    m_paint = named(new QCheckBox(QStringLiteral("塗装明細を印刷する"), what), "chkPaint");
    m_psisu = named(new QCheckBox(QStringLiteral("指数明細を印刷する"), what), "chkPSisu");
    whatLayout->addWidget(m_hikae);
    whatLayout->addWidget(m_paint);
    whatLayout->addWidget(m_psisu);
    auto *photoRow = new QHBoxLayout;
    m_photo = named(new QCheckBox(QStringLiteral("写真"), what), "chkPhoto");
    m_photo4 = named(new QRadioButton(QStringLiteral("4枚ずつ（説明付き）"), what), "optPhoto4");
    m_photo1 = named(new QRadioButton(QStringLiteral("1枚ずつ大きく"), what), "optPhoto1");
    auto *photoGroup = new QButtonGroup(what);
    photoGroup->addButton(m_photo4);
    photoGroup->addButton(m_photo1);
    m_photo4->setChecked(true);
    for (QWidget *w : std::initializer_list<QWidget *>{m_photo, m_photo4, m_photo1})
        photoRow->addWidget(w);
    photoRow->addStretch();
    whatLayout->addLayout(photoRow);
    layout->addWidget(what);

    auto *form = new QGroupBox(QStringLiteral("レイアウト"), this);
    auto *formLayout = new QHBoxLayout(form);
    m_layoutA = named(new QRadioButton(QStringLiteral("Ａ（標準）"), form), "optLayoutA");
    m_layoutB = named(new QRadioButton(QStringLiteral("Ｂ（合計を先頭に）"), form), "optLayoutB");
    auto *group = new QButtonGroup(form);
    group->addButton(m_layoutA);
    group->addButton(m_layoutB);
    formLayout->addWidget(m_layoutA);
    formLayout->addWidget(m_layoutB);
    layout->addWidget(form);
    (rememberedLayout() == Layout::B ? m_layoutB : m_layoutA)->setChecked(true);

    m_count = named(new QLabel(this), "lbl2");
    layout->addWidget(m_count);

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *ok = named(buttons->addButton(QStringLiteral("印刷"), QDialogButtonBox::AcceptRole), "OKButton");
    ok->setDefault(true);
    QPushButton *preview = named(buttons->addButton(QStringLiteral("プレビュー"), QDialogButtonBox::ActionRole),
                                 "cmdPreview");
    QPushButton *pdf = named(buttons->addButton(QStringLiteral("PDF保存"), QDialogButtonBox::ActionRole), "cmdPdf");
    m_eInvoice = named(buttons->addButton(QStringLiteral("電子インボイス保存"), QDialogButtonBox::ActionRole),
                       "cmdEInvoice");
    m_eInvoice->setEnabled(false);
    QPushButton *cancel = named(buttons->addButton(QStringLiteral("キャンセル"), QDialogButtonBox::RejectRole),
                                "CancelButton");
    layout->addWidget(buttons);

    connect(ok, &QPushButton::clicked, this, [this] { finish(Action::Print); });
    connect(preview, &QPushButton::clicked, this, [this] { finish(Action::Preview); });
    connect(pdf, &QPushButton::clicked, this, [this] { finish(Action::Pdf); });
    connect(m_eInvoice, &QPushButton::clicked, this, [this] { finish(Action::EInvoice); });
    connect(cancel, &QPushButton::clicked, this, &DlgPrint::cancelByButton);

    // Opens with both boxes ticked and the count for them.
    m_hikae->setChecked(true);
    m_paint->setChecked(true);
    m_count->setText(QStringLiteral("印刷枚数は4枚です。"));
    connect(m_hikae, &QCheckBox::toggled, this, &DlgPrint::updateCount);
    connect(m_paint, &QCheckBox::toggled, this, &DlgPrint::updateCount);
    // The photo pages' form counts only when they are printed.
    auto photoForm = [this](bool on) {
        m_photo4->setEnabled(on);
        m_photo1->setEnabled(on);
    };
    photoForm(false);
    connect(m_photo, &QCheckBox::toggled, this, photoForm);
}

void DlgPrint::setInvoiceKind(bool invoice)
{
    m_eInvoice->setEnabled(invoice);
}

PrintOptions DlgPrint::options() const
{
    const PhotoPages photos = !m_photo->isChecked() ? PhotoPages::None
                              : m_photo1->isChecked() ? PhotoPages::One
                                                      : PhotoPages::Four;
    return PrintOptions{m_layoutB->isChecked() ? Layout::B : Layout::A, m_hikae->isChecked(), m_paint->isChecked(),
                        m_psisu->isChecked(), photos};
}

void DlgPrint::updateCount()
{
    m_count->setText(sheetCountText(m_hikae->isChecked(), m_paint->isChecked()));
}

void DlgPrint::finish(Action action)
{
    m_action = action;
    rememberLayout(options().layout);
    accept();
}

} // namespace est::print
