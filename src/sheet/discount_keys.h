#pragma once
// Which keys the discount fields accept.

#include "uikit/key_filter.h"

namespace est::sheet {

// Rate (txtNebiki1): control characters, "-", ".", "/" and digits; Enter is swallowed.
ui::KeyVerdict discountRateKeyRule(QChar key);
// Amount (txtNebiki2): the same without "/".
ui::KeyVerdict discountAmountKeyRule(QChar key);

} // namespace est::sheet
