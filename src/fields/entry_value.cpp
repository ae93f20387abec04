// The value of a field control: one text for all styles.

#include "core/application.h"
#include "core/failure.h"
#include "core/paths.h"
#include "fields/usr_entry.h"
#include "formula/value_conversion.h"
#include "print/picture_file.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

bool HoldsSeparator(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar character) { return IsSeparator(character); });
}

bool IsSameFile(const QString& one, const QString& other) {
    const QString path = QFileInfo(OnDisk(one)).canonicalFilePath();
    return !path.isEmpty() && path == QFileInfo(OnDisk(other)).canonicalFilePath();
}

}  // namespace

QString usrEntry::Value() const {
    switch (m_fieldType) {
        case field_type::kText:
        case field_type::kPicture:
            return m_txtText.Text();
        case field_type::kCombo:
            return m_cboCombo.Text();
        case field_type::kDropdown:
            return m_cboDropdown.Text();
        case field_type::kCheckBox:
            return QString::number(m_chkBox.Value());
        case field_type::kDate:
            return m_cbo_date.Visible ? m_cbo_date.Text() : m_dtpDate.Text();
        default:
            return QStringLiteral("0");
    }
}

void usrEntry::SetValue(const QString& text) {
    const QString value = TakePicture(text);
    m_txtText.SetText(value);
    m_cboCombo.SetText(value);
    m_cbo_date.SetText(value);
    SelectInLists(value);
    SetState(value);
    MarkChanged(u"Value");
}

// The text as it goes to the other styles: without its folder when it names a file.
QString usrEntry::TakePicture(const QString& text) {
    QString name = text;
    const QString& folder = m_application.CurrentTempDir;
    if (HoldsSeparator(text)) {
        if (FileExists(text)) {
            Ignoring([&] { CopyPicture(text); });
            name = GetFileName(text);
        }
    } else if (!text.isEmpty() && !FileExists(folder + text)) {
        const QString formFolder = FormFolder();
        const QString source = formFolder + text;
        if (!formFolder.isEmpty() && FileExists(source)) Ignoring([&] { CopyPicture(source); });
    }
    ShowPicture(name);
    return name;
}

// Into the current temporary directory. Raises 76 when there is none and 7 for a file larger than any
// picture.
void usrEntry::CopyPicture(const QString& source) const {
    if (m_application.CurrentTempDir.isEmpty()) throw Failure(failure::kPathNotFound);
    const QString target = m_application.CurrentTempDir + GetFileName(source);
    if (IsSameFile(source, target)) return;
    if (QFileInfo(OnDisk(source)).size() > kLargestPictureFile) throw Failure(failure::kOutOfMemory);
    WriteFileAtomically(target, ReadWholeFile(source));
}

void usrEntry::ShowPicture(const QString& name) {
    const QString path = m_application.CurrentTempDir + name;
    m_picPicture.Clear();
    if (name.isEmpty() || !FileExists(path)) return;
    Ignoring([&] { m_picPicture.Load(m_pictures, path); });
    m_picPicture.Scale(m_application.printing);
}

void usrEntry::SelectInLists(const QString& text) {
    m_isMovingSelection = true;
    for (int index = 0; index < m_cboDropdown.ListCount(); ++index) {
        if (m_cboDropdown.List(index) != text) continue;
        m_cboDropdown.SetListIndex(index);
        Ignoring([&] { m_cboCombo.SetListIndex(index); });
    }
    m_isMovingSelection = false;
}

void usrEntry::SetState(const QString& text) {
    std::int16_t state = 0;
    Ignoring([&] { state = ToInt16(std::abs(ToNumber(text, m_application.conventions))); });
    if (state < m_states) m_chkBox.SetValue(state);
}

void usrEntry::ConnectDate() {
    m_cbo_date.Change = [this] {
        if (m_isCopyingDate) return;
        Ignoring([this] { m_dtpDate.SetText(m_cbo_date.Text()); });
    };
    m_dtpDate.Change = [this] {
        if (m_dtpDate.Visible) ShowEntryOfDate(m_dtpDate.Text());
        Tell(Change, field_type::kDate);
    };
}

void usrEntry::ShowEntryOfDate(const QString& text) {
    m_isCopyingDate = true;
    m_cbo_date.SetText(text);
    m_isCopyingDate = false;
}

void usrEntry::ReportDropDown() {
    if (!m_cbo_date.Visible) return;
    const bool isRefused = Ignoring([this] { m_dtpDate.SetText(m_cbo_date.Text()); }).has_value();
    if (isRefused) m_dtpDate.SetValue(Today());
    m_dtpDate.Place.width = m_width;
    m_dtpDate.Visible = true;
    m_cbo_date.Visible = false;
    if (OpenCalendar) OpenCalendar();
}

void usrEntry::ReportDate(QDate date) {
    if (m_dtpDate.Visible) m_dtpDate.SetValue(date);
}

void usrEntry::ReportCalendarClosed() {
    if (!m_dtpDate.Visible) return;
    ShowEntryOfDate(m_dtpDate.Text());
    m_cbo_date.Visible = true;
    m_dtpDate.Visible = false;
}

}  // namespace sheetwright
