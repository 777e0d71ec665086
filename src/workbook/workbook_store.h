#pragma once
// Saving the open estimate from the sheet ("ファイルの保存", "終了"): asks for a file name
// when the estimate has none, then writes the workbook behind the wait dialog.

#include "common/clock.h"
#include "common/messages.h"
#include "common/session.h"
#include "sheet/estimate_store.h"
#include "workbook/workbook.h"

#include <QObject>
#include <functional>
#include <vector>

class QWidget;

namespace est::ui { class WaitDialog; }

namespace est::workbook {

class DlgOpen;

class WorkbookStore : public QObject, public sheet::EstimateStore
{
    Q_OBJECT
public:
    WorkbookStore(Session &session, Messages &messages, const Clock &clock, QString appFolder,
                  ui::WaitDialog *wait, QWidget *dialogParent, QObject *parent = nullptr);

    // dlgFname; on OK the name becomes the estimate's file name and SheetState 2.
    bool askFileName();
    // dlgOpen on the estimates folder; true when an estimate was read into the session.
    bool askOpen();

    bool save() override;
    bool saveWithNewName() override;
    bool overwrite() override;

    // Called with the workbook's path after every successful save.
    void setSavedHook(std::function<void(const QString &path)> hook) { m_saved = std::move(hook); }
    // Called on every open dialog before it is shown, in the order added (the estimate search
    // adds its panel, the comparison its button).
    void addOpenDialogHook(std::function<void(DlgOpen &)> hook) { m_openHooks.push_back(std::move(hook)); }

    // Tests: make the next saves fail at a chosen step.
    void setSaveFault(SaveFault fault) { m_fault = std::move(fault); }

private:
    bool saveNow();

    Session &m_session;
    Messages &m_messages;
    const Clock &m_clock;
    QString m_appFolder;
    ui::WaitDialog *m_wait;
    QWidget *m_dialogParent;
    SaveFault m_fault;
    std::function<void(const QString &)> m_saved;
    std::vector<std::function<void(DlgOpen &)>> m_openHooks;
};

} // namespace est::workbook
