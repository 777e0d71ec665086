#pragma once
// dlgOpen: the folders (Dir1) and workbooks (File1, .xlsx and .xls alike, an estimate's
// revisions as one entry whose revision is chosen in cboRevision, the newest by default; the
// chosen one's kind in lblKind) of the estimates folder; OK or choosing a file loads the estimate through
// the loader the caller passes in.

#include "uikit/guarded_dialog.h"

#include <functional>

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QDialogButtonBox;
class QVBoxLayout;
class QTreeWidget;

namespace est::workbook {

class DlgOpen : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // The loader reads the named workbook into the estimate; true when it did. The name is
    // relative to the estimates folder ("sub/240105A.xlsx" for a file in a subfolder).
    using Loader = std::function<bool(const QString &fileName)>;

    DlgOpen(const QString &folder, Loader loader, Messages &messages, QWidget *parent = nullptr);

    // OK: loads the selected file; the dialog closes once the estimate is read.
    void load();
    // Shows the file's folder in Dir1 and selects the file in File1 (a name relative to the
    // estimates folder). False when it is not listed there.
    bool selectFile(const QString &relativeName);
    // Puts a panel (a search over the estimates) above the folder and file lists.
    void addPanel(QWidget *panel);
    // A further button beside OK and キャンセル.
    QPushButton *addButton(const QString &objectName, const QString &caption);
    // The full path of the file chosen in File1, empty when none is.
    QString selectedPath() const;

private:
    void showFolder(const QString &path);
    void showKind();
    // cboRevision: the revisions of the estimate chosen in File1, the newest first.
    void showRevisions();
    // The file to open: the revision chosen of the estimate chosen; empty when none is.
    QString chosenName() const;

    Loader m_loader;
    QString m_root;
    QString m_shown;   // the folder whose files File1 lists
    QTreeWidget *m_dirs;
    QListWidget *m_files;
    QLabel *m_kind;
    QComboBox *m_revisions;
    QVBoxLayout *m_layout;
    QDialogButtonBox *m_buttons;
};

} // namespace est::workbook
