#pragma once
// Where the data-exchange screens ask for a file: the program asks with the file dialog,
// tests answer with a path.

#include <QString>
#include <functional>

class QWidget;

namespace est::reports {

enum class FileQuestion {
    SaveCustomerCsv,   // where to write the customer CSV
    SaveBackup,        // where to write the backup archive
    OpenBackup,        // which archive to restore
    OpenPriceCsv,      // which price list to read
    LegacyFolder,      // below which folder to convert .xls estimates (a folder, not a file)
};

// Returns the chosen path, empty when the user cancelled. `suggested` is a full path.
using FileChooser = std::function<QString(QWidget *parent, FileQuestion question, const QString &suggested)>;

// The file dialog.
FileChooser dialogFileChooser();

} // namespace est::reports
