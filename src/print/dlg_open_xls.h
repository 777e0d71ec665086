#pragma once
// dlgOpenXls: opens a saved workbook in the spreadsheet program for work by hand. Dir1
// lists the folders below Mitsumori, File1 the workbooks of the chosen folder, txtFname
// the program's path (kept in temp/xlsPath.txt by cmdPathOK, chosen with cmdXlsPath).

#include "common/messages.h"
#include "uikit/guarded_dialog.h"

#include <functional>

class QLineEdit;
class QListWidget;

namespace est::print {

class DlgOpenXls : public ui::GuardedDialog
{
    Q_OBJECT
public:
    // Starts `program` on `workbook`, detached; true when it started.
    using Launcher = std::function<bool(const QString &program, const QString &workbook)>;

    DlgOpenXls(Messages &messages, QString appFolder, QWidget *parent = nullptr);
    // Tests replace the real start of the program.
    void setLauncher(Launcher launcher) { m_launch = std::move(launcher); }

    QString currentFolder() const { return m_folder; }

private:
    void showFolder(const QString &folder);
    void choosePath();
    void storePath();
    void open();

    QString m_appFolder;
    QString m_root;
    QString m_folder;
    QListWidget *m_dirs;
    QListWidget *m_files;
    QLineEdit *m_path;
    Launcher m_launch;
};

} // namespace est::print
