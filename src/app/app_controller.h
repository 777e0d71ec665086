#pragma once
// Starts the program in the required order, connects the start dialog, the sheet and the
// settings hub, lets each subsystem wire its screens, and unloads every form at the end.

#include "app/app_context.h"

#include <QObject>
#include <memory>

namespace est::app {

class AppController : public QObject
{
    Q_OBJECT
public:
    AppController(Session &session, Messages &messages, const Clock &clock, QString appFolder,
                  QObject *parent = nullptr);
    ~AppController() override;

    // Start-up: the shared server when there is one, slip values, the hidden sheet, the start
    // dialog and (when splashMs > 0) the splash. False when the user chose to end the program
    // because the server could not be reached.
    bool start(int splashMs = 1500);

    AppContext &context() { return m_context; }

    void beginNewEstimate();     // cmdSin
    void beginOpenEstimate();    // cmdHen
    void showSettings();         // cmdSetting
    void showStartDialog();
    // Unloads every form that is still loaded, which ends the program.
    void unloadAllForms();

Q_SIGNALS:
    void allFormsUnloaded();

private:
    void ensureFolders();
    bool runSteps(const QList<FlowStep> &steps);
    void showSheet();

    AppContext m_context;
};

} // namespace est::app
