#include "fields/usr_entry.h"

#include "core/application.h"
#include "import/csv_table.h"

#include <algorithm>
#include <limits>

namespace sheetwright {

namespace {

const QString& InitialText() {
    static const QString text = QStringLiteral("Text1");
    return text;
}

}  // namespace

usrEntry::usrEntry(Application& application, PictureCache& pictures)
    : FormFolder([] { return QString(); }),
      Today([] { return QDate::currentDate(); }),
      m_application(application),
      m_pictures(pictures),
      m_dtpDate(field_type::kDate, application.conventions) {
    m_txtText.Visible = true;
    m_txtText.SetText(InitialText());
    m_cboCombo.SetText(InitialText());
    m_cbo_date.SetText(InitialText());
    m_chkBox.SetCaption(QStringLiteral("Check1"));
    m_chkBox.Look = m_look;
    m_chkBox.Look.borderStyle = 0;
    Connect();
    ConnectDate();
}

usrEntry::~usrEntry() = default;

void usrEntry::Connect() {
    m_txtText.Change = [this] { Tell(Change, field_type::kText); };
    m_cboCombo.Change = [this] { Tell(Change, field_type::kCombo); };
    m_chkBox.Click = [this] { Tell(Click, field_type::kCheckBox); };
    for (ListChild* list : {&m_cboCombo, &m_cboDropdown})
        list->Click = [this] {
            if (!m_isMovingSelection && Click) Click();
        };
}

std::array<FieldChild*, 7> usrEntry::Children() {
    return {&m_txtText, &m_cboCombo, &m_cboDropdown, &m_chkBox, &m_dtpDate, &m_picPicture, &m_cbo_date};
}

void usrEntry::Tell(const std::function<void()>& event, std::uint8_t type) const {
    if (IsStyle(type) && event) event();
}

void usrEntry::MarkChanged(QStringView property) const {
    if (PropertyChanged) PropertyChanged(property);
}

void usrEntry::Refresh() const {
    if (Repaint) Repaint();
}

bool usrEntry::IsList() const {
    return IsStyle(field_type::kCombo) || IsStyle(field_type::kDropdown);
}

bool usrEntry::ShowsChild() const {
    return m_fieldType <= field_type::kPicture && !IsStyle(field_type::kNone);
}

void usrEntry::SetFieldType(std::uint8_t type) {
    if (type == field_type::kDate) PassDate();
    m_fieldType = type;
    m_dtpDate.Look.backColor = m_look.backColor;
    for (FieldChild* child : Children())
        child->Visible = ShowsChild() && child->TabIndex == type;
    if (IsStyle(field_type::kDate)) {
        m_dtpDate.Visible = false;
        m_cbo_date.Visible = true;
        m_dtpDate.Format =
            design.Format == u"Long Date" ? DateChild::DateFormat::Long : DateChild::DateFormat::Short;
    }
    if (IsStyle(field_type::kPicture)) TakePendingPicture();
    MarkChanged(u"FieldType");
}

void usrEntry::ApplyLook(QStringView property) {
    for (FieldChild* child : Children())
        if (child != &m_chkBox) child->Look = m_look;
    const std::int16_t border = m_chkBox.Look.borderStyle;
    m_chkBox.Look = m_look;
    m_chkBox.Look.borderStyle = property == u"BorderStyle" ? m_look.borderStyle : border;
    MarkChanged(property);
}

void usrEntry::SetBorderStyle(std::uint8_t style) {
    m_borderStyle = style;
    m_look.borderStyle = style;
    ApplyLook(u"BorderStyle");
}

void usrEntry::SetEnabled(bool isEnabled) {
    m_look.isEnabled = isEnabled;
    ApplyLook(u"Enabled");
}

void usrEntry::SetFont(const FontSpec& font) {
    // The caption of a check box stays struck through as its state has it until somebody sets that.
    FontSpec caption = font;
    if (font.strikethru == m_look.font.strikethru) caption.strikethru = m_chkBox.Font().strikethru;
    m_chkBox.SetFont(caption);
    m_look.font = font;
    ApplyLook(u"Font");
}

void usrEntry::SetForeColor(Colour colour) {
    m_look.foreColor = colour;
    ApplyLook(u"ForeColor");
}

void usrEntry::SetBackColor(Colour colour) {
    m_look.backColor = colour;
    ApplyLook(u"BackColor");
}

void usrEntry::SetCaption(const QString& caption) {
    m_chkBox.SetCaption(caption);
    MarkChanged(u"Caption");
}

void usrEntry::SetWordWrap(bool wraps) {
    m_txtText.MultiLine = wraps;
    MarkChanged(u"WordWrap");
}

void usrEntry::SetStates(std::uint8_t states) {
    m_states = states;
    m_chkBox.SetStates(states);
    MarkChanged(u"States");
}

void usrEntry::SetStyle(std::uint8_t style) {
    m_style = style;
    m_chkBox.SetAlignment(style);
    MarkChanged(u"Style");
}

void usrEntry::SetAlignment(std::int16_t alignment) {
    m_txtText.Alignment = alignment;
    MarkChanged(u"Alignment");
}

void usrEntry::Resize(double width, double height) {
    m_width = width;
    m_height = height;
    if (IsList()) m_height = ListInForce().MinimalHeight;
    for (FieldChild* child : Children())
        child->Place = {0, 0, m_width, m_height};
    for (ListChild* list : {&m_cboCombo, &m_cboDropdown, &m_cbo_date})
        list->Place.width = std::max(m_width, kNarrowestList);
    m_chkBox.Resize(m_width, m_height);
    m_picPicture.Scale(m_application.printing);
}

}  // namespace sheetwright
