#pragma once
// Filters the keys typed into a line edit: keys the rule refuses are dropped with a beep.

#include "common/messages.h"

#include <QObject>
#include <functional>

class QLineEdit;

namespace est::ui {

enum class KeyVerdict { Accept, Drop, Swallow };

// Decides on one typed character (control characters included, Enter = '\r').
using KeyRule = std::function<KeyVerdict(QChar)>;

class KeyFilter : public QObject
{
    Q_OBJECT
public:
    // Installs itself on the edit; `onAccepted` runs for each printable key that gets through.
    KeyFilter(QLineEdit *edit, KeyRule rule, Messages &messages);

Q_SIGNALS:
    void accepted(QChar key);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    KeyRule m_rule;
    Messages &m_messages;
};

} // namespace est::ui
