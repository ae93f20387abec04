#pragma once

// What fuzz targets that read forms share: an application in a temporary folder, and a document that is read
// anew for each input.

#include "core/application.h"
#include "core/user_interface.h"
#include "document/document.h"
#include "document/form_reader.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace sheetwright {

inline void Require(bool holds) {
    if (!holds) std::abort();
}

class FuzzInterface : public SilentUserInterface {
  public:
    [[nodiscard]] bool IsStopWanted() override { return isStopping && --questions <= 0; }

    bool isStopping = false;
    int questions = 0;  // the one at which the person stops
};

class FuzzWorkplace {
  public:
    FuzzWorkplace()
        : m_application(QStringLiteral("Sheetwright"), m_folder.path(), Settings(m_folder.path()), m_ui) {
        m_application.conventions = ConventionsOf(QLocale::c());
    }

    void WriteFile(const QString& name, const QByteArray& bytes) const {
        QFile file(m_folder.filePath(name));
        Require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    [[nodiscard]] FuzzInterface& TheInterface() { return m_ui; }
    [[nodiscard]] Application& TheApplication() { return m_application; }
    [[nodiscard]] QString Folder() const { return m_folder.path() + u'/'; }

  private:
    QTemporaryDir m_folder;
    FuzzInterface m_ui;
    Application m_application;
};

// The form in the workplace's folder, which outlives it.
class ReadDocument : public frmSheetwright {
  public:
    explicit ReadDocument(FuzzWorkplace& workplace) : frmSheetwright(workplace.TheApplication()) {
        MyTempDir = workplace.Folder();
        Tag = QStringLiteral("form.aff");
        ReadFormFile(*this);
    }
    ReadDocument(const ReadDocument&) = delete;
    ReadDocument& operator=(const ReadDocument&) = delete;
    ~ReadDocument() { MyTempDir.clear(); }
};

}  // namespace sheetwright
