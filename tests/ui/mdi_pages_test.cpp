// Pages of the templates that come with the program, merged, placed, moved to, removed and undone in the
// frame, and read back from a saved file.

#include "core/folders.h"
#include "core/paths.h"
#include "document/page.h"
#include "document/pages.h"
#include "document/zip_builder.h"
#include "mdi_sheetwright_test.h"

#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

namespace sheetwright {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QString kShare = QStringLiteral(SHEETWRIGHT_SOURCE_DIR "/share/");

QString RowsOf(const frmSheetwright& document) {
    return PageListTexts(document).join(u'|');
}

QStringList Pictures(FormWindow& form) {
    const QDir folder(OnDisk(form.Document().MyTempDir));
    return folder.entryList({S("*.png"), S("*.bmp")}, QDir::Files, QDir::Name);
}

class MdiPagesTest : public MdiSheetwrightTest {
  protected:
    explicit MdiPagesTest(const QString& title = S("Tolvane Quillon Sheetwright"))
        : MdiSheetwrightTest(title) {
        const QDir templates(kShare + S("templates"));
        for (const QString& name : templates.entryList(QDir::Files))
            QFile::copy(templates.filePath(name), Path(S("templates/") + name));
        SetTemplateFolder(*m_application, Path(S("templates")));
    }

    FormWindow* OpenShipped(const QString& name) {
        m_frame->OpenTemplate(Path(S("templates/") + name));
        return m_frame->Active();
    }
    // Saved under another name and in another folder, closed and opened.
    FormWindow* SaveAndReopen(const QString& name) {
        Choose(Path(name));
        Do("mnuFileSaveAs");
        EXPECT_FALSE(m_frame->Active()->Document().Changed);
        Do("mnuFileClose");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_frame->DialogFileName = Path(name);
        m_frame->OpenFromDialogSlot();
        return m_frame->Active();
    }
    // The Add Page command with what a person does in its dialog, in steps.
    template <typename Step>
    void AddPage(Step&& step) {
        bool isShown = false;
        QTimer::singleShot(0, m_frame.get(), [&] {
            QWidget* const dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            isShown = true;
            step(*dialog);
            if (dialog->isVisible()) dialog->close();
        });
        Do("mnuPageAdd");
        EXPECT_TRUE(isShown);
    }
    static QStringList Designs(const QWidget& dialog) {
        QStringList rows;
        const auto* const list = dialog.findChild<QListWidget*>(S("LstDesign"));
        for (int row = 0; row < list->count(); ++row)
            rows << list->item(row)->text();
        return rows;
    }
    static void Place(const QWidget& dialog, Placement mode, int page = 0) {
        dialog.findChild<QRadioButton*>(S("optPage%1").arg(static_cast<int>(mode)))->click();
        if (page > 0) dialog.findChild<QComboBox*>(S("cboPage"))->setCurrentIndex(page - 1);
    }
    static void Merge(const QWidget& dialog, const QString& name) {
        auto* const list = dialog.findChild<QListWidget*>(S("lvNew"));
        const QList<QListWidgetItem*> rows = list->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(rows.size(), 1);
        list->setCurrentItem(rows.first());
        QTest::keyClick(list, Qt::Key_Return);
    }
    static void Add(const QWidget& dialog, int design) {
        dialog.findChild<QListWidget*>(S("LstDesign"))->setCurrentRow(design - 1);
        dialog.findChild<QPushButton*>(S("cmdAdd"))->click();
    }
};

TEST_F(MdiPagesTest, DesignsOfAnotherTemplateGoToEveryPlaceAndIntoTheFile) {
    FormWindow* form = OpenShipped(S("appliance_test_record.aft"));
    ASSERT_EQ(RowsOf(form->Document()), S("1 - Cover|2 - Test Results"));
    AddPage([&](QWidget& dialog) {
        Merge(dialog, S("calibration_certificate.aft"));
        EXPECT_EQ(Designs(dialog),
                  QStringList({S("Cover"), S("Test Results"), S("Certificate"), S("Readings")}));
        EXPECT_TRUE(dialog.isVisible());
        Place(dialog, Placement::AtStart);
        Add(dialog, 4);
    });
    EXPECT_EQ(form->Document().DataPageNum, 1);
    AddPage([&](QWidget& dialog) {
        Place(dialog, Placement::After, 2);
        Add(dialog, 3);
    });
    EXPECT_EQ(m_frame->PagePanel(), S("3/4 - Certificate "));
    AddPage([&](QWidget& dialog) { Add(dialog, 4); });
    EXPECT_EQ(m_frame->PagePanel(), S("5/5 - Readings "));
    const QString rows = S("1 - Readings|2 - Cover|3 - Certificate|4 - Test Results|5 - Readings");
    EXPECT_EQ(RowsOf(form->Document()), rows);
    EXPECT_THAT(m_ui.MessageTexts(), IsEmpty());
    form = SaveAndReopen(S("forms/merged.aff"));
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(RowsOf(form->Document()), rows);
    EXPECT_EQ(m_frame->PagePanel(), S("1/5 - Readings "));
    EXPECT_THAT(m_ui.MessageTexts(), IsEmpty());
}

TEST_F(MdiPagesTest, PicturesBesideAMergedTemplateComeAlong) {
    FormWindow* form = Open(S("forms/form.aff"));
    AddPage([&](QWidget& dialog) {
        Merge(dialog, S("appliance_test_record.aft"));
        Add(dialog, 3);
    });
    EXPECT_EQ(m_frame->PagePanel(), S("3/3 - Cover "));
    EXPECT_THAT(Pictures(*form), ElementsAre(S("harrowmere_emblem.png")));
    form = SaveAndReopen(S("other/merged.aff"));
    EXPECT_THAT(Pictures(*form), ElementsAre(S("harrowmere_emblem.png")));
}

TEST_F(MdiPagesTest, StationeryBesideATemplateShows) {
    FormWindow* form = OpenShipped(S("calibration_certificate.aft"));
    EXPECT_TRUE(form->Document().page->isStationeryPainted);
    form = Open(S("forms/form.aff"));
    AddPage([&](QWidget& dialog) {
        Merge(dialog, S("calibration_certificate.aft"));
        Add(dialog, 3);
    });
    EXPECT_TRUE(form->Document().page->isStationeryPainted);
    form = SaveAndReopen(S("other/merged.aff"));
    EXPECT_FALSE(form->Document().page->isStationeryPainted);
    Click("cmd_lastpage");
    EXPECT_TRUE(form->Document().page->isStationeryPainted);
}

TEST_F(MdiPagesTest, TemplateOfOneDesignMergesAndIsPlacedAtOnce) {
    FormText one;
    one.Page(S("Back")).Field(S("Note")).Picture(S("emblem.png"));
    const QByteArray emblem = Read(S("templates/harrowmere_emblem.png"));
    Write(S("templates/one.aft"), BuildZip({{"any name.aft", one.Bytes(), true}, {"emblem.png", emblem}}));
    FormWindow* form = Open(S("forms/form.aff"));
    for (const auto& [mode, page] :
         {std::pair{Placement::AtStart, 0}, {Placement::Before, 3}, {Placement::AtEnd, 0}}) {
        AddPage([&, mode = mode, page = page](QWidget& dialog) {
            Place(dialog, mode, page);
            Merge(dialog, S("one.aft"));
            EXPECT_FALSE(dialog.isVisible()) << "no further choice";
        });
    }
    const QString rows = S("1 - Back|2 - Cover|3 - Back|4 - Results|5 - Back");
    EXPECT_EQ(RowsOf(form->Document()), rows);
    EXPECT_EQ(m_frame->PagePanel(), S("5/5 - Back "));
    EXPECT_EQ(form->Document().memory.DesignPageCount(), 5) << "its design comes with each merge";
    form = SaveAndReopen(S("forms/merged.aff"));
    EXPECT_EQ(RowsOf(form->Document()), rows);
    EXPECT_THAT(Pictures(*form), ElementsAre(S("emblem.png")));
    Click("cmd_nextpage");
    EXPECT_EQ(form->Document().page->Entries.At(1).text, S("Marlow"));
}

TEST_F(MdiPagesTest, CancelAfterAMergeKeepsTheDesignsInTheFileToo) {
    FormWindow* form = Open(S("forms/form.aff"));
    AddPage([&](QWidget& dialog) {
        Merge(dialog, S("installation_inspection_report.aft"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(RowsOf(form->Document()), S("1 - Cover|2 - Results"));
    EXPECT_EQ(m_frame->PagePanel(), S("1/2 - Cover "));
    form = SaveAndReopen(S("forms/merged.aff"));
    EXPECT_EQ(RowsOf(form->Document()), S("1 - Cover|2 - Results"));
    AddPage([&](QWidget& dialog) {
        EXPECT_EQ(Designs(dialog),
                  QStringList({S("Cover"), S("Results"), S("Report"), S("Schedule of Inspections"),
                               S("Circuit Details"), S("Circuit Tests")}));
    });
}

TEST_F(MdiPagesTest, TemplateThatEndsHalfWayChangesNothing) {
    const QByteArray whole = Read(S("templates/calibration_certificate.aft"));
    FormText two;
    two.Page(S("Plan"))
        .Field(S("a"))
        .Page(S("List"))
        .Formula(S("b"), S("SETME(1)"))
        .Formula(S("b"), S("SETME(2)"));
    Write(S("templates/twice.aft"), two.Bytes());
    QByteArray archive =
        BuildZip({{"text.aft", whole, true}, {"certificate_paper.png", QByteArray(9000, 'x')}});
    archive.chop(archive.size() / 2);
    Write(S("templates/cut.aft"), archive);
    Write(S("templates/empty.aft"), QByteArray());
    FormWindow* form = Open(S("forms/form.aff"));
    AddPage([&](QWidget& dialog) {
        for (const char* name : {"twice.aft", "cut.aft", "empty.aft"}) {
            m_ui.messages.clear();
            Merge(dialog, S(name));
            EXPECT_FALSE(m_ui.messages.empty()) << name;
            EXPECT_EQ(Designs(dialog), QStringList({S("Cover"), S("Results")})) << name;
            EXPECT_TRUE(dialog.isVisible());
        }
    });
    EXPECT_FALSE(form->Document().Changed);
    EXPECT_THAT(Pictures(*form), IsEmpty());
    EXPECT_EQ(form->Document().page->Entries.At(1).text, S("Marlow"));
    m_ui.messages.clear();
    AddPage([&](QWidget& dialog) {
        Merge(dialog, S("calibration_certificate.aft"));
        Add(dialog, 4);
    });
    form = SaveAndReopen(S("forms/merged.aff"));
    EXPECT_EQ(RowsOf(form->Document()), S("1 - Cover|2 - Results|3 - Readings"));
    EXPECT_THAT(m_ui.MessageTexts(), IsEmpty());
}

TEST_F(MdiPagesTest, RemovedPageIsNotInTheFile) {
    FormWindow* form = OpenShipped(S("installation_inspection_report.aft"));
    Do("mnuPageRemove");
    EXPECT_EQ(m_ui.messages, (std::vector{ShownMessage{S("Are you sure?"), S("Remove Page"),
                                                       MessageIcon::Question, MessageButtons::YesNo}}));
    EXPECT_EQ(m_frame->PagePanel(), S("1/3 - Schedule of Inspections "));
    Click("cmd_lastpage");
    Do("mnuPageRemove");
    EXPECT_EQ(m_frame->PagePanel(), S("2/2 - Circuit Details "));
    form = SaveAndReopen(S("forms/form.aff"));
    EXPECT_EQ(RowsOf(form->Document()), S("1 - Schedule of Inspections|2 - Circuit Details"));
    Do("mnuPageRemove");
    m_ui.messages.clear();
    Do("mnuPageRemove");
    EXPECT_THAT(m_ui.MessageTexts(), IsEmpty()) << "the only page";
    EXPECT_EQ(m_frame->PagePanel(), S("1/1 - Circuit Details "));
}

TEST_F(MdiPagesTest, UndoBringsAPageBackAndIsNotInTheFile) {
    FormWindow* form = Open(S("forms/form.aff"));
    EXPECT_FALSE(Action("mnuEditUndo")->isEnabled());
    Do("mnuEditSetUndo");
    Press(Qt::Key_Tab);
    Type(*form, S("Finch"));
    Do("mnuEditUndo");
    EXPECT_EQ(form->Document().page->Entries.At(1).text, S("Marlow"));
    Do("mnuEditUndo");
    EXPECT_EQ(form->Document().page->Entries.At(1).text, S("Marlow")) << "there is no redo";
    EXPECT_TRUE(Action("mnuEditUndo")->isEnabled());
    Click("cmd_nextpage");
    EXPECT_FALSE(Action("mnuEditUndo")->isEnabled());
    EXPECT_EQ(form->Document().page->Entries.At(1).text, S("1"));
    form = SaveAndReopen(S("forms/undone.aff"));
    EXPECT_EQ(RowsOf(form->Document()), S("1 - Cover|2 - Results"));
    EXPECT_EQ(form->Document().memory.DataPage(0).Count(), 0);
    EXPECT_FALSE(Action("mnuEditUndo")->isEnabled());
}

TEST_F(MdiPagesTest, UndoIsOverWhenAPageOfAnotherDesignTakesTheNumber) {
    Open(S("forms/form.aff"));
    Do("mnuEditSetUndo");
    ASSERT_TRUE(Action("mnuEditUndo")->isEnabled());
    Do("mnuPageRemove");
    EXPECT_EQ(m_frame->PagePanel(), S("1/1 - Results "));
    EXPECT_FALSE(Action("mnuEditUndo")->isEnabled());
}

TEST_F(MdiPagesTest, RevertAndSetUndoPointAreHidden) {
    FormWindow* const form = Open(S("forms/form.aff"));
    EXPECT_FALSE(Action("mnuEditRevert")->isVisible());
    EXPECT_FALSE(Action("mnuEditSetUndo")->isVisible());
    EXPECT_TRUE(Action("mnuEditUndo")->isVisible());
    Type(*form, S("Finch"));
    Do("mnuEditRevert");
    EXPECT_EQ(form->Document().page->Entries.At(1).text, S("Marlow"));
}

class MdiReportPagesTest : public MdiPagesTest {
  protected:
    MdiReportPagesTest() : MdiPagesTest(S("Tolvane Reports")) {
        m_frame->Timer = [this] { return m_seconds += 2; };
    }
    [[nodiscard]] QStringList TakeHostLines() { return std::exchange(m_ui.hostLines, {}); }

    double m_seconds = 0;
};

TEST_F(MdiReportPagesTest, HostHearsOfEachPageThatTakesAnotherNumber) {
    ASSERT_TRUE(m_application->ReportMode);
    const QStringList told(S("EVENT: PAGECHANGE"));
    FormWindow* const form = OpenShipped(S("appliance_test_record.aft"));
    ASSERT_NE(form, nullptr);
    m_ui.hostLines.clear();
    AddPage([&](QWidget& dialog) {
        Place(dialog, Placement::AtStart);
        Add(dialog, 2);
    });
    EXPECT_THAT(TakeHostLines(), IsEmpty()) << "page 1 again";
    AddPage([&](QWidget& dialog) {
        Place(dialog, Placement::After, 2);
        Add(dialog, 1);
    });
    EXPECT_EQ(TakeHostLines(), told);
    AddPage([&](QWidget& dialog) { Add(dialog, 2); });
    EXPECT_EQ(TakeHostLines(), told);
    AddPage([](QWidget&) {});
    EXPECT_THAT(TakeHostLines(), IsEmpty()) << "cancelled";
    EXPECT_EQ(RowsOf(form->Document()),
              S("1 - Test Results|2 - Cover|3 - Cover|4 - Test Results|5 - Test Results"));
    Do("mnuPageRemove");
    EXPECT_EQ(TakeHostLines(), told);
    for (const char* button : {"cmd_firstpage", "cmd_nextpage", "cmd_prevpage"}) {
        Click(button);
        EXPECT_EQ(TakeHostLines(), told) << button;
    }
    Click("cmd_prevpage");
    EXPECT_THAT(TakeHostLines(), IsEmpty()) << "at the end";
    Do("mnuPageRemove");
    EXPECT_THAT(TakeHostLines(), IsEmpty());
    EXPECT_EQ(m_frame->PagePanel(), S("1/3 - Cover "));
}

}  // namespace

}  // namespace sheetwright
