#pragma once
// Answers modal dialogs that a test opens through exec(): while it lives, it watches for a
// modal dialog of a given objectName and runs the test's action on it (clicking a button,
// typing), so code that shows a dialog modally can be driven to its end.

#include <QApplication>
#include <QHash>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace est::test {

class ModalAnswerer
{
public:
    ModalAnswerer()
    {
        m_timer.setInterval(5);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { poll(); });
        m_timer.start();
    }

    // Every time a modal dialog named `dialogName` is shown, `action` runs on it once.
    void on(const QString &dialogName, std::function<void(QWidget *)> action)
    {
        m_actions.insert(dialogName, std::move(action));
    }
    // Shorthand: click the button named `buttonName` of that dialog.
    void click(const QString &dialogName, const QString &buttonName)
    {
        on(dialogName, [buttonName](QWidget *dialog) {
            if (auto *button = dialog->findChild<QPushButton *>(buttonName))
                button->click();
        });
    }
    // How many times a dialog of that name was answered.
    int seen(const QString &dialogName) const { return m_seen.value(dialogName); }

private:
    void poll()
    {
        QWidget *modal = QApplication::activeModalWidget();
        if (!modal) {
            m_last = nullptr;
            return;
        }
        if (modal == m_last || !modal->isVisible())
            return;
        const auto action = m_actions.find(modal->objectName());
        if (action == m_actions.end())
            return;
        m_last = modal;
        ++m_seen[modal->objectName()];
        // Acted on from a fresh event, so a dialog that the action opens in turn (a nested
        // exec()) is polled and answered too.
        QPointer<QWidget> target(modal);
        auto act = *action;
        QTimer::singleShot(0, &m_timer, [this, target, act] {
            if (!target)
                return;
            act(target);
            // A dialog object shown again later (exec() twice) counts as new once it has closed.
            if (target && !target->isVisible() && m_last == target)
                m_last = nullptr;
        });
    }

    QTimer m_timer;
    QHash<QString, std::function<void(QWidget *)>> m_actions;
    QHash<QString, int> m_seen;
    QWidget *m_last = nullptr;
};

} // namespace est::test
