#pragma once
// Shift_JIS as Windows writes it (CP932), for files read by older spreadsheet programs.
// Reading CSV files (either encoding, detected) is the master tables' csv_file.

#include <QByteArray>
#include <QString>

namespace est::reports {

// Characters CP932 cannot hold become "?" and are counted in `unmappable`.
QByteArray encodeShiftJis(const QString &text, int *unmappable = nullptr);

} // namespace est::reports
