#pragma once
// Messages for runs without a person at the screen (benchmarks, the screen gallery): nothing
// is shown, only counted, and every question is answered No or Cancel, so nothing waits.

#include "common/messages.h"

namespace est {

class QuietMessages final : public Messages
{
public:
    void inform(const QString &, const QString &, MessageIcon) override { ++shown; }
    Answer askYesNo(const QString &, const QString &, MessageIcon) override { return Answer::No; }
    Answer askYesNoCancel(const QString &, const QString &, MessageIcon) override { return Answer::Cancel; }
    void beep() override {}

    int shown = 0;
};

} // namespace est
