#include "scripted_messages.h"
#include "workitems/round_amount.h"

#include <gtest/gtest.h>

using namespace est;
using est::workitems::roundAmount;

namespace {

struct RoundCase
{
    Yen amount;
    std::int16_t digits;
    std::int16_t mode;
    Yen expected;
};

void PrintTo(const RoundCase &c, std::ostream *os)
{
    *os << c.amount << " digits " << c.digits << " mode " << c.mode;
}

class RoundAmountTable : public ::testing::TestWithParam<RoundCase>
{
};

TEST_P(RoundAmountTable, GivesTheWorkedOutAmountWithoutMessages)
{
    const RoundCase c = GetParam();
    test::ScriptedMessages messages;
    EXPECT_EQ(roundAmount(c.amount, c.digits, c.mode, messages), c.expected);
    EXPECT_TRUE(messages.shown.isEmpty());
}

// Worked out by hand from the digits of each amount.
INSTANTIATE_TEST_SUITE_P(
    ByHand, RoundAmountTable,
    ::testing::Values(
        // No rounding: every mode leaves the amount.
        RoundCase{7534, 0, 1, 7534}, RoundCase{7534, 0, 2, 7534}, RoundCase{7534, 0, 3, 7534},
        RoundCase{7550, 0, 9, 7550},
        // Ones digit 4.
        RoundCase{7534, 1, 1, 7530}, RoundCase{7534, 1, 2, 7540}, RoundCase{7534, 1, 3, 7530},
        // Ones digit 0: nothing to round in any mode.
        RoundCase{7550, 1, 1, 7550}, RoundCase{7550, 1, 2, 7550}, RoundCase{7550, 1, 3, 7550},
        // Ones digit 3; half up at 5 exactly.
        RoundCase{1203, 1, 1, 1200}, RoundCase{1203, 1, 2, 1210}, RoundCase{1203, 1, 3, 1200},
        RoundCase{1205, 1, 1, 1210}, RoundCase{1209, 1, 3, 1200},
        // Digits 1 with an unknown mode rounds down, silently.
        RoundCase{7534, 1, 4, 7530}, RoundCase{7534, 1, 0, 7530},
        // Tens digit 3 (7,534): half up looks at the tens digit, r = 34.
        RoundCase{7534, 2, 1, 7500}, RoundCase{7534, 2, 2, 7600}, RoundCase{7534, 2, 3, 7500},
        // Tens digit 5 (7,550).
        RoundCase{7550, 2, 1, 7600}, RoundCase{7550, 2, 2, 7600}, RoundCase{7550, 2, 3, 7500},
        // Tens digit 0 (1,203): up and down look only at the tens digit and leave it alone.
        RoundCase{1203, 2, 1, 1200}, RoundCase{1203, 2, 2, 1203}, RoundCase{1203, 2, 3, 1203},
        RoundCase{1299, 2, 3, 1200}, RoundCase{1250, 2, 1, 1300}, RoundCase{1249, 2, 1, 1200},
        // Amounts shorter than the digits: 5 at the tens digit has tens digit 0.
        RoundCase{5, 2, 1, 0}, RoundCase{5, 2, 2, 5}, RoundCase{7, 1, 1, 10}, RoundCase{0, 2, 1, 0},
        // A negative amount is left as it is rather than rounded by its text.
        RoundCase{-7534, 1, 1, -7534}, RoundCase{-7550, 2, 2, -7550},
        // Rounding that would leave 32 bits keeps the amount.
        RoundCase{2147483647, 1, 2, 2147483647}, RoundCase{2147483647, 2, 2, 2147483647}, RoundCase{2147483647, 2, 1, 2147483600}));

TEST(RoundAmount, TensDigitWithUnknownModeSaysSoAndGivesZero)
{
    test::ScriptedMessages messages;
    EXPECT_EQ(roundAmount(7534, 2, 4, messages), 0);
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.lastText(), QStringLiteral("指定数は３までです。"));
    EXPECT_EQ(messages.shown.last().kind, test::ShownMessage::Kind::Inform);
    EXPECT_EQ(messages.shown.last().icon, MessageIcon::None); // a plain notice, OK only
}

TEST(RoundAmount, ThreeDigitsOrMoreSaysSoAndGivesZero)
{
    for (std::int16_t digits : {3, 4, 100}) {
        test::ScriptedMessages messages;
        EXPECT_EQ(roundAmount(7534, digits, 1, messages), 0) << digits;
        ASSERT_EQ(messages.shown.size(), 1);
        EXPECT_EQ(messages.lastText(), QStringLiteral("指定数は１０の位までです。"));
        EXPECT_EQ(messages.shown.last().icon, MessageIcon::None);
    }
}

} // namespace
