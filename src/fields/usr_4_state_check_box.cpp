#include "fields/usr_4_state_check_box.h"

#include "core/application.h"
#include "core/failure.h"
#include "fields/bag_reader.h"
#include "fields/bag_writer.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr std::int16_t kSpace = 32;
constexpr std::int16_t kCrossedOut = 2;  // the state that strikes the caption through

struct Sign {
    std::int16_t value;
    QStringView family;
    double size;  // points
    QStringView text;
};

// In a symbol font "ü" is a tick.
constexpr Sign kSigns[] = {
    {1, u"WingDings", 8, u"\u00FC"},
    {2, u"Courier New", 6, u"-"},
    {3, u"Courier New", 6, u"?"},
};

}  // namespace

usr4StateCheckBox::usr4StateCheckBox() : FieldChild(field_type::kCheckBox) {
    Look.backColor = system_colour::kButtonFace;
    Look.foreColor = system_colour::kButtonText;
    Look.borderStyle = 0;
}

void usr4StateCheckBox::SetValue(std::int16_t value) {
    m_value = value;
    if (value >= 0 && value < m_states) Draw();
    MarkChanged(u"Value");
}

void usr4StateCheckBox::Draw() {
    m_caption.font.strikethru = m_value == kCrossedOut;
    m_square.text.clear();
    for (const Sign& sign : kSigns) {
        if (sign.value != m_value) continue;
        m_square.font.family = sign.family.toString();
        m_square.font.size = sign.size;
        m_square.font.bold = true;
        m_square.text = sign.text.toString();
    }
}

void usr4StateCheckBox::SetStates(std::int16_t states) {
    m_states = states;
    MarkChanged(u"States");
}

void usr4StateCheckBox::SetCaption(const QString& caption) {
    m_caption.text = caption;
    MarkChanged(u"Caption");
}

void usr4StateCheckBox::SetAlignment(std::int16_t alignment) {
    m_alignment = alignment;
    Arrange();
    MarkChanged(u"Alignment");
}

void usr4StateCheckBox::SetBackStyle(std::int16_t style) {
    m_backStyle = style;
    MarkChanged(u"BackStyle");
}

void usr4StateCheckBox::SetFont(const FontSpec& font) {
    m_caption.font = font;
    MarkChanged(u"Font");
}

void usr4StateCheckBox::Resize(double width, double height) {
    Place.width = width;
    Place.height = height;
    Arrange();
}

void usr4StateCheckBox::Arrange() {
    const bool isSquareLeft = m_alignment == 0;
    m_square.width = kSquareWidth;
    m_square.left = isSquareLeft ? 0 : Place.width - kSquareWidth;
    m_caption.left = isSquareLeft ? kSquareWidth + kGap : 0;
    m_caption.width = std::max(0.0, Place.width - kSquareWidth - kGap);
}

void usr4StateCheckBox::ClickLabel() {
    SetValue(m_value == m_states - 1 ? std::int16_t{0} : ToInt16(m_value + 1));
    if (Click) Click();
}

void usr4StateCheckBox::PressKey(std::int16_t keyAscii) {
    if (keyAscii == kSpace) ClickLabel();
}

void usr4StateCheckBox::MarkChanged(QStringView property) const {
    if (PropertyChanged) PropertyChanged(property);
}

void usr4StateCheckBox::ReadProperties(const Application& application, const PropertyBag& properties) {
    const BagReader bag(application, properties);
    Look.backColor = bag.Colour(u"BackColor", system_colour::kButtonFace);
    Look.foreColor = bag.Colour(u"ForeColor", system_colour::kButtonText);
    Look.isEnabled = bag.Boolean(u"Enabled", false);
    FontSpec& font = m_caption.font;
    font.family = bag.Text(u"Font", QStringLiteral("Arial"));
    SetBackStyle(bag.Int16(u"BackStyle", 1));
    Look.borderStyle = bag.Int16(u"BorderStyle", 0);
    SetAlignment(bag.Int16(u"Alignment", 0));
    SetCaption(bag.Text(u"Caption", QStringLiteral("Label1")));
    font.bold = bag.Boolean(u"FontBold", false);
    font.strikethru = bag.Boolean(u"FontStrikethru", false);
    font.size = static_cast<double>(bag.Single(u"FontSize", 8.25F));
    font.family = bag.Text(u"FontName", QStringLiteral("Arial"));
    font.italic = bag.Boolean(u"FontItalic", false);
    font.underline = bag.Boolean(u"FontUnderline", false);
    SetValue(bag.Int16(u"Value", 0));
    SetStates(bag.Int16(u"States", 2));
}

PropertyBag usr4StateCheckBox::WriteProperties(const Application& application) const {
    PropertyBag properties;
    BagWriter bag(properties, application.conventions);
    const FontSpec& font = m_caption.font;
    bag.Add(QStringLiteral("BackColor"), Look.backColor);
    bag.Add(QStringLiteral("ForeColor"), Look.foreColor);
    bag.Add(QStringLiteral("Enabled"), Look.isEnabled);
    bag.Add(QStringLiteral("Font"), font.family);
    bag.Add(QStringLiteral("BackStyle"), m_backStyle);
    bag.Add(QStringLiteral("BorderStyle"), Look.borderStyle);
    bag.Add(QStringLiteral("Alignment"), m_alignment);
    bag.Add(QStringLiteral("Caption"), m_caption.text);
    bag.Add(QStringLiteral("FontBold"), font.bold);
    bag.Add(QStringLiteral("FontStrikethru"), font.strikethru);
    bag.Add(QStringLiteral("FontSize"), font.size);
    bag.Add(QStringLiteral("FontName"), font.family);
    bag.Add(QStringLiteral("FontItalic"), font.italic);
    bag.Add(QStringLiteral("FontUnderline"), font.underline);
    bag.Add(QStringLiteral("Value"), m_value);
    bag.Add(QStringLiteral("States"), m_states);
    return properties;
}

}  // namespace sheetwright
