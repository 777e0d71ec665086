#pragma once
// The customer screen over a temporary customer database, driven through its controls.

#include "customer_fixture.h"
#include "customers/frm_kokyaku.h"
#include "scripted_messages.h"
#include "when_modal.h"
#include "widget_lookup.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

namespace est::test {

// Typing into a line edit as the user would: ASCII through key clicks, Japanese as an input
// method commits it; Return ends the entry (masks apply then).
inline void typeInto(QLineEdit *edit, const QString &text)
{
    edit->setFocus();
    edit->selectAll();
    edit->del();
    bool ascii = true;
    for (QChar c : text)
        ascii = ascii && c.unicode() < 128;
    if (ascii)
        QTest::keyClicks(edit, text);
    else
        edit->insert(text);
    QTest::keyClick(edit, Qt::Key_Return);
}

struct ScreenFixture : CustomerFixture
{
    Session session;
    ScriptedMessages messages;
    std::unique_ptr<customers::FrmKokyaku> screen;

    void open()
    {
        screen = std::make_unique<customers::FrmKokyaku>(session, messages, *store, *settings);
        screen->show();
    }
    template <typename T> T *find(const char *name) const { return child<T>(screen.get(), name); }
    void click(const char *name) const { find<QPushButton>(name)->click(); }
    QString text(const char *name) const
    {
        if (auto *combo = screen->findChild<QComboBox *>(QLatin1String(name)))
            return combo->currentText();
        return find<QLineEdit>(name)->text();
    }
    void type(const char *name, const QString &value) const { typeInto(find<QLineEdit>(name), value); }
    void search(const QString &name) const
    {
        find<QComboBox>("cboKName")->setEditText(name);
        click("cmdKensaku");
    }
};

} // namespace est::test
