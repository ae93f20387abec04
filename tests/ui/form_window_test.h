#pragma once

// A form in a window of 800 by 600 pixels on the offscreen screen, worked with real events.

#include "document/document.h"
#include "document/document_commands.h"
#include "document/page.h"
#include "print/form_surfaces.h"
#include "support/form_text.h"
#include "support/page_window.h"
#include "support/short_text.h"
#include "support/test_application.h"
#include "ui/entry_editor.h"
#include "ui/form_window.h"
#include "ui/page_view.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtTest/QTest>

#include <memory>

namespace sheetwright {

class FormWindowTest : public ApplicationTest {
  protected:
    // Paper 9 is as wide as 1000 pixels and as high as 1200; paper 11 fits the window, 400 by 300.
    FormWindowTest() { Prepare(); }
    ~FormWindowTest() override {
        m_window.reset();
        m_application->mainWindow = &m_application->noMainWindow;
    }

    void Prepare() {
        Write(S("papersizes.csv"),
              "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,15000,18000\r\n11,1,6000,4500\r\n");
        m_application->LoadPaperTable();
        m_application->mainWindow = &m_frame;
    }

    void Open(FormText& form, bool isReadOnly = false) {
        const QString path = Write(S("form.aff"), form.Bytes());
        if (isReadOnly) QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadUser);
        OpenForm(
            *m_application, path,
            [this]() -> frmSheetwright& {
                m_window = std::make_unique<FormWindow>(*m_application);
                m_window->resize(800, 600);
                m_window->show();
                m_window->activateWindow();
                return m_window->Document();
            },
            [](frmSheetwright&) {});
        ASSERT_TRUE(m_window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    // At pixels of the unzoomed page.
    static QStringList At(int left, int top, int width = 200, int height = 20) {
        return {S("AbsLeft=%1").arg(left * 15), S("AbsTop=%1").arg(top * 15), S("Width=%1").arg(width * 15),
                S("Height=%1").arg(height * 15)};
    }
    static constexpr ElementRef kNone{};
    static ElementRef Entry(int number) { return {ElementKind::Entry, number}; }
    static ElementRef Check(int number) { return {ElementKind::Check, number}; }
    static ElementRef Bitmap(int number) { return {ElementKind::Bitmap, number}; }

    [[nodiscard]] PageView& View() { return m_window->View(); }
    [[nodiscard]] frmSheetwright& Document() { return m_window->Document(); }
    [[nodiscard]] Page& ThePage() { return *Document().page; }
    [[nodiscard]] QString Text(int number) { return ThePage().Entries.At(number).text; }

    [[nodiscard]] QPoint CentreOf(const Extent& place) { return View().OnScreen(place).center().toPoint(); }
    [[nodiscard]] QPoint CentreOf(int entry) { return CentreOf(ThePage().Entries.At(entry).place); }
    [[nodiscard]] QPoint CentreOfCheck(int check) { return CentreOf(ThePage().Checks.At(check).place); }
    [[nodiscard]] QPoint CentreOfBitmap(int bitmap) { return CentreOf(ThePage().Bitmaps.At(bitmap).place); }

    void Click(QPoint position) { QTest::mouseClick(&View(), Qt::LeftButton, {}, position); }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {}) {
        BeginDrag(from, to, modifiers);
        QTest::mouseRelease(&View(), Qt::LeftButton, modifiers, to);
    }
    void BeginDrag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mousePress(&View(), Qt::LeftButton, modifiers, from);
        MoveTo((from + to) / 2, Qt::LeftButton, modifiers);
        MoveTo(to, Qt::LeftButton, modifiers);
    }
    void MoveTo(QPoint position, Qt::MouseButtons buttons = {}, Qt::KeyboardModifiers modifiers = {}) {
        QMouseEvent event(QEvent::MouseMove, position, View().mapToGlobal(position), Qt::NoButton, buttons,
                          modifiers);
        QApplication::sendEvent(&View(), &event);
    }
    void Wheel(QPoint angle, Qt::KeyboardModifiers modifiers = {}, QPoint position = {300, 200}) {
        QWheelEvent event(position, View().mapToGlobal(position), {}, angle, {}, modifiers, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&View(), &event);
    }
    void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&View(), static_cast<Qt::Key>(key), modifiers);
    }

    [[nodiscard]] QScrollBar* Bar(Qt::Orientation orientation) {
        for (QScrollBar* bar : m_window->findChildren<QScrollBar*>(QString(), Qt::FindDirectChildrenOnly))
            if (bar->orientation() == orientation) return bar;
        return nullptr;
    }

    RecordingMainWindow m_frame;
    std::unique_ptr<FormWindow> m_window;
};

}  // namespace sheetwright
