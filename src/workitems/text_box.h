#pragma once
// Two small routines for the numeric text boxes of the index screens.

class QLineEdit;

namespace est::workitems {

// SelectAllText: caret to the start and the whole text selected, so that typing replaces it
// (used when a numeric box receives the focus).
void selectAllText(QLineEdit *box);

// FormatTwoDecimals: caret to the end and the text replaced by its value shown "0.00".
// A blank text or one that is not a number stays as it is.
void formatTwoDecimals(QLineEdit *box);

// Makes every focus-in of the box select its whole text.
void selectAllOnFocus(QLineEdit *box);

} // namespace est::workitems
