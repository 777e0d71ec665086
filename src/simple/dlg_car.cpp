#include "simple/dlg_car.h"

#include "simple/dialog_buttons.h"
#include "uikit/named.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

namespace est::simple {

using ui::named;

namespace {

// Shows the names, each item carrying its number. A failed query leaves the list as it was.
void fill(QListWidget *list, const std::optional<QList<Choice>> &choices)
{
    if (!choices)
        return;
    const QSignalBlocker quiet(list);
    list->clear();
    for (const Choice &choice : *choices) {
        auto *item = new QListWidgetItem(choice.name, list);
        item->setData(Qt::UserRole, int(choice.no));
    }
}

// The number of the item the user selected, 0 when none.
std::int16_t chosenNumber(const QListWidget *list)
{
    const QList<QListWidgetItem *> selected = list->selectedItems();
    return selected.isEmpty() ? 0 : static_cast<std::int16_t>(selected.first()->data(Qt::UserRole).toInt());
}

// Selects the item of that number, if the list offers it.
void choose(QListWidget *list, int no)
{
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->data(Qt::UserRole).toInt() == no) {
            list->setCurrentRow(i);
            return;
        }
}

} // namespace

DlgCar::DlgCar(Messages &messages, EasyEstimateStore &store, const SimpleEstimateState &state, QWidget *parent)
    : GuardedDialog(messages, parent), m_store(store), m_state(state)
{
    setObjectName(QStringLiteral("dlgCar"));
    setWindowTitle(QStringLiteral("簡易見積 － 車両区分と色の選択"));
    auto *layout = new QGridLayout(this);
    m_dlstSKA = named(new QListWidget(this), "dlstSKA");
    m_dlstSKB = named(new QListWidget(this), "dlstSKB");
    m_dlstColor = named(new QListWidget(this), "dlstColor");
    const char *captions[] = {"車両区分Ａ", "車両区分Ｂ", "色区分"};
    int column = 0;
    for (QListWidget *list : {m_dlstSKA, m_dlstSKB, m_dlstColor}) {
        layout->addWidget(new QLabel(QString::fromUtf8(captions[column]), this), 0, column);
        list->setMinimumSize(150, 200);
        layout->addWidget(list, 1, column++);
    }
    const DialogButtons buttons = dialogButtons(this);
    layout->addLayout(buttons.row, 2, 0, 1, 3);

    fill(m_dlstSKA, m_store.classesA(m_state.workKind));
    fill(m_dlstSKB, m_store.allClassesB());
    fill(m_dlstColor, m_store.allColours());

    // Only a selection counts as a choice; the current row that focus gives a list does not.
    connect(m_dlstSKA, &QListWidget::itemSelectionChanged, this, &DlgCar::classAChosen);
    connect(m_dlstSKB, &QListWidget::itemSelectionChanged, this, &DlgCar::classBChosen);
    connect(buttons.ok, &QPushButton::clicked, this, &DlgCar::confirm);
    connect(buttons.cancel, &QPushButton::clicked, this, &DlgCar::cancelByButton);

    choose(m_dlstSKA, state.classA);
    choose(m_dlstSKB, state.classB);
    choose(m_dlstColor, state.colour);
}

void DlgCar::classAChosen()
{
    const std::int16_t a = chosenNumber(m_dlstSKA);
    if (a == 0)
        return;
    fill(m_dlstSKB, m_store.classesB(m_state.workKind, a));
    fill(m_dlstColor, m_store.allColours());
}

void DlgCar::classBChosen()
{
    const std::int16_t a = chosenNumber(m_dlstSKA);
    const std::int16_t b = chosenNumber(m_dlstSKB);
    if (a == 0 || b == 0)
        return;
    fill(m_dlstColor, m_store.colours(m_state.workKind, a, b));
}

void DlgCar::confirm()
{
    const std::int16_t a = chosenNumber(m_dlstSKA);
    const std::int16_t b = chosenNumber(m_dlstSKB);
    const std::int16_t colour = chosenNumber(m_dlstColor);
    if (a == 0 || b == 0 || colour == 0) {
        messages().inform(QStringLiteral("選択項目が選択されていません。お確かめ下さい。"),
                          QStringLiteral("お確かめ下さい。"), MessageIcon::Exclamation);
        return;
    }
    m_state.classA = a;
    m_state.classB = b;
    m_state.colour = colour;
    accept();
}

} // namespace est::simple
