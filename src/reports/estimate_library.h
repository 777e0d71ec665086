#pragma once
// The estimate library: temp/Library.sqlite, an index of every workbook saved in Mitsumori
// (one summary per file, with the file's time stamp and size so that a changed file is
// noticed). It is only an index: deleting it loses nothing, it is built again.

#include "reports/estimate_summary.h"

#include <QDate>
#include <QHash>
#include <QList>
#include <QSqlDatabase>
#include <QString>

namespace est::reports {

// When a workbook was last written and how big it is; a differing stamp means "read again".
struct FileStamp
{
    qint64 modified = 0; // milliseconds since the epoch
    qint64 size = 0;
    bool operator==(const FileStamp &) const = default;
};

// A search over the library. Empty text, invalid dates and kind -1 mean "any".
struct LibraryQuery
{
    QString text;   // any part of customer, company, car, registration, chassis, slip number, file name
    QDate from;
    QDate to;
    int kind = -1;
    int limit = 1000;
};

class EstimateLibrary
{
public:
    explicit EstimateLibrary(QString appFolder);

    // Opens the index, making a new one when it is missing, of another version or broken.
    // Returns an error text, empty on success.
    QString open();
    QSqlDatabase database() const { return m_db; }
    QString path() const { return m_path; }

    QHash<QString, FileStamp> stamps() const;
    // Adds or replaces the entry of summary.fileName. Returns an error text.
    QString store(const EstimateSummary &summary, FileStamp stamp);
    QString remove(const QString &fileName);
    int count() const;

    // Newest first (by date, then file name). Unreadable workbooks match by their file name,
    // and stay in the results whatever kind is asked for.
    QList<EstimateSummary> search(const LibraryQuery &query) const;
    // The workbooks that could not be read, by file name.
    QStringList unreadable() const;
    // Readable invoices and delivery notes dated from..to (inclusive), oldest first.
    QList<EstimateSummary> sales(QDate from, QDate to) const;

private:
    QString create();

    QString m_appFolder;
    QString m_path;
    QSqlDatabase m_db;
};

} // namespace est::reports
