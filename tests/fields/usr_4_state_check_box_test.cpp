#include "fields/usr_4_state_check_box.h"

#include "support/short_text.h"
#include "support/test_application.h"

namespace sheetwright {

namespace {

std::int16_t I(int number) {
    return static_cast<std::int16_t>(number);
}

TEST(FourStateCheckBox, NewOneHasTwoStatesAndValueNought) {
    const usr4StateCheckBox box;
    EXPECT_EQ(box.States(), 2);
    EXPECT_EQ(box.Value(), 0);
    EXPECT_EQ(box.Caption(), S("Label1"));
    EXPECT_EQ(box.Alignment(), 0);
    EXPECT_EQ(box.BackStyle(), 1);
    EXPECT_EQ(box.Look.borderStyle, 0);
    EXPECT_EQ(box.Font(), FontSpec{S("Arial")});
}

struct Shown {
    int value;
    const char* family;
    double size;
    bool isBold;
    const char* sign;
    bool isCrossedOut;
};

TEST(FourStateCheckBox, EachStateHasItsSignAndCaption) {
    const Shown rows[] = {{1, "WingDings", 8, true, "\u00FC", false},
                          {2, "Courier New", 6, true, "-", true},
                          {3, "Courier New", 6, true, "?", false}};
    usr4StateCheckBox box;
    box.SetStates(4);
    for (const Shown& row : rows) {
        box.SetValue(I(row.value));
        EXPECT_EQ(box.picture1().text, S(row.sign)) << row.value;
        EXPECT_EQ(box.picture1().font.family, S(row.family));
        EXPECT_EQ(box.picture1().font.size, row.size);
        EXPECT_EQ(box.picture1().font.bold, row.isBold);
        EXPECT_EQ(box.Label1().font.strikethru, row.isCrossedOut);
    }
}

TEST(FourStateCheckBox, StateNoughtEmptiesTheSquareAndKeepsTheSignsFont) {
    usr4StateCheckBox box;
    box.SetStates(4);
    box.SetValue(2);
    box.SetValue(0);
    EXPECT_EQ(box.picture1().text, QString());
    EXPECT_EQ(box.picture1().font.family, S("Courier New"));
    EXPECT_EQ(box.picture1().font.size, 6);
    EXPECT_TRUE(box.picture1().font.bold);
    EXPECT_FALSE(box.Label1().font.strikethru);
}

TEST(FourStateCheckBox, ClicksGoThroughTheStatesInOrder) {
    for (const int states : {2, 3, 4}) {
        usr4StateCheckBox box;
        box.SetStates(I(states));
        for (int click = 1; click <= 2 * states; ++click) {
            box.ClickLabel();
            EXPECT_EQ(box.Value(), click % states);
        }
    }
}

TEST(FourStateCheckBox, ValueBeyondTheStatesIsStoredAndNeverComesBack) {
    usr4StateCheckBox box;
    box.SetValue(1);
    box.SetValue(3);
    EXPECT_EQ(box.Value(), 3);
    EXPECT_EQ(box.picture1().text, S("\u00FC"));
    for (int value = 4; value < 10; ++value) {
        box.ClickLabel();
        EXPECT_EQ(box.Value(), value);
        EXPECT_EQ(box.picture1().text, S("\u00FC"));
    }
    box.SetValue(32767);
    EXPECT_EQ(FailureOf([&] { box.ClickLabel(); }), failure::kOverflow);
    EXPECT_EQ(box.Value(), 32767);
    box.SetValue(-2);
    EXPECT_EQ(box.picture1().text, S("\u00FC"));
}

TEST(FourStateCheckBox, FewerStatesLeaveValueAndSign) {
    usr4StateCheckBox box;
    box.SetStates(4);
    box.SetValue(2);
    box.SetStates(2);
    EXPECT_EQ(box.Value(), 2);
    EXPECT_EQ(box.picture1().text, S("-"));
    EXPECT_TRUE(box.Label1().font.strikethru);
    box.ClickLabel();
    EXPECT_EQ(box.Value(), 3);
    EXPECT_EQ(box.picture1().text, S("-"));
}

TEST(FourStateCheckBox, OneStateStaysNought) {
    usr4StateCheckBox box;
    box.SetStates(1);
    box.ClickLabel();
    EXPECT_EQ(box.Value(), 0);
}

TEST(FourStateCheckBox, SpaceGoesOnAndOtherKeysDoNothing) {
    usr4StateCheckBox box;
    for (const int key : {0, 13, 31, 33, 48, 65})
        box.PressKey(I(key));
    EXPECT_EQ(box.Value(), 0);
    box.PressKey(32);
    EXPECT_EQ(box.Value(), 1);
}

TEST(FourStateCheckBox, OnlyPeopleRaiseTheEventAndEverySettingIsMarked) {
    usr4StateCheckBox box;
    int clicks = 0;
    QStringList changed;
    box.Click = [&] { ++clicks; };
    box.PropertyChanged = [&](QStringView name) { changed << name.toString(); };
    box.SetValue(1);
    box.SetValue(5);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(changed, QStringList({S("Value"), S("Value")}));
    box.SetValue(0);
    box.ClickLabel();
    box.PressKey(32);
    EXPECT_EQ(clicks, 2);
}

TEST(FourStateCheckBox, CaptionBeginsSixtyTwipsBeyondTheSquare) {
    usr4StateCheckBox box;
    box.Resize(2000, 300);
    EXPECT_EQ(box.picture1().left, 0);
    EXPECT_EQ(box.Label1().left, box.picture1().width + 60);
    EXPECT_EQ(box.Label1().left + box.Label1().width, 2000);
    box.SetAlignment(1);
    EXPECT_EQ(box.picture1().left + box.picture1().width, 2000);
    EXPECT_EQ(box.Label1().left, 0);
    EXPECT_EQ(box.Label1().width + 60, box.picture1().left);
    for (const int right : {2, -1}) {
        box.SetAlignment(0);
        box.SetAlignment(I(right));
        EXPECT_EQ(box.Label1().left, 0) << right;
    }
    box.Resize(100, 300);
    EXPECT_EQ(box.Label1().width, 0);
}

using FourStateBag = ApplicationTest;

TEST_F(FourStateBag, KeysStandInTheirOrder) {
    QStringList keys;
    const PropertyBag bag = usr4StateCheckBox().WriteProperties(*m_application);
    for (const auto& entry : bag.Entries())
        keys << entry.key;
    EXPECT_EQ(keys.join(u' '), S("BackColor ForeColor Enabled Font BackStyle BorderStyle Alignment Caption "
                                 "FontBold FontStrikethru FontSize FontName FontItalic FontUnderline Value "
                                 "States"));
}

TEST_F(FourStateBag, AbsentKeysMeanTheDefaults) {
    usr4StateCheckBox box;
    box.SetCaption(S("Other"));
    box.SetStates(4);
    box.SetValue(3);
    box.ReadProperties(*m_application, {});
    EXPECT_FALSE(box.Look.isEnabled);
    EXPECT_EQ(box.Caption(), S("Label1"));
    EXPECT_EQ(box.Value(), 0);
    EXPECT_EQ(box.States(), 2);
    EXPECT_EQ(box.Font(), FontSpec{S("Arial")});
    EXPECT_EQ(box.Look.backColor, system_colour::kButtonFace);
    EXPECT_EQ(box.Look.foreColor, system_colour::kButtonText);
}

TEST_F(FourStateBag, WhatIsWrittenIsReadBackInEveryLocale) {
    for (const char* locale : {"C", "de_DE", "fr_FR"}) {
        m_application->conventions = ConventionsOf(QLocale(S(locale)));
        usr4StateCheckBox box;
        box.SetFont({S("Courier New"), 10.5, true, true, true, false});
        box.SetAlignment(1);
        box.SetBackStyle(0);
        box.SetValue(1);
        box.Look.backColor = 255;
        box.Look.borderStyle = -1;
        usr4StateCheckBox other;
        other.ReadProperties(*m_application, box.WriteProperties(*m_application));
        EXPECT_EQ(other.Font(), box.Font()) << locale;
        EXPECT_EQ(other.Alignment(), 1);
        EXPECT_EQ(other.BackStyle(), 0);
        EXPECT_EQ(other.Value(), 1);
        EXPECT_EQ(other.picture1().text, S("\u00FC"));
        EXPECT_EQ(other.Look.backColor, 255U);
        EXPECT_EQ(other.Look.borderStyle, -1);
        EXPECT_EQ(other.Look.foreColor, system_colour::kButtonText);
    }
}

TEST_F(FourStateBag, ValueIsReadBeforeTheStates) {
    PropertyBag bag;
    bag.Add(S("3"), S("Value"));
    bag.Add(S("4"), S("States"));
    usr4StateCheckBox box;
    box.ReadProperties(*m_application, bag);
    EXPECT_EQ(box.Value(), 3);
    EXPECT_EQ(box.picture1().text, QString());
    box.ClickLabel();
    EXPECT_EQ(box.Value(), 0);
}

}  // namespace

}  // namespace sheetwright
