#include "app/dlg_hajime.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace est::app {

DlgHajime::DlgHajime(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("dlgHajime"));
    setWindowTitle(QStringLiteral("見積書作成 - 開始"));
    auto *layout = new QVBoxLayout(this);
    auto *title = new QLabel(QStringLiteral("作業を選んでください"), this);
    QFont f = title->font();
    f.setPointSizeF(f.pointSizeF() * 1.3);
    f.setBold(true);
    title->setFont(f);
    title->setAlignment(Qt::AlignCenter);
    layout->addWidget(title);
    const std::tuple<const char *, const char *, void (DlgHajime::*)()> buttons[] = {
        {"cmdSin", "新規見積書の作成", &DlgHajime::newEstimateChosen},
        {"cmdHen", "保存した見積書を開く", &DlgHajime::openEstimateChosen},
        {"cmdXls", "ワークブックを開く", &DlgHajime::openWorkbookChosen},
        {"cmdSetting", "各種設定", &DlgHajime::settingsChosen},
        {"CancelButton", "終了", &DlgHajime::cancelled},
    };
    for (const auto &[name, caption, signal] : buttons) {
        auto *button = new QPushButton(QString::fromUtf8(caption), this);
        button->setObjectName(QLatin1String(name));
        button->setMinimumHeight(40);
        button->setAutoDefault(false);
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, signal);
    }
    setMinimumWidth(320);
}

QPushButton *DlgHajime::button(const char *objectName) const
{
    return findChild<QPushButton *>(QLatin1String(objectName));
}

void DlgHajime::closeEvent(QCloseEvent *event)
{
    // Closing the start dialog ends the program, exactly as its cancel button.
    event->ignore();
    Q_EMIT cancelled();
}

void DlgHajime::reject()
{
    Q_EMIT cancelled();
}

} // namespace est::app
