#pragma once

// A page put together by hand: its elements and their records, in a window that records what it is told.

#include "core/conventions.h"
#include "document/document.h"
#include "document/page.h"
#include "fields/editing.h"
#include "fields/navigation.h"
#include "print/form_surfaces.h"
#include "support/form_text.h"
#include "support/page_window.h"
#include "support/short_text.h"
#include "support/test_application.h"

namespace sheetwright {

class PageOfElements : public ApplicationTest {
  protected:
    PageOfElements() : m_document(*m_application), m_page(*m_document.page) {
        m_application->conventions =
            ConventionsOf(QLocale(QLocale::English, QLocale::UnitedKingdom));  // day/month/year
        m_application->mainWindow = &m_frame;
        m_document.window = &m_window;
        ConnectEntry(m_document);
    }

    // A number of `Entries`. "Key=value" replaces or adds a key of the record, "-Key" leaves it out.
    int AddField(const QString& text = {}, const QStringList& changes = {}) {
        const auto record = MakeRecord({S("FieldType=0"), S("WordWrap=False"), S("Alignment=0"),
                                        S("ReadOnly=False"), S("BorderStyle=0")},
                                       changes);
        m_page.FieldProperties.push_back(record);
        TextElement element;
        element.text = text;
        element.place = {1440, 720.5, 1985, 285};
        element.font.underline = true;
        element.foreColor = 7;
        m_page.Entries.Load(element);
        return Place(record, m_page.Entries.Count(), {});
    }
    int AddDate(const QString& text = {}, const QString& mask = S("Short Date")) {
        return AddField(text, {S("FieldType=2"), S("Format=") + mask});
    }
    int AddCheck(const QStringList& changes = {}) {
        const auto record = MakeRecord({S("Style=0"), S("Caption=tick"), S("States=4")}, changes);
        m_page.CheckProperties.push_back(record);
        auto control = MakeControl(field_type::kCheckBox);
        control->SetStates(4);
        control->SetValue(S("0"));
        m_page.Checks.Load({.control = std::move(control), .place = {1440, 720.5, 2000, 300}});
        return Place(record, m_page.Checks.Count(), S("C"));
    }
    int AddPicture(const QStringList& changes = {}) {
        const auto record = MakeRecord({S("FieldType=1"), S("ReadOnly=False")}, changes);
        m_page.BitmapProperties.push_back(record);
        auto control = MakeControl(field_type::kPicture);
        control->SetValue({});
        m_page.Bitmaps.Load({.control = std::move(control), .place = {1440, 720.5, 2000, 300}});
        return Place(record, m_page.Bitmaps.Count(), S("B"));
    }

    [[nodiscard]] QString TextOf(int number) const { return m_page.Entries.At(number).text; }
    // As the key of an element's record; "" for none.
    [[nodiscard]] QString Current() const { return RecordingWindow::NameOf(m_page.CurrentEntry); }
    [[nodiscard]] usrEntry& Check(int number) { return *m_page.Checks.At(number).control; }

    std::int16_t Press(std::int16_t keyCode, std::int16_t shift = 0) {
        Form_KeyDown(m_document, keyCode, shift);
        return keyCode;
    }
    QString Tab() {
        Press(key::kTab);
        return Current();
    }
    QString ShiftTab() {
        Press(key::kTab, key::kShiftMask);
        return Current();
    }
    void Enter(int number) { Entries_GotFocus(m_document, number); }
    // What a person does: enters the field, types over its text and leaves it.
    QString Type(int number, const QString& text) {
        Enter(number);
        m_page.Entry.ReportText(text);
        Unselect(m_document);
        return TextOf(number);
    }
    // Enters a field and leaves it without a key.
    QString Visit(int number) {
        Enter(number);
        Unselect(m_document);
        return TextOf(number);
    }
    std::int16_t TypeKey(std::int16_t keyAscii) { return m_page.Entry.ReportKeyPress(keyAscii); }
    void SetChanged(bool isChanged) {
        m_document.Changed = isChanged;
        m_document.PageChanged = isChanged;
    }
    [[nodiscard]] bool IsMarkedChanged() const { return m_document.Changed && m_document.PageChanged; }
    void SetPreference(const QString& key, const QString& value) {
        m_application->settings.Write(m_application->Title, S("frmPrefs"), key, value);
    }

    static constexpr ElementRef kCheck1{ElementKind::Check, 1};
    static constexpr ElementRef kPicture1{ElementKind::Bitmap, 1};

    RecordingMainWindow m_frame;
    RecordingWindow m_window;
    frmSheetwright m_document;
    Page& m_page;

  private:
    [[nodiscard]] std::shared_ptr<PropertyBag> MakeRecord(const QStringList& own,
                                                          const QStringList& changes) {
        ++m_records;
        const QStringList names{S("Name=f%1").arg(m_records), S("TabIdx=%1").arg(m_records)};
        auto record = std::make_shared<PropertyBag>();
        for (const QString& line :
             FormText::Changed(names + own + FormText::Extent() + FormText::Font(), changes))
            record->Add(line.section(u'=', 1), line.section(u'=', 0, 0));
        return record;
    }
    [[nodiscard]] std::unique_ptr<usrEntry> MakeControl(std::uint8_t style) {
        auto control = std::make_unique<usrEntry>(*m_application, m_document.surfaces->pictures);
        control->SetFieldType(style);
        return control;
    }
    // A second element of the same place in the order stays out of it.
    int Place(const std::shared_ptr<PropertyBag>& record, int number, const QString& letter) {
        record->Add(letter + QString::number(number), S("Key"));
        if (const QString* const tabIndex = record->Find(u"TabIdx"))
            Ignoring([&] { m_page.TabOrders.Add(record, *tabIndex); });
        return number;
    }

    int m_records = 0;
};

}  // namespace sheetwright
