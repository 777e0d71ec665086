#pragma once
// Finding a screen's controls by objectName, clicking them and reading what they show, as the
// screen tests drive the program.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>
#include <gtest/gtest.h>

namespace est::test {

// The control of that name below `parent`; the test fails when there is none.
template <typename T>
T *child(const QObject *parent, const char *name)
{
    T *found = parent->findChild<T *>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

inline void click(const QObject *parent, const char *name)
{
    if (QPushButton *button = child<QPushButton>(parent, name))
        button->click();
}

// Chooses the entry of that text in the combo box of that name.
inline void chooseText(const QObject *parent, const char *combo, const char *entry)
{
    QComboBox *box = child<QComboBox>(parent, combo);
    const int index = box ? box->findText(QString::fromUtf8(entry)) : -1;
    if (index < 0) {
        ADD_FAILURE() << combo << " has no " << entry;
        return;
    }
    box->setCurrentIndex(index);
}

// What a label, line edit or combo box of that name shows.
inline QString shownText(const QObject *parent, const char *name)
{
    if (auto *label = parent->findChild<QLabel *>(QLatin1String(name)))
        return label->text();
    if (auto *edit = parent->findChild<QLineEdit *>(QLatin1String(name)))
        return edit->text();
    if (auto *box = parent->findChild<QComboBox *>(QLatin1String(name)))
        return box->currentText();
    ADD_FAILURE() << "no label, edit or combo box " << name;
    return {};
}

} // namespace est::test
