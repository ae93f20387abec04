#pragma once

// A form whose fields are edited with keys and mouse.

#include "core/conventions.h"
#include "fields/editing.h"
#include "form_window_test.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>

namespace sheetwright {

class EntryEditorTest : public FormWindowTest {
  protected:
    EntryEditorTest() {
        m_application->conventions =
            ConventionsOf(QLocale(QLocale::English, QLocale::UnitedKingdom));  // day/month/year
        m_form.Page(S("First"));
    }

  public:  // to be chained
    EntryEditorTest& Field(const QString& name, const QStringList& changes = {}) {
        m_form.Field(name, At(100, m_top, 200, 20) + changes);
        m_top += 40;
        return *this;
    }
    EntryEditorTest& Date(const QString& name) {
        return Field(name, {S("FieldType=2"), S("Format=Short Date")});
    }
    void Open(const QStringList& data = {}) {
        m_form.Data(1, data);
        ASSERT_NO_FATAL_FAILURE(FormWindowTest::Open(m_form));
    }

  protected:
    [[nodiscard]] EntryEditor& Editor() { return View().Editor(); }
    [[nodiscard]] QWidget& Focus() { return *Editor().FocusWidget(); }
    template <typename Widget>
    [[nodiscard]] Widget& Shown() {
        Widget* const widget = dynamic_cast<Widget*>(Editor().FocusWidget());
        if (!widget) throw std::runtime_error("another kind of widget");
        return *widget;
    }
    // Of any kind.
    [[nodiscard]] QLineEdit& Line() {
        auto* const box = dynamic_cast<QComboBox*>(Editor().FocusWidget());
        return box ? *box->lineEdit() : Shown<QLineEdit>();
    }

    void Type(const QString& text) { QTest::keyClicks(&Focus(), text); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&Focus(), key, modifiers); }
    void Tab() { Key(Qt::Key_Tab); }
    void Leave() { Unselect(Document()); }
    void Compose(const QString& preedit) {
        QInputMethodEvent event(preedit, {});
        QApplication::sendEvent(&Focus(), &event);
    }
    void CommitComposed(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&Focus(), &event);
    }
    static void SetClipboard(const QString& text) { QApplication::clipboard()->setText(text); }

    FormText m_form;
    int m_top = 100;
};

}  // namespace sheetwright
