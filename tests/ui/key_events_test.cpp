#include "ui/key_events.h"

#include "support/page_of_elements.h"

#include <QKeyEvent>

namespace sheetwright {
namespace {

QKeyEvent Pressed(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
    return {QEvent::KeyPress, key, modifiers, text};
}

TEST(KeyCodeOf, KeysHaveTheirCodes) {
    const std::pair<Qt::Key, int> codes[] = {
        {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},     {Qt::Key_Backtab, 9}, {Qt::Key_Return, 13},
        {Qt::Key_Enter, 13},    {Qt::Key_Escape, 27}, {Qt::Key_Space, 32},  {Qt::Key_PageUp, 33},
        {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},    {Qt::Key_Home, 36},   {Qt::Key_Left, 37},
        {Qt::Key_Up, 38},       {Qt::Key_Right, 39},  {Qt::Key_Down, 40},   {Qt::Key_Insert, 45},
        {Qt::Key_Delete, 46},   {Qt::Key_0, 48},      {Qt::Key_9, 57},      {Qt::Key_A, 65},
        {Qt::Key_Z, 90},        {Qt::Key_F1, 112},    {Qt::Key_F4, 115},    {Qt::Key_F12, 123}};
    for (const auto& [key, code] : codes)
        EXPECT_EQ(KeyCodeOf(Pressed(key)), code) << key;
}

TEST(KeyCodeOf, OtherKeysHaveNone) {
    EXPECT_EQ(KeyCodeOf(Pressed(Qt::Key_Adiaeresis)), 0);
    EXPECT_EQ(KeyCodeOf(Pressed(Qt::Key_unknown)), 0);
    EXPECT_EQ(KeyCodeOf(Pressed(0)), 0);
}

TEST(ShiftOf, ModifiersAreBits) {
    EXPECT_EQ(ShiftOf(Pressed(Qt::Key_A)), 0);
    EXPECT_EQ(ShiftOf(Pressed(Qt::Key_A, Qt::ShiftModifier)), 1);
    EXPECT_EQ(ShiftOf(Pressed(Qt::Key_A, Qt::ControlModifier)), 2);
    EXPECT_EQ(ShiftOf(Pressed(Qt::Key_A, Qt::AltModifier)), 4);
    EXPECT_EQ(ShiftOf(Pressed(Qt::Key_A, Qt::AltModifier | Qt::ControlModifier | Qt::ShiftModifier)), 7);
    EXPECT_EQ(ShiftOf(Pressed(Qt::Key_Enter, Qt::KeypadModifier)), 0);
}

TEST(ShiftOf, BacktabIsTabWithShift) {
    EXPECT_EQ(ShiftOf(Pressed(Qt::Key_Backtab)), 1);
}

TEST(KeyAsciiOf, CharactersHaveTheirCodes) {
    EXPECT_EQ(KeyAsciiOf(Pressed(Qt::Key_A, {}, S("a"))), 97);
    EXPECT_EQ(KeyAsciiOf(Pressed(Qt::Key_Adiaeresis, {}, S("ä"))), 228);
    EXPECT_EQ(KeyAsciiOf(Pressed(Qt::Key_unknown, {}, S("\uFFFD"))), 63);
    EXPECT_EQ(KeyAsciiOf(Pressed(Qt::Key_Backspace)), 8);
    EXPECT_EQ(KeyAsciiOf(Pressed(Qt::Key_Backspace, {}, S("\u007F"))), 8);
    EXPECT_EQ(KeyAsciiOf(Pressed(Qt::Key_Return, {}, S("\r"))), 13);
    EXPECT_EQ(KeyAsciiOf(Pressed(Qt::Key_Escape)), 27);
    EXPECT_EQ(KeyAsciiOf(Pressed(Qt::Key_Left)), 0);
}

TEST(KeyAsciiOf, CommandsMakeNoCharacter) {
    EXPECT_EQ(KeyAsciiOf(Pressed(Qt::Key_H, Qt::ControlModifier, S("\b"))), 0);
    EXPECT_EQ(KeyAsciiOf(Pressed(Qt::Key_Q, Qt::ControlModifier | Qt::AltModifier, S("@"))), 64);
}

class SendingKeys : public PageOfElements {
  protected:
    bool SendPressed(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
        return SendKeyPress(m_document, Pressed(key, modifiers, text), m_page.CurrentEntry);
    }
    bool SendReleased(int key, bool isRepeated = false) {
        return SendKeyRelease(m_document, QKeyEvent(QEvent::KeyRelease, key, {}, {}, isRepeated));
    }
};

TEST_F(SendingKeys, TabIsTheFormsAndMoves) {
    AddField();
    AddField();
    EXPECT_TRUE(SendPressed(Qt::Key_Tab));
    EXPECT_EQ(Current(), S("1"));
    EXPECT_TRUE(SendPressed(Qt::Key_Return));
    EXPECT_EQ(Current(), S("2"));
    EXPECT_TRUE(SendPressed(Qt::Key_Backtab));
    EXPECT_EQ(Current(), S("1"));
    EXPECT_FALSE(SendPressed(Qt::Key_Tab, Qt::ControlModifier));
    EXPECT_EQ(Current(), S("1"));
}

TEST_F(SendingKeys, EditorHearsCodeThenCharacter) {
    AddField();
    Enter(1);
    QStringList heard;
    m_page.Entry.KeyDown = [&](std::int16_t& code, std::int16_t shift) {
        heard << S("%1 %2").arg(code).arg(shift);
    };
    m_page.Entry.KeyPress = [&](std::int16_t& ascii) { heard << S("'%1'").arg(ascii); };
    EXPECT_FALSE(SendPressed(Qt::Key_A, Qt::ShiftModifier, S("A")));
    EXPECT_FALSE(SendPressed(Qt::Key_Left));
    EXPECT_FALSE(SendPressed(Qt::Key_Adiaeresis, {}, S("ä")));
    EXPECT_EQ(heard, (QStringList{S("65 1"), S("'65'"), S("37 0"), S("'228'")}));
}

TEST_F(SendingKeys, CancelledKeyMakesNoCharacter) {
    AddField();
    Enter(1);
    int characters = 0;
    m_page.Entry.KeyDown = [](std::int16_t& code, std::int16_t) { code = 0; };
    m_page.Entry.KeyPress = [&](std::int16_t&) { ++characters; };
    EXPECT_TRUE(SendPressed(Qt::Key_A, {}, S("a")));
    EXPECT_EQ(characters, 0);
}

TEST_F(SendingKeys, PageKeysAreTakenFromTheEditor) {
    AddField();
    Enter(1);
    EXPECT_TRUE(SendPressed(Qt::Key_PageDown));
    EXPECT_TRUE(SendPressed(Qt::Key_PageUp));
}

TEST_F(SendingKeys, PageKeysAreNobodyElsesWithoutTheEditor) {
    AddCheck();
    for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_PageDown})
        EXPECT_TRUE(SendPressed(key)) << key;
    Tab();
    for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_PageDown})
        EXPECT_TRUE(SendPressed(key)) << key;
    EXPECT_EQ(Current(), S("C1"));
    EXPECT_EQ(m_frame.addPageShown, 0) << "that comes at the release";
}

TEST_F(SendingKeys, EscapeEndsTheEdit) {
    AddField();
    Enter(1);
    EXPECT_TRUE(SendPressed(Qt::Key_Escape));
    EXPECT_EQ(Current(), QString());
}

TEST_F(SendingKeys, SpaceWorksACheckBox) {
    AddCheck();
    Tab();
    ASSERT_EQ(m_page.CurrentEntry, kCheck1);
    EXPECT_TRUE(SendPressed(Qt::Key_Space, {}, S(" ")));
    EXPECT_EQ(Check(1).Value(), S("1"));
    EXPECT_FALSE(SendPressed(Qt::Key_A, {}, S("a")));
    EXPECT_EQ(Check(1).Value(), S("1"));
}

TEST_F(SendingKeys, WithoutAnElementOnlyTheFormHears) {
    AddField();
    EXPECT_FALSE(SendPressed(Qt::Key_A, {}, S("a")));
    EXPECT_FALSE(SendPressed(Qt::Key_Space, {}, S(" ")));
}

TEST_F(SendingKeys, PagesTurnAtTheReleaseAndOnlyOnce) {
    m_document.Pages = 1;
    AddField();
    EXPECT_FALSE(SendReleased(Qt::Key_PageDown, true));
    EXPECT_EQ(m_frame.addPageShown, 0);
    EXPECT_TRUE(SendReleased(Qt::Key_PageDown));
    EXPECT_EQ(m_frame.addPageShown, 1);
    EXPECT_FALSE(SendReleased(Qt::Key_A));
}

}  // namespace
}  // namespace sheetwright
