#pragma once

// What every program with windows does at its start.

class QApplication;

namespace sheetwright {

class Application;

// The words of Qt's own dialogs. Those of the program come from its dictionary.
void SpeakTheSystemsLanguage(QApplication& desktop);

// Tells of the exception that is being handled, whatever it is, as a failure.
void TellEscaped(Application& application);

}  // namespace sheetwright
