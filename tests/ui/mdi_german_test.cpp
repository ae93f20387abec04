// The frame in German: everything is translated and nothing cut off.

#include "dialog_test.h"
#include "mdi_sheetwright_test.h"
#include "ui/command_table.h"

#include <QMenuBar>
#include <QSet>

namespace sheetwright {

namespace {

class MdiGermanTest : public MdiSheetwrightTest {
  protected:
    MdiGermanTest() {
        Unload();
        UseGerman(*m_application);
        Load();
    }
};

TEST_F(MdiGermanTest, EveryCaptionIsTranslated) {
    const Application english(S("Tolvane Quillon Sheetwright"), m_folder.path(), Settings(Path(S("english"))),
                              m_ui);
    const QSet<QString> alike{S("&Quillon Tutor")};
    const std::vector<MenuRow> before = MenuTree(english);
    const std::vector<MenuRow> after = MenuTree(*m_application);
    for (std::size_t menu = 0; menu < before.size(); ++menu)
        for (std::size_t at = 0; at < before[menu].entries.size(); ++at) {
            const CommandRow& row = after[menu].entries[at];
            const bool isNumber = row.name.startsWith(S("mnuFileRecent"));
            if (row.caption.isEmpty() || isNumber || alike.contains(row.caption)) continue;
            EXPECT_NE(row.caption, before[menu].entries[at].caption) << row.name.toStdString();
        }
}

TEST_F(MdiGermanTest, NoTwoEntriesOfAMenuHaveAnUnderlinedLetterInCommon) {
    for (const MenuRow& menu : MenuTree(*m_application)) {
        QString letters;
        for (const CommandRow& row : menu.entries) {
            const qsizetype mark = row.caption.indexOf(u'&');
            if (!row.isVisible || mark < 0) continue;
            const QChar letter = row.caption.at(mark + 1).toLower();
            EXPECT_FALSE(letters.contains(letter)) << row.caption.toStdString();
            letters += letter;
        }
    }
}

TEST_F(MdiGermanTest, MenusOfTheBarHaveLettersOfTheirOwn) {
    QString letters;
    for (const QAction* const action : m_frame->menuBar()->actions()) {
        const QChar letter = action->text().at(action->text().indexOf(u'&') + 1).toLower();
        EXPECT_FALSE(letters.contains(letter)) << action->text().toStdString();
        letters += letter;
    }
}

TEST_F(MdiGermanTest, NoMenuCutsItsEntriesOff) {
    Open(S("form.aff"));
    for (const char* name : {"mnuFile", "mnuPage", "mnuOptions", "mnuView", "mnuWindow", "MnuHelp"}) {
        QMenu& menu = Menu(name);
        menu.popup(QPoint(0, 0));
        for (const QAction* const action : menu.actions()) {
            if (!action->isVisible() || action->isSeparator()) continue;
            QString words = action->text() + action->shortcut().toString(QKeySequence::NativeText);
            EXPECT_GE(menu.width(), menu.fontMetrics().horizontalAdvance(words.remove(u'&')))
                << action->text().toStdString();
        }
        menu.close();
    }
}

TEST_F(MdiGermanTest, MenusAndButtonsShowInASmallFrame) {
    Open(S("form.aff"));
    m_frame->resize(700, 500);
    QCoreApplication::processEvents();
    QMenuBar& bar = *m_frame->menuBar();
    for (QAction* const action : bar.actions())
        EXPECT_TRUE(bar.rect().contains(bar.actionGeometry(action))) << action->text().toStdString();
    for (const QToolButton* const button : m_frame->findChildren<QToolButton*>()) {
        if (!button->isVisible()) continue;
        EXPECT_GE(button->width(), button->sizeHint().width()) << button->objectName().toStdString();
        EXPECT_TRUE(
            m_frame->rect().contains(QRect(button->mapTo(m_frame.get(), QPoint(0, 0)), button->size())))
            << button->objectName().toStdString();
    }
    EXPECT_TRUE(m_frame->findChild<QToolButton*>(S("cmd_lastpage"))->isVisible());
}

TEST_F(MdiGermanTest, SettingsAreThoseOfTheTranslatedTitle) {
    m_frame->close();
    EXPECT_FALSE(Setting("MainWidth").isEmpty());
}

}  // namespace

}  // namespace sheetwright
