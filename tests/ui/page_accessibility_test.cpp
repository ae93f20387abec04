#include "ui/page_accessibility.h"

#include "entry_editor_test.h"

#include <QAccessible>

namespace sheetwright {
namespace {

QStringList& Told() {
    static QStringList told;
    return told;
}

void Record(QAccessibleEvent* event) {
    const QAccessibleInterface* const source = event->accessibleInterface();
    const QString name = source ? source->text(QAccessible::Name) : QString();
    if (event->type() == QAccessible::Focus) Told() << S("focus ") + name;
    if (event->type() == QAccessible::StateChanged) Told() << S("state ") + name;
    if (event->type() == QAccessible::ObjectReorder) Told() << S("reorder ") + name;
    if (event->type() == QAccessible::ValueChanged)
        Told() << S("value ") + name + u' ' +
                      static_cast<QAccessibleValueChangeEvent*>(event)->value().toString();
}

class PageForHelpers : public EntryEditorTest {
  protected:
    PageForHelpers() {
        m_form.Field(S("second"), At(100, 140) + QStringList{S("TabIdx=20")})
            .Field(S("first"), At(100, 100) + QStringList{S("TabIdx=10")})
            .Field(S("fixed"), At(100, 180) + QStringList{S("ReadOnly=True"), S("TabIdx=30")})
            .Field(S("hidden"), At(100, 220) + QStringList{S("Visible=False"), S("TabIdx=40")})
            .CheckBox(S("passed"), At(100, 260) + QStringList{S("Caption=Passed"), S("TabIdx=15")})
            .Field(S("photo"), At(100, 300) + QStringList{S("FieldType=1"), S("TabIdx=50")})
            .Field(S("loose"), At(100, 340) + QStringList{S("TabIdx=20")});
    }

    void OpenPage() {
        Open({S("second=Turin"), S("first=Ada"), S("fixed=42"), S("passed=2")});
        Told().clear();
    }
    [[nodiscard]] QAccessibleInterface& Root() { return *QAccessible::queryAccessibleInterface(&View()); }
    [[nodiscard]] QAccessibleInterface& Child(const QString& name) {
        for (int index = 0; index < Root().childCount(); ++index)
            if (Root().child(index)->text(QAccessible::Name) == name) return *Root().child(index);
        throw std::runtime_error("no such child");
    }
    [[nodiscard]] QStringList Names() {
        QStringList names;
        for (int index = 0; index < Root().childCount(); ++index)
            names << Root().child(index)->text(QAccessible::Name);
        return names;
    }
    static void Do(QAccessibleInterface& element, const QString& action) {
        element.actionInterface()->doAction(action);
    }
};

TEST_F(PageForHelpers, IsADocumentWithItsElementsInTabOrder) {
    OpenPage();
    Leave();
    EXPECT_EQ(Root().role(), QAccessible::Document);
    EXPECT_EQ(Root().text(QAccessible::Name), Document().Caption);
    EXPECT_EQ(Names(), (QStringList{S("first"), S("Passed"), S("second"), S("fixed"), S("hidden"), S("photo"),
                                    S("loose")}));
    for (int index = 0; index < Root().childCount(); ++index) {
        EXPECT_EQ(Root().indexOfChild(Root().child(index)), index);
        EXPECT_EQ(Root().child(index)->parent(), &Root());
        EXPECT_EQ(Root().child(index), Root().child(index));
    }
    EXPECT_EQ(Root().child(-1), nullptr);
    EXPECT_EQ(Root().child(7), nullptr);
}

TEST_F(PageForHelpers, EditorIsTheLastChildWhileItIsShown) {
    OpenPage();
    ASSERT_TRUE(Editor().IsShown());
    EXPECT_EQ(Root().childCount(), 8);
    QAccessibleInterface* const frame = Root().child(7);
    ASSERT_TRUE(frame);
    EXPECT_EQ(Root().indexOfChild(frame), 7);
    EXPECT_EQ(Root().focusChild(), QAccessible::queryAccessibleInterface(&Focus()));
    EXPECT_EQ(Root().focusChild()->text(QAccessible::Name), S("first"));
    Leave();
    EXPECT_EQ(Root().childCount(), 7);
}

TEST_F(PageForHelpers, ElementsTellRoleNameAndValue) {
    OpenPage();
    EXPECT_EQ(Child(S("second")).role(), QAccessible::EditableText);
    EXPECT_EQ(Child(S("second")).text(QAccessible::Value), S("Turin"));
    EXPECT_EQ(Child(S("fixed")).role(), QAccessible::StaticText);
    EXPECT_EQ(Child(S("fixed")).text(QAccessible::Value), S("42"));
    EXPECT_EQ(Child(S("Passed")).role(), QAccessible::CheckBox);
    EXPECT_EQ(Child(S("Passed")).text(QAccessible::Value), S("2"));
    EXPECT_EQ(Child(S("Passed")).text(QAccessible::Description), S("Not applicable"));
    EXPECT_EQ(Child(S("photo")).role(), QAccessible::Graphic);
    QAccessibleTextInterface* const text = Child(S("second")).textInterface();
    EXPECT_EQ(text->characterCount(), 5);
    EXPECT_EQ(text->text(1, 3), S("ur"));
}

TEST_F(PageForHelpers, FieldBeingEditedTellsWhatIsTyped) {
    OpenPage();
    Type(S("Grace"));
    EXPECT_EQ(Child(S("first")).text(QAccessible::Value), S("Grace"));
    EXPECT_EQ(Text(2), S("Ada"));
}

TEST_F(PageForHelpers, StatesFollowTheElement) {
    OpenPage();
    EXPECT_TRUE(Child(S("first")).state().focused);
    EXPECT_TRUE(Child(S("first")).state().focusable);
    EXPECT_FALSE(Child(S("second")).state().focused);
    EXPECT_TRUE(Child(S("fixed")).state().readOnly);
    EXPECT_FALSE(Child(S("fixed")).state().focusable);
    EXPECT_TRUE(Child(S("hidden")).state().invisible);
    EXPECT_FALSE(Child(S("second")).state().offscreen);
    View().SetZoom(8);
    EXPECT_TRUE(Child(S("photo")).state().offscreen);
}

TEST_F(PageForHelpers, CheckBoxTellsItsFourStates) {
    OpenPage();
    QAccessibleInterface& check = Child(S("Passed"));
    const char* const words[] = {"Not checked", "Checked", "Not applicable", "Unknown"};
    for (int state = 0; state <= 3; ++state) {
        check.valueInterface()->setCurrentValue(state);
        EXPECT_EQ(check.valueInterface()->currentValue().toInt(), state);
        EXPECT_EQ(check.text(QAccessible::Description), QString::fromLatin1(words[state]));
        EXPECT_TRUE(check.state().checkable);
        EXPECT_EQ(check.state().checked, state == 1 ? 1U : 0U);
        EXPECT_EQ(check.state().checkStateMixed, state > 1 ? 1U : 0U);
    }
    EXPECT_EQ(check.valueInterface()->maximumValue().toInt(), 3);
    check.valueInterface()->setCurrentValue(4);
    EXPECT_EQ(check.valueInterface()->currentValue().toInt(), 3);
}

TEST_F(PageForHelpers, PlacesAreThoseOnTheScreen) {
    OpenPage();
    QAccessibleInterface& second = Child(S("second"));
    const QRect place = View().OnScreen(ThePage().Entries.At(1).place).toAlignedRect();
    EXPECT_EQ(second.rect(), QRect(View().mapToGlobal(place.topLeft()), place.size()));
    EXPECT_EQ(Root().childAt(second.rect().center().x(), second.rect().center().y()), &second);
}

TEST_F(PageForHelpers, ActionsWorkTheElements) {
    OpenPage();
    Do(Child(S("second")), QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
    Do(Child(S("Passed")), QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(ThePage().CurrentEntry, Check(1));
    EXPECT_EQ(Root().focusChild(), &Child(S("Passed")));
    Do(Child(S("Passed")), QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(Child(S("Passed")).text(QAccessible::Value), S("3"));
    Do(Child(S("photo")), QAccessibleActionInterface::pressAction());
    EXPECT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_TRUE(Child(S("fixed")).actionInterface()->actionNames().isEmpty());
}

TEST_F(PageForHelpers, ValueThatIsSetGoesThroughTheMask) {
    m_form.Field(S("sum"), At(100, 380) + QStringList{S("Format=0.00"), S("TabIdx=60")});
    OpenPage();
    Child(S("sum")).setText(QAccessible::Value, S("3.5"));
    EXPECT_EQ(Child(S("sum")).text(QAccessible::Value), S("3.50"));
    EXPECT_TRUE(Document().Changed);
    Child(S("second")).editableTextInterface()->insertText(5, S(" (Italy)"));
    EXPECT_EQ(Text(1), S("Turin (Italy)"));
    Child(S("second")).editableTextInterface()->deleteText(-5, 99);
    EXPECT_EQ(Text(1), QString());
    Child(S("first")).setText(QAccessible::Value, S("Grace"));
    EXPECT_EQ(Line().text(), S("Grace"));
    Child(S("fixed")).setText(QAccessible::Value, S("43"));
    EXPECT_EQ(Child(S("fixed")).text(QAccessible::Value), S("42"));
    EXPECT_EQ(Child(S("fixed")).editableTextInterface(), nullptr);
}

TEST_F(PageForHelpers, ElementsOfAPageThatIsGoneAreInvalid) {
    OpenPage();
    QAccessibleInterface& second = Child(S("second"));
    Leave();
    ThePage().Entries.UnloadAll();
    ThePage().FieldProperties.clear();
    ThePage().TabOrders.Clear();
    EXPECT_FALSE(second.isValid());
    EXPECT_TRUE(second.state().invalid);
    EXPECT_EQ(second.text(QAccessible::Value), QString());
    EXPECT_EQ(second.rect(), QRect());
    EXPECT_EQ(second.textInterface()->characterCount(), 0);
    Do(second, QAccessibleActionInterface::setFocusAction());
    second.setText(QAccessible::Value, S("x"));
    EXPECT_EQ(Names(), (QStringList{S("Passed"), S("photo")}));
}

TEST_F(PageForHelpers, CheckBoxOfAPageThatIsGoneTakesNoState) {
    OpenPage();
    QAccessibleInterface& check = Child(S("Passed"));
    Leave();
    ThePage().Checks.UnloadAll();
    ThePage().CheckProperties.clear();
    check.valueInterface()->setCurrentValue(0);
    EXPECT_FALSE(check.valueInterface()->currentValue().isValid());
}

TEST_F(PageForHelpers, DisabledFrameTakesNoRequest) {
    OpenPage();
    Leave();
    m_frame.enabled = false;
    Do(Child(S("second")), QAccessibleActionInterface::setFocusAction());
    Child(S("first")).setText(QAccessible::Value, S("Grace"));
    Child(S("Passed")).valueInterface()->setCurrentValue(1);
    EXPECT_TRUE(ThePage().CurrentEntry.IsNone());
    EXPECT_EQ(Child(S("first")).text(QAccessible::Value), S("Ada"));
    EXPECT_EQ(Child(S("Passed")).valueInterface()->currentValue().toInt(), 2);
}

TEST_F(PageForHelpers, FocusIsTold) {
    OpenPage();
    AccessibilityFocusChanged(View(), Check(1), &Record);
    AccessibilityFocusChanged(View(), kNone, &Record);
    EXPECT_EQ(Told(), (QStringList{S("focus Passed"), S("focus ") + Document().Caption}));
}

TEST_F(PageForHelpers, FieldThatIsEnteredTellsTheEditorWithItsName) {
    OpenPage();
    Entries_GotFocus(Document(), 1);
    AccessibilityFocusChanged(View(), Entry(1), &Record);
    EXPECT_EQ(Told(), QStringList{S("focus second")});
    EXPECT_EQ(Root().focusChild()->text(QAccessible::Value), S("Turin"));
}

TEST_F(PageForHelpers, ValuesAreToldWhenTheyAreOthers) {
    OpenPage();
    for (int time = 1; time <= 2; ++time)
        AccessibilityValueChanged(View(), Check(1), &Record);
    EXPECT_EQ(Told(), (QStringList{S("state Passed"), S("value Passed 2")}));
    Told().clear();
    Checks_Click(Document(), 1);
    AccessibilityValueChanged(View(), Check(1), &Record);
    AccessibilityValueChanged(View(), Entry(99), &Record);
    EXPECT_EQ(Told(), (QStringList{S("state Passed"), S("value Passed 3")}));
}

TEST_F(PageForHelpers, PageOfOtherElementsIsTold) {
    OpenPage();
    const QAccessible::Id id = QAccessible::uniqueId(&Child(S("second")));
    AccessibilityPageChanged(View(), &Record);
    EXPECT_EQ(Told(), QStringList{S("reorder ") + Document().Caption});
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

TEST_F(PageForHelpers, ManyElementsAreWalkedOnce) {
    m_form = FormText();
    m_form.Page(S("First"));
    for (int number = 1; number <= 2000; ++number)
        m_form.Field(S("f%1").arg(number));
    m_form.Data(1, {});
    ASSERT_NO_FATAL_FAILURE(FormWindowTest::Open(m_form));
    EXPECT_EQ(Names().size(), 2001);
}

TEST_F(PageForHelpers, ViewMayGoBeforeItsInterfaces) {
    OpenPage();
    const QAccessible::Id id = QAccessible::uniqueId(&Child(S("second")));
    m_window.reset();
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

}  // namespace
}  // namespace sheetwright
