#include "workitems/catalogue_choice.h"

#include "workitems/dlg_car_type.h"

namespace est::workitems {

CatalogueChoice::CatalogueChoice(Session &session, Messages &messages, QString appFolder)
    : m_session(session), m_messages(messages), m_connections(std::move(appFolder))
{
}

bool CatalogueChoice::openCarSetDb()
{
    const QString error = m_connections.openCarSet();
    if (error.isEmpty())
        return true;
    m_messages.inform(error, QStringLiteral("メーカー・車両タイプ"), MessageIcon::Critical);
    return false;
}

bool CatalogueChoice::openCatalogueDb(QWidget *parent)
{
    if (m_session.makerDb.isEmpty()) {
        m_messages.inform(QStringLiteral("部品データの選択条件がありません。条件を選択してください。"),
                          QStringLiteral("データを表示できません"), MessageIcon::None);
        if (!chooseCarType(parent) || m_session.makerDb.isEmpty())
            return false;
    }
    const QString error = m_connections.openCatalogue(m_session.makerDb);
    if (error.isEmpty())
        return true;
    m_messages.inform(error, QStringLiteral("データを表示できません"), MessageIcon::Critical);
    return false;
}

bool CatalogueChoice::chooseCarType(QWidget *parent)
{
    openCarSetDb();
    DlgCarType dialog(m_session, m_messages, m_connections, parent);
    return dialog.exec() == QDialog::Accepted;
}

std::unique_ptr<CatalogueTable> CatalogueChoice::currentTable()
{
    if (!m_connections.catalogueOpen())
        return {};
    QString error;
    if (m_session.typeTable.isEmpty()) {
        m_messages.inform(QStringLiteral("車両タイプが選択されていません。"), QStringLiteral("データを表示できません"),
                          MessageIcon::Critical);
        return {};
    }
    auto table = CatalogueTable::open(m_connections.catalogue(), m_session.typeTable, &error);
    if (!table)
        m_messages.inform(error, QStringLiteral("データを表示できません"), MessageIcon::Critical);
    return table;
}

} // namespace est::workitems
