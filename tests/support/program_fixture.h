#pragma once
// The whole program on a temporary application folder, as tests of whole flows need it:
// scripted messages, a fixed "today" (2024-01-05), and the modal dialogs of the new-estimate
// chain answered the way a hurried user would: file name "TEST", the proposed slip date
// confirmed, the labour-rate dialog cancelled. A test changes an answer with dialogs.on(...)
// or dialogs.click(...) before it clicks. Link app_ui to use it.

#include "app/app_controller.h"
#include "app/dlg_hajime.h"
#include "app/frm_setting.h"
#include "fixed_clock.h"
#include "modal_answerer.h"
#include "scripted_messages.h"
#include "sheet/frm_mitumori.h"
#include "temp_app_folder.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <memory>

namespace est::test {

struct Program
{
    TempAppFolder folder;
    Session session;
    ScriptedMessages messages;
    FixedClock clock{QDate(2024, 1, 5)};
    ModalAnswerer dialogs;
    std::unique_ptr<app::AppController> controller;

    Program()
    {
        // Each program starts without a stored slip counter.
        QSettings(QStringLiteral("EstimateApp"), QStringLiteral("EstimateApp")).clear();
        dialogs.on(QStringLiteral("dlgFname"), [](QWidget *d) {
            d->findChild<QLineEdit *>(QStringLiteral("txtFname"))->setText(QStringLiteral("TEST"));
            d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
        });
        dialogs.click(QStringLiteral("dlgDay"), QStringLiteral("OKButton"));
        dialogs.click(QStringLiteral("dlgRato"), QStringLiteral("CancelButton"));
    }
    ~Program()
    {
        for (QWidget *w : QApplication::topLevelWidgets())
            if (w->isWindow() && w->isVisible())
                w->close();
    }

    // Starts the program; what start-up asked (the missing company file) is forgotten, so a
    // test sees only the messages of its own steps.
    void start(bool forgetStartupMessages = true)
    {
        controller = std::make_unique<app::AppController>(session, messages, clock, folder.path());
        controller->start(0);
        if (forgetStartupMessages)
            messages.clear();
    }
    app::AppContext &context() { return controller->context(); }

    // Leaves the sheet for the start dialog and opens the saved estimate `fileName` from
    // Mitsumori through dlgOpen, as a person would.
    void reopen(const QString &fileName)
    {
        context().sheet->hide();
        context().sheet->clearEstimate();
        context().start->show();
        dialogs.on(QStringLiteral("dlgOpen"), [fileName](QWidget *d) {
            auto *files = d->findChild<QListWidget *>(QStringLiteral("File1"));
            const auto found = files->findItems(fileName, Qt::MatchExactly);
            if (found.isEmpty())
                return; // the dialog stays open and the test fails on it
            files->setCurrentItem(found.first());
            d->findChild<QPushButton *>(QStringLiteral("cmdOK"))->click();
        });
        context().start->button("cmdHen")->click();
    }

    template <typename T>
    T *sheetChild(const char *name)
    {
        return context().sheet->findChild<T *>(QLatin1String(name));
    }
    QWidget *topLevel(const char *name) const
    {
        for (QWidget *w : QApplication::topLevelWidgets())
            if (w->objectName() == QLatin1String(name) && w->isVisible())
                return w;
        return nullptr;
    }
};

} // namespace est::test
