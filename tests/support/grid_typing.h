#pragma once
// Types into a cell of an editable grid the way a person does: open the cell's editor, enter
// the text (as an input method commits it, so Japanese works too), leave with Enter.

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QTest>

namespace est::test {

// The line edit of the cell being edited, if any.
inline QLineEdit *openCellEditor(QAbstractItemView *view)
{
    // A closed editor lingers, hidden, until it is deleted.
    for (QLineEdit *line : view->viewport()->findChildren<QLineEdit *>())
        if (!line->isHidden())
            return line;
    return nullptr;
}

// False when the cell could not be opened for editing.
inline bool typeIntoCell(QAbstractItemView *view, int row, int column, const QString &text)
{
    const QModelIndex cell = view->model()->index(row, column);
    view->setCurrentIndex(cell);
    view->edit(cell);
    QLineEdit *line = openCellEditor(view);
    if (!line)
        return false;
    line->selectAll();
    line->insert(text);
    QTest::keyClick(line, Qt::Key_Return);
    // A refused text is reported once the view has closed the editor, a turn of the loop later.
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
    return true;
}

} // namespace est::test
