#pragma once
// Messages shown in real message boxes: the program's implementation of the Messages seam.

#include "common/messages.h"

class QWidget;

namespace est::ui {

class MessageBoxMessages final : public Messages
{
public:
    explicit MessageBoxMessages(QWidget *parent = nullptr) : m_parent(parent) {}
    void inform(const QString &text, const QString &title, MessageIcon icon) override;
    Answer askYesNo(const QString &text, const QString &title, MessageIcon icon) override;
    Answer askYesNoCancel(const QString &text, const QString &title, MessageIcon icon) override;
    Answer askOkCancel(const QString &text, const QString &title, MessageIcon icon) override;
    void beep() override;

private:
    QWidget *m_parent;
};

} // namespace est::ui
