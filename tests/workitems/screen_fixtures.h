#pragma once
// What the work item screen tests share: finding a control, leaving a box, and an
// application folder with the sample catalogues open.

#include "db/database.h"
#include "scripted_messages.h"
#include "temp_app_folder.h"
#include "workitems/catalogue_choice.h"
#include "workitems/dlg_car_type.h"
#include "workitems/dlg_rato.h"
#include "workitems/frm_buhin.h"
#include "workitems/frm_new_meka.h"
#include "workitems/frm_sakusei.h"
#include "workitems/maker_name_list.h"
#include "workitems/text_box.h"

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace est::test::workitems_screens {

using namespace est::workitems;

template <typename T>
inline T *find(const QObject *parent, const char *name)
{
    T *child = parent->findChild<T *>(QLatin1String(name));
    EXPECT_NE(child, nullptr) << name;
    return child;
}

inline void leave(QLineEdit *edit)
{
    QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
    QApplication::sendEvent(edit, &out);
}

// A list taking the focus makes its first row current; only a row the user picks is a choice.
inline void focusIn(QAbstractItemView *view)
{
    QFocusEvent in(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(view, &in);
}

struct FolderFixture : ::testing::Test
{
    test::TempAppFolder folder;
    Session session;
    test::ScriptedMessages messages;
    CatalogueChoice choice{session, messages, folder.path()};

    FolderFixture()
    {
        session.maker = QStringLiteral("トヨタ");
        session.makerDb = QStringLiteral("Toyota");
        session.vehicleType = QStringLiteral("セダン");
        session.typeTable = QStringLiteral("T_Sedan");
    }
    ~FolderFixture() override
    {
        choice.connections().closeCatalogue();
        choice.connections().closeCarSet();
        db::closeDatabase(folder.file("temp/SettingDB.sqlite"));
    }
};

struct EditorFixture : FolderFixture
{
    std::unique_ptr<FrmSakusei> editor;

    void openEditor()
    {
        std::unique_ptr<CatalogueTable> table;
        if (choice.openCatalogueDb(nullptr))
            table = choice.currentTable();
        editor = std::make_unique<FrmSakusei>(session, messages, std::move(table));
    }
    template <typename T> T *w(const char *name) { return find<T>(editor.get(), name); }
    QLineEdit *edit(const char *name) { return w<QLineEdit>(name); }
    QString label(const char *name) { return w<QLabel>(name)->text(); }
    void click(const char *name) { w<QPushButton>(name)->click(); }
    QString cell(int row, int column) const
    {
        auto *grid = editor->findChild<QTableWidget *>(QStringLiteral("HFLg1"));
        auto *item = grid->item(row, column);
        return item ? item->text() : QStringLiteral("<none>");
    }
};

} // namespace est::test::workitems_screens
