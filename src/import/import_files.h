#pragma once

// The files of an import: where a driver's folder is, the copy that the form keeps, and which pages come in
// pairs.

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>
#include <utility>

namespace sheetwright {

class frmSheetwright;

// The folder of the driver that a file belongs to, the nearest one with the file "DRIVER.INF", from its first
// "DRIVERS\" on as written; without that name the whole folder. `path` itself when there is no such folder.
[[nodiscard]] QString GetRelativePath(const QString& path);

// A file that is imported. It is read once: what is kept is what was imported, whoever writes to it.
class ImportedFile {
  public:
    explicit ImportedFile(QString path) : m_path(std::move(path)) {}

    [[nodiscard]] const QString& Path() const { return m_path; }
    // Raises 53, 75 or 76 for a file that can't be read.
    [[nodiscard]] const QByteArray& Bytes();

  private:
    QString m_path;
    std::optional<QByteArray> m_bytes;
};

// Copies a file into the form's temporary directory as "import1.csv", or the next number that is free.
// Returns the copy's path; without that directory nothing is copied, and it is "". Raises what writing
// raises.
[[nodiscard]] QString KeepImportedFile(const frmSheetwright& document, const QByteArray& bytes);

// Whether the form says which of its pages come in pairs.
[[nodiscard]] bool HasLinkedPages(const frmSheetwright& document);
// The companion of the page on screen: a design, and its title. None when the page is not named, or the
// design is not there.
struct Companion {
    std::int16_t design;
    QString title;
};
[[nodiscard]] std::optional<Companion> CompanionOfPage(const frmSheetwright& document);

}  // namespace sheetwright
