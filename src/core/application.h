#pragma once

// The process-wide state: one object, made at start-up and handed down by reference. There is no other
// global; a test makes its own in a temporary folder.

#include "core/conventions.h"
#include "core/keyed_collection.h"
#include "core/main_window.h"
#include "core/settings.h"
#include "core/user_interface.h"
#include "import/csv_table.h"
#include "print/print_state.h"
#include "translate/dictionary.h"

#include <QString>

#include <cstdint>
#include <memory>

namespace sheetwright {

// The program's own version. Only major and minor count when a form's version is compared.
struct Version {
    int major = 1;
    int minor = 0;
    int revision = 0;
};
[[nodiscard]] Version ProgramVersion();

class Application {
  public:
    // `title` tells the deployment and is fixed when it is built; `installFolder` is where the executable and
    // its data files lie (a separator is added). Sets the run modes and the writable folder; reads nothing
    // else.
    Application(const QString& title, const QString& installFolder, Settings settings, UserInterface& ui);

    QString Title;           // after `LoadLanguage` its translation; the first key of every per-user setting
    bool ViewerMode;         // the title holds "viewer", in any case: forms are read-only
    bool ReportMode;         // the title holds "report", in any case: driven by a host only
    QString InstallFolder;   // with trailing separator
    QString WritableFolder;  // the install folder where it is writable, otherwise the user's data folder;
                             // with trailing separator. TEMP lies there.
    QString LogFolder;       // where errors.csv lies: the writable folder; with trailing separator
    QString CurrentTempDir;  // with trailing separator; follows the document that has the focus
    std::int16_t CurrentOrientation = 1;
    std::int16_t CurrentPaperSize = 9;

    Settings settings;
    Conventions conventions;
    Dictionary dictionary;
    CsvTable PaperTable;
    KeyedCollection<QString> FormVars;  // values of `VAR`, by upper-cased name, shared by all open documents
    PrintState printing;
    UserInterface& ui;
    NoMainWindow noMainWindow;
    MainWindow* mainWindow = &noMainWindow;  // never none; not owned

    // "Dunmorrow" in viewer mode, else "SHEETWRIGHT": the key under which the tip dialog keeps its place.
    [[nodiscard]] QString TipIdentity() const;

    // Refreshes the conventions from the system's locale, then opens a dictionary and makes its translation
    // of the title the title. The one that is open and the title stay when there is no such file or it can't
    // be read. Raises 9 for a dictionary of one column that has the title.
    void LoadDictionary(const QString& path);

    // Loads "Sheetwright.DIC" from the install folder if it is there, and makes the translation of the title
    // the title: a translated installation keeps its settings apart from an untranslated one. Raises 9 for a
    // dictionary of one column that has the title.
    void LoadLanguage();

    // Loads "papersizes.csv" from the install folder; without that file the table has no columns.
    void LoadPaperTable();

    // A translated text with its markers "%1" to "%9" filled from `parameters`, values separated by "¦".
    [[nodiscard]] QString Translate(const QString& text, const QString& parameters = QString()) const {
        return dictionary.Translate(text, parameters);
    }
    [[nodiscard]] TruthWords TranslatedTruthWords() const;
    // True for the text "True" or its translation; any other text is false.
    [[nodiscard]] bool Str2Boolean(QStringView text) const;
};

}  // namespace sheetwright
