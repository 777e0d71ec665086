#pragma once
// Drives a dialog that the code under test shows with exec(): `drive` runs on it as soon as it
// is the active modal window (looked for every few milliseconds, since events processed while
// a screen loads may come first). When it never comes, the test fails; when `drive` leaves it
// open, it is closed, so that a test cannot hang.

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace est::test {

// `name` is the dialog's objectName; an empty name takes whatever modal dialog comes first.
inline void whenModal(const QString &name, std::function<void(QDialog *)> drive)
{
    auto tries = std::make_shared<int>(0);
    auto poll = std::make_shared<std::function<void()>>();
    *poll = [name, drive, tries, poll] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        const bool found = dialog && (name.isEmpty() || dialog->objectName() == name);
        if (!found) {
            if (++*tries < 400) {
                QTimer::singleShot(5, *poll);
                return;
            }
            ADD_FAILURE() << "dialog '" << name.toStdString() << "' never opened";
            if (dialog)
                dialog->done(QDialog::Rejected);
            *poll = nullptr; // break the self-reference
            return;
        }
        drive(dialog);
        if (dialog->isVisible()) {
            ADD_FAILURE() << "dialog '" << dialog->objectName().toStdString() << "' was left open";
            dialog->done(QDialog::Rejected);
        }
        *poll = nullptr;
    };
    QTimer::singleShot(0, *poll);
}

} // namespace est::test
