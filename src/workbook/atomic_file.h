#pragma once
// Replacing a file in one step. The bytes go to a temporary file beside the target, named
// ".<target name>.saving-<process id>-<random>", which is renamed over the target once it is
// complete, so the previous file stays whole whatever happens. A save that is killed leaves
// its temporary file behind: the next save into the same folder removes the ones whose
// process has ended. The names start with a dot and do not end in ".xlsx", so no list of
// estimates shows them.

#include "workbook/workbook.h"

#include <QByteArray>
#include <QString>

namespace est::workbook {

// Writes the bytes to the path atomically (removing stale temporary files of the folder
// first). Throws WorkbookError (WriteFailed); `fault` can fail the steps OpenTemporary,
// Write and Commit.
void replaceFileAtomically(const QString &path, const QByteArray &bytes, const SaveFault &fault = {});

// Whether a file name is that of a save's temporary file: this program's own pattern, or
// "<yymmdd...>.xlsx.XXXXXX" that earlier versions left where the system had no unnamed files.
bool isSaveTemporaryName(const QString &fileName);

// Removes the temporary files of saves that are no longer running from the folder (an earlier
// version's only when they are not a readable workbook). Returns how many were removed.
int removeStaleSaveTemporaries(const QString &folder);

} // namespace est::workbook
