#pragma once
// A text box for a whole count or size (16-bit, not negative): only digits get through (full-
// width ones become ASCII), and a number beyond 32,767 typed or pasted is refused, leaving the
// box as it was.

#include "common/messages.h"

#include <functional>

class QLineEdit;

namespace est::indices {

// Makes `box` a count box; `changed` runs with the box's text after every accepted change.
void makeCountBox(QLineEdit *box, Messages &messages, std::function<void(const QString &)> changed);

} // namespace est::indices
