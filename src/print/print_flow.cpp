#include "print/print_flow.h"

#include "print/print_check.h"
#include "print/saved_state.h"
#include "print/shop_info.h"
#include "workbook/estimate_files.h"

#include <QDir>
#include <QFileInfo>

namespace est::print {

PrintFlow::PrintFlow(Session &session, Messages &messages, QString appFolder, std::function<bool()> save)
    : m_session(session), m_messages(messages), m_appFolder(std::move(appFolder)), m_save(std::move(save))
{
}

QString PrintFlow::workbookPath() const
{
    if (m_session.fileName.isEmpty())
        return QString();
    return QDir(workbook::estimatesFolder(m_appFolder)).filePath(m_session.fileName);
}

QString PrintFlow::pdfPath() const
{
    const QString book = workbookPath();
    if (book.isEmpty())
        return QString();
    const QFileInfo info(book);
    return info.dir().filePath(info.completeBaseName() + QStringLiteral(".pdf"));
}

bool PrintFlow::ensureSaved(const QString &title, const QString &action)
{
    switch (compareWithWorkbook(m_session, workbookPath())) {
    case SavedState::Same:
        return true;
    case SavedState::NotSaved:
        if (m_messages.askYesNo(QStringLiteral("この見積書はまだ保存されていません。\n保存してから%1しますか？").arg(action),
                                title, MessageIcon::Question)
            != Answer::Yes)
            return false;
        return m_save && m_save();
    case SavedState::Changed:
        switch (m_messages.askYesNoCancel(QStringLiteral("保存されていない変更があります。\n"
                                                         "保存してから%1しますか？\n"
                                                         "（「いいえ」は前回保存した内容を%1します）")
                                              .arg(action),
                                          title, MessageIcon::Question)) {
        case Answer::Yes:
            return m_save && m_save();
        case Answer::No:
            return true;
        default:
            return false;
        }
    }
    return false;
}

std::optional<SavedEstimate> PrintFlow::prepareSaved(const QString &title, const QString &action)
{
    if (!ensureSaved(title, action))
        return std::nullopt;
    QString error;
    auto saved = loadSavedEstimate(workbookPath(), &error);
    if (!saved) {
        m_messages.inform(error + QStringLiteral("\n印刷を中止します。"), kPrintStopTitle, MessageIcon::Critical);
        return std::nullopt;
    }
    if (const auto stop = checkPrintable(*saved)) {
        m_messages.inform(*stop, kPrintStopTitle, MessageIcon::Critical);
        return std::nullopt;
    }
    m_session.sheetState = SheetState::NameChosen;
    return saved;
}

std::optional<PrintDocument> PrintFlow::prepare()
{
    const auto saved = prepareSaved();
    if (!saved)
        return std::nullopt;
    return buildPrintDocument(saved->session, saved->honorific, readShopInfo(m_appFolder));
}

} // namespace est::print
