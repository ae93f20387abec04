// The properties of a field control in a bag. The style comes near the end, so that the control takes shape
// once.

#include "core/application.h"
#include "fields/bag_reader.h"
#include "fields/bag_writer.h"
#include "fields/usr_entry.h"
#include "import/csv_table.h"

namespace sheetwright {

namespace {

FontSpec FontIn(const BagReader& bag) {
    FontSpec font;
    font.bold = bag.Boolean(u"FontBold", false);
    font.italic = bag.Boolean(u"FontItalic", false);
    font.family = bag.Text(u"FontName", QStringLiteral("Arial"));
    font.size = static_cast<double>(bag.Single(u"FontSize", 8.25F));
    font.strikethru = bag.Boolean(u"FontStrikethru", false);
    font.underline = bag.Boolean(u"FontUnderline", false);
    return font;
}

void WriteFont(BagWriter& bag, const FontSpec& font) {
    bag.Add(QStringLiteral("FontBold"), font.bold);
    bag.Add(QStringLiteral("FontItalic"), font.italic);
    bag.Add(QStringLiteral("FontName"), font.family);
    bag.Add(QStringLiteral("FontSize"), font.size);
    bag.Add(QStringLiteral("FontStrikethru"), font.strikethru);
    bag.Add(QStringLiteral("FontUnderline"), font.underline);
}

void ReadImport(const BagReader& bag, usrEntry::Design& design) {
    design.DataSource = bag.Text(u"DataSource", {});
    design.KeyLevel = bag.Int16(u"KeyLevel", 0);
    design.NewPageOnChange = bag.Boolean(u"NewPageOnChange", false);
    design.NewLineOnChange = bag.Boolean(u"NewLineOnChange", false);
    design.NewPageOnReoccur = bag.Boolean(u"NewPageOnReoccur", false);
    design.NewLineOnReoccur = bag.Boolean(u"NewLineOnReoccur", false);
    design.Format = bag.Text(u"Format", {});
}

void WriteImport(BagWriter& bag, const usrEntry::Design& design) {
    bag.Add(QStringLiteral("DataSource"), design.DataSource);
    bag.Add(QStringLiteral("KeyLevel"), design.KeyLevel);
    bag.Add(QStringLiteral("NewPageOnChange"), design.NewPageOnChange);
    bag.Add(QStringLiteral("NewLineOnChange"), design.NewLineOnChange);
    bag.Add(QStringLiteral("NewPageOnReoccur"), design.NewPageOnReoccur);
    bag.Add(QStringLiteral("NewLineOnReoccur"), design.NewLineOnReoccur);
    bag.Add(QStringLiteral("Format"), design.Format);
}

}  // namespace

void usrEntry::ReadProperties(const PropertyBag& properties) {
    const BagReader bag(m_application, properties);
    SetBorderStyle(bag.Byte(u"BorderStyle", 1));
    SetCaption(bag.Text(u"Caption", QStringLiteral("Check1")));
    SetEnabled(bag.Boolean(u"Enabled", true));
    SetFont(FontIn(bag));
    SetForeColor(bag.Colour(u"ForeColor", system_colour::kWindowText));
    SetValue(bag.Text(u"Value", QStringLiteral("Text1")));
    SetWordWrap(bag.Boolean(u"WordWrap", false));
    ReadImport(bag, design);
    SetAttachedList(bag.Text(u"AttachedList", {}));
    design.Idx = bag.Text(u"Idx", {});
    design.TabIdx = bag.Int16(u"TabIdx", 0);
    design.MultiRecordIndex = bag.Int16(u"MultiRecordIndex", 0);
    SetStates(bag.Byte(u"States", 2));
    SetStyle(bag.Byte(u"Style", 0));
    SetFieldType(bag.Byte(u"FieldType", field_type::kText));
    SetBackColor(bag.Colour(u"BackColor", system_colour::kWindow));
}

PropertyBag usrEntry::WriteProperties() const {
    PropertyBag properties;
    BagWriter bag(properties, m_application.conventions);
    bag.Add(QStringLiteral("BorderStyle"), m_borderStyle);
    bag.Add(QStringLiteral("Caption"), Caption());
    bag.Add(QStringLiteral("Enabled"), m_look.isEnabled);
    WriteFont(bag, m_look.font);
    bag.Add(QStringLiteral("ForeColor"), m_look.foreColor);
    bag.Add(QStringLiteral("Value"), Value());
    bag.Add(QStringLiteral("WordWrap"), WordWrap());
    WriteImport(bag, design);
    bag.Add(QStringLiteral("AttachedList"), m_attachedList);
    bag.Add(QStringLiteral("Idx"), design.Idx);
    bag.Add(QStringLiteral("TabIdx"), design.TabIdx);
    bag.Add(QStringLiteral("MultiRecordIndex"), design.MultiRecordIndex);
    bag.Add(QStringLiteral("States"), m_states);
    bag.Add(QStringLiteral("Style"), m_style);
    bag.Add(QStringLiteral("FieldType"), m_fieldType);
    bag.Add(QStringLiteral("BackColor"), m_look.backColor);
    return properties;
}

}  // namespace sheetwright
