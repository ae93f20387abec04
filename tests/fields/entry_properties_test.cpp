#include "fields/entry_test.h"

namespace sheetwright {

namespace {

PropertyBag BagOf(const std::vector<std::pair<const char*, const char*>>& rows) {
    PropertyBag bag;
    for (const auto& [key, value] : rows)
        bag.Add(S(value), S(key));
    return bag;
}

TEST_F(EntryTest, PropertiesAreWrittenInTheirOrder) {
    QStringList keys;
    const PropertyBag bag = m_entry.WriteProperties();
    for (const auto& entry : bag.Entries())
        keys << entry.key;
    EXPECT_EQ(
        keys.join(u' '),
        S("BorderStyle Caption Enabled FontBold FontItalic FontName FontSize FontStrikethru FontUnderline "
          "ForeColor Value WordWrap DataSource KeyLevel NewPageOnChange NewLineOnChange "
          "NewPageOnReoccur NewLineOnReoccur Format AttachedList Idx TabIdx MultiRecordIndex States "
          "Style FieldType BackColor"));
}

TEST_F(EntryTest, AbsentPropertiesMeanTheDefaults) {
    usrEntry other(*m_application, m_pictures);
    const PropertyBag fresh = other.WriteProperties();
    m_entry.SetFieldType(3);
    m_entry.SetStates(4);
    m_entry.SetBackColor(255);
    m_entry.SetFont({S("Courier New"), 20, true, true, true, true});
    m_entry.design = {S("a,b"), 3, true, true, true, true, S("0.00"), S("7"), 9, 2};
    m_entry.ReadProperties({});
    const PropertyBag read = m_entry.WriteProperties();
    ASSERT_EQ(read.Count(), fresh.Count());
    for (const auto& entry : fresh.Entries())
        EXPECT_EQ(read.At(entry.key), entry.item) << entry.key.toStdString();
}

TEST_F(EntryTest, WhatIsWrittenIsReadBackInEveryLocale) {
    for (const char* locale : {"C", "de_DE", "fr_FR"}) {
        m_application->conventions = ConventionsOf(QLocale(S(locale)));
        m_entry.SetFont({S("Courier New"), 9.75, true, false, true, false});
        m_entry.SetEnabled(false);
        m_entry.SetBackColor(0x80000005);
        m_entry.SetAttachedList(S("A,B"));
        m_entry.SetFieldType(1);
        m_entry.SetValue(S("B"));
        m_entry.design = {S("a,b;*,c"), 3, true, false, true, false, S("0.00"), S("7"), 9, 2};
        usrEntry other(*m_application, m_pictures);
        const PropertyBag written = m_entry.WriteProperties();
        other.ReadProperties(written);
        const PropertyBag read = other.WriteProperties();
        for (const auto& entry : written.Entries())
            EXPECT_EQ(read.At(entry.key), entry.item) << locale << entry.key.toStdString();
        EXPECT_EQ(ItemsOf(other.cboDropdown()), QStringList({S("A"), S("B")}));
        EXPECT_EQ(other.Font().size, 9.75);
    }
}

TEST_F(EntryTest, StyleTakesShapeAfterValueAndList) {
    m_entry.ReadProperties(BagOf({{"FieldType", "2"}, {"AttachedList", "A,B"}, {"Value", "B"}}));
    EXPECT_TRUE(m_entry.cboDropdown().Visible);
    EXPECT_EQ(ItemsOf(m_entry.cboDropdown()), QStringList({S("A"), S("B")}));
    EXPECT_EQ(m_entry.Value(), QString());
    EXPECT_EQ(m_entry.txtText().Text(), S("B"));
}

TEST_F(EntryTest, ValueIsReadBeforeTheStates) {
    m_entry.ReadProperties(BagOf({{"FieldType", "3"}, {"States", "4"}, {"Value", "3"}}));
    EXPECT_EQ(m_entry.Value(), S("0"));
}

TEST_F(EntryTest, PropertiesThatCannotBeReadAreRaised) {
    EXPECT_EQ(FailureOf([&] {
                  m_entry.ReadProperties(BagOf({{"Enabled", "perhaps"}}));
              }),
              failure::kTypeMismatch);
    EXPECT_EQ(FailureOf([&] { m_entry.ReadProperties(BagOf({{"States", "256"}})); }), failure::kOverflow);
    EXPECT_EQ(FailureOf([&] { m_entry.ReadProperties(BagOf({{"TabIdx", "32768"}})); }), failure::kOverflow);
}

TEST_F(EntryTest, EverySettingIsMarked) {
    QStringList changed;
    m_entry.PropertyChanged = [&](QStringView name) { changed << name.toString(); };
    m_entry.SetValue(S("x"));
    m_entry.SetAttachedList(QString());
    m_entry.SetFieldType(3);
    m_entry.SetStates(3);
    EXPECT_EQ(changed.join(u' '), S("Value AttachedList FieldType States"));
}

}  // namespace

}  // namespace sheetwright
