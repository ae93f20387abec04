#pragma once

// The frame on the offscreen screen, with forms of two pages, worked with real events.

#include "document/document.h"
#include "support/form_text.h"
#include "support/short_text.h"
#include "support/test_application.h"
#include "ui/form_window.h"
#include "ui/mdi_sheetwright.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <gmock/gmock.h>

namespace sheetwright {

inline QByteArray TwoPages() {
    FormText form;
    form.Page(S("Cover")).Field(S("Client"));
    form.Page(S("Results")).Field(S("Reading"));
    form.Data(1, {S("Client=Marlow")}).Data(2, {S("Reading=1")});
    return form.Bytes();
}

class MdiSheetwrightTest : public ApplicationTest {
  protected:
    explicit MdiSheetwrightTest(const QString& title = S("Tolvane Quillon Sheetwright"))
        : ApplicationTest(title) {
        m_application->settings = Settings(Path(S("settings")));
        Write(S("papersizes.csv"), "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11907,16840\r\n");
        m_application->LoadPaperTable();
        Load();
    }
    ~MdiSheetwrightTest() override { Unload(); }

    void Load(std::unique_ptr<FETCHDOCK> dock = nullptr) {
        m_frame = std::make_unique<mdiSheetwright>(*m_application, std::move(dock));
        m_frame->show();
        QApplication::setActiveWindow(m_frame.get());
    }
    void Unload() { m_frame.reset(); }

    FormWindow* Open(const QString& name, const QByteArray& bytes = TwoPages()) {
        m_frame->DialogFileName = Write(name, bytes);
        m_frame->OpenFromDialogSlot();
        return m_frame->Active();
    }

    FormWindow* OpenTemplate(const QString& name) {
        m_frame->OpenTemplate(Write(name, TwoPages()));
        return m_frame->Active();
    }

    [[nodiscard]] QAction* Action(const char* name) const { return m_frame->findChild<QAction*>(S(name)); }
    void Do(const char* name) const { Action(name)->trigger(); }
    void Click(const char* name) const {
        QTest::mouseClick(m_frame->findChild<QToolButton*>(S(name)), Qt::LeftButton);
    }
    [[nodiscard]] QString PageBox() const { return m_frame->findChild<QLabel*>(S("lblpages"))->text(); }

    // Types a text into the field that has the focus, and leaves it.
    static void Type(FormWindow& form, const QString& text) {
        QTest::keyClicks(QApplication::focusWidget(), text);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_TRUE(form.Document().Changed);
    }

    [[nodiscard]] QMenu& Menu(const char* name) const { return *m_frame->findChild<QMenu*>(S(name)); }
    [[nodiscard]] QString Setting(const char* key) const {
        return m_application->settings.Read(m_application->Title, S("mdiSheetwright"), S(key));
    }
    // True when the frame goes.
    [[nodiscard]] bool ClickCloseBox() const {
        QCloseEvent event;
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(m_frame.get(), &event);  // as sent by the system
        return event.isAccepted();
    }
    // A key of the keyboard, wherever the focus is.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QWidget* const focus = QApplication::focusWidget();
        QTest::keyClick(focus == nullptr ? static_cast<QWidget*>(m_frame.get()) : focus, key, modifiers);
    }

    // The actions that change when the frame is brought up to date once more.
    [[nodiscard]] QStringList ChangedByRefresh() const {
        m_frame->Refresh();
        QStringList changed;
        const QObject watch;
        for (const QAction* const action : m_frame->findChildren<QAction*>())
            QObject::connect(action, &QAction::changed, &watch,
                             [&changed, action] { changed << action->objectName(); });
        m_frame->Refresh();
        return changed;
    }

    // What the file dialog gives next.
    void Choose(const QString& path) {
        m_ui.onFileDialog = [path](FileDialog& dialog) { dialog.fileName = path; };
    }

    std::unique_ptr<mdiSheetwright> m_frame;
};

}  // namespace sheetwright
