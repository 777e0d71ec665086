#include "indices/index_screens.h"

#include "db/database.h"
#include "db/part_db.h"
#include "indices/estimate_context.h"
#include "indices/frm_bankin.h"
#include "indices/frm_bumpa.h"
#include "indices/frm_fuka.h"
#include "indices/index_value.h"

namespace est::indices {

namespace {

std::optional<QSqlDatabase> partDb(const QString &appFolder, Messages &messages)
{
    db::OpenResult opened = db::openDatabase(appFolder, db::kPartDb);
    if (!opened.ok()) {
        messages.inform(opened.error, QStringLiteral("データベース"), MessageIcon::Critical);
        return std::nullopt;
    }
    return opened.database;
}

} // namespace

std::optional<workitems::IndexHandOver> openSheetMetal(const QString &appFolder, Messages &messages,
                                                       QWidget *parent)
{
    const auto database = partDb(appFolder, messages);
    if (!database)
        return std::nullopt;
    FrmBankin screen(*database, messages, parent);
    if (screen.exec() != QDialog::Accepted)
        return std::nullopt;
    return screen.choice();
}

std::optional<BumperState> openBumper(const Session &session, const BumperState &kept, const QString &appFolder,
                                      Messages &messages, QWidget *parent)
{
    const auto database = partDb(appFolder, messages);
    if (!database)
        return std::nullopt;
    FrmBumpa screen(*database, bumperSettings(session), kept, messages, parent);
    if (screen.exec() != QDialog::Accepted)
        return std::nullopt;
    return screen.result();
}

std::optional<AdditionalState> openAdditional(const Session &session, const AdditionalState &kept,
                                              const QString &appFolder, Messages &messages, QWidget *parent)
{
    if (!FrmFuka::rateIsSet(session.paintLabourRate, messages))
        return std::nullopt;
    const auto database = partDb(appFolder, messages);
    if (!database)
        return std::nullopt;
    FrmFuka screen(*database, {session.paintLabourRate, roundingOf(session), vehicleLabels(session)}, kept,
                   messages, parent);
    if (screen.exec() != QDialog::Accepted)
        return std::nullopt;
    return screen.result();
}

} // namespace est::indices
