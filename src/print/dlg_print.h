#pragma once
// dlgPrint: what to print (shop copy, paint sheet, paint-index sheet, the photos four to a page
// or one large), the announced number
// of sheets, the layout (remembered in the settings store), and the ways to go on:
// 印刷 (the printer), プレビュー, PDF保存 and, for the invoice kinds, 電子インボイス保存.

#include "print/print_options.h"
#include "uikit/guarded_dialog.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace est::print {

class DlgPrint : public ui::GuardedDialog
{
    Q_OBJECT
public:
    enum class Action { None, Print, Preview, Pdf, EInvoice };

    explicit DlgPrint(Messages &messages, QWidget *parent = nullptr);

    // cmdEInvoice is enabled only for an estimate of an invoice kind.
    void setInvoiceKind(bool invoice);

    PrintOptions options() const;
    Action action() const { return m_action; }

    // "印刷枚数は" n "枚です。" with n = (1 + paint) x (2 with a shop copy, else 1).
    static QString sheetCountText(bool shopCopy, bool paintSheet);

private:
    void updateCount();
    void finish(Action action);

    QCheckBox *m_hikae;
    QCheckBox *m_paint;
    QCheckBox *m_psisu;
    QCheckBox *m_photo;
    QRadioButton *m_photo4;
    QRadioButton *m_photo1;
    QLabel *m_count;
    QRadioButton *m_layoutA;
    QRadioButton *m_layoutB;
    QPushButton *m_eInvoice;
    Action m_action = Action::None;
};

// The layout last chosen in dlgPrint (settings store "Print"/"Layout"), "A" when none.
Layout rememberedLayout();
void rememberLayout(Layout layout);

} // namespace est::print
