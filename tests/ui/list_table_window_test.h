#pragma once

// The list editor's window on the offscreen screen, worked with real events.

#include "support/short_text.h"
#include "support/test_application.h"
#include "ui/list_table_view.h"
#include "ui/list_table_window.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDateTime>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <memory>

namespace sheetwright {

class ListTableWindowTest : public ApplicationTest {
  protected:
    ListTableWindowTest() {
        m_application->settings = Settings(Path(S("settings")));
        Start();
    }

    void Start() {
        m_window = std::make_unique<ListTableWindow>(*m_application);
        m_window->show();
        QApplication::setActiveWindow(m_window.get());
        View().setFocus();
    }

    void Open(const QByteArray& bytes, const QString& name = S("list.csv")) {
        m_window->OpenFile(Write(name, bytes));
    }

    [[nodiscard]] ListTableView& View() const { return m_window->View(); }
    [[nodiscard]] QAction& Action(const char* name) const { return *m_window->findChild<QAction*>(S(name)); }
    void Do(const char* name) const { Action(name).trigger(); }
    template <typename Widget>
    [[nodiscard]] Widget& Part(const char* name) const {
        return *m_window->findChild<Widget*>(S(name));
    }
    [[nodiscard]] QString Shown(const char* label) const { return Part<QLabel>(label).text(); }

    void GoTo(int row, int column) const { View().GoTo(m_window->Model().index(row, column)); }
    void SelectRows(int first, int count) const {
        View().SelectBlock({first, 0, count, m_window->Model().columnCount()});
    }
    [[nodiscard]] int Row() const { return View().currentIndex().row(); }
    [[nodiscard]] int Column() const { return View().currentIndex().column(); }
    [[nodiscard]] QByteArray Bytes() const { return m_window->Model().Table().Bytes(); }
    [[nodiscard]] bool IsChanged() const { return m_window->isWindowModified(); }

    // Wherever the focus is.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QWidget* const focus = QApplication::focusWidget();
        QTest::keyClick(focus == nullptr ? &View() : focus, key, modifiers);
    }
    // The first character opens the editor, which takes the others.
    void Type(const QString& text) const {
        for (const QChar character : text)
            QTest::keyClicks(QApplication::focusWidget(), QString(character));
    }

    // What the person does in the next dialog of a column.
    void InColumnDialog(const QString& name, const QString& type, int* shown = nullptr) {
        QTimer::singleShot(0, m_window.get(), [=] {
            auto* const dialog = static_cast<QDialog*>(QApplication::activeModalWidget());
            if (shown != nullptr) ++*shown;
            dialog->findChild<QLineEdit*>(S("txtName"))->setText(name);
            auto* const types = dialog->findChild<QComboBox*>(S("cboType"));
            types->setCurrentIndex(types->findData(type));
            QTest::keyClick(dialog, Qt::Key_Return);
            if (dialog->isVisible()) dialog->reject();
        });
    }

    void Choose(const QString& path) {
        m_ui.onFileDialog = [path](FileDialog& dialog) { dialog.fileName = path; };
    }

    std::unique_ptr<ListTableWindow> m_window;
};

}  // namespace sheetwright
