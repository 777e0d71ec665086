#pragma once
// The program with the settings hub shown, for tests of the table-editor screens it opens: a
// screen is opened by its hub button and driven while it is modal. Link app_ui to use it.

#include "program_fixture.h"
#include "uikit/table_editor.h"

#include <QPushButton>
#include <functional>
#include <gtest/gtest.h>

namespace est::test {

struct SettingsHubTest : ::testing::Test
{
    Program program;

    void SetUp() override
    {
        program.start();
        program.context().settings->show();
    }
    void clickHub(const char *button) { program.context().settings->button(QString::fromUtf8(button))->click(); }
    // Opens the screen by its hub button and runs `drive` on it; then closes it by 閉じる unless
    // `drive` closed it. False when the screen never opened.
    bool withScreen(const char *button, const char *screen, const std::function<void(ui::TableEditorWindow *)> &drive)
    {
        bool driven = false;
        program.dialogs.on(QString::fromUtf8(screen), [&](QWidget *w) {
            driven = true;
            auto *window = qobject_cast<ui::TableEditorWindow *>(w);
            ASSERT_NE(window, nullptr);
            drive(window);
            if (window->isVisible())
                window->findChild<QPushButton *>(QStringLiteral("cmdExit"))->click();
        });
        clickHub(button);
        return driven;
    }
};

} // namespace est::test
