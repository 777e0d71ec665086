#pragma once
// Small text rules of the customer screens: digit masks and registration numbers.

#include <QString>

namespace est::customers {

// Formats a number typed into a masked box: "000-0000" (postcode), "00000" (type
// designation), "0000" (category). Digits fill the mask's zeros from the right, missing ones
// become 0, extra ones stay in front. Text that is not a plain number is left as typed.
QString formatDigits(const QString &text, const QString &mask);

// A registration number: office name, class number, kana and number joined without separators.
QString composeRegistration(const QString &office, const QString &classNumber, const QString &kana,
                            const QString &number);

} // namespace est::customers
