#include "core/application.h"

#include "core/failure.h"
#include "core/paths.h"

#include <QDir>
#include <QLocale>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <utility>

namespace sheetwright {

namespace {

bool HasWord(const QString& title, const QString& word) {
    return title.contains(word, Qt::CaseInsensitive);
}

// Permissions don't tell: a privileged user may write anywhere, and a disk may be read-only.
bool IsWritable(const QString& folder) {
    QTemporaryFile probe(folder + QStringLiteral("XXXXXX.write"));
    return probe.open();
}

QString WritableFolderFor(const QString& installFolder) {
    if (IsWritable(installFolder)) return installFolder;
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QString folder = WithTrailingSeparator(data + QStringLiteral("/sheetwright"));
    QDir().mkpath(folder);
    return folder;
}

}  // namespace

Version ProgramVersion() {
    return {SHEETWRIGHT_VERSION_MAJOR, SHEETWRIGHT_VERSION_MINOR, SHEETWRIGHT_VERSION_REVISION};
}

Application::Application(const QString& title, const QString& installFolder, Settings userSettings,
                         UserInterface& userInterface)
    : Title(title),
      ViewerMode(HasWord(title, QStringLiteral("viewer"))),
      ReportMode(HasWord(title, QStringLiteral("report"))),
      InstallFolder(WithTrailingSeparator(installFolder)),
      WritableFolder(WritableFolderFor(InstallFolder)),
      LogFolder(WritableFolder),
      settings(std::move(userSettings)),
      ui(userInterface) {}

QString Application::TipIdentity() const {
    return ViewerMode ? QStringLiteral("Dunmorrow") : QStringLiteral("SHEETWRIGHT");
}

void Application::LoadDictionary(const QString& path) {
    conventions = ConventionsOf(QLocale::system());
    if (!FileExists(path) || Ignoring([&] { dictionary.Load(path); })) return;
    Title = Translate(Title);
}

void Application::LoadLanguage() {
    LoadDictionary(InstallFolder + QStringLiteral("Sheetwright.DIC"));
    Title = Translate(Title);
}

void Application::LoadPaperTable() {
    Ignoring([&] { PaperTable.SetFileName(InstallFolder + QStringLiteral("papersizes.csv")); });
}

TruthWords Application::TranslatedTruthWords() const {
    return {Translate(QStringLiteral("True")), Translate(QStringLiteral("False"))};
}

bool Application::Str2Boolean(QStringView text) const {
    const QString trueWord = QStringLiteral("True");
    return text == trueWord || text == Translate(trueWord);
}

}  // namespace sheetwright
