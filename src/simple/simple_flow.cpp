#include "simple/simple_flow.h"

#include "simple/dlg_car.h"
#include "simple/dlg_s_select.h"
#include "simple/easy_estimate_store.h"
#include "simple/frm_kani.h"

namespace est::simple {

SimpleFlow::SimpleFlow(Session &session, Messages &messages, QString appFolder)
    : m_session(session), m_messages(messages), m_appFolder(std::move(appFolder))
{
}

std::optional<SimpleEntry> SimpleFlow::run(QWidget *parent)
{
    QString error;
    const auto store = EasyEstimateStore::open(m_appFolder, &error);
    if (!store) {
        m_messages.inform(error, QStringLiteral("簡易見積"), MessageIcon::Critical);
        return std::nullopt;
    }
    if (m_session.simple.vehicleChosen())
        return price(*store, parent);
    if (m_messages.askYesNo(QStringLiteral("メーカー名と車種が設定されていません。設定しますか？"),
                            QStringLiteral("設定されていません。"), MessageIcon::Question)
        != Answer::Yes)
        return std::nullopt;
    return chooseThenPrice(*store, parent);
}

std::optional<SimpleEntry> SimpleFlow::chooseThenPrice(EasyEstimateStore &store, QWidget *parent)
{
    if (!chooseClasses(store, parent))
        return std::nullopt;
    return price(store, parent);
}

bool SimpleFlow::chooseClasses(EasyEstimateStore &store, QWidget *parent)
{
    DlgSSelect kind(m_messages, &store, m_session.simple.workKind, parent);
    if (kind.exec() != QDialog::Accepted)
        return false;
    m_session.simple.workKind = kind.workKind();

    DlgCar car(m_messages, store, m_session.simple, parent);
    if (car.exec() != QDialog::Accepted)
        return false;
    m_session.simple = car.state();
    return true;
}

std::optional<SimpleEntry> SimpleFlow::price(EasyEstimateStore &store, QWidget *parent)
{
    FrmKani form(m_messages, &store, m_session.simple, parent);
    form.setRechoose([this, &store, &form]() -> std::optional<SimpleEstimateState> {
        if (!chooseClasses(store, &form))
            return std::nullopt;
        return m_session.simple;
    });
    if (form.exec() != QDialog::Accepted)
        return std::nullopt;
    return form.entry();
}

} // namespace est::simple
