// The picture of a field control, and its choice. A form from elsewhere may name any file of this machine, so
// that nothing but a picture is ever copied into a form, and nothing outside the form's folders is shown.

#include "core/application.h"
#include "core/failure.h"
#include "core/paths.h"
#include "fields/usr_entry.h"
#include "formula/value_conversion.h"
#include "print/picture_file.h"

#include <QFileInfo>

#include <algorithm>

namespace sheetwright {

namespace {

// A longer text is no path on any system, and looking for it takes time with its length.
constexpr qsizetype kLongestPath = 4096;

constexpr QLatin1String kPictureSection("imgfield");
constexpr QLatin1String kFilterKey("FilterIndex");
constexpr QLatin1String kFolderKey("Initdir");
constexpr int kFilters = 4;
constexpr std::int32_t kHideReadOnly = 4;
constexpr std::int32_t kPathMustExist = 2048;
constexpr std::int32_t kFileMustExist = 4096;

bool HoldsSeparator(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar character) { return IsSeparator(character); });
}

bool IsBareName(const QString& text) {
    return !text.isEmpty() && text.size() <= kLongestPath && !HoldsSeparator(text);
}

bool IsSameFile(const QString& one, const QString& other) {
    const QString path = QFileInfo(OnDisk(one)).canonicalFilePath();
    return !path.isEmpty() && path == QFileInfo(OnDisk(other)).canonicalFilePath();
}

bool IsMissing(const Failure& caught) {
    return caught.Number() == failure::kFileNotFound || caught.Number() == failure::kPathNotFound;
}

// What reports no size may be a file of the system's own, and some of them never end.
bool IsPicture(PictureCache& pictures, const QString& stored) {
    return QFileInfo(OnDisk(stored)).size() > 0 && !Ignoring([&] { (void)pictures.Load(stored); });
}

QString PictureFilter(const Application& application) {
    return application.Translate(QStringLiteral("Bitmaps")) + QStringLiteral(" (*.bmp;*.dib)|*.bmp;*.dib|") +
           application.Translate(QStringLiteral("JPEG/JFIF Compliant")) +
           QStringLiteral(" (*.jpg;*.jif)|*.jpg;*.jif|") + application.Translate(QStringLiteral("Icons")) +
           QStringLiteral(" (*.ico)|*.ico|") + application.Translate(QStringLiteral("Metafiles")) +
           QStringLiteral(" (*.wmf)|*.wmf");
}

QString PictureSetting(const Application& application, const QString& key) {
    return application.settings.Read(application.Title, kPictureSection, key);
}

void Remember(Application& application, const QString& key, const QString& value) {
    application.settings.Write(application.Title, kPictureSection, key, value);
}

FileDialog PictureDialog(const Application& application) {
    FileDialog dialog;
    dialog.title = application.Translate(QStringLiteral("Open"));
    dialog.defaultExtension = QStringLiteral("bmp");
    dialog.filter = PictureFilter(application);
    const double filter = ToNumber(PictureSetting(application, kFilterKey), application.conventions);
    dialog.filterIndex = static_cast<int>(std::clamp(filter, 1.0, static_cast<double>(kFilters)));
    dialog.initialFolder = PictureSetting(application, kFolderKey);
    dialog.flags = kHideReadOnly | kPathMustExist | kFileMustExist;
    return dialog;
}

}  // namespace

// The text as it goes to the other styles: without its folder when it names a picture. Pages set hundreds of
// values at each turn, so that the disk is left alone for a bare name that no style shows as a picture.
QString usrEntry::TakePicture(const QString& text) {
    m_picPicture.Clear();
    m_pendingPicture.reset();
    const QString name = HoldsSeparator(text) ? TakeNamedFile(text) : text;
    if (IsStyle(field_type::kPicture)) {
        ShowPicture(name);
    } else {
        m_pendingPicture = name;
    }
    return name;
}

// A picture field holds the bare name of any file; in other styles what is no picture is just a text.
QString usrEntry::TakeNamedFile(const QString& text) const {
    if (text.size() > kLongestPath || !FileExists(text)) return text;
    const bool isPicture = IsPicture(m_pictures, text);
    if (isPicture) Ignoring([&] { CopyPicture(text); });
    return isPicture || IsStyle(field_type::kPicture) ? GetFileName(text) : text;
}

void usrEntry::TakePendingPicture() {
    if (!m_pendingPicture) return;
    const QString text = *m_pendingPicture;
    const QString name = TakePicture(text);
    if (name != text && m_txtText.Text() == text) SetTexts(name);
}

// Into the current temporary directory. Raises 76 when there is none.
void usrEntry::CopyPicture(const QString& source) const {
    if (m_application.CurrentTempDir.isEmpty()) throw Failure(failure::kPathNotFound);
    const QString target = m_application.CurrentTempDir + GetFileName(source);
    if (!IsSameFile(source, target)) WriteFileAtomically(target, ReadWholeFile(source));
}

void usrEntry::ShowPicture(const QString& name) {
    const QString& folder = m_application.CurrentTempDir;
    if (folder.isEmpty() || !IsBareName(name)) return;
    const auto load = [&] { m_picPicture.Load(m_pictures, folder + name); };
    const std::optional<Failure> caught = Ignoring(load);
    if (caught && IsMissing(*caught) && TakeFromFormFolder(name)) Ignoring(load);
    m_picPicture.Scale(m_application.printing);
}

bool usrEntry::TakeFromFormFolder(const QString& name) const {
    const QString folder = FormFolder();
    if (folder.isEmpty() || !IsPicture(m_pictures, folder + name)) return false;
    return !Ignoring([&] { CopyPicture(folder + name); });
}

void usrEntry::ChoosePicture() {
    if (!m_look.isEnabled) return;
    FileDialog dialog = PictureDialog(m_application);
    const std::optional<Failure> caught = Ignoring([&] { m_application.ui.ShowOpen(dialog); });
    if (caught && caught->Number() != failure::kCancelled) throw Failure(*caught);
    if (caught) return;
    Remember(m_application, kFilterKey, QString::number(dialog.filterIndex));
    Remember(m_application, kFolderKey, GetFolder(dialog.fileName));
    SetValue(dialog.fileName);
    Refresh();
}

}  // namespace sheetwright
