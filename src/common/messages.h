#pragma once
// The one seam through which screens tell the user something or ask a question.
// The program installs a message-box implementation; tests install a scripted one.

#include <QString>

namespace est {

enum class MessageIcon { None, Information, Question, Exclamation, Critical };

enum class Answer { Ok, Yes, No, Cancel };

// The title of a message that names none of its own: the program's name.
inline QString defaultMessageTitle()
{
    return QStringLiteral("見積書作成");
}

class Messages
{
public:
    virtual ~Messages() = default;

    // A notice with an OK button only. An empty title stands for defaultMessageTitle().
    virtual void inform(const QString &text, const QString &title, MessageIcon icon) = 0;

    // A question with Yes and No.
    virtual Answer askYesNo(const QString &text, const QString &title, MessageIcon icon) = 0;

    // A question with Yes, No and Cancel.
    virtual Answer askYesNoCancel(const QString &text, const QString &title, MessageIcon icon) = 0;

    // A notice with OK and Cancel. Implementations without such a box show a plain notice.
    virtual Answer askOkCancel(const QString &text, const QString &title, MessageIcon icon)
    {
        inform(text, title, icon);
        return Answer::Ok;
    }

    // A beep for a refused key.
    virtual void beep() = 0;
};

} // namespace est
