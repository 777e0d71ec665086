#include "app/app_controller.h"

#include "app/dlg_hajime.h"
#include "app/frm_setting.h"
#include "app/frm_sp.h"
#include "app/wiring.h"
#include "server/dlg_password.h"
#include "server/server_startup.h"
#include "sheet/frm_mitumori.h"
#include "uikit/wait_dialog.h"

#include "db/app_folder.h"
#include "db/schema_upgrade.h"

#include <QApplication>
#include <QDir>
#include <QPushButton>

namespace est::app {

AppController::AppController(Session &session, Messages &messages, const Clock &clock, QString appFolder,
                             QObject *parent)
    : QObject(parent), m_context{session, messages, clock, std::move(appFolder)}
{
}

AppController::~AppController()
{
    delete m_context.settings;
    delete m_context.start;
    delete m_context.sheet;
    delete m_context.wait;
}

bool AppController::start(int splashMs)
{
    // A seat of a shared server finds it (or chooses this PC's data) before any screen reads.
    const auto askPassword = [this](const QString &prompt) {
        return server::DlgPassword::ask(prompt, m_context.messages);
    };
    if (!server::connectAtStartup(m_context.messages, askPassword))
        return false;
    Session &s = m_context.session;
    s.sheetState = SheetState::NotStarted;
    ensureFolders();
    // Files made by an earlier version are upgraded before any screen reads them.
    const QStringList notices = db::upgradeAllDatabases(m_context.appFolder);
    if (!notices.isEmpty())
        m_context.messages.inform(notices.join(QStringLiteral("\n\n")), QStringLiteral("データベース"),
                                  MessageIcon::Exclamation);

    m_context.wait = new ui::WaitDialog;
    m_context.sheet = new sheet::FrmMitumori(s, m_context.messages);
    m_context.start = new DlgHajime;
    m_context.settings = new FrmSetting;

    connect(m_context.start, &DlgHajime::newEstimateChosen, this, &AppController::beginNewEstimate);
    connect(m_context.start, &DlgHajime::openEstimateChosen, this, &AppController::beginOpenEstimate);
    connect(m_context.start, &DlgHajime::settingsChosen, this, &AppController::showSettings);
    connect(m_context.start, &DlgHajime::openWorkbookChosen, this, [this] {
        if (m_context.openWorkbook)
            m_context.openWorkbook();
    });
    connect(m_context.start, &DlgHajime::cancelled, this, [this] {
        m_context.session.sheetState = SheetState::NotStarted;
        m_context.session.editExisting = false;
        unloadAllForms();
    });
    connect(m_context.settings, &FrmSetting::closed, this, &AppController::showStartDialog);
    connect(m_context.sheet, &sheet::FrmMitumori::quitRequested, this, &AppController::unloadAllForms);

    wireSubsystems(m_context);

    m_context.start->button("cmdHen")->setEnabled(!m_context.openEstimateSteps.isEmpty());
    m_context.start->button("cmdXls")->setEnabled(bool(m_context.openWorkbook));

    for (const auto &step : m_context.startupSteps)
        step();
    // The sheet is loaded, not shown, until an estimate is started or opened.
    m_context.sheet->refresh();

    showStartDialog();
    if (splashMs > 0) {
        auto *splash = new FrmSp(splashMs);
        connect(splash, &FrmSp::finished, this, [this] {
            if (m_context.start->isVisible()) {
                m_context.start->raise();
                m_context.start->activateWindow();
            }
        });
        splash->show();
        splash->raise();
    }
    return true;
}

void AppController::ensureFolders()
{
    // A new installation starts with an empty application folder.
    for (const char *folder : {"temp", "Data", "Mitsumori"}) {
        const QString path = db::resolve(m_context.appFolder, QLatin1String(folder));
        if (!QDir().mkpath(path))
            m_context.messages.inform(QStringLiteral("フォルダ %1 を作成できませんでした。").arg(QDir::toNativeSeparators(path)),
                                      QStringLiteral("起動"), MessageIcon::Critical);
    }
}

void AppController::showStartDialog()
{
    m_context.start->show();
    m_context.start->raise();
    m_context.start->activateWindow();
}

bool AppController::runSteps(const QList<FlowStep> &steps)
{
    for (const FlowStep &step : steps)
        if (!step())
            return false;
    return true;
}

void AppController::showSheet()
{
    m_context.start->hide();
    m_context.sheet->refresh();
    m_context.sheet->show();
    m_context.sheet->raise();
    m_context.sheet->activateWindow();
}

void AppController::beginNewEstimate()
{
    Session &s = m_context.session;
    {
        ui::WaitScope wait(m_context.wait);
        s.sheetState = SheetState::NewStarted;
        s.editExisting = false;
        m_context.sheet->clearEstimate();
    }
    m_context.start->hide();
    if (!runSteps(m_context.newEstimateSteps)) {
        if (s.sheetState == SheetState::NewStarted)
            s.sheetState = SheetState::NotStarted;
        showStartDialog();
        return;
    }
    showSheet();
}

void AppController::beginOpenEstimate()
{
    Session &s = m_context.session;
    {
        ui::WaitScope wait(m_context.wait);
        s.editExisting = true;
        m_context.sheet->clearEstimate();
    }
    m_context.start->hide();
    if (!runSteps(m_context.openEstimateSteps)) {
        s.editExisting = false;
        showStartDialog();
        return;
    }
    showSheet();
}

void AppController::showSettings()
{
    m_context.start->hide();
    m_context.settings->show();
    m_context.settings->raise();
}

void AppController::unloadAllForms()
{
    for (QWidget *w : QApplication::topLevelWidgets())
        w->hide();
    Q_EMIT allFormsUnloaded();
    QCoreApplication::quit();
}

} // namespace est::app
