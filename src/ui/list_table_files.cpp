#include "ui/list_table_files.h"

#include "core/application.h"
#include "core/failure.h"
#include "core/folders.h"
#include "core/paths.h"
#include "ui/list_table_model.h"

#include <QFileInfo>
#include <QUndoStack>

namespace sheetwright {

namespace {

bool IsList(const QString& path) {
    return path.endsWith(QStringLiteral(".csv"), Qt::CaseInsensitive);
}

}  // namespace

ListTableFiles::ListTableFiles(Application& application, ListTableModel& model, QUndoStack& stack)
    : m_application(application), m_model(model), m_stack(stack) {
    Show(std::make_unique<ListFile>(application.Translate(QStringLiteral("Name"))));
}

QString ListTableFiles::Name() const {
    return m_file->Path().isEmpty() ? m_application.Translate(QStringLiteral("New List"))
                                    : GetFileName(m_file->Path());
}

// The commands know the table that goes.
void ListTableFiles::Show(std::unique_ptr<ListFile> file) {
    m_stack.clear();
    m_model.SetTable(file->Table());
    m_file = std::move(file);
    if (Shown) Shown();
}

void ListTableFiles::New() {
    if (MayLeave()) Show(std::make_unique<ListFile>(m_application.Translate(QStringLiteral("Name"))));
}

QString ListTableFiles::ListsFolder() const {
    const QString folder = ListFolder(m_application);
    const QString lists = OnDisk(folder + QStringLiteral("LISTS"));
    return QFileInfo(lists).isDir() ? lists : folder;
}

void ListTableFiles::Open() {
    if (!MayLeave()) return;
    FileDialog dialog;
    dialog.title = m_application.Translate(QStringLiteral("Open"));
    dialog.filter = m_application.Translate(QStringLiteral("Lists (*.csv)")) + QStringLiteral("|*.csv");
    dialog.defaultExtension = QStringLiteral("csv");
    dialog.initialFolder = ListsFolder();
    dialog.flags = dialogs::kFileMustExist | dialogs::kPathMustExist | dialogs::kHideReadOnly;
    if (Ignoring([&] { m_application.ui.ShowOpen(dialog); })) return;
    Load(dialog.fileName);
}

void ListTableFiles::OpenFile(const QString& path) {
    if (MayLeave()) Load(path);
}

void ListTableFiles::Load(const QString& path) {
    if (IsList(path)) return Show(std::make_unique<ListFile>(ListFile::Open(path)));
    m_application.ui.ShowMessage(
        m_application.Translate(QStringLiteral("Only lists (.csv) can be opened here.")), GetFileName(path),
        MessageIcon::Exclamation);
}

bool ListTableFiles::Ask(const QString& question) {
    return m_application.ui.ShowMessage(question, Name(), MessageIcon::Exclamation, MessageButtons::YesNo) ==
           MessageAnswer::Yes;
}

// A file that must not be written can still be kept under another name.
bool ListTableFiles::SaveTo(const QString& path) {
    const auto failed = Ignoring([&] { m_file->Save(path); });
    if (!failed) {
        m_stack.setClean();
        if (Shown) Shown();
        return true;
    }
    const bool isForbidden =
        failed->Number() == failure::kPathAccess || failed->Number() == failure::kPermissionDenied;
    if (!isForbidden) throw Failure(*failed);
    return Ask(m_application.Translate(
               QStringLiteral("The file can't be written. Save the list under another name?"))) &&
           SaveAs();
}

bool ListTableFiles::Save() {
    if (m_file->Path().isEmpty()) return SaveAs();
    const QString question =
        m_application.Translate(QStringLiteral("The file has been changed since it was opened. Replace it?"));
    return (!m_file->IsChangedOnDisk() || Ask(question)) && SaveTo(m_file->Path());
}

bool ListTableFiles::SaveAs() {
    FileDialog dialog;
    dialog.title = m_application.Translate(QStringLiteral("Save As"));
    dialog.filter = m_application.Translate(QStringLiteral("Lists (*.csv)")) + QStringLiteral("|*.csv");
    dialog.defaultExtension = QStringLiteral("csv");
    dialog.initialFolder = m_file->Path().isEmpty() ? ListsFolder() : GetFolder(m_file->Path());
    dialog.fileName = m_file->Path();
    dialog.flags = dialogs::kOverwritePrompt | dialogs::kPathMustExist | dialogs::kHideReadOnly;
    if (Ignoring([&] { m_application.ui.ShowSave(dialog); })) return false;
    QString path = dialog.fileName;
    if (!IsList(path)) path += QStringLiteral(".csv");
    const bool isOther = path != dialog.fileName && FileExists(path);
    const QString question =
        m_application.Translate(QStringLiteral("There is a list of that name already. Replace it?"));
    return (!isOther || Ask(question)) && SaveTo(path);
}

bool ListTableFiles::MayLeave() {
    if (m_stack.isClean()) return true;
    const MessageAnswer answer =
        m_application.ui.ShowMessage(m_application.Translate(QStringLiteral("Save any changes?")), Name(),
                                     MessageIcon::Question, MessageButtons::YesNoCancel);
    return answer == MessageAnswer::No || (answer == MessageAnswer::Yes && Save());
}

}  // namespace sheetwright
