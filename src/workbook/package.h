#pragma once
// Internal to the workbook engine: the zip package behind a Workbook. It finds the workbook,
// its sheets, shared strings and styles through the relationships, reads parts within the
// limits, and builds the new package (changed parts deflated, the others copied as they are).

#include "workbook/deflated_part.h"
#include "workbook/styles.h"
#include "workbook/workbook.h"

#include <QHash>
#include <QSet>

#include <pugixml.hpp>
#include <zip.h>

#include <memory>
#include <vector>

namespace est::workbook {

namespace detail {
// A relationship target relative to the part that owns the relationships.
QString resolveTarget(const QString &ownerPart, const QString &target);
// "xl/worksheets/_rels/sheet1.xml.rels" for "xl/worksheets/sheet1.xml".
QString relsPathOf(const QString &part);
} // namespace detail

struct Workbook::Impl
{
    Limits limits;
    QByteArray bytes;
    zip_source_t *source = nullptr;
    zip_t *archive = nullptr;

    struct Entry
    {
        QString name;
        zip_uint64_t index;
    };
    std::vector<Entry> entries;
    QHash<QString, QByteArray> replaced;   // part -> new content
    QHash<QString, DeflatedPart> deflated; // part -> new content, compressed
    QSet<QString> removed;
    std::vector<QString> added;            // new parts (their content in replaced), in order

    QString workbookPart;
    pugi::xml_document workbookDoc;
    pugi::xml_document workbookRels;
    bool workbookRelsChanged = false;
    pugi::xml_document contentTypes;
    bool contentTypesLoaded = false;
    bool contentTypesChanged = false;

    struct SheetInfo
    {
        QString name;
        QString part;   // empty for sheets that are not worksheets
        pugi::xml_node node;   // its <sheet> element in the workbook part
        std::unique_ptr<Worksheet> sheet;
    };
    std::vector<SheetInfo> sheets;

    QString sharedStringsPart;
    bool sharedStringsLoaded = false;
    std::vector<QString> sharedStrings;

    QString stylesPart;
    detail::Styles styles;

    // What this workbook has cost so far (see Limits), and the parts parsed.
    mutable qint64 inflatedBytes = 0;
    qint64 parsedBytes = 0;
    QSet<QString> parsedParts;

    ~Impl();

    const Entry *find(const QString &part) const;
    bool has(const QString &part) const
    {
        return (find(part) && !removed.contains(part)) || replaced.contains(part);
    }
    // A part the package did not have, or one replaced by new content.
    void put(const QString &part, const QByteArray &content);
    // The part's bytes (its new content when it was replaced); Damaged or TooLarge otherwise.
    QByteArray read(const QString &part) const;
    // Parses a part (its bytes when already read) within the parsed-size budget; a part is
    // parsed once at most, so one that is asked for twice (two sheets on one part) is Damaged.
    void loadXml(pugi::xml_document &doc, const QString &part, const QByteArray &readBytes = {});
    void admitParse(const QString &part, const QByteArray &bytes);
    SheetInfo *sheetInfo(const QString &name);
    const SheetInfo *sheetInfo(const QString &name) const;
    // The workbook's print-area name of the sheet at that position (created when asked to).
    pugi::xml_node printAreaName(int sheetIndex, bool create);
    // The worksheet object of a sheet, parsed on first use (from its bytes when already read).
    Worksheet *worksheet(SheetInfo &info, const QByteArray &readBytes = {});
    void loadContentTypes();

    void openPackage();
    void loadSharedStrings();
    void loadStyles();
    // Inflates a part that is copied as it is, to its end, so that a damaged one (a wrong
    // checksum, broken compressed data) is refused rather than copied into the new file.
    void verifyCopiedPart(const Entry &entry) const;
    void prepareForSave();
    QByteArray build(const SaveFault &fault);
};

} // namespace est::workbook
