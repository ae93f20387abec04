#include "fields/entry_test.h"

namespace sheetwright {

namespace {

QString VisibleChildren(usrEntry& entry) {
    QString visible;
    const auto add = [&](const FieldChild& child, const char* name) {
        if (child.Visible) visible += S(name) + u' ';
    };
    add(entry.txtText(), "txtText");
    add(entry.cboCombo(), "cboCombo");
    add(entry.cboDropdown(), "cboDropdown");
    add(entry.chkBox(), "chkBox");
    add(entry.dtpDate(), "dtpDate");
    add(entry.picPicture(), "picPicture");
    add(entry.cbo_date(), "cbo_date");
    return visible.trimmed();
}

TEST_F(EntryTest, NewOneHasTheDefaults) {
    EXPECT_EQ(m_entry.Value(), S("Text1"));
    EXPECT_EQ(m_entry.BorderStyle(), 1);
    EXPECT_EQ(m_entry.Caption(), S("Check1"));
    EXPECT_TRUE(m_entry.Enabled());
    EXPECT_EQ(m_entry.Font(), FontSpec{S("Arial")});
    EXPECT_EQ(m_entry.Font().size, 8.25);
    EXPECT_EQ(m_entry.ForeColor(), system_colour::kWindowText);
    EXPECT_EQ(m_entry.BackColor(), system_colour::kWindow);
    EXPECT_EQ(m_entry.States(), 2);
    EXPECT_EQ(m_entry.Style(), 0);
    EXPECT_EQ(m_entry.FieldType(), 0);
    EXPECT_EQ(m_entry.AttachedList(), QString());
    EXPECT_EQ(m_entry.ListTable(), nullptr);
    EXPECT_EQ(VisibleChildren(m_entry), S("txtText"));
}

TEST_F(EntryTest, OneChildIsVisibleInEachStyle) {
    const char* const children[] = {
        "txtText", "cboCombo", "cboDropdown", "chkBox", "", "cbo_date", "picPicture", "", ""};
    for (std::uint8_t type = 0; type < std::size(children); ++type) {
        m_entry.SetFieldType(type);
        EXPECT_EQ(VisibleChildren(m_entry), S(children[type])) << int{type};
    }
    EXPECT_EQ(m_entry.cbo_date().TabIndex, 7);
    EXPECT_EQ(m_entry.dtpDate().TabIndex, 5);
    EXPECT_EQ(m_entry.picPicture().TabIndex, 6);
}

TEST_F(EntryTest, ValueIsReadFromTheStyleInForce) {
    AddItems({S("0"), S("1")});
    m_entry.SetValue(S("1"));
    const char* const values[] = {"1", "1", "1", "1", "0", "1", "1"};
    for (std::uint8_t type = 0; type < std::size(values); ++type) {
        m_entry.SetFieldType(type);
        EXPECT_EQ(m_entry.Value(), S(values[type])) << int{type};
    }
}

TEST_F(EntryTest, TwoOnAFieldOfTwoStatesLeavesTheCheckBoxUnchanged) {
    m_entry.SetFieldType(3);
    m_entry.SetValue(S("1"));
    m_entry.SetValue(S("2"));
    EXPECT_EQ(m_entry.Value(), S("1"));
    m_entry.SetStates(3);
    m_entry.SetValue(S("2"));
    EXPECT_EQ(m_entry.Value(), S("2"));
    EXPECT_TRUE(m_entry.chkBox().Label1().font.strikethru);
}

TEST_F(EntryTest, AnyTextIsALegalStateOfACheckBox) {
    m_entry.SetFieldType(3);
    m_entry.SetStates(4);
    const std::pair<const char*, const char*> rows[] = {{"-1", "1"},  {"abc", "0"},  {"3", "3"},
                                                        {"4", "3"},   {"", "0"},     {"2.5", "2"},
                                                        {"1.5", "2"}, {"99999", "0"}};
    for (const auto& [text, state] : rows) {
        m_entry.SetValue(S(text));
        EXPECT_EQ(m_entry.Value(), S(state)) << text;
    }
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(EntryTest, EmptyValueClearsAllTextsAndSetsStateNought) {
    m_entry.SetFieldType(3);
    m_entry.SetValue(S("1"));
    m_entry.SetValue(QString());
    EXPECT_EQ(m_entry.Value(), S("0"));
    EXPECT_EQ(m_entry.txtText().Text(), QString());
    EXPECT_EQ(m_entry.cboCombo().Text(), QString());
    EXPECT_EQ(m_entry.cbo_date().Text(), QString());
}

TEST_F(EntryTest, TextTwiceInTheListSelectsTheLaterOne) {
    m_entry.SetFieldType(2);
    AddItems({S("A"), S("B"), S("a"), S("A")});
    m_entry.SetValue(S("A"));
    EXPECT_EQ(m_entry.cboDropdown().ListIndex(), 3);
    EXPECT_EQ(m_entry.cboCombo().ListIndex(), 3);
    m_entry.SetValue(S("a"));
    EXPECT_EQ(m_entry.ListIndex(), 2);
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(EntryTest, ValueThatIsNotInTheListLeavesTheSelectionAlone) {
    m_entry.SetFieldType(2);
    AddItems({S("A"), S("B")});
    m_entry.SetValue(S("B"));
    m_entry.SetValue(S("C"));
    EXPECT_EQ(m_entry.Value(), S("B"));
    m_entry.SetFieldType(1);
    EXPECT_EQ(m_entry.Value(), S("C"));
    EXPECT_EQ(m_entry.ListIndex(), 1);
}

TEST_F(EntryTest, ChangeComesFromTheTextTheComboBoxAndTheDateWhenTheyAreShown) {
    m_entry.SetValue(S("a"));
    EXPECT_EQ(TakeEvents(), QStringList({S("Change")}));
    m_entry.SetValue(S("a"));
    EXPECT_EQ(TakeEvents(), QStringList());
    m_entry.ReportText(S("b"));
    m_entry.SetSelText(S("c"));
    EXPECT_EQ(TakeEvents(), QStringList({S("Change"), S("Change")}));
    for (const std::uint8_t silent : std::to_array<std::uint8_t>({2, 3, 4, 6})) {
        m_entry.SetFieldType(silent);
        m_entry.SetValue(QString::number(silent * 100));
        m_entry.ReportText(S("typed"));
        EXPECT_EQ(TakeEvents(), QStringList()) << int{silent};
    }
    m_entry.SetFieldType(1);
    m_entry.SetValue(S("x"));
    m_entry.ReportText(S("y"));
    EXPECT_EQ(TakeEvents(), QStringList({S("Change"), S("Change")}));
    EXPECT_EQ(m_entry.Value(), S("y"));
    m_entry.SetFieldType(5);
    m_entry.SetValue(S("31/12/1999"));
    EXPECT_EQ(TakeEvents(), QStringList({S("Change")}));
}

TEST_F(EntryTest, PickingAnItemIsAClickAndMovingTheSelectionToo) {
    AddItems({S("A"), S("B")});
    for (const std::uint8_t list : {field_type::kCombo, field_type::kDropdown}) {
        m_entry.SetFieldType(list);
        m_entry.ReportPick(1);
        m_entry.ReportPick(1);
        m_entry.SetListIndex(0);
        EXPECT_EQ(TakeEvents(), QStringList({S("Click"), S("Click"), S("Click")}));
        EXPECT_EQ(m_entry.Value(), S("A"));
        EXPECT_EQ(FailureOf([&] { m_entry.ReportPick(2); }), failure::kInvalidProperty);
    }
}

TEST_F(EntryTest, ClicksComeFromAllButTheDateAndDoubleClicksFromTexts) {
    const char* const clicks[] = {"Click,DblClick", "DblClick", "", "Click", "", "", "Click"};
    for (std::uint8_t type = 0; type < std::size(clicks); ++type) {
        m_entry.SetFieldType(type);
        m_entry.ReportClick();
        m_entry.ReportDoubleClick();
        EXPECT_EQ(TakeEvents().join(u','), S(clicks[type])) << int{type};
    }
}

TEST_F(EntryTest, SpaceAndClicksCycleTheCheckBox) {
    m_entry.SetFieldType(3);
    m_entry.SetValue(S("0"));
    m_entry.ReportKeyPress(32);
    EXPECT_EQ(m_entry.Value(), S("1"));
    m_entry.ReportClick();
    EXPECT_EQ(m_entry.Value(), S("0"));
    m_entry.ReportKeyPress(65);
    EXPECT_EQ(m_entry.Value(), S("0"));
    EXPECT_EQ(TakeEvents(), QStringList({S("Click"), S("Click")}));
    m_entry.KeyPress = [](std::int16_t& key) { key = 0; };
    EXPECT_EQ(m_entry.ReportKeyPress(32), 0);
    EXPECT_EQ(m_entry.Value(), S("0"));
}

TEST_F(EntryTest, KeysAndMouseArePassedOnAndKeysCanBeCancelled) {
    QStringList told;
    m_entry.KeyDown = [&](std::int16_t& key, std::int16_t shift) {
        told << QStringLiteral("down %1 %2").arg(key).arg(shift);
        if (key == 33) key = 0;
    };
    m_entry.KeyUp = [&](std::int16_t& key, std::int16_t) { told << QStringLiteral("up %1").arg(key); };
    m_entry.MouseMove = [&](std::int16_t button, std::int16_t, float x, float y) {
        told << QStringLiteral("move %1 %2 %3").arg(button).arg(double{x}).arg(double{y});
    };
    EXPECT_EQ(m_entry.ReportKeyDown(33, 1), 0);
    EXPECT_EQ(m_entry.ReportKeyDown(65, 0), 65);
    m_entry.ReportKeyUp(65, 0);
    m_entry.ReportMouseMove(1, 0, 1.5F, 2);
    EXPECT_EQ(told.join(u'|'), S("down 33 1|down 65 0|up 65|move 1 1.5 2"));
    told.clear();
    m_entry.SetFieldType(4);
    m_entry.ReportKeyDown(65, 0);
    m_entry.ReportMouseMove(1, 0, 1, 1);
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(EntryTest, SettingsReachTheChildren) {
    m_entry.SetFont({S("Courier New"), 12, true});
    m_entry.SetForeColor(255);
    m_entry.SetBackColor(65535);
    m_entry.SetEnabled(false);
    m_entry.SetStyle(1);
    m_entry.SetCaption(S("Passed"));
    m_entry.SetStates(4);
    m_entry.SetWordWrap(true);
    EXPECT_EQ(m_entry.chkBox().Font().family, S("Courier New"));
    EXPECT_EQ(m_entry.chkBox().Alignment(), 1);
    EXPECT_EQ(m_entry.chkBox().Caption(), S("Passed"));
    EXPECT_EQ(m_entry.chkBox().States(), 4);
    EXPECT_EQ(m_entry.cbo_date().Look.font.size, 12);
    EXPECT_EQ(m_entry.txtText().Look.foreColor, 255U);
    EXPECT_EQ(m_entry.dtpDate().Look.backColor, 65535U);
    EXPECT_FALSE(m_entry.picPicture().Look.isEnabled);
    EXPECT_TRUE(m_entry.txtText().MultiLine);
}

TEST_F(EntryTest, NewColourOrFontKeepsTheStrikeOfTheState) {
    m_entry.SetStates(3);
    m_entry.SetValue(S("2"));
    m_entry.SetForeColor(255);
    m_entry.SetFont({S("Courier New"), 12});
    EXPECT_TRUE(m_entry.chkBox().Label1().font.strikethru);
    EXPECT_EQ(m_entry.chkBox().Label1().font.family, S("Courier New"));
    m_entry.SetFont({.family = S("Arial"), .strikethru = true});
    m_entry.SetFont({S("Arial")});
    EXPECT_FALSE(m_entry.chkBox().Label1().font.strikethru);
}

TEST_F(EntryTest, FewerStatesLeaveTheStateAsItIs) {
    m_entry.SetFieldType(3);
    m_entry.SetStates(4);
    m_entry.SetValue(S("3"));
    m_entry.SetStates(2);
    EXPECT_EQ(m_entry.Value(), S("3"));
    EXPECT_EQ(m_entry.chkBox().picture1().text, S("?"));
    m_entry.ReportClick();
    EXPECT_EQ(m_entry.Value(), S("4"));
    m_entry.SetValue(S("1"));
    m_entry.ReportClick();
    EXPECT_EQ(m_entry.Value(), S("0"));
}

TEST_F(EntryTest, DisabledOneHearsNothing) {
    AddItems({S("A"), S("B")});
    m_entry.SetEnabled(false);
    const auto told = [this](auto&&...) { m_events << S("input"); };
    m_entry.KeyDown = told;
    m_entry.KeyPress = told;
    m_entry.KeyUp = told;
    m_entry.MouseDown = told;
    m_entry.MouseMove = told;
    m_entry.MouseUp = told;
    for (std::uint8_t type = 0; type <= field_type::kPicture; ++type) {
        m_entry.SetFieldType(type);
        const QString before = m_entry.Value();
        EXPECT_EQ(m_entry.ReportKeyDown(32, 0), 32);
        EXPECT_EQ(m_entry.ReportKeyPress(32), 32);
        EXPECT_EQ(m_entry.ReportKeyUp(32, 0), 32);
        m_entry.ReportMouseDown(1, 0, 1, 1);
        m_entry.ReportMouseMove(1, 0, 1, 1);
        m_entry.ReportMouseUp(1, 0, 1, 1);
        m_entry.ReportText(S("typed"));
        m_entry.ReportPick(1);
        m_entry.ReportClick();
        m_entry.ReportDoubleClick();
        EXPECT_EQ(m_entry.Value(), before) << int{type};
    }
    EXPECT_EQ(TakeEvents(), QStringList());
    EXPECT_TRUE(m_ui.fileDialogs.empty());
}

TEST_F(EntryTest, SelectionIsThatOfTheTextInForce) {
    m_entry.SetValue(S("abcdef"));
    m_entry.SetSelStart(1);
    m_entry.SetSelLength(100);
    EXPECT_EQ(m_entry.SelText(), S("bcdef"));
    m_entry.SetFieldType(1);
    EXPECT_EQ(m_entry.SelLength(), 0);
    m_entry.ReportSelection(4, 2);
    EXPECT_EQ(m_entry.SelText(), S("ef"));
    m_entry.SetSelText(S("X"));
    EXPECT_EQ(m_entry.Value(), S("abcdX"));
    EXPECT_EQ(m_entry.SelStart(), 5);
    EXPECT_EQ(FailureOf([&] { m_entry.SetSelStart(-1); }), failure::kInvalidProperty);
    EXPECT_EQ(FailureOf([&] { m_entry.SetSelLength(-1); }), failure::kInvalidProperty);
}

TEST_F(EntryTest, ListCorrectsTheHeightAndIsNeverNarrowerThanFiveHundred) {
    m_entry.cboCombo().MinimalHeight = 330;
    m_entry.Resize(400, 900);
    EXPECT_EQ(m_entry.txtText().Place, (Extent{0, 0, 400, 900}));
    EXPECT_EQ(m_entry.Height(), 900);
    m_entry.SetFieldType(1);
    m_entry.Resize(499, 900);
    EXPECT_EQ(m_entry.Height(), 330);
    EXPECT_EQ(m_entry.cboCombo().Place, (Extent{0, 0, 500, 330}));
    m_entry.Resize(501, 900);
    EXPECT_EQ(m_entry.cboCombo().Place.width, 501);
    m_entry.Resize(2000, 100);
    EXPECT_EQ(m_entry.cboCombo().Place, (Extent{0, 0, 2000, 330}));
}

}  // namespace

}  // namespace sheetwright
