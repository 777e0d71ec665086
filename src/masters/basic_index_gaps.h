#pragma once
// The basic-index combinations the paint screen can ask for but the table does not hold. The
// paint screen offers every vehicle class and colour kind, and as paint materials those of the
// table plus "速乾", which it presets for solid colours; a missing row leaves the index empty
// in the middle of an estimate, so the editor lists the gaps beforehand.

#include <QList>
#include <QSqlDatabase>
#include <QString>

namespace est::masters {

struct BasicIndexKey
{
    QString vehicleClass;  // Syaryo
    QString colourCode;    // Iro
    QString material;      // Toryo
    bool operator==(const BasicIndexKey &) const = default;
};

// Missing combinations in the order vehicle class, colour kind, material; `error` is set when
// the table cannot be read.
QList<BasicIndexKey> missingBasicIndexRows(const QSqlDatabase &database, QString *error);

// One line for the editor: "基礎指数の無い組み合わせ（n件）：小型・S・水性、…" or that none is missing.
QString describeGaps(const QList<BasicIndexKey> &gaps, int shown = 12);

} // namespace est::masters
