#pragma once
// Internal to the workbook engine: a worksheet's cell model, an index of the rows and cells of
// its parsed <sheetData> kept in address order, so that cells are found and inserted in order.

#include "workbook/package.h"

#include <pugixml.hpp>

#include <string>
#include <vector>

namespace est::workbook {

struct Worksheet::Impl
{
    Workbook::Impl *book = nullptr;
    QString name;
    QString part;
    pugi::xml_document doc;
    pugi::xml_node sheetData;
    std::string prefix;
    bool dirty = false;

    struct CellEntry
    {
        int column;
        pugi::xml_node node;
    };
    struct RowEntry
    {
        int row;
        pugi::xml_node node;
        std::vector<CellEntry> cells;
    };
    std::vector<RowEntry> rows;

    // Parses the sheet (its bytes when already read) and indexes its rows and cells.
    void load(const QByteArray &readBytes = {});
    pugi::xml_node findCell(int row, int column) const;
    // The cell at the address, created (in order) when missing; marks the sheet changed.
    pugi::xml_node cell(int row, int column);
    // The cell with its value, formula and type removed; its style stays.
    pugi::xml_node clearedCell(int row, int column);
    void updateDimension();
};

} // namespace est::workbook
