#include "import/drivers.h"

#include "core/application.h"
#include "core/paths.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/open_dialogs.h"
#include "import/fetchdock.h"
#include "import/import.h"

#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace sheetwright {

namespace {

constexpr QStringView kKey = u"DL";

QString WithBackslashes(QString path) {
    return path.replace(u'/', u'\\');
}

bool EndsInSeparator(const QString& path) {
    return !path.isEmpty() && IsSeparator(path.back());
}

// A page comes with a stranger's form: nothing is put outside the driver's folder.
bool LeadsOutside(const QString& item) {
    return WithBackslashes(item).split(u'\\').contains(QStringLiteral(".."));
}

QString NameIn(const QString& item) {
    return WithBackslashes(item).section(u'\\', 0, 0);
}

QString DataFolderOf(const QString& directory, const QString& item) {
    const bool isDataFolder = WithBackslashes(item).contains(QStringLiteral("\\data\\"), Qt::CaseInsensitive);
    return directory + item + (isDataFolder ? QString() : QStringLiteral("Data\\"));
}

std::optional<std::int16_t> IndexOf(const FETCHDOCK& dock, const QString& name) {
    for (std::int16_t index = 0; index < dock.Count(); ++index)
        if (dock.DriverName(index).compare(name, Qt::CaseInsensitive) == 0) return index;
    return std::nullopt;
}

// None for a driver that isn't known or can't be used.
std::optional<DriverButton> ButtonOf(const Application& application, FETCHDOCK& dock, const QString& item) {
    const QString name = NameIn(item);
    const std::optional<std::int16_t> index = IndexOf(dock, name);
    if (!index || LeadsOutside(item)) return std::nullopt;
    dock.SetIndex(*index);
    if (!dock.Available()) return std::nullopt;
    return DriverButton{.key = kKey.toString() + name,
                        .icon = dock.Icon(),
                        .index = *index,
                        .toolTip = application.Translate(QStringLiteral("Download %1"), name),
                        .description = DataFolderOf(dock.Directory(), item)};
}

// What was delivered; "" for nothing.
QString Fetch(FETCHDOCK& dock, const DriverButton& button, const std::function<void()>& bringToFront) {
    dock.SetIndex(button.index);
    dock.SetDataFolder(button.description);
    bringToFront();
    dock.ShowProgress(true);
    bringToFront();
    dock.Download();
    return dock.DownloadedFile();
}

bool MayImport(const frmSheetwright* document) {
    return document != nullptr && !document->application.ViewerMode && !document->MyReadonly;
}

FileDialog TableDialog(const Application& application) {
    FileDialog dialog;
    dialog.fileName = QStringLiteral("*.csv");
    dialog.defaultExtension = QStringLiteral("csv");
    dialog.filter =
        application.Translate(QStringLiteral("Comma-sep. Database (*.csv)")) + QStringLiteral("|*.csv");
    dialog.flags =
        dialogs::kFileMustExist | dialogs::kPathMustExist | dialogs::kHideReadOnly | dialogs::kLongNames;
    return dialog;
}

QString FolderOfTables(const QString& downloadRoot, const QString& driver) {
    QString folder = downloadRoot + QStringLiteral("\\DRIVERS");
    if (driver.isEmpty()) return folder;
    folder += u'\\' + driver;
    const QString data = folder + QStringLiteral("\\Data");
    return QFileInfo(OnDisk(data)).isDir() ? data : folder;
}

}  // namespace

QString DriverOf(const DriverButton& button) {
    return button.key.sliced(kKey.size());
}

void MakeDriverButtons(const Application& application, FETCHDOCK& dock, const QString& drivers,
                       std::vector<DriverButton>& buttons) {
    dock.Rescan();
    for (QString& item : drivers.split(u';', Qt::SkipEmptyParts)) {
        if (!EndsInSeparator(item)) item += u'\\';
        const std::optional<DriverButton> button = ButtonOf(application, dock, item);
        if (!button) continue;
        const bool isThere = std::ranges::any_of(buttons, [&](const DriverButton& other) {
            return other.key.compare(button->key, Qt::CaseInsensitive) == 0;
        });
        if (isThere) throw Failure(failure::kKeyExists);
        buttons.push_back(*button);
    }
}

QStringList DriverNames(const FETCHDOCK& dock) {
    QStringList names;
    for (std::int16_t index = 0; index < dock.Count(); ++index)
        names << dock.DriverName(index);
    return names;
}

void DownloadAndImport(FETCHDOCK& dock, const DriverButton& button, frmSheetwright* document,
                       const std::function<void()>& bringToFront) {
    std::optional<BusyDocument> busy;
    if (document != nullptr) busy.emplace(document->Busy);
    const QString file = Fetch(dock, button, bringToFront);
    if (!file.isEmpty() && MayImport(document)) Import(*document, file);
}

void DownloadOnly(Application& application, FETCHDOCK& dock, const DriverButton& button,
                  const std::function<void()>& bringToFront) {
    const QString file = Fetch(dock, button, bringToFront);
    if (file.isEmpty()) return;
    application.ui.ShowMessage(application.Translate(QStringLiteral("%1 downloaded."), GetFileName(file)),
                               application.Title, MessageIcon::Information);
}

void EditDriverTable(Application& application, const DriverButton& button,
                     const std::function<void(const QString& program, const QString& argument)>& start) {
    FileDialog dialog = TableDialog(application);
    dialog.title = application.Translate(QStringLiteral("Edit"));
    dialog.initialFolder = button.description;
    if (!ChooseToOpen(application, dialog)) return;
    const QString viewer = application.settings.Read(QStringLiteral("CSV Viewer"), QStringLiteral("Settings"),
                                                     QStringLiteral("Path"));
    if (!viewer.isEmpty()) start(viewer, dialog.fileName);
}

void SelectImport(Application& application, const QString& downloadRoot, const QString& driver,
                  frmSheetwright* document) {
    FileDialog dialog = TableDialog(application);
    dialog.title = application.Translate(QStringLiteral("Import"));
    dialog.initialFolder = FolderOfTables(downloadRoot, driver);
    if (ChooseToOpen(application, dialog) && MayImport(document)) Import(*document, dialog.fileName);
}

}  // namespace sheetwright
