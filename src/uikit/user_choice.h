#pragma once
// A list's choice is the row the user selected. When a list takes the focus, Qt makes its
// first row current without selecting it; that is not a choice, so screens read the
// selection, never the current row.

#include <QObject>
#include <functional>

class QAbstractItemView;

namespace est::ui {

// The selected row, -1 when nothing is selected.
int chosenRow(const QAbstractItemView *view);

// Runs `chosen` with chosenRow() whenever the selection changes, unless the view's signals
// are blocked (the screen itself is filling or clearing it).
void onChosenRow(QAbstractItemView *view, QObject *context, std::function<void(int)> chosen);

} // namespace est::ui
