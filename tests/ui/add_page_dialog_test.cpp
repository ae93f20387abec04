#include "ui/add_page_dialog.h"

#include "core/folders.h"
#include "core/settings.h"
#include "dialog_test.h"
#include "document/page_moves.h"
#include "fields/navigation.h"
#include "form_window_test.h"
#include "ui/template_list.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

namespace sheetwright {
namespace {

constexpr int kStart = 0;
constexpr int kEnd = 1;
constexpr int kBefore = 2;
constexpr int kAfter = 3;

// Pages 1 to 3 have the designs Cover, Sheet and Sheet.
class AddPageDialog : public FormWindowTest {
  protected:
    AddPageDialog() {
        m_application->settings = Settings(Path(S("settings")));
        m_form.Page(S("Cover")).Field(S("client"), At(100, 100));
        m_form.Page(S("Sheet")).Field(S("reading"), At(100, 100));
        m_form.Data(1, {S("client=Ada")}).Data(2, {S("reading=1")}).Data(2, {S("reading=2")});
        m_one.Page(S("Back")).Field(S("note"), At(100, 100)).Data(1, {S("note=theirs")});
        m_several.Page(S("Plan")).Field(S("a"), At(100, 100));
        m_several.Page(S("List")).Field(S("b"), At(100, 100));
        Write(S("templates/several.AFT"), m_several.Bytes());
        m_pathOfOne = Write(S("templates/one.aft"), m_one.Bytes());
        Write(S("templates/notes.txt"), "none");
        Write(S("templates/more/deep.aft"), m_one.Bytes());
        SetTemplateFolder(*m_application, Path(S("templates")));
    }

    void SetUp() override { ASSERT_NO_FATAL_FAILURE(Open(m_form)); }
    void Load(std::int16_t page = 1) {
        if (page != Document().DataPageNum) MoveToPage(Document(), page);
        m_dialog = std::make_unique<frmAddPage>(Document(), m_window.get());
        ASSERT_NO_FATAL_FAILURE(ShowActive(*m_dialog));
    }

    template <typename Control>
    [[nodiscard]] Control& The(const QString& name) {
        return *m_dialog->findChild<Control*>(name);
    }
    [[nodiscard]] QListWidget& Designs() { return The<QListWidget>(S("LstDesign")); }
    [[nodiscard]] QListWidget& Templates() { return The<QListWidget>(S("lvNew")); }
    [[nodiscard]] QComboBox& Number() { return The<QComboBox>(S("cboPage")); }
    [[nodiscard]] QRadioButton& Option(int mode) { return The<QRadioButton>(S("optPage%1").arg(mode)); }
    void Click(const char* name) { QTest::mouseClick(&The<QPushButton>(S(name)), Qt::LeftButton); }
    void Choose(int mode) {
        QTest::mouseClick(&Option(mode), Qt::LeftButton, {}, {8, Option(mode).height() / 2});
    }
    void TypeNumber(const QString& text) {
        Number().lineEdit()->selectAll();
        QTest::keyClick(Number().lineEdit(), Qt::Key_Delete);
        QTest::keyClicks(Number().lineEdit(), text);
    }
    void OpenTemplate(const QString& name) {
        const QList<QListWidgetItem*> rows = Templates().findItems(name, Qt::MatchExactly);
        ASSERT_EQ(rows.size(), 1);
        DoubleClick(Templates(), Templates().row(rows.first()));
    }

    // "1:Cover 2:Sheet": the pages and the titles of their designs.
    [[nodiscard]] QString PagesOfTheForm() {
        QStringList pages;
        for (const QString& text : PageListTexts(Document()))
            pages << text.section(S(" - "), 0, 0) + u':' + text.section(S(" - "), 1);
        return pages.join(u' ');
    }
    void ExpectNumberRequired() {
        EXPECT_EQ(
            m_ui.messages,
            (std::vector{ShownMessage{S("Page number required"), S("Add Page"), MessageIcon::Exclamation}}));
        EXPECT_EQ(m_ui.beeps, 1);
        EXPECT_TRUE(m_dialog->isVisible());
        EXPECT_EQ(Document().Pages, 3);
    }

    FormText m_form;
    FormText m_one;
    FormText m_several;
    QString m_pathOfOne;
    std::unique_ptr<frmAddPage> m_dialog;
};

TEST_F(AddPageDialog, OpensOnTheDesignOfThePageAndOnTheEndOfTheForm) {
    Load(2);
    EXPECT_EQ(RowsOf(Designs()), (QStringList{S("Cover"), S("Sheet")}));
    EXPECT_EQ(Designs().currentRow(), 1);
    EXPECT_TRUE(Option(kEnd).isChecked());
    EXPECT_EQ(Number().count(), 3);
    EXPECT_EQ(Number().currentText(), S("3"));
    EXPECT_TRUE(Designs().hasFocus());
}

TEST_F(AddPageDialog, HasItsCaptions) {
    Load();
    EXPECT_EQ(m_dialog->windowTitle(), S("Add Page"));
    EXPECT_EQ(Option(kStart).text(), S("At &Start Of Form"));
    EXPECT_EQ(Option(kEnd).text(), S("At &End Of Form"));
    EXPECT_EQ(Option(kBefore).text(), S("&Before Page:"));
    EXPECT_EQ(Option(kAfter).text(), S("&After Page:"));
    EXPECT_EQ(The<QPushButton>(S("cmdBrowse")).text(), S("Bro&wse..."));
    EXPECT_EQ(The<QPushButton>(S("cmdAdd")).text(), S("&Add"));
    EXPECT_EQ(The<QPushButton>(S("cmdCancel")).text(), S("Cancel"));
    EXPECT_EQ(The<QLabel>(S("lblHeading")).text(),
              S("Double Click To Merge In Page(s) From An Existing Form Design"));
    EXPECT_EQ(m_dialog->findChild<QGroupBox*>()->title(), S("Select Where To Insert Page"));
}

TEST_F(AddPageDialog, TheEndsOfTheFormSelectTheirPage) {
    Load();
    Choose(kBefore);
    Number().setCurrentIndex(1);
    Choose(kAfter);
    EXPECT_EQ(Number().currentText(), S("2")) << "kept";
    Choose(kBefore);
    EXPECT_EQ(Number().currentText(), S("2")) << "kept";
    Choose(kStart);
    EXPECT_EQ(Number().currentText(), S("1"));
    EXPECT_FALSE(Number().isEnabled());
    Choose(kEnd);
    EXPECT_EQ(Number().currentText(), S("3"));
    EXPECT_FALSE(Number().isEnabled());
    Choose(kAfter);
    EXPECT_EQ(Number().currentText(), S("3")) << "kept";
    EXPECT_TRUE(Number().isEnabled());
}

TEST_F(AddPageDialog, AddsAtTheEndWithoutAnyChoice) {
    Load();
    Click("cmdAdd");
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(PagesOfTheForm(), S("1:Cover 2:Sheet 3:Sheet 4:Cover"));
    EXPECT_EQ(Document().DataPageNum, 4);
    EXPECT_EQ(Text(1), S(""));
    EXPECT_TRUE(Document().Changed);
}

TEST_F(AddPageDialog, AddsAtEachPlace) {
    struct Case {
        int mode;
        int number;  // 0 where it stays
        std::int16_t page;
        const char* pages;
    };
    const Case cases[] = {
        {kStart, 0, 1, "1:Cover 2:Cover 3:Sheet 4:Sheet"}, {kBefore, 1, 1, "1:Cover 2:Cover 3:Sheet 4:Sheet"},
        {kAfter, 1, 2, "1:Cover 2:Cover 3:Sheet 4:Sheet"}, {kBefore, 2, 2, "1:Cover 2:Cover 3:Sheet 4:Sheet"},
        {kAfter, 2, 3, "1:Cover 2:Sheet 3:Cover 4:Sheet"}, {kBefore, 3, 3, "1:Cover 2:Sheet 3:Cover 4:Sheet"},
        {kAfter, 3, 4, "1:Cover 2:Sheet 3:Sheet 4:Cover"}, {kEnd, 0, 4, "1:Cover 2:Sheet 3:Sheet 4:Cover"},
    };
    for (const Case& place : cases) {
        const std::string what = "mode " + std::to_string(place.mode) + " at " + std::to_string(place.number);
        ASSERT_NO_FATAL_FAILURE(Open(m_form));
        Load(2);
        Designs().setCurrentRow(0);
        Choose(place.mode);
        if (place.number > 0) Number().setCurrentIndex(place.number - 1);
        Click("cmdAdd");
        EXPECT_FALSE(m_dialog->isVisible()) << what;
        EXPECT_EQ(PagesOfTheForm(), S(place.pages)) << what;
        EXPECT_EQ(Document().DataPageNum, place.page) << what;
        EXPECT_EQ(Text(1), S("")) << what;
        m_dialog.reset();
    }
}

TEST_F(AddPageDialog, ThePageOnScreenIsStoredFirst) {
    SimulateTab(Document());
    ThePage().Entry.ReportText(S("Grace"));
    Load();
    Choose(kStart);
    Click("cmdAdd");
    EXPECT_EQ(Document().memory.DataPage(2).Line(2), u"client=Grace");
}

TEST_F(AddPageDialog, ATypedNumberIsAChoice) {
    Load();
    Choose(kAfter);
    TypeNumber(S(" 1"));
    QTest::keyClick(Number().lineEdit(), Qt::Key_Return);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(Document().DataPageNum, 2);
}

TEST_F(AddPageDialog, BesideAPageItsNumberIsRequired) {
    for (const int mode : {kBefore, kAfter})
        for (const char* text : {"", "4", "0", "x"}) {
            Load();
            Choose(mode);
            TypeNumber(S(text));
            Click("cmdAdd");
            ExpectNumberRequired();
            m_ui.messages.clear();
            m_ui.beeps = 0;
        }
}

TEST_F(AddPageDialog, AMergedTemplateOfOneDesignIsPlacedAtOnce) {
    Load(2);
    Choose(kBefore);
    Number().setCurrentIndex(1);
    OpenTemplate(S("one.aft"));
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(PagesOfTheForm(), S("1:Cover 2:Back 3:Sheet 4:Sheet"));
    EXPECT_EQ(Document().DataPageNum, 2);
    EXPECT_EQ(Text(1), S("")) << "no data comes with it";
    EXPECT_EQ(Document().Caption, S("form.aff"));
    EXPECT_EQ(m_ui.pointers.front(), Pointer::Hourglass);
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
}

TEST_F(AddPageDialog, OneMergedDesignWithoutAPlaceIsOfferedForChoice) {
    Load();
    Choose(kBefore);
    TypeNumber(S(""));
    OpenTemplate(S("one.aft"));
    ExpectNumberRequired();
    EXPECT_EQ(RowsOf(Designs()), (QStringList{S("Cover"), S("Sheet"), S("Back")}));
    EXPECT_EQ(Designs().currentRow(), 0);
    EXPECT_TRUE(Option(kEnd).isChecked());
    EXPECT_EQ(Number().currentText(), S("3"));
}

TEST_F(AddPageDialog, SeveralMergedDesignsAreOfferedForChoice) {
    Load();
    OpenTemplate(S("several.AFT"));
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_EQ(RowsOf(Designs()), (QStringList{S("Cover"), S("Sheet"), S("Plan"), S("List")}));
    EXPECT_EQ(Designs().currentRow(), 0);
    EXPECT_EQ(Document().Pages, 3);
    EXPECT_EQ(m_ui.pointer, Pointer::Normal);
    EXPECT_TRUE(Designs().hasFocus());
    DoubleClick(Designs(), 3);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(PagesOfTheForm(), S("1:Cover 2:Sheet 3:Sheet 4:List"));
}

TEST_F(AddPageDialog, CancellingAfterAMergeKeepsTheDesigns) {
    Load();
    OpenTemplate(S("several.AFT"));
    Click("cmdCancel");
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(Document().Pages, 3);
    EXPECT_EQ(Document().DataPageNum, 1);
    EXPECT_EQ(Text(1), S("Ada"));
    Load();
    EXPECT_EQ(RowsOf(Designs()), (QStringList{S("Cover"), S("Sheet"), S("Plan"), S("List")}));
}

TEST_F(AddPageDialog, ATemplateThatCannotBeMergedIsToldAndChangesNothing) {
    Write(S("templates/broken.aft"), "VERSION 1.0.0\r\nBEGIN DESIGN\r\nEND DESIGN\r\n");
    Load();
    Choose(kAfter);
    OpenTemplate(S("broken.aft"));
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_EQ(m_ui.messages.size(), 1U);
    EXPECT_EQ(Designs().count(), 2);
    EXPECT_TRUE(Option(kAfter).isChecked()) << "the choice stays";
    QFile::remove(m_pathOfOne);
    OpenTemplate(S("one.aft"));
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_EQ(m_ui.messages.back().text, S("Error 53: File not found"));
}

TEST_F(AddPageDialog, BrowseMergesTheChosenTemplate) {
    Load();
    m_ui.onFileDialog = [this](FileDialog& dialog) { dialog.fileName = m_pathOfOne; };
    Click("cmdBrowse");
    ASSERT_EQ(m_ui.fileDialogs.size(), 1U);
    const FileDialog& shown = m_ui.fileDialogs.front();
    EXPECT_EQ(shown.title, S("Merge Template"));
    EXPECT_EQ(shown.fileName, S("*.aft"));
    EXPECT_EQ(shown.defaultExtension, S("aft"));
    EXPECT_EQ(shown.filter, S("Tolvane Form Templates (*.aft)|*.aft"));
    EXPECT_EQ(shown.initialFolder, TemplateFolder(*m_application));
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(PagesOfTheForm(), S("1:Cover 2:Sheet 3:Sheet 4:Back"));
}

TEST_F(AddPageDialog, ACancelledBrowseStaysInTheDialog) {
    Load();
    Click("cmdBrowse");
    EXPECT_EQ(m_ui.fileDialogs.size(), 1U);
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_EQ(m_ui.messages.size(), 0U);
    EXPECT_EQ(Designs().count(), 2);
}

TEST_F(AddPageDialog, WithoutADesignTheButtonOpensTheSelectedTemplate) {
    Load();
    Designs().clearSelection();
    Click("cmdAdd");
    EXPECT_TRUE(m_dialog->isVisible()) << "none is selected either";
    Templates().setCurrentItem(Templates().findItems(S("one.aft"), Qt::MatchExactly).value(0));
    Click("cmdAdd");
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(PagesOfTheForm(), S("1:Cover 2:Sheet 3:Sheet 4:Back"));
}

TEST_F(AddPageDialog, ADesignStaysSelectedWhereverAPersonClicks) {
    Load();
    QTest::mouseClick(Designs().viewport(), Qt::LeftButton, {}, Designs().viewport()->rect().bottomRight());
    EXPECT_EQ(Designs().selectedItems().size(), 1);
    const QPoint first = Designs().visualItemRect(Designs().item(0)).center();
    QTest::mouseClick(Designs().viewport(), Qt::LeftButton, Qt::ControlModifier, first);
    EXPECT_EQ(Designs().selectedItems().size(), 1);
}

TEST_F(AddPageDialog, AFailingFormulaClosesTheDialogBehindThePageThatItAdded) {
    Document().memory.AppendFormulas(1, S("SETME(EQUAL(1,\"abc\"))"), S("client"));
    Load();
    Click("cmdAdd");
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(m_ui.MessageTexts(), QStringList{S("Error 13: Type mismatch")});
    EXPECT_EQ(Document().Pages, 4);
    EXPECT_EQ(ErrorRows().back().value(3), S("cmdAdd_Click"));
}

TEST_F(AddPageDialog, EscapeCancels) {
    Load();
    QTest::keyClick(&Designs(), Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->isVisible());
    Load();
    Choose(kBefore);
    QTest::keyClick(Number().lineEdit(), Qt::Key_Escape);
    EXPECT_FALSE(m_dialog->isVisible());
    EXPECT_EQ(Document().Pages, 3);
}

TEST_F(AddPageDialog, EnterAddsFromEveryOtherPlace) {
    Load();
    QTest::keyClick(&Designs(), Qt::Key_Return);
    EXPECT_FALSE(m_dialog->isVisible());
    Load();
    QTest::keyClick(&Option(kStart), Qt::Key_Return);
    EXPECT_FALSE(m_dialog->isVisible());
    Load();
    Templates().setFocus();
    QTest::keyClick(&Templates(), Qt::Key_Return);
    EXPECT_FALSE(m_dialog->isVisible()) << "no template is selected";
    EXPECT_EQ(Document().Pages, 6);
}

TEST_F(AddPageDialog, TabGoesFromTheListsToThePlaceToTheButtons) {
    Load();
    QStringList order;
    for (int step = 0; step < 7; ++step) {
        order << QApplication::focusWidget()->objectName();
        if (step == 3) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);  // "After Page"
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, (QStringList{S("LstDesign"), S("lvNew"), S("cmdBrowse"), S("optPage1"), S("cboPage"),
                                  S("cmdAdd"), S("cmdCancel")}));
}

TEST_F(AddPageDialog, EveryControlHasItsKey) {
    Load();
    for (const auto& [key, mode] :
         {std::pair{Qt::Key_S, kStart}, std::pair{Qt::Key_B, kBefore}, std::pair{Qt::Key_E, kEnd}}) {
        QTest::keyClick(m_dialog.get(), key, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Option(mode).isChecked(); })) << mode;
    }
    QTest::keyClick(m_dialog.get(), Qt::Key_D, Qt::AltModifier);
    EXPECT_TRUE(Designs().hasFocus());
    QTest::keyClick(m_dialog.get(), Qt::Key_W, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_ui.fileDialogs.size() == 1; }));
    // "Add" and "After Page" share theirs, which goes from one to the other.
    QTest::keyClick(m_dialog.get(), Qt::Key_A, Qt::AltModifier);
    const QWidget* const first = m_dialog->focusWidget();
    QTest::keyClick(m_dialog.get(), Qt::Key_A, Qt::AltModifier);
    EXPECT_NE(m_dialog->focusWidget(), first);
    EXPECT_TRUE(m_dialog->isVisible());
}

TEST_F(AddPageDialog, TheCommandEntersTheFirstFieldOfTheNewPage) {
    m_application->ReportMode = true;
    QTimer::singleShot(0, m_window.get(), [] {
        QWidget* const dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        QTest::keyClick(dialog->findChild<QListWidget*>(S("LstDesign")), Qt::Key_Return);
    });
    m_frame.onAddPage = [this](frmSheetwright& document) { ShowAddPage(m_window.get(), document); };
    mnuPageAdd_Click(Document());
    EXPECT_EQ(Document().DataPageNum, 4);
    EXPECT_EQ(ThePage().CurrentEntry, Entry(1));
    EXPECT_EQ(m_ui.hostLines, QStringList{S("EVENT: PAGECHANGE")});
}

TEST_F(AddPageDialog, GermanTextsAreNotCutOff) {
    UseGerman(*m_application);
    Load();
    EXPECT_EQ(m_dialog->windowTitle(), S("Seite hinzufügen"));
    ExpectNothingCutOff(*m_dialog);
    Click("cmdAdd");
    EXPECT_EQ(Document().Pages, 4);
}

}  // namespace
}  // namespace sheetwright
