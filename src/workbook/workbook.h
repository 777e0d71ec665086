#pragma once
// A small in-process editor of .xlsx workbooks: open a workbook, take a worksheet by name,
// read and write typed cell values, give a cell a number format, save under a path.
//
// Everything the program does not touch (other sheets, styles, print settings, formulas,
// pictures) is kept: untouched parts are copied without being recompressed. A saved
// workbook asks spreadsheet programs to recalculate on load, so formula sheets that read
// the written cells show fresh values. Saving is atomic (a temporary file beside the target,
// then a rename). Reading is bounded: the zip structure, file size, part sizes, the total of
// inflated and parsed parts and cell addresses are checked before anything is inflated or
// allocated, each part is parsed at most once, and the XML parser expands no entities.
//
// Errors are reported by throwing WorkbookError.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <variant>
#include <vector>

namespace est::workbook {

enum class ErrorKind {
    FileMissing,    // no file at the path
    FileUnreadable, // the file could not be read
    NotAWorkbook,   // not a zip package, or no workbook inside
    TooLarge,       // the file or one of its parts exceeds the limits
    Damaged,        // a broken or cut-off zip, a part missing, not well-formed XML, an invalid address
    WriteFailed,    // the target could not be written
    NotAnEstimate,  // the sheets of an estimate are missing, or a count in them is out of range
};

class WorkbookError : public std::runtime_error
{
public:
    WorkbookError(ErrorKind kind, const QString &detail);
    ErrorKind kind() const { return m_kind; }
    QString detail() const { return m_detail; }

private:
    ErrorKind m_kind;
    QString m_detail;
};

// The value of an error cell ("#N/A", "#VALUE!" ...).
struct CellErrorValue
{
    QString code;
    bool operator==(const CellErrorValue &) const = default;
};

// A cell's value: nothing, text, number, boolean or error.
using CellValue = std::variant<std::monostate, QString, double, bool, CellErrorValue>;

// Conversions of a read value to the types the program stores, the way a spreadsheet macro
// converts a cell: an empty cell is "", 0 or False; numeric text counts as its number;
// integers round to nearest, ties to even. Empty optional: the value does not convert.
QString cellText(const CellValue &value);
std::optional<std::int16_t> cellInt16(const CellValue &value);
std::optional<std::int32_t> cellInt32(const CellValue &value);
std::optional<bool> cellBool(const CellValue &value);
std::optional<double> cellNumber(const CellValue &value);

// A number in a cell's text ("1,234", "１．５", " 12 "), read as the screens read typed
// numbers. A text longer than any number is not one: the work per cell stays bounded
// whatever the cell holds (one long shared string may fill thousands of cells).
std::optional<double> numberInText(const QString &text);
inline constexpr qsizetype kMaxNumberText = 64;

// What one workbook may cost. A workbook beyond them is refused (TooLarge) before the part
// that would exceed them is inflated or parsed.
struct Limits
{
    qint64 maxFileBytes = 48 * 1024 * 1024;      // the whole package (an estimate with its photos)
    qint64 maxPartBytes = 8 * 1024 * 1024;       // one inflated part
    qint64 maxInflatedBytes = 64 * 1024 * 1024;  // all parts inflated, together
    qint64 maxParsedBytes = 64 * 1024 * 1024;    // memory of all parsed parts together (estimated
                                                 // from their text before parsing)
    int maxEntries = 2000;                        // parts in the package
};

// Where a save may be made to fail in tests; the hook returns true to fail at that step.
enum class SaveStep {
    BuildPackage,   // composing the new package in memory (once per changed part and at the end)
    OpenTemporary,  // creating the temporary file beside the target
    Write,          // writing the package bytes (half are written before the failure)
    Commit,         // renaming the temporary file over the target
};
using SaveFault = std::function<bool(SaveStep step, const QString &part)>;

// The cells of one sheet, for reading. Rows and columns count from 1 (A1 = row 1, column 1).
class SheetCells
{
public:
    virtual ~SheetCells() = default;
    virtual CellValue value(int row, int column) const = 0;
};

// A workbook's sheets, for reading: the .xlsx engine (Workbook) and the .xls reader (XlsBook)
// both give them, so whatever reads an estimate reads either format.
class BookCells
{
public:
    virtual ~BookCells() = default;
    // The sheet of that name (exact comparison), or nullptr.
    virtual const SheetCells *cells(const QString &sheetName) = 0;
};

class Workbook;
class PrintSheetFitter;
struct DeflatedPart;

// One worksheet of an open workbook. Rows and columns count from 1 (A1 = row 1, column 1).
class Worksheet : public SheetCells
{
public:
    ~Worksheet() override;
    QString name() const;

    CellValue value(int row, int column) const override;

    void setText(int row, int column, const QString &text);
    void setInt16(int row, int column, std::int16_t number);
    void setInt32(int row, int column, std::int32_t number);
    void setBool(int row, int column, bool flag);
    // Gives the cell a number format ("@" = text), keeping the rest of its style.
    void setNumberFormat(int row, int column, const QString &format);
    // The cell's number format code ("General" when it has none).
    QString numberFormat(int row, int column) const;

    // The formula cells of the sheet in address order: (row, formula text without "=").
    std::vector<std::pair<int, QString>> formulas() const;
    // Hides or shows a row that has cells or formats (a row the sheet does not have is left alone).
    void setRowHidden(int row, bool hidden);
    bool rowHidden(int row) const;
    // The used range, from A1 to the last row and column that have cells ("A1" when empty).
    QByteArray usedRange() const;

    // Drops the cached results of the sheet's formulas, so that every spreadsheet program
    // computes them when it opens the workbook (some trust cached results over a request
    // to recalculate).
    void clearFormulaResults();

    struct Impl;   // internal

private:
    friend class Workbook;
    friend class PrintSheetFitter;
    explicit Worksheet(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> d;
};

// A picture on a worksheet: the image file (JPEG or PNG), the cell its top left corner is
// anchored at (from 1) and the size it is shown at.
struct SheetPicture
{
    QByteArray image;
    int row = 1;
    int column = 1;
    int widthPx = 0;
    int heightPx = 0;
    QString name;
};

class Workbook : public BookCells
{
public:
    // Opens the workbook at the path (read into memory; the file is not kept open).
    static std::unique_ptr<Workbook> open(const QString &path, const Limits &limits = {});
    // Opens a workbook held in memory.
    static std::unique_ptr<Workbook> fromBytes(QByteArray bytes, const Limits &limits = {});
    ~Workbook() override;

    QStringList sheetNames() const;
    // The worksheet of that name (exact comparison), or nullptr.
    Worksheet *sheet(const QString &name);
    const SheetCells *cells(const QString &sheetName) override { return sheet(sheetName); }

    // Drops the cached formula results of every worksheet except those named, so that the
    // formulas are computed afresh when the workbook is opened. Sheets whose formulas carry
    // no results are left as they are (and stay byte-identical).
    void clearFormulaResults(const QStringList &exceptSheets = {});

    // Hides a sheet from view and from printing the whole workbook, or shows it again.
    void setSheetHidden(const QString &name, bool hidden);
    bool sheetHidden(const QString &name) const;
    // The print area of a sheet ("$A$1:$J$40" or empty when it has none), and setting it.
    QString printArea(const QString &sheetName) const;
    void setPrintArea(const QString &sheetName, const QString &range);

    // Writes the sheet from its text compressed beforehand (deflated_part.h), as it is,
    // instead of its part; the sheet is not to be changed through this object.
    void setDeflatedSheet(const QString &name, DeflatedPart part);
    // The package the workbook was opened from.
    const QByteArray &sourceBytes() const;

    // Makes the worksheet of that name (replacing a sheet of that name) with the pictures
    // drawn on it, for the caller to write cells into.
    Worksheet *setPictureSheet(const QString &name, const std::vector<SheetPicture> &pictures);
    // The pictures drawn on the sheet, in their order (empty when it has none; the image
    // bytes counted against the limits like every part). More than maxPictures is TooLarge,
    // a picture that is missing or neither JPEG nor PNG is Damaged.
    std::vector<SheetPicture> sheetPictures(const QString &name, int maxPictures);

    // The package as it would be saved.
    QByteArray toBytes(const SaveFault &fault = {});
    // Writes the package to the path: a temporary file beside it, then a rename, so the
    // previous file stays intact when anything fails.
    void save(const QString &path, const SaveFault &fault = {});

    struct Impl;   // internal

private:
    explicit Workbook(std::unique_ptr<Impl> impl);
    std::unique_ptr<Impl> d;
};

// "A1" <-> (row, column); columns A..XFD, rows 1..1048576. Empty optional for a bad address.
struct CellAddress
{
    int row = 0;
    int column = 0;
};
std::optional<CellAddress> parseCellAddress(const QByteArray &text);
QByteArray cellAddress(int row, int column);
QByteArray columnLetters(int column);

inline constexpr int kMaxRows = 1048576;
inline constexpr int kMaxColumns = 16384;

} // namespace est::workbook
