#pragma once

// What a page and the frame make of the drivers of the download manager: a button for each driver that can
// fill the page, and the commands behind it.

#include <QIcon>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <vector>

namespace sheetwright {

class Application;
class FETCHDOCK;
class frmSheetwright;

// A button of the tool bar that downloads from a driver.
struct DriverButton {
    QString key;             // "DL" and the driver's name as the page writes it
    QIcon icon;              // of the driver
    std::int16_t index = 0;  // of the driver in the download manager (the button's tag)
    QString toolTip;
    QString description;  // the driver's data folder, with trailing separator
};

// The driver that a button is for, as the page writes it.
[[nodiscard]] QString DriverOf(const DriverButton& button);

// The buttons for the drivers that a page names, as "<driver path>;<driver path>". A driver that isn't known
// or can't be used has none. Reads the list of drivers again. Raises 457 for a driver that is named twice;
// `buttons` then holds those before it.
void MakeDriverButtons(const Application& application, FETCHDOCK& dock, const QString& drivers,
                       std::vector<DriverButton>& buttons);

// The names of all drivers, for the Edit menu.
[[nodiscard]] QStringList DriverNames(const FETCHDOCK& dock);

// A click on a button: downloads, and imports what was delivered into the form in front; none imports
// nothing. `bringToFront` brings this program to the foreground, since a driver may show windows.
void DownloadAndImport(FETCHDOCK& dock, const DriverButton& button, frmSheetwright* document,
                       const std::function<void()>& bringToFront);
// The popup entry Download...: the person is told the name of what was delivered.
void DownloadOnly(Application& application, FETCHDOCK& dock, const DriverButton& button,
                  const std::function<void()>& bringToFront);
// The popup entry Edit...: lets the person choose a table and opens it in the CSV viewer of the settings, if
// there is one. `start` starts a program with one argument.
void EditDriverTable(Application& application, const DriverButton& button,
                     const std::function<void(const QString& program, const QString& argument)>& start);

// Lets the person choose a table of a driver ("" for none) and imports it into the form in front.
// `downloadRoot` is where the dialog starts. Raises what `Import` raises.
void SelectImport(Application& application, const QString& downloadRoot, const QString& driver,
                  frmSheetwright* document);

}  // namespace sheetwright
