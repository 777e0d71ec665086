#include "workbook/workbook_store.h"

#include "uikit/wait_dialog.h"
#include "workbook/dlg_fname.h"
#include "workbook/dlg_open.h"
#include "workbook/estimate_files.h"

#include <QApplication>
#include <QDir>

namespace est::workbook {

WorkbookStore::WorkbookStore(Session &session, Messages &messages, const Clock &clock, QString appFolder,
                             ui::WaitDialog *wait, QWidget *dialogParent, QObject *parent)
    : QObject(parent), m_session(session), m_messages(messages), m_clock(clock),
      m_appFolder(std::move(appFolder)), m_wait(wait), m_dialogParent(dialogParent)
{
}

bool WorkbookStore::askFileName()
{
    DlgFname dialog(m_clock, m_messages, m_dialogParent);
    // Asked again when ending: the name already chosen is offered, so OK keeps it.
    dialog.setTypedText(m_session.fileNameText);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    m_session.fileName = dialog.fileName();
    m_session.fileNameText = dialog.typedText();
    m_session.sheetState = SheetState::NameChosen;
    return true;
}

bool WorkbookStore::askOpen()
{
    QDir().mkpath(estimatesFolder(m_appFolder));
    DlgOpen dialog(
        estimatesFolder(m_appFolder),
        [this](const QString &name) { return openEstimateWorkbook(m_session, m_messages, m_appFolder, name); },
        m_messages, m_dialogParent);
    for (const auto &hook : m_openHooks)
        hook(dialog);
    return dialog.exec() == QDialog::Accepted;
}

bool WorkbookStore::save()
{
    if (!m_session.editExisting && (m_session.sheetState < SheetState::NameChosen || m_session.fileName.isEmpty()))
        if (!askFileName())
            return false;
    return saveNow();
}

bool WorkbookStore::saveWithNewName()
{
    return askFileName() && saveNow();
}

bool WorkbookStore::overwrite()
{
    return saveNow();
}

bool WorkbookStore::saveNow()
{
    SaveHooks hooks;
    hooks.fault = m_fault;
    if (m_wait) {
        hooks.showWait = [this] {
            m_wait->show();
            m_wait->raise();
            QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        };
        hooks.hideWait = [this] { m_wait->hide(); };
    }
    if (!saveEstimateWorkbook(m_session, m_messages, m_appFolder, hooks))
        return false;
    if (m_saved)
        m_saved(m_session.workbookPath);
    return true;
}

} // namespace est::workbook
