#include "indices/frm_bankin.h"

#include "indices/count_box.h"
#include "indices/index_value.h"
#include "uikit/named.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace est::indices {

using ui::named;

FrmBankin::FrmBankin(QSqlDatabase partDb, Messages &messages, QWidget *parent)
    : GuardedDialog(messages, parent), m_table(std::move(partDb))
{
    setObjectName(QStringLiteral("frmBankin"));
    setWindowTitle(QStringLiteral("鈑金指数"));
    setModal(true);

    m_height = named(new QLineEdit(this), "txtTate");
    m_width = named(new QLineEdit(this), "txtYoko");
    m_area = named(new QLabel(this), "lbldm");
    m_qualifier = named(new QLabel(this), "lblIka");
    for (QLineEdit *box : {m_height, m_width}) {
        box->setAlignment(Qt::AlignRight);
        box->setFixedWidth(80);
        makeCountBox(box, messages, [this](const QString &) { sizeChanged(); });
    }
    m_area->setMinimumWidth(40);
    m_area->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_area->setFrameShape(QFrame::Panel);
    m_area->setFrameShadow(QFrame::Sunken);

    auto *layout = new QVBoxLayout(this);
    auto *size = new QHBoxLayout;
    size->addWidget(new QLabel(QStringLiteral("縦"), this));
    size->addWidget(m_height);
    size->addWidget(new QLabel(QStringLiteral("cm　×　横"), this));
    size->addWidget(m_width);
    size->addWidget(new QLabel(QStringLiteral("cm"), this));
    size->addStretch(1);
    layout->addLayout(size);
    auto *area = new QHBoxLayout;
    area->addWidget(new QLabel(QStringLiteral("損傷面積"), this));
    area->addWidget(m_area);
    area->addWidget(new QLabel(QStringLiteral("d㎡"), this));
    area->addWidget(m_qualifier);
    area->addStretch(1);
    layout->addLayout(area);

    auto *grid = new QGridLayout;
    const char *labelNames[] = {"lblA", "lblB", "lblC"};
    const char *buttonNames[] = {"cmdA", "cmdB", "cmdC"};
    const QString captions[] = {QStringLiteral("A（軽度）"), QStringLiteral("B（中度）"), QStringLiteral("C（重度）")};
    grid->addWidget(new QLabel(QStringLiteral("程度"), this), 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("指数"), this), 0, 1);
    for (int g = 0; g < 3; ++g) {
        m_indices[size_t(g)] = named(new QLabel(this), labelNames[g]);
        m_indices[size_t(g)]->setMinimumWidth(70);
        m_indices[size_t(g)]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_indices[size_t(g)]->setFrameShape(QFrame::Panel);
        m_indices[size_t(g)]->setFrameShadow(QFrame::Sunken);
        m_grades[size_t(g)] = named(new QPushButton(captions[g], this), buttonNames[g]);
        m_grades[size_t(g)]->setEnabled(false);
        m_grades[size_t(g)]->setAutoDefault(false);
        grid->addWidget(m_grades[size_t(g)], g + 1, 0);
        grid->addWidget(m_indices[size_t(g)], g + 1, 1);
        connect(m_grades[size_t(g)], &QPushButton::clicked, this, [this, g] { choose(Grade(g)); });
    }
    layout->addLayout(grid);

    auto *buttons = new QHBoxLayout;
    auto *cancel = named(new QPushButton(QStringLiteral("キャンセル"), this), "cmdCancel");
    cancel->setAutoDefault(false);
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);
    connect(cancel, &QPushButton::clicked, this, &FrmBankin::cancelByButton);
}

void FrmBankin::sizeChanged()
{
    const auto height = sizeFromText(m_height->text());
    const auto width = sizeFromText(m_width->text());
    if (!height || !width)
        return;
    const auto shown = areaClassFor(*height, *width);
    if (!shown) {
        // The product does not fit: the display stays as it was, but its indices are no
        // longer those of the size typed, so none of them may go to the work item editor.
        enableGrades({});
        return;
    }
    m_area->setText(QString::number(shown->areaClass));
    m_qualifier->setText(shown->qualifier);
    m_shown = shown;
    const auto grades = m_table.grades(shown->areaClass);
    if (!grades) {
        // An area class with no row leaves the indices as they were, not to be chosen.
        enableGrades({});
        return;
    }
    for (int g = 0; g < 3; ++g)
        m_indices[size_t(g)]->setText(shownIndex((*grades)[size_t(g)]));
    enableGrades(*grades);
}

void FrmBankin::enableGrades(const std::array<QString, 3> &indices)
{
    for (int g = 0; g < 3; ++g)
        m_grades[size_t(g)]->setEnabled(!indices[size_t(g)].isEmpty());
}

void FrmBankin::choose(Grade grade)
{
    const QString index = m_indices[size_t(grade)]->text();
    if (!m_shown || index.isEmpty())
        return;
    m_choice = workitems::IndexHandOver{gradeRemark(grade, m_shown->areaClass), index};
    accept();
}

} // namespace est::indices
