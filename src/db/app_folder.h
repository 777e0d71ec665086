#pragma once
// The application folder and the rule that turns the relative paths used throughout the
// program ("temp\kdata.txt", "Data\Hikazei.mdb", "Mitsumori\") into real paths.

#include <QString>

namespace est::db {

// A file of this name beside the program makes the program's folder the application folder:
// the build tree has one, so a program run from it keeps its data there.
inline const QString kAppFolderMarker = QStringLiteral("estimate-app-folder");

// The folder named by ESTIMATE_APP_HOME when that is set; else the program's folder when it
// holds the marker; else the user's data folder (an installed program,
// ~/.local/share/EstimateApp/EstimateApp on Linux).
QString applicationFolder();
// The same rule for a program in `programFolder`.
QString applicationFolderFor(const QString &programFolder);

// The folder, then a separator unless the folder already ends in one, then the relative part.
QString joinPath(const QString &folder, const QString &relative);

// Maps a relative path as the rest of the program names it onto this platform's layout:
// "temp"/"Temp" -> "temp", "Data"/"data" -> "Data", "Mitsumori" stays; database files ".mdb"
// become ".sqlite" and workbooks ".xls" become ".xlsx"; "\" becomes "/".
QString mapRelativePath(const QString &relative);

// joinPath(folder, mapRelativePath(relative)).
QString resolve(const QString &folder, const QString &relative);

} // namespace est::db
