// What a view reports of the visible child of a field control, and the choice of a picture.

#include "core/application.h"
#include "core/failure.h"
#include "core/paths.h"
#include "fields/usr_entry.h"
#include "formula/value_conversion.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr std::int16_t kSpace = 32;

constexpr QLatin1String kPictureSection("imgfield");
constexpr QLatin1String kFilterKey("FilterIndex");
constexpr QLatin1String kFolderKey("Initdir");
constexpr int kFilters = 4;
constexpr std::int32_t kHideReadOnly = 4;
constexpr std::int32_t kPathMustExist = 2048;
constexpr std::int32_t kFileMustExist = 4096;

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

void Pass(const usrEntry::MouseEvent& event, std::int16_t button, std::int16_t shift, float x, float y) {
    if (event) event(button, shift, x, y);
}

}  // namespace

void usrEntry::ChoosePicture() {
    FileDialog dialog = PictureDialog(m_application);
    const std::optional<Failure> caught = Ignoring([&] { m_application.ui.ShowOpen(dialog); });
    if (caught && caught->Number() != failure::kCancelled) throw Failure(*caught);
    if (caught) return;
    Remember(m_application, kFilterKey, QString::number(dialog.filterIndex));
    Remember(m_application, kFolderKey, GetFolder(dialog.fileName));
    SetValue(dialog.fileName);
    Refresh();
}

std::int16_t usrEntry::ReportKeyDown(std::int16_t keyCode, std::int16_t shift) const {
    if (ShowsChild() && KeyDown) KeyDown(keyCode, shift);
    return keyCode;
}

std::int16_t usrEntry::ReportKeyPress(std::int16_t keyAscii) {
    if (ShowsChild() && KeyPress) KeyPress(keyAscii);
    if (IsStyle(field_type::kCheckBox)) m_chkBox.PressKey(keyAscii);
    if (IsStyle(field_type::kPicture) && keyAscii == kSpace) ChoosePicture();
    return keyAscii;
}

std::int16_t usrEntry::ReportKeyUp(std::int16_t keyCode, std::int16_t shift) const {
    if (ShowsChild() && KeyUp) KeyUp(keyCode, shift);
    return keyCode;
}

void usrEntry::ReportMouseDown(std::int16_t button, std::int16_t shift, float x, float y) const {
    if (ShowsChild()) Pass(MouseDown, button, shift, x, y);
}

void usrEntry::ReportMouseMove(std::int16_t button, std::int16_t shift, float x, float y) const {
    if (ShowsChild()) Pass(MouseMove, button, shift, x, y);
}

void usrEntry::ReportMouseUp(std::int16_t button, std::int16_t shift, float x, float y) const {
    if (ShowsChild()) Pass(MouseUp, button, shift, x, y);
}

void usrEntry::ReportText(const QString& text) {
    if (IsStyle(field_type::kText)) m_txtText.SetText(text);
    if (IsStyle(field_type::kCombo)) m_cboCombo.TypeText(text);
    if (IsStyle(field_type::kDate)) m_cbo_date.SetText(text);
}

void usrEntry::ReportPick(int index) {
    if (IsList()) ListInForce().Pick(index);
}

void usrEntry::ReportClick() {
    if (IsStyle(field_type::kCheckBox)) return m_chkBox.ClickLabel();
    Tell(Click, field_type::kText);
    Tell(Click, field_type::kPicture);
}

void usrEntry::ReportDoubleClick() {
    Tell(DblClick, field_type::kText);
    Tell(DblClick, field_type::kCombo);
    if (IsStyle(field_type::kPicture)) ChoosePicture();
}

}  // namespace sheetwright
