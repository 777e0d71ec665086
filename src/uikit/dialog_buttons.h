#pragma once
// The OK and キャンセル buttons at the foot of a dialog.

#include <QHBoxLayout>
#include <QPushButton>

namespace est::ui {

struct DialogButtons
{
    QHBoxLayout *row;
    QPushButton *ok;     // cmdOK
    QPushButton *cancel; // cmdCancel
};

// Right-aligned; neither button takes Enter unless `okIsDefault`.
inline DialogButtons dialogButtons(QWidget *dialog, bool okIsDefault = false)
{
    DialogButtons b{new QHBoxLayout, new QPushButton(QStringLiteral("OK"), dialog),
                    new QPushButton(QStringLiteral("キャンセル"), dialog)};
    b.ok->setObjectName(QStringLiteral("cmdOK"));
    b.cancel->setObjectName(QStringLiteral("cmdCancel"));
    b.ok->setAutoDefault(false);
    b.cancel->setAutoDefault(false);
    b.ok->setDefault(okIsDefault);
    b.row->addStretch(1);
    b.row->addWidget(b.ok);
    b.row->addWidget(b.cancel);
    return b;
}

} // namespace est::ui
