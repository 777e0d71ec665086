#include "package_builder.h"

#include <zip.h>

#include <stdexcept>

namespace est::test {

QByteArray zipParts(const Parts &parts, Compression compression)
{
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t *out = zip_source_buffer_create(nullptr, 0, 0, &error);
    zip_source_keep(out);
    zip_t *za = zip_open_from_source(out, ZIP_TRUNCATE, &error);
    for (const auto &[name, data] : parts) {
        zip_source_t *s = zip_source_buffer(za, data.constData(), zip_uint64_t(data.size()), 0);
        const zip_int64_t index = zip_file_add(za, name.toUtf8().constData(), s, ZIP_FL_ENC_UTF_8);
        if (compression == Compression::Store && index >= 0)
            zip_set_file_compression(za, zip_uint64_t(index), ZIP_CM_STORE, 0);
        if (compression == Compression::DeflateAsSaved && index >= 0)
            zip_set_file_compression(za, zip_uint64_t(index), ZIP_CM_DEFLATE, 6);
    }
    if (zip_close(za) != 0)
        throw std::runtime_error("zip_close");
    zip_source_open(out);
    zip_source_seek(out, 0, SEEK_END);
    const zip_int64_t size = zip_source_tell(out);
    zip_source_seek(out, 0, SEEK_SET);
    QByteArray bytes(size, Qt::Uninitialized);
    zip_source_read(out, bytes.data(), zip_uint64_t(size));
    zip_source_close(out);
    zip_source_free(out);
    return bytes;
}

static zip_t *openZip(const QByteArray &zip, zip_source_t **source)
{
    zip_error_t error;
    zip_error_init(&error);
    *source = zip_source_buffer_create(zip.constData(), zip_uint64_t(zip.size()), 0, &error);
    zip_t *za = zip_open_from_source(*source, ZIP_RDONLY, &error);
    if (!za)
        throw std::runtime_error("not a zip");
    return za;
}

static QByteArray readEntry(zip_t *za, zip_uint64_t i, zip_flags_t flags)
{
    zip_stat_t st;
    zip_stat_index(za, i, 0, &st);
    const zip_uint64_t size = (flags & ZIP_FL_COMPRESSED) ? st.comp_size : st.size;
    QByteArray data(qsizetype(size), Qt::Uninitialized);
    zip_file_t *f = zip_fopen_index(za, i, flags);
    zip_fread(f, data.data(), size);
    zip_fclose(f);
    return data;
}

Parts unzipParts(const QByteArray &zip)
{
    zip_source_t *source = nullptr;
    zip_t *za = openZip(zip, &source);
    Parts parts;
    for (zip_int64_t i = 0; i < zip_get_num_entries(za, 0); ++i)
        parts.append({QString::fromUtf8(zip_get_name(za, zip_uint64_t(i), 0)), readEntry(za, zip_uint64_t(i), 0)});
    zip_close(za);
    return parts;
}

QByteArray rawEntry(const QByteArray &zip, const QString &name)
{
    zip_source_t *source = nullptr;
    zip_t *za = openZip(zip, &source);
    const zip_int64_t i = zip_name_locate(za, name.toUtf8().constData(), 0);
    QByteArray data = i < 0 ? QByteArray() : readEntry(za, zip_uint64_t(i), ZIP_FL_COMPRESSED);
    zip_close(za);
    return data;
}

Parts minimalWorkbook(const QList<QPair<QString, QByteArray>> &sheets, const QByteArray &sharedStringsXml)
{
    QByteArray types = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                       "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
                       "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
                       "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
                       "<Override PartName=\"/xl/workbook.xml\" ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml\"/>"
                       "<Override PartName=\"/xl/styles.xml\" ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml\"/>";
    QByteArray book = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                      "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
                      "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"><sheets>";
    QByteArray rels = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                      "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                      "<Relationship Id=\"rIdStyles\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles\" Target=\"styles.xml\"/>";
    Parts sheetParts;
    int i = 1;
    for (const auto &[name, data] : sheets) {
        const QByteArray n = QByteArray::number(i);
        book += "<sheet name=\"" + name.toUtf8() + "\" sheetId=\"" + n + "\" r:id=\"rId" + n + "\"/>";
        rels += "<Relationship Id=\"rId" + n + "\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet\" Target=\"worksheets/sheet" + n + ".xml\"/>";
        types += "<Override PartName=\"/xl/worksheets/sheet" + n + ".xml\" ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml\"/>";
        sheetParts.append({QStringLiteral("xl/worksheets/sheet%1.xml").arg(i),
                           "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                           "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
                           "<sheetData>" + data + "</sheetData></worksheet>"});
        ++i;
    }
    if (!sharedStringsXml.isNull()) {
        rels += "<Relationship Id=\"rIdStrings\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings\" Target=\"sharedStrings.xml\"/>";
        types += "<Override PartName=\"/xl/sharedStrings.xml\" ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml\"/>";
    }
    book += "</sheets></workbook>";
    rels += "</Relationships>";
    types += "</Types>";
    Parts parts = {
        {QStringLiteral("[Content_Types].xml"), types},
        {QStringLiteral("_rels/.rels"),
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
         "<Relationship Id=\"rId1\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument\" Target=\"xl/workbook.xml\"/></Relationships>"},
        {QStringLiteral("xl/workbook.xml"), book},
        {QStringLiteral("xl/_rels/workbook.xml.rels"), rels},
        {QStringLiteral("xl/styles.xml"),
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?><styleSheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
         "<fonts count=\"1\"><font><sz val=\"11\"/></font></fonts><cellXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\"/></cellXfs></styleSheet>"},
    };
    parts += sheetParts;
    if (!sharedStringsXml.isNull())
        parts.append({QStringLiteral("xl/sharedStrings.xml"), sharedStringsXml});
    return parts;
}

} // namespace est::test
