#pragma once
// Names, version and the Japanese font of the application object, shared by the program and
// the start-up benchmark so that both start the same way.

class QApplication;

namespace est::app {

void setUpApplication(QApplication &application);

} // namespace est::app
