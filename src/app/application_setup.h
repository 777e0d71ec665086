#pragma once
// Names, version, the Japanese font and Qt's own Japanese texts of the application object,
// shared by the program and the start-up benchmark so that both start the same way.

class QApplication;
class QCoreApplication;

namespace est::app {

// The names under which the settings store and the per-user data folder are kept; callable
// before the application object exists, as the command line needs them first.
void setApplicationNames();

void setUpApplication(QApplication &application);

// Qt's Japanese translations (はい / いいえ / キャンセル of message boxes, the file, print and
// preview dialogs), installed on the application. False when they are not installed on the
// machine; the dialogs then keep Qt's English texts.
bool installQtTranslations(QCoreApplication &application);

} // namespace est::app
