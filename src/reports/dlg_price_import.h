#pragma once
// dlgPriceImport: part prices from a maker's CSV price list. The user picks the maker and the
// file; the dialog previews how many prices change, stay or match no part, and applies them
// in one go after asking.

#include "common/messages.h"
#include "reports/file_chooser.h"
#include "reports/price_import.h"
#include "uikit/guarded_dialog.h"
#include "workitems/catalogue.h"

class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace est::reports {

class DlgPriceImport : public ui::GuardedDialog
{
    Q_OBJECT
public:
    DlgPriceImport(const QString &appFolder, const QList<workitems::Maker> &makers,
                   const QList<workitems::VehicleType> &types, FileChooser chooser, Messages &messages,
                   QWidget *parent = nullptr);

    // Reads the file for the chosen maker and shows the preview.
    void loadFile(const QString &path);

private:
    void chooseFile();
    void applyPrices();

    PriceImport m_import;
    QList<workitems::Maker> m_makers;
    FileChooser m_chooser;
    QString m_path;
    QComboBox *m_maker;
    QLabel *m_file;
    QPlainTextEdit *m_preview;
    QPushButton *m_apply;
};

} // namespace est::reports
