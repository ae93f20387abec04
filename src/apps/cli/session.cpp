#include "apps/cli/session.h"

#include "core/error_log.h"
#include "core/folders.h"
#include "core/paths.h"
#include "core/text.h"
#include "document/form_archive.h"
#include "document/headless_page.h"

#include <QFile>
#include <QFileInfo>

#include <new>

namespace sheetwright::cli {

namespace {

QString ProgramTitle() {
    return QStringLiteral("Tolvane Quillon Sheetwright");
}

bool CanBeRead(const QString& path) {
    QFile file(OnDisk(path));
    return QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly);
}

// A temporary directory for as long as a form's text is looked at.
class UnpackedForm {
  public:
    UnpackedForm(Application& application, const QString& path)
        : m_folder(MakeTempDirectory(application, QString())) {
        UnZipForm(application, path, m_folder);
    }
    UnpackedForm(const UnpackedForm&) = delete;
    UnpackedForm& operator=(const UnpackedForm&) = delete;
    ~UnpackedForm() { RemoveTempDirectory(m_folder); }

    [[nodiscard]] const QString& Folder() const { return m_folder; }

  private:
    QString m_folder;
};

}  // namespace

Session::Session(const QString& installFolder)
    : m_application(ProgramTitle(), installFolder, Settings(), m_ui) {
    m_application.LoadLanguage();
    m_application.LoadPaperTable();
    m_ui.SetOwnTitle(m_application.Title);
    if (m_scratch.IsValid()) m_application.WritableFolder = m_scratch.Path();
}

void Session::TakeInHand(const QString& path) {
    m_formInHand = path;
    RequireReadable(m_application, path);
}

CommandError Session::Corrupt() const {
    return CommandError(m_application.Translate(QStringLiteral("Corrupt form file. Cannot continue.")) +
                        QStringLiteral(" (%1)").arg(m_formInHand));
}

std::unique_ptr<frmSheetwright> Session::OpenForm(const QString& path) {
    TakeInHand(path);
    auto document = std::make_unique<frmSheetwright>(m_application);
    UseHeadlessPage(*document);
    const std::optional<Failure> failed = Ignoring([&] { OpenDocument(*document, path); });
    if (failed && failed->Number() == failure::kInputPastEnd) throw Corrupt();
    if (failed) throw Failure(*failed);
    if (document->memory.DesignPageCount() < 1)
        throw CommandError(QStringLiteral("no design page could be read (%1)").arg(path));
    return document;
}

QString Session::FormText(const QString& path) {
    TakeInHand(path);
    SweepTempDirectories(m_application);
    const UnpackedForm form(m_application, path);
    const QString member = form.Folder() + GetFileName(path);
    if (!FileExists(member))
        throw CommandError(m_application.Translate(QStringLiteral("Error: File Missing")) +
                           QStringLiteral(" (%1)").arg(path));
    const QByteArray bytes = ReadWholeFile(member);
    if (bytes.isEmpty()) throw Corrupt();
    return DecodeFileText(bytes);
}

bool Session::Guarded(QStringView sub, const std::function<void()>& step) {
    try {
        step();
        return true;
    } catch (const CommandError& error) {
        ConsoleUserInterface::PrintError(error.Text());
    } catch (const Failure& caught) {
        Tell(sub, caught);
    } catch (const std::bad_alloc&) {
        Tell(sub, Failure(failure::kOutOfMemory));
    }
    return false;
}

void Session::Tell(QStringView sub, const Failure& caught) {
    LoggedStep(m_application, sub.toString(), m_formInHand, [&] { throw Failure(caught); });
    ConsoleUserInterface::PrintError(
        QStringLiteral("%1: %2 (%3)").arg(QString::number(caught.Number()), caught.Text(), m_formInHand));
}

void Session::WarnOfLostSteps() const {
    const std::int64_t lost = m_application.printing.lostSteps;
    if (lost == 0) return;
    ConsoleUserInterface::PrintWarning(
        QStringLiteral("parts of the design could not be drawn (%1); errors.csv tells why (%2)")
            .arg(lost)
            .arg(m_formInHand));
}

void RequireReadable(const Application& application, const QString& path) {
    if (CanBeRead(path)) return;
    throw CommandError(application.Translate(QStringLiteral("Unable to open file")) + QStringLiteral(": ") +
                       application.Translate(
                           QStringLiteral("Please check the path is valid and the file is not in use by any "
                                          "other applications.")) +
                       QStringLiteral(" (%1)").arg(path));
}

void RequirePage(const frmSheetwright& document, int page) {
    if (page >= 1 && page <= document.Pages) return;
    throw CommandError(QStringLiteral("there is no page %1: the form has %2").arg(page).arg(document.Pages));
}

QString TitleOf(const frmSheetwright& document, int design) {
    const KeyedCollection<QString>& titles = document.memory.PageProps;
    return design >= 1 && design <= titles.Count() ? titles.At(design) : QString();
}

}  // namespace sheetwright::cli
