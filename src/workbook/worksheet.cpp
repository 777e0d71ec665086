#include "workbook/worksheet_impl.h"

#include "workbook/cell_text.h"
#include "workbook/xml_part.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string_view>

namespace est::workbook {

using namespace detail;

namespace {
int parsePositive(const char *text, int max)
{
    qint64 value = 0;
    if (!*text)
        return -1;
    for (const char *p = text; *p; ++p) {
        if (!isDigit(*p))
            return -1;
        value = value * 10 + (*p - '0');
        if (value > max)
            return -1;
    }
    return value >= 1 ? int(value) : -1;
}
} // namespace

void Worksheet::Impl::load(const QByteArray &readBytes)
{
    book->loadXml(doc, part, readBytes);
    const pugi::xml_node root = doc.document_element();
    if (!isElement(root, "worksheet"))
        fail(ErrorKind::Damaged, QStringLiteral("%1 is not a worksheet").arg(part));
    prefix = prefixOf(root);
    sheetData = childElement(root, "sheetData");
    if (!sheetData)
        fail(ErrorKind::Damaged, QStringLiteral("%1 has no cell data").arg(part));
    int lastRow = 0;
    for (pugi::xml_node r = sheetData.first_child(); r; r = r.next_sibling()) {
        if (!isElement(r, "row"))
            continue;
        int rowNumber = lastRow + 1;
        if (pugi::xml_attribute a = r.attribute("r"))
            rowNumber = parsePositive(a.value(), kMaxRows);
        if (rowNumber <= lastRow || rowNumber > kMaxRows)
            fail(ErrorKind::Damaged, QStringLiteral("%1: bad row number %2").arg(part, QString::fromUtf8(r.attribute("r").value())));
        lastRow = rowNumber;
        RowEntry entry{rowNumber, r, {}};
        int lastColumn = 0;
        for (pugi::xml_node c = r.first_child(); c; c = c.next_sibling()) {
            if (!isElement(c, "c"))
                continue;
            int column = lastColumn + 1;
            if (pugi::xml_attribute a = c.attribute("r")) {
                const auto address = parseCellAddress(QByteArray(a.value()));
                if (!address || address->row != rowNumber)
                    fail(ErrorKind::Damaged, QStringLiteral("%1: bad cell address %2").arg(part, QString::fromUtf8(a.value())));
                column = address->column;
            }
            if (column <= lastColumn || column > kMaxColumns)
                fail(ErrorKind::Damaged, QStringLiteral("%1: cells out of order in row %2").arg(part).arg(rowNumber));
            lastColumn = column;
            entry.cells.push_back({column, c});
        }
        rows.push_back(std::move(entry));
    }
}

pugi::xml_node Worksheet::Impl::findCell(int row, int column) const
{
    const auto r = std::lower_bound(rows.begin(), rows.end(), row,
                                    [](const RowEntry &e, int value) { return e.row < value; });
    if (r == rows.end() || r->row != row)
        return {};
    const auto c = std::lower_bound(r->cells.begin(), r->cells.end(), column,
                                    [](const CellEntry &e, int value) { return e.column < value; });
    if (c == r->cells.end() || c->column != column)
        return {};
    return c->node;
}

pugi::xml_node Worksheet::Impl::cell(int row, int column)
{
    if (row < 1 || row > kMaxRows || column < 1 || column > kMaxColumns)
        fail(ErrorKind::Damaged, QStringLiteral("no cell at row %1, column %2").arg(row).arg(column));
    dirty = true;
    auto r = std::lower_bound(rows.begin(), rows.end(), row,
                              [](const RowEntry &e, int value) { return e.row < value; });
    if (r == rows.end() || r->row != row) {
        pugi::xml_node node = r == rows.end()
                                  ? sheetData.append_child((prefix + "row").c_str())
                                  : sheetData.insert_child_before((prefix + "row").c_str(), r->node);
        node.append_attribute("r") = row;
        r = rows.insert(r, RowEntry{row, node, {}});
    }
    auto c = std::lower_bound(r->cells.begin(), r->cells.end(), column,
                              [](const CellEntry &e, int value) { return e.column < value; });
    if (c != r->cells.end() && c->column == column)
        return c->node;
    // "spans" only hints at the cells of a row; it may no longer be true.
    r->node.remove_attribute("spans");
    pugi::xml_node node = c == r->cells.end()
                              ? r->node.append_child((prefix + "c").c_str())
                              : r->node.insert_child_before((prefix + "c").c_str(), c->node);
    node.append_attribute("r") = cellAddress(row, column).constData();
    r->cells.insert(c, CellEntry{column, node});
    return node;
}

pugi::xml_node Worksheet::Impl::clearedCell(int row, int column)
{
    pugi::xml_node node = cell(row, column);
    node.remove_attribute("t");
    node.remove_attribute("cm");
    node.remove_attribute("vm");
    while (pugi::xml_node child = node.first_child())
        node.remove_child(child);
    if (!node.attribute("r"))
        node.append_attribute("r") = cellAddress(row, column).constData();
    return node;
}

void Worksheet::Impl::updateDimension()
{
    int top = 0, bottom = 0, left = 0, right = 0;
    for (const RowEntry &r : rows) {
        if (r.cells.empty())
            continue;
        if (!top)
            top = r.row;
        bottom = r.row;
        left = left ? std::min(left, r.cells.front().column) : r.cells.front().column;
        right = std::max(right, r.cells.back().column);
    }
    QByteArray ref = top ? cellAddress(top, left) : QByteArray("A1");
    if (top && (top != bottom || left != right))
        ref += ':' + cellAddress(bottom, right);
    pugi::xml_node root = doc.document_element();
    pugi::xml_node dimension = childElement(root, "dimension");
    if (!dimension) {
        pugi::xml_node sheetPr = childElement(root, "sheetPr");
        dimension = sheetPr ? root.insert_child_after((prefix + "dimension").c_str(), sheetPr)
                            : root.prepend_child((prefix + "dimension").c_str());
    }
    (dimension.attribute("ref") ? dimension.attribute("ref") : dimension.append_attribute("ref")) = ref.constData();
}

Worksheet::Worksheet(std::unique_ptr<Impl> impl) : d(std::move(impl)) {}
Worksheet::~Worksheet() = default;

QString Worksheet::name() const
{
    return d->name;
}

CellValue Worksheet::value(int row, int column) const
{
    const pugi::xml_node node = d->findCell(row, column);
    if (!node)
        return std::monostate{};
    const std::string_view type = node.attribute("t").value();
    const pugi::xml_node v = childElement(node, "v");
    const char *text = v.text().get();
    if (type == "inlineStr")
        return stringItemText(childElement(node, "is"));
    if (type == "s") {
        d->book->loadSharedStrings();
        const int index = std::strcmp(text, "0") == 0 ? 0 : parsePositive(text, INT32_MAX - 1);
        if (index < 0 || size_t(index) >= d->book->sharedStrings.size())
            return std::monostate{};
        return d->book->sharedStrings[size_t(index)];
    }
    if (!v)
        return std::monostate{};
    if (type == "str")
        return unescapeCellText(QString::fromUtf8(text));
    if (type == "b")
        return std::strcmp(text, "1") == 0 || std::strcmp(text, "true") == 0;
    if (type == "e")
        return CellErrorValue{QString::fromUtf8(text)};
    if (type == "d")
        return QString::fromUtf8(text);
    bool ok = false;
    const double number = QByteArray(text).trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return std::monostate{};
    return number;
}

void Worksheet::setText(int row, int column, const QString &text)
{
    pugi::xml_node node = d->clearedCell(row, column);
    node.append_attribute("t") = "inlineStr";
    pugi::xml_node t = node.append_child((d->prefix + "is").c_str()).append_child((d->prefix + "t").c_str());
    const QString escaped = escapeCellText(text);
    if (needsPreserve(escaped))
        t.append_attribute("xml:space") = "preserve";
    t.text().set(escaped.toUtf8().constData());
}

void Worksheet::setInt16(int row, int column, std::int16_t number)
{
    setInt32(row, column, number);
}

void Worksheet::setInt32(int row, int column, std::int32_t number)
{
    pugi::xml_node node = d->clearedCell(row, column);
    node.append_child((d->prefix + "v").c_str()).text().set(int(number));
}

void Worksheet::setBool(int row, int column, bool flag)
{
    pugi::xml_node node = d->clearedCell(row, column);
    node.append_attribute("t") = "b";
    node.append_child((d->prefix + "v").c_str()).text().set(flag ? "1" : "0");
}

void Worksheet::setNumberFormat(int row, int column, const QString &format)
{
    d->book->loadStyles();
    pugi::xml_node node = d->cell(row, column);
    const int id = d->book->styles.numFmtIdFor(format);
    const int xf = d->book->styles.derivedXf(node.attribute("s").as_int(0), id);
    (node.attribute("s") ? node.attribute("s") : node.append_attribute("s")) = xf;
}

QString Worksheet::numberFormat(int row, int column) const
{
    d->book->loadStyles();
    const pugi::xml_node node = d->findCell(row, column);
    return d->book->styles.formatOfXf(node ? node.attribute("s").as_int(0) : 0);
}

std::vector<std::pair<int, QString>> Worksheet::formulas() const
{
    std::vector<std::pair<int, QString>> out;
    for (const Impl::RowEntry &r : d->rows)
        for (const Impl::CellEntry &c : r.cells)
            if (const pugi::xml_node f = childElement(c.node, "f"))
                out.emplace_back(r.row, QString::fromUtf8(f.text().get()));
    return out;
}

namespace {
template<typename Rows>
auto findRow(Rows &rows, int row)
{
    const auto r = std::lower_bound(rows.begin(), rows.end(), row, [](const auto &e, int value) { return e.row < value; });
    return r != rows.end() && r->row == row ? r : rows.end();
}
} // namespace

void Worksheet::setRowHidden(int row, bool hidden)
{
    const auto r = findRow(d->rows, row);
    if (r == d->rows.end() || rowHidden(row) == hidden)
        return;
    r->node.remove_attribute("hidden");
    if (hidden)
        r->node.append_attribute("hidden") = "1";
    d->dirty = true;
}

bool Worksheet::rowHidden(int row) const
{
    const auto r = findRow(d->rows, row);
    if (r == d->rows.end())
        return false;
    const std::string_view value = r->node.attribute("hidden").value();
    return value == "1" || value == "true";
}

QByteArray Worksheet::usedRange() const
{
    int bottom = 0, right = 0;
    for (const Impl::RowEntry &r : d->rows) {
        if (r.cells.empty())
            continue;
        bottom = r.row;
        right = std::max(right, r.cells.back().column);
    }
    return bottom ? QByteArray("A1:") + cellAddress(bottom, right) : QByteArray("A1");
}

void Worksheet::clearFormulaResults()
{
    for (const Impl::RowEntry &r : d->rows) {
        for (const Impl::CellEntry &c : r.cells) {
            if (!childElement(c.node, "f"))
                continue;
            pugi::xml_node node = c.node;
            while (pugi::xml_node v = childElement(node, "v"))
                node.remove_child(v);
            node.remove_attribute("t");
            d->dirty = true;
        }
    }
}

} // namespace est::workbook
