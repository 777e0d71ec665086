#pragma once
// frmSp: the splash window with version and title, closed by a timer.

#include <QWidget>

namespace est::app {

class FrmSp : public QWidget
{
    Q_OBJECT
public:
    explicit FrmSp(int milliseconds, QWidget *parent = nullptr);

    // "ﾊﾞｰｼﾞｮﾝ " followed by major.minor.revision.
    static QString versionText();

Q_SIGNALS:
    void finished();
};

} // namespace est::app
