#include "core/folders.h"

#include "core/application.h"
#include "core/paths.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

#include <algorithm>

namespace sheetwright {

namespace {

constexpr QLatin1String kSection("Tolvane Quillon");
constexpr QLatin1String kFormKey("aff folder");
constexpr QLatin1String kTemplateKey("aft folder");
constexpr QLatin1String kHostTemplateKey("add folder");
constexpr QLatin1String kListKey("list folder");
constexpr int kSweepLimit = 100;
constexpr int kDrawLimit = 1000;
constexpr int kDrawDigits = 8;
constexpr std::uint32_t kDrawBound = 100'000'000;
constexpr QDir::Filters kAllFiles = QDir::Files | QDir::Hidden | QDir::System;

QString CurrentFolder() {
    return WithTrailingSeparator(QDir::currentPath());
}

QString DataFolder() {
    return WithTrailingSeparator(CurrentFolder() + QStringLiteral("DATA"));
}

QString Stored(const Application& application, const QString& key) {
    return application.settings.Read(application.Title, kSection, key);
}

// A value of "" counts as none: as a folder it would be the root of the disk.
QString Remembered(const Application& application, const QString& key, const QString& fallback) {
    const QString stored = Stored(application, key);
    return WithTrailingSeparator(stored.isEmpty() ? fallback : stored);
}

void Remember(Application& application, const QString& key, const QString& path) {
    application.settings.Write(application.Title, kSection, key, path);
}

bool IsOnRemovableDisk(const QString& path) {
    return path.startsWith(QStringLiteral("a:"), Qt::CaseInsensitive) ||
           path.startsWith(QStringLiteral("b:"), Qt::CaseInsensitive);
}

// What a crash left under the name of the probe goes first: were it a link, writing would follow it, and a
// pipe would never open.
bool CanWriteInto(const QString& folder) {
    if (folder.isEmpty()) return false;
    QFile probe(WithTrailingSeparator(OnDisk(folder)) + QStringLiteral("test.write"));
    probe.remove();
    if (!probe.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return false;
    const bool isWritten = probe.write("test") == 4 && probe.flush();
    return probe.remove() && isWritten;
}

bool IsNumeric(const QString& name) {
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), [](QChar character) {
        return character >= u'0' && character <= u'9';
    });
}

// Whether the path itself, however the disk spells it, is that of a folder somewhere below a TEMP.
bool IsBelowTemp(const QString& path) {
    QString plain = path;
    plain = QDir::cleanPath(plain.replace(u'\\', u'/')) + u'/';
    return plain.contains(QStringLiteral("TEMP/")) &&
           !plain.endsWith(QStringLiteral("temp/"), Qt::CaseInsensitive);
}

}  // namespace

QString FormFolder(const Application& application) {
    return Remembered(application, kFormKey, DataFolder());
}

QString TemplateFolder(const Application& application) {
    return Remembered(application, application.ReportMode ? kHostTemplateKey : kTemplateKey, DataFolder());
}

QString ListFolder(const Application& application) {
    return Remembered(application, kListKey, CurrentFolder());
}

void SetFormFolder(Application& application, const QString& path) {
    if (!IsOnRemovableDisk(path)) Remember(application, kFormKey, path);
}

void SetTemplateFolder(Application& application, const QString& path) {
    if (!IsOnRemovableDisk(path)) Remember(application, kTemplateKey, path);
}

void SetListFolder(Application& application, const QString& path) {
    Remember(application, kListKey, path);
}

RememberedFolders::RememberedFolders(Application& application)
    : m_application(application),
      m_formFolder(Stored(application, kFormKey)),
      m_templateFolder(Stored(application, kTemplateKey)) {}

RememberedFolders::~RememberedFolders() {
    const auto restore = [this](const QString& key, const QString& path) {
        if (Stored(m_application, key) != path) Remember(m_application, key, path);
    };
    restore(kFormKey, m_formFolder);
    restore(kTemplateKey, m_templateFolder);
}

QString TempRoot(const Application& application) {
    return WithTrailingSeparator(application.WritableFolder + QStringLiteral("TEMP"));
}

void SweepTempDirectories(Application& application) {
    application.CurrentTempDir = TempRoot(application);
    const QDir root(OnDisk(application.CurrentTempDir));
    root.mkpath(QStringLiteral("."));
    int numericNames = 0;
    for (const QString& name : root.entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)) {
        if (!IsNumeric(name)) continue;
        if (++numericNames > kSweepLimit) break;
        root.rmdir(name);
    }
}

QString MakeTempDirectory(Application& application, const QString& wanted) {
    return MakeTempDirectory(application, wanted,
                             [] { return QRandomGenerator::global()->bounded(kDrawBound); });
}

QString MakeTempDirectory(Application& application, const QString& wanted,
                          const std::function<std::uint32_t()>& draw) {
    const QString root = TempRoot(application);
    const QDir rootOnDisk(OnDisk(root));
    rootOnDisk.mkpath(QStringLiteral("."));
    if (CanWriteInto(wanted)) {
        RemoveTempDirectory(wanted);
    } else if (!CanWriteInto(root)) {
        application.ui.ShowMessage(
            application.Translate(QStringLiteral("Cannot write to Temporary Directory")), application.Title,
            MessageIcon::Exclamation);
    }
    QString name;
    for (int round = 0; round < kDrawLimit; ++round) {
        name = QString::number(draw()).rightJustified(kDrawDigits, u'0');
        if (rootOnDisk.mkdir(name) || !rootOnDisk.exists(name)) break;
    }
    return WithTrailingSeparator(root + name);
}

void RemoveTempDirectory(const QString& path) {
    if (path.isEmpty() || !IsBelowTemp(path)) return;
    const QString onDisk = QDir::cleanPath(OnDisk(path));
    QDir directory(onDisk);
    if (!directory.entryList({QStringLiteral("*.exe")}, kAllFiles).isEmpty()) return;
    for (const QString& name : directory.entryList(kAllFiles))
        directory.remove(name);
    directory.rmdir(onDisk);
}

}  // namespace sheetwright
