#pragma once
// Text files exchanged with spreadsheet programs: UTF-8 (with or without a byte-order mark)
// or Shift_JIS as Windows writes it (CP932). Reading detects which; writing does either.

#include <QByteArray>
#include <QString>

namespace est::reports {

enum class TextEncoding { Utf8, ShiftJis };

struct DecodedText
{
    QString text;
    TextEncoding encoding = TextEncoding::Utf8;
    bool ok = false;
};

// A byte-order mark or valid UTF-8 means UTF-8; anything else must be valid CP932.
// ok = false when the bytes are neither (a file in another encoding, or damaged).
DecodedText decodeText(const QByteArray &bytes);

// UTF-8 with a byte-order mark, so that spreadsheet programs recognise it.
QByteArray encodeUtf8WithBom(const QString &text);
// CP932; characters it cannot hold become "?" and are counted in `unmappable`.
QByteArray encodeShiftJis(const QString &text, int *unmappable = nullptr);

} // namespace est::reports
