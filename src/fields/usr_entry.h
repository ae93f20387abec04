#pragma once

// One data-entry element that can take any of the styles of a form's fields. It owns a child for each style;
// the one whose style is in force is visible. All share one text, `Value`, so that another style needs no
// conversion. It has no window: a view shows the visible child, connects the events, and reports what a
// person does.

#include "fields/date_child.h"
#include "fields/list_child.h"
#include "fields/picture_child.h"
#include "fields/text_child.h"
#include "fields/usr_4_state_check_box.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>

namespace sheetwright {

class Application;
class CsvTable;

class usrEntry {
  public:
    // Both live longer than the control.
    usrEntry(Application& application, PictureCache& pictures);
    usrEntry(const usrEntry&) = delete;
    usrEntry& operator=(const usrEntry&) = delete;
    ~usrEntry();

    // Folder of the form file, with trailing separator; pictures named without a folder are looked for there.
    std::function<QString()> FormFolder;

    // The text of the style in force: "0" for the style that shows nothing, the file name for a picture.
    [[nodiscard]] QString Value() const;
    // Updates all styles. A picture that is named with its folder is copied into the current temporary
    // directory and `Value` becomes its bare name; that fails quietly. The picture style shortens the name of
    // any file, and looks for a bare name there and then in the form's folder; another style leaves that
    // until it becomes the picture style. A check box keeps its state when the number is not below `States`.
    void SetValue(const QString& text);

    [[nodiscard]] std::uint8_t FieldType() const { return m_fieldType; }
    // Shows the one child of that style; for dates its entry part, with the picker in the format that
    // `Format` names; for pictures what the last `Value` named.
    void SetFieldType(std::uint8_t type);

    // "@<list>,<column>" adds a column of a list file to both lists, any other text its comma-separated
    // items. What is in the lists stays; a file that does not exist adds nothing.
    [[nodiscard]] const QString& AttachedList() const { return m_attachedList; }
    void SetAttachedList(const QString& text);
    // The file of `AttachedList`, standing past its end until someone moves it; none when there is none.
    [[nodiscard]] CsvTable* ListTable() const { return m_list.get(); }
    void ReleaseList();

    [[nodiscard]] std::uint8_t BorderStyle() const { return m_borderStyle; }
    void SetBorderStyle(std::uint8_t style);
    [[nodiscard]] bool Enabled() const { return m_look.isEnabled; }
    void SetEnabled(bool isEnabled);
    [[nodiscard]] const FontSpec& Font() const { return m_look.font; }
    void SetFont(const FontSpec& font);
    [[nodiscard]] Colour ForeColor() const { return m_look.foreColor; }
    void SetForeColor(Colour colour);
    [[nodiscard]] Colour BackColor() const { return m_look.backColor; }
    void SetBackColor(Colour colour);
    [[nodiscard]] const QString& Caption() const { return m_chkBox.Caption(); }
    void SetCaption(const QString& caption);
    [[nodiscard]] bool WordWrap() const { return m_txtText.MultiLine; }
    void SetWordWrap(bool wraps);
    [[nodiscard]] std::uint8_t States() const { return m_states; }
    void SetStates(std::uint8_t states);
    [[nodiscard]] std::uint8_t Style() const { return m_style; }
    void SetStyle(std::uint8_t style);

    // What the control keeps for others.
    struct Design {
        QString DataSource;
        std::int16_t KeyLevel = 0;  // above 0: a key of that level in an import
        bool NewPageOnChange = false;
        bool NewLineOnChange = false;
        bool NewPageOnReoccur = false;
        bool NewLineOnReoccur = false;
        QString Format;  // "Long Date", "Short Date" or a mask
        QString Idx;     // the field's index in the document
        std::int16_t TabIdx = 0;
        std::int16_t MultiRecordIndex = 0;
    };
    Design design;

    // Of the lists: changes go to both, so that they hold the same items; questions to the one in force, or
    // the combo box. Selecting an item is a click in every style. `Clear` empties the lists and their texts.
    // Failures as ListChild tells.
    void AddItem(const QString& text, std::optional<int> index = std::nullopt);
    void RemoveItem(int index);
    void Clear();
    void SetItemData(int index, std::int32_t data);
    void SetSorted(bool isSorted);
    [[nodiscard]] QString List(int index) const { return ListInForce().List(index); }
    [[nodiscard]] int ListCount() const { return ListInForce().ListCount(); }
    [[nodiscard]] std::int32_t ItemData(int index) const { return ListInForce().ItemData(index); }
    [[nodiscard]] int NewIndex() const { return ListInForce().NewIndex(); }
    [[nodiscard]] bool Sorted() const { return ListInForce().Sorted(); }
    [[nodiscard]] int ListIndex() const { return ListInForce().ListIndex(); }
    void SetListIndex(int index) { ListInForce().SetListIndex(index); }
    [[nodiscard]] int TopIndex() const { return ListInForce().TopIndex(); }
    void SetTopIndex(int index) { ListInForce().SetTopIndex(index); }

    // Of the text in force: the combo box's, the date's, or the text box's.
    [[nodiscard]] qsizetype SelStart() const { return EditInForce().SelStart(); }
    [[nodiscard]] qsizetype SelLength() const { return EditInForce().SelLength(); }
    [[nodiscard]] QString SelText() const { return EditInForce().SelText(); }
    void SetSelStart(qsizetype start);
    void SetSelLength(qsizetype length);
    void SetSelText(const QString& text);
    [[nodiscard]] std::int16_t Alignment() const { return m_txtText.Alignment; }
    void SetAlignment(std::int16_t alignment);

    // In twips. A list in force corrects the height to its own; a list is at least 500 wide.
    void Resize(double width, double height);
    [[nodiscard]] double Width() const { return m_width; }
    [[nodiscard]] double Height() const { return m_height; }
    static constexpr double kNarrowestList = 500;

    void Refresh() const;

    // The keys in their order; absent ones mean the default. Raises as RecordView for values that can't be
    // read.
    void ReadProperties(const PropertyBag& properties);
    [[nodiscard]] PropertyBag WriteProperties() const;

    // Lets a person choose a picture file; a cancelled dialog changes nothing. A disabled control refuses.
    void ChoosePicture();

    // Events of the visible child. A key that a handler sets to 0 is cancelled. `X` and `Y` are twips.
    std::function<void(std::int16_t& KeyCode, std::int16_t Shift)> KeyDown;
    std::function<void(std::int16_t& KeyAscii)> KeyPress;
    std::function<void(std::int16_t& KeyCode, std::int16_t Shift)> KeyUp;
    using MouseEvent = std::function<void(std::int16_t Button, std::int16_t Shift, float X, float Y)>;
    MouseEvent MouseDown;
    MouseEvent MouseMove;
    MouseEvent MouseUp;
    std::function<void()> Change;    // of the text box, the combo box and the date
    std::function<void()> Click;     // of all but the date
    std::function<void()> DblClick;  // of the text box and the combo box

    // For the view alone.
    std::function<void()> Repaint;                     // draw anew
    std::function<void()> OpenCalendar;                // focus to the picker, and open its calendar
    std::function<void(QStringView)> PropertyChanged;  // the name of what was set

    // What a view reports; a disabled control hears nothing of it. Keys return what the handlers left of
    // them: 0 is cancelled.
    std::int16_t ReportKeyDown(std::int16_t keyCode, std::int16_t shift) const;
    // The space goes on to the next state of a check box and opens the choice of a picture.
    std::int16_t ReportKeyPress(std::int16_t keyAscii);
    std::int16_t ReportKeyUp(std::int16_t keyCode, std::int16_t shift) const;
    void ReportMouseDown(std::int16_t button, std::int16_t shift, float x, float y) const;
    void ReportMouseMove(std::int16_t button, std::int16_t shift, float x, float y) const;
    void ReportMouseUp(std::int16_t button, std::int16_t shift, float x, float y) const;
    void ReportText(const QString& text);  // typed into the text box, combo box or date entry
    void ReportSelection(qsizetype start, qsizetype length);
    void ReportPick(int index);   // of an item; raises 380 for one that isn't there
    void ReportClick();           // on the text box, either label of the check box, or the picture
    void ReportDoubleClick();     // also opens the choice of a picture
    void ReportDropDown();        // of the date entry
    void ReportDate(QDate date);  // chosen in the picker
    void ReportCalendarClosed();

    std::function<QDate()> Today;  // what the picker takes for a text that is no date

    [[nodiscard]] const TextChild& txtText() const { return m_txtText; }
    [[nodiscard]] ListChild& cboCombo() { return m_cboCombo; }
    [[nodiscard]] ListChild& cboDropdown() { return m_cboDropdown; }
    [[nodiscard]] const usr4StateCheckBox& chkBox() const { return m_chkBox; }
    [[nodiscard]] const DateChild& dtpDate() const { return m_dtpDate; }
    [[nodiscard]] const ListChild& cbo_date() const { return m_cbo_date; }
    [[nodiscard]] const PictureChild& picPicture() const { return m_picPicture; }

  private:
    [[nodiscard]] std::array<FieldChild*, 7> Children();
    void Connect();
    void ConnectDate();
    void ApplyLook(QStringView property);
    void MarkChanged(QStringView property) const;
    [[nodiscard]] bool IsStyle(std::uint8_t type) const { return m_fieldType == type; }
    [[nodiscard]] bool IsList() const;
    [[nodiscard]] bool ShowsChild() const;
    [[nodiscard]] bool TakesInput() const { return ShowsChild() && m_look.isEnabled; }
    void Tell(const std::function<void()>& event, std::uint8_t type) const;

    [[nodiscard]] QString TakePicture(const QString& text);
    [[nodiscard]] QString TakeNamedFile(const QString& text) const;
    void TakePendingPicture();
    void CopyPicture(const QString& source) const;
    void ShowPicture(const QString& name);
    [[nodiscard]] bool TakeFromFormFolder(const QString& name) const;
    void SetTexts(const QString& value);
    void SelectInLists(const QString& text);
    void SetState(const QString& text);
    void PassDate();
    void ShowEntryOfDate(const QString& text);
    void AddListFile(QStringView list);

    [[nodiscard]] const ListChild& ListInForce() const;
    [[nodiscard]] ListChild& ListInForce();
    [[nodiscard]] const EditText& EditInForce() const;
    template <typename Step>
    void WithTextInForce(Step step);

    Application& m_application;
    PictureCache& m_pictures;
    TextChild m_txtText{field_type::kText};
    ListChild m_cboCombo{field_type::kCombo, ListChild::Kind::Editable};
    ListChild m_cboDropdown{field_type::kDropdown, ListChild::Kind::ListOnly};
    usr4StateCheckBox m_chkBox;
    DateChild m_dtpDate;
    PictureChild m_picPicture{field_type::kPicture};
    ListChild m_cbo_date{kDateEntryTabIndex, ListChild::Kind::Editable};
    static constexpr int kDateEntryTabIndex = 7;

    ChildLook m_look;
    std::uint8_t m_borderStyle = 1;
    std::uint8_t m_fieldType = field_type::kText;
    std::uint8_t m_states = 2;
    std::uint8_t m_style = 0;
    QString m_attachedList;
    std::unique_ptr<CsvTable> m_list;
    double m_width = 0;
    double m_height = 0;
    bool m_isMovingSelection = false;  // by `Value`: that is no click
    bool m_isCopyingDate = false;      // from the picker: it must not read its own text
    bool m_isDatePending = false;      // the picker has not read the entry's text: no other style needs it
    std::optional<QString> m_pendingPicture;  // the text whose picture the other styles did not need
};

}  // namespace sheetwright
