#include "app/frm_setting.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QPushButton>

namespace est::app {

FrmSetting::FrmSetting(QWidget *parent) : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("frmSetting"));
    setWindowTitle(QStringLiteral("各種設定"));
    auto *layout = new QGridLayout(this);
    const std::pair<const char *, const char *> buttons[] = {
        {"Command1", "部品データ設定"},
        {"Command2", "登録地名設定"},
        {"Command3", "バンパー指数設定"},
        {"Command4", "自社情報設定"},
        {"Command5", "塗装部位名設定"},
        {"Command6", "非課税項目設定"},
        {"Command7", "基礎指数設定"},
        {"Command9", "内板指数設定"},
        {"Command10", "鈑金指数設定"},
        {"Command11", "メーカー名設定"},
        {"cmdPaintSisu", "付加指数設定"},
        {"cmdKokyakuSet", "顧客データ設定"},
        {"cmdKaniSet", "簡易見積単価設定"},
        {"cmdExp", "データ出力"},
        {"cmdPrinter", "プリンタ設定"},
        {"cmdServer", "共有サーバー"},
    };
    int i = 0;
    for (const auto &[name, caption] : buttons) {
        auto *button = new QPushButton(QString::fromUtf8(caption), this);
        button->setObjectName(QLatin1String(name));
        button->setMinimumSize(180, 40);
        button->setEnabled(false);
        layout->addWidget(button, i / 2, i % 2);
        ++i;
    }
    auto *exit = new QPushButton(QStringLiteral("閉じる"), this);
    exit->setObjectName(QStringLiteral("cmdExit"));
    exit->setMinimumHeight(40);
    layout->addWidget(exit, (i + 1) / 2, 0, 1, 2);
    connect(exit, &QPushButton::clicked, this, &FrmSetting::close);
}

void FrmSetting::setScreen(const QString &buttonName, std::function<void()> open)
{
    QPushButton *b = button(buttonName);
    if (!b)
        return;
    b->setEnabled(true);
    connect(b, &QPushButton::clicked, this, [open = std::move(open)] { open(); });
}

QPushButton *FrmSetting::button(const QString &objectName) const
{
    return findChild<QPushButton *>(objectName);
}

void FrmSetting::closeEvent(QCloseEvent *event)
{
    QWidget::closeEvent(event);
    Q_EMIT closed();
}

} // namespace est::app
