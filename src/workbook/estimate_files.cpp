#include "workbook/estimate_files.h"

#include "db/app_folder.h"
#include "workbook/atomic_file.h"
#include "workbook/default_template.h"
#include "workbook/estimate_layout.h"
#include "workbook/photo_sheet.h"
#include "workbook/print_fit.h"
#include "workbook/xls_book.h"

#include <QDir>
#include <QFileInfo>

#include <mutex>

namespace est::workbook {

namespace {

const QString kSaveTitle = QStringLiteral("ファイルの保存");
const QString kOpenTitle = QStringLiteral("ファイルを開く");

struct WaitGuard
{
    const SaveHooks &hooks;
    explicit WaitGuard(const SaveHooks &h) : hooks(h)
    {
        if (hooks.showWait)
            hooks.showWait();
    }
    ~WaitGuard()
    {
        if (hooks.hideWait)
            hooks.hideWait();
    }
};

} // namespace

QString estimateFileName(QDate today, const QString &text)
{
    return today.toString(QStringLiteral("yyMMdd")) + text + QStringLiteral(".xlsx");
}

bool isEstimateFileName(const QString &fileName)
{
    return (fileName.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive) || isLegacyFileName(fileName)) &&
           !fileName.startsWith(QLatin1Char('.')) && !isSaveTemporaryName(fileName);
}

QStringList estimateFileNames(const QString &folder)
{
    QStringList names =
        QDir(folder).entryList({QStringLiteral("*.xlsx"), QStringLiteral("*.xls")}, QDir::Files, QDir::Name);
    names.removeIf([](const QString &name) { return !isEstimateFileName(name); });
    return names;
}

bool isTemplateFileName(const QString &fileName)
{
    return fileName == kTemplateFileName || fileName == kLegacyTemplateFileName;
}

bool isLegacyFileName(const QString &fileName)
{
    return fileName.endsWith(QLatin1String(".xls"), Qt::CaseInsensitive);
}

QString xlsxNameFor(const QString &fileName)
{
    return isLegacyFileName(fileName) ? fileName.left(fileName.size() - 4) + QStringLiteral(".xlsx") : fileName;
}

QString fileKindText(const QString &fileName)
{
    return isLegacyFileName(fileName) ? QStringLiteral("Excel 97-2003 ブック（.xls、保存すると .xlsx になります）")
                                      : QStringLiteral("Excel ブック（.xlsx）");
}

QString estimatesFolder(const QString &appFolder)
{
    return db::resolve(appFolder, QStringLiteral("Mitsumori\\"));
}

QString templatePath(const QString &appFolder)
{
    return db::resolve(appFolder, QStringLiteral("temp\\newfile.xls"));
}

bool ensureTemplate(const QString &appFolder, QString *error)
{
    const QString path = templatePath(appFolder);
    if (QFileInfo::exists(path))
        return true;
    return writeDefaultTemplate(path, error);
}

QString describeError(const WorkbookError &error)
{
    switch (error.kind()) {
    case ErrorKind::FileMissing:
        return QStringLiteral("ファイルが見つかりません。");
    case ErrorKind::FileUnreadable:
        return QStringLiteral("ファイルを読み取れません。");
    case ErrorKind::NotAWorkbook:
        return QStringLiteral("Excel形式（.xlsx）のブックではありません。");
    case ErrorKind::TooLarge:
        return QStringLiteral("ファイルが大きすぎます。");
    case ErrorKind::Damaged:
        return QStringLiteral("ブックの内容が壊れています。");
    case ErrorKind::WriteFailed:
        return QStringLiteral("ファイルに書き込めません。");
    case ErrorKind::NotAnEstimate:
        return QStringLiteral("見積書のデータ（シート「D」「P」）がないか、値が範囲外です。");
    }
    return QString();
}

namespace {

// The print sheets of the template saved from last, read once: a shop saves from one template.
struct FitterCache
{
    std::mutex lock;
    QByteArray templateBytes;
    std::unique_ptr<PrintSheetFitter> fitter;
};

QByteArray buildEstimateWorkbook(std::unique_ptr<Workbook> book, const Session &session, const SaveFault &fault)
{
    static FitterCache cache;
    writeEstimate(*book, session);
    writePhotos(*book, session.photos);
    QStringList fittedSheets;
    {
        std::lock_guard<std::mutex> locked(cache.lock);
        if (!cache.fitter || cache.templateBytes != book->sourceBytes()) {
            cache.fitter.reset();
            const auto templateBook = Workbook::fromBytes(book->sourceBytes());
            cache.fitter = std::make_unique<PrintSheetFitter>(*templateBook);
            cache.templateBytes = book->sourceBytes();
        }
        cache.fitter->fit(*book, usedRows(session));
        fittedSheets = cache.fitter->sheetNames();
    }
    // A template saved by a spreadsheet program keeps the results of its last
    // calculation; without them the print sheets show this estimate's values.
    book->clearFormulaResults(QStringList{QStringLiteral("D"), QStringLiteral("P")} + fittedSheets);
    return book->toBytes(fault);
}

} // namespace

QByteArray estimateWorkbookBytes(const QByteArray &templateBytes, const Session &session, const SaveFault &fault)
{
    return buildEstimateWorkbook(Workbook::fromBytes(templateBytes), session, fault);
}

void writeEstimateWorkbook(const QString &templateFile, const Session &session, const QString &target,
                           const SaveFault &fault, bool *templateBroken)
{
    QByteArray bytes;
    try {
        // Everything that reads the template happens before anything is written, so a broken
        // template (an unreadable part among those copied as they are, too) writes nothing.
        bytes = buildEstimateWorkbook(Workbook::open(templateFile), session, fault);
    } catch (const WorkbookError &e) {
        if (templateBroken && e.kind() != ErrorKind::WriteFailed)
            *templateBroken = true;
        throw;
    }
    replaceFileAtomically(target, bytes, fault);
}

bool saveEstimateWorkbook(Session &session, Messages &messages, const QString &appFolder, const SaveHooks &hooks)
{
    if (isLegacyFileName(session.fileName)) {
        // The .xls stays as it is; from now on the estimate is its .xlsx.
        messages.inform(kSavedAsXlsxNotice, kSaveTitle, MessageIcon::Information);
        session.fileName = xlsxNameFor(session.fileName);
    }
    const QString folder = estimatesFolder(appFolder);
    const QString target = db::joinPath(folder, session.fileName);
    const QString shownName = session.fileName;

    if (!session.editExisting && QFileInfo::exists(target)) {
        // The file-name dialog already sets the state to 2, so the state alone would let the
        // first save of a new estimate replace another estimate of the same name unasked:
        // only this estimate's own workbook is announced and overwritten.
        if (session.sheetState >= SheetState::NameChosen && session.workbookPath == target) {
            messages.inform(QStringLiteral("ファイル名　") + shownName + QStringLiteral("を保存します。"), kSaveTitle,
                            MessageIcon::Question);
        } else {
            const Answer answer = messages.askYesNo(QStringLiteral("ファイル名　") + shownName +
                                                        QStringLiteral("は既に存在しています。\n"
                                                                       "既存のファイルを削除しますか？"),
                                                    kSaveTitle, MessageIcon::Question);
            if (answer != Answer::Yes)
                return false;
            // The old file is not deleted first: the finished workbook replaces it in one rename,
            // so a failed save keeps it.
        }
    }

    session.sheetState = SheetState::NameChosen;
    QString reason;
    {
        // The wait window goes before any failure is reported, so it never sits under the message.
        WaitGuard wait(hooks);
        bool templateBroken = false;
        try {
            if (!QDir().mkpath(folder))
                throw WorkbookError(ErrorKind::WriteFailed, folder);
            QString templateError;
            if (!ensureTemplate(appFolder, &templateError))
                throw WorkbookError(ErrorKind::WriteFailed, templateError);
            writeEstimateWorkbook(templatePath(appFolder), session, target, hooks.fault, &templateBroken);
            session.workbookPath = target;
            return true;
        } catch (const WorkbookError &e) {
            // A broken template is named, so that the shop can replace it.
            reason = templateBroken
                         ? QStringLiteral("見積書のひな形（temp/newfile.xlsx）を読み込めません。\n") + describeError(e)
                         : describeError(e);
        } catch (const std::exception &e) {
            reason = QString::fromUtf8(e.what());
        }
    }
    messages.inform(QStringLiteral("ファイル名　") + shownName + QStringLiteral("を保存できませんでした。\n") + reason,
                    kSaveTitle, MessageIcon::Critical);
    return false;
}

bool openEstimateWorkbook(Session &session, Messages &messages, const QString &appFolder, const QString &fileName)
{
    const QString path = db::joinPath(estimatesFolder(appFolder), fileName);
    if (!QFileInfo(path).isFile()) {
        messages.inform(fileName + QStringLiteral("が存在しません。\nもう一度ファイルを確認してください。"), kOpenTitle,
                        MessageIcon::Information);
        return false;
    }
    QString reason;
    try {
        auto book = openForReading(path);
        Session read = session;
        readEstimate(*book, read);
        read.photos = readPhotosOf(*book);
        read.fileName = fileName;
        read.workbookPath = path;
        session = std::move(read);
        return true;
    } catch (const WorkbookError &e) {
        reason = describeError(e);
    } catch (const std::exception &e) {
        reason = QString::fromUtf8(e.what());
    }
    messages.inform(fileName + QStringLiteral("を開けませんでした。\n") + reason, kOpenTitle, MessageIcon::Critical);
    return false;
}

} // namespace est::workbook
