#include "uikit/user_choice.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>

namespace est::ui {

int chosenRow(const QAbstractItemView *view)
{
    const QItemSelectionModel *selection = view->selectionModel();
    if (!selection)
        return -1;
    const QModelIndexList rows = selection->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void onChosenRow(QAbstractItemView *view, QObject *context, std::function<void(int)> chosen)
{
    QObject::connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, context,
                     [view, chosen = std::move(chosen)] {
                         if (!view->signalsBlocked())
                             chosen(chosenRow(view));
                     });
}

} // namespace est::ui
