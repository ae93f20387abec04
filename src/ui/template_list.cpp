#include "ui/template_list.h"

#include "core/application.h"
#include "core/failure.h"
#include "core/paths.h"

#include <QDir>
#include <QKeyEvent>
#include <QStyle>

namespace sheetwright {

namespace {

constexpr int kPathRole = Qt::UserRole;
constexpr int kFolderRole = Qt::UserRole + 1;

bool IsReadable(const QDir& folder) {
    return folder.exists() && folder.isReadable();
}

QDir FolderAt(const QString& stored) {
    return QDir(QDir(OnDisk(stored)).absolutePath());
}

// The folder that "DATA" would lie in; other folders as they are.
QString WithoutData(const QString& folder) {
    QString path = WithTrailingSeparator(folder);
    path.chop(1);
    const bool isData = GetFileName(path).compare(QStringLiteral("DATA"), Qt::CaseInsensitive) == 0;
    return isData ? GetFolder(path) : folder;
}

QFileInfoList Templates(const QDir& folder) {
    QFileInfoList templates = folder.entryInfoList(QDir::Files, QDir::Name | QDir::IgnoreCase);
    const auto isOther = [](const QFileInfo& file) {
        return !file.fileName().endsWith(QStringLiteral(".aft"), Qt::CaseInsensitive);
    };
    templates.removeIf(isOther);
    return templates;
}

}  // namespace

TemplateList::TemplateList(const Application& application, QWidget* parent)
    : QListWidget(parent), m_application(application) {
    setObjectName(QStringLiteral("lvNew"));
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemDoubleClicked, this, &TemplateList::OpenSelected);
}

bool TemplateList::UpdateNewList(const QString& folder) {
    QDir shown = FolderAt(folder);
    if (!IsReadable(shown)) shown = FolderAt(WithoutData(folder));
    if (!IsReadable(shown)) return false;
    clear();
    if (QDir above = shown; !shown.isRoot() && above.cdUp()) {
        AddRow(QStringLiteral(".."), above.path(), true,
               style()->standardIcon(QStyle::SP_FileDialogToParent));
        item(0)->setToolTip(m_application.Translate(QStringLiteral("Up One Level")));
    }
    const QIcon folderIcon = style()->standardIcon(QStyle::SP_DirIcon);
    const QIcon fileIcon = style()->standardIcon(QStyle::SP_FileIcon);
    constexpr QDir::Filters kFolders = QDir::Dirs | QDir::NoDotAndDotDot;
    for (const QFileInfo& entry : shown.entryInfoList(kFolders, QDir::Name | QDir::IgnoreCase))
        AddRow(entry.fileName(), entry.filePath(), true, folderIcon);
    for (const QFileInfo& entry : Templates(shown))
        AddRow(entry.fileName(), entry.filePath(), false, fileIcon);
    return true;
}

void TemplateList::OpenSelected() {
    if (selectedItems().isEmpty()) return;
    const QListWidgetItem& row = *selectedItems().constFirst();
    const QString path = row.data(kPathRole).toString();
    if (row.data(kFolderRole).toBool()) {
        OpenFolder(path);
    } else if (Chosen) {
        Chosen(path);
    }
}

void TemplateList::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || selectedItems().isEmpty()) return QListWidget::keyPressEvent(event);
    event->accept();
    OpenSelected();
}

void TemplateList::OpenFolder(const QString& folder) {
    if (UpdateNewList(folder)) return setCurrentRow(0);
    m_application.ui.ShowMessage(Failure(failure::kPathNotFound).Text(), m_application.Title,
                                 MessageIcon::Critical);
}

void TemplateList::AddRow(const QString& text, const QString& path, bool isFolder, const QIcon& icon) {
    auto* const row = new QListWidgetItem(icon, text, this);
    row->setData(kPathRole, path);
    row->setData(kFolderRole, isFolder);
}

}  // namespace sheetwright
