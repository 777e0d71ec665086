#pragma once
// Saving the open estimate to its workbook and opening a saved one: the file names, the
// questions asked before writing, and the messages when a workbook cannot be written or read.

#include "common/messages.h"
#include "common/session.h"
#include "workbook/workbook.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <functional>

namespace est::workbook {

// "<yymmdd><text>.xlsx" (typing ABC on 15 March 2024 gives "240315ABC.xlsx").
QString estimateFileName(QDate today, const QString &text);
// The folder of saved estimates and the template, below the application folder.
QString estimatesFolder(const QString &appFolder);
QString templatePath(const QString &appFolder);
// Whether a file in the estimates folder is a saved estimate: a visible ".xlsx" file that is
// not a save's temporary file, or an ".xls" workbook of the older format.
bool isEstimateFileName(const QString &fileName);
// The estimate files of a folder (not of its subfolders), by name.
QStringList estimateFileNames(const QString &folder);
// The file names the open dialog refuses: the template's own, in either format.
inline const QString kTemplateFileName = QStringLiteral("NewFile.xlsx");
inline const QString kLegacyTemplateFileName = QStringLiteral("NewFile.xls");
bool isTemplateFileName(const QString &fileName);

// ".xls" workbooks (Excel 97-2003) are read, never written: an estimate opened from one is
// saved as ".xlsx" under the same name beside it.
bool isLegacyFileName(const QString &fileName);
QString xlsxNameFor(const QString &fileName);
// What the open dialog shows as a file's kind.
QString fileKindText(const QString &fileName);
inline const QString kSavedAsXlsxNotice = QStringLiteral("この見積書は .xlsx 形式で保存します。");

// Writes the default template when the application folder has none. False with a reason
// when it could not be written.
bool ensureTemplate(const QString &appFolder, QString *error = nullptr);

// Why a workbook could not be written or read, for the user.
QString describeError(const WorkbookError &error);

// The workbook of the estimate made from the template's bytes, as a save writes it. Throws
// WorkbookError; any failure but WriteFailed is the template's.
QByteArray estimateWorkbookBytes(const QByteArray &templateBytes, const Session &session, const SaveFault &fault = {});

// Writes the estimate into a workbook made from the template and saves it at the target
// (atomically). Throws WorkbookError; `templateBroken` tells whether the template was at fault.
void writeEstimateWorkbook(const QString &templateFile, const Session &session, const QString &target,
                           const SaveFault &fault = {}, bool *templateBroken = nullptr);

struct SaveHooks
{
    std::function<void()> showWait;   // the wait dialog, while the workbook is written
    std::function<void()> hideWait;
    SaveFault fault;                  // tests: fail at a chosen step
};

// Saves the open estimate under Mitsumori/<session.fileName>, with the questions its state
// calls for. True when the workbook was written.
bool saveEstimateWorkbook(Session &session, Messages &messages, const QString &appFolder,
                          const SaveHooks &hooks = {});

// Reads Mitsumori/<fileName> into the session. On any failure the session is unchanged and
// the user is told why. True when the estimate was read.
bool openEstimateWorkbook(Session &session, Messages &messages, const QString &appFolder,
                          const QString &fileName);

} // namespace est::workbook
