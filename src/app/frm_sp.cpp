#include "app/frm_sp.h"

#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace est::app {

QString FrmSp::versionText()
{
    return QStringLiteral("ﾊﾞｰｼﾞｮﾝ %1.%2.%3")
        .arg(ESTIMATE_VERSION_MAJOR)
        .arg(ESTIMATE_VERSION_MINOR)
        .arg(ESTIMATE_VERSION_PATCH);
}

FrmSp::FrmSp(int milliseconds, QWidget *parent)
    : QWidget(parent, Qt::SplashScreen | Qt::WindowStaysOnTopHint)
{
    setObjectName(QStringLiteral("frmSp"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto *layout = new QVBoxLayout(this);
    auto *title = new QLabel(QStringLiteral("自動車鈑金塗装 見積書作成システム"), this);
    title->setObjectName(QStringLiteral("lblProductName"));
    QFont f = title->font();
    f.setPointSizeF(f.pointSizeF() * 1.6);
    f.setBold(true);
    title->setFont(f);
    title->setAlignment(Qt::AlignCenter);
    auto *version = new QLabel(versionText(), this);
    version->setObjectName(QStringLiteral("lblVersion"));
    version->setAlignment(Qt::AlignCenter);
    layout->addStretch(1);
    layout->addWidget(title);
    layout->addWidget(version);
    layout->addStretch(1);
    setFixedSize(480, 220);
    setStyleSheet(QStringLiteral("#frmSp { background: #f4f1e8; border: 2px solid #6b5b3e; }"));
    QTimer::singleShot(milliseconds, this, [this] {
        Q_EMIT finished();
        close();
    });
}

} // namespace est::app
