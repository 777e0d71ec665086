#pragma once
// Messages for tests: answers from a script, records every text shown.

#include "common/messages.h"

#include <QList>
#include <QString>
#include <deque>

namespace est::test {

struct ShownMessage
{
    QString text;
    QString title;
    MessageIcon icon;
    enum class Kind { Inform, YesNo, YesNoCancel, OkCancel } kind;
};

class ScriptedMessages final : public Messages
{
public:
    void inform(const QString &text, const QString &title, MessageIcon icon) override;
    Answer askYesNo(const QString &text, const QString &title, MessageIcon icon) override;
    Answer askYesNoCancel(const QString &text, const QString &title, MessageIcon icon) override;
    Answer askOkCancel(const QString &text, const QString &title, MessageIcon icon) override;
    void beep() override { ++beeps; }

    // Answers for the next questions, in order; an unscripted question is answered No/Cancel.
    void answer(Answer a) { m_answers.push_back(a); }

    QList<ShownMessage> shown;
    int beeps = 0;

    QString lastText() const { return shown.isEmpty() ? QString() : shown.last().text; }
    void clear() { shown.clear(); beeps = 0; m_answers.clear(); }

private:
    Answer next(Answer fallback);
    std::deque<Answer> m_answers;
};

} // namespace est::test
