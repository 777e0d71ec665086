#include "scripted_messages.h"

namespace est::test {

Answer ScriptedMessages::next(Answer fallback)
{
    if (m_answers.empty())
        return fallback;
    Answer a = m_answers.front();
    m_answers.pop_front();
    return a;
}

void ScriptedMessages::inform(const QString &text, const QString &title, MessageIcon icon)
{
    shown.append({text, title, icon, ShownMessage::Kind::Inform});
}

Answer ScriptedMessages::askYesNo(const QString &text, const QString &title, MessageIcon icon)
{
    shown.append({text, title, icon, ShownMessage::Kind::YesNo});
    return next(Answer::No);
}

Answer ScriptedMessages::askYesNoCancel(const QString &text, const QString &title, MessageIcon icon)
{
    shown.append({text, title, icon, ShownMessage::Kind::YesNoCancel});
    return next(Answer::Cancel);
}

Answer ScriptedMessages::askOkCancel(const QString &text, const QString &title, MessageIcon icon)
{
    shown.append({text, title, icon, ShownMessage::Kind::OkCancel});
    return next(Answer::Cancel);
}

} // namespace est::test
