#pragma once

// A check box of up to four states, for results such as pass, fail, not applicable and unknown. It is drawn
// from two labels: the square with its sign and the caption.

#include "fields/field_child.h"

#include <functional>

namespace sheetwright {

class Application;

class usr4StateCheckBox : public FieldChild {
  public:
    usr4StateCheckBox();

    // A label as a view draws it; positions in twips within the box.
    struct Label {
        QString text;
        double left = 0;
        double width = 0;
        FontSpec font{QStringLiteral("Arial")};
    };
    static constexpr double kSquareWidth = 195;
    static constexpr double kGap = 60;

    // A value outside 0 to `States` - 1 is stored and leaves the drawing as it was. Tells no event.
    [[nodiscard]] std::int16_t Value() const { return m_value; }
    void SetValue(std::int16_t value);
    [[nodiscard]] std::int16_t States() const { return m_states; }
    void SetStates(std::int16_t states);
    [[nodiscard]] const QString& Caption() const { return m_caption.text; }
    void SetCaption(const QString& caption);
    // 0: the square stands left of the caption; otherwise right.
    [[nodiscard]] std::int16_t Alignment() const { return m_alignment; }
    void SetAlignment(std::int16_t alignment);
    [[nodiscard]] std::int16_t BackStyle() const { return m_backStyle; }  // 0 transparent, 1 opaque
    void SetBackStyle(std::int16_t style);
    // Of the caption; the square's sign has its own. A value that is set later decides what is struck
    // through.
    [[nodiscard]] const FontSpec& Font() const { return m_caption.font; }
    void SetFont(const FontSpec& font);
    // Colours, border and whether it is enabled are in `Look`.

    void Resize(double width, double height);

    [[nodiscard]] const Label& picture1() const { return m_square; }
    [[nodiscard]] const Label& Label1() const { return m_caption; }

    // What a person does: a click on either label, and a key with the focus. Each goes on to the next state;
    // keys other than the space do nothing. Raise 6 past 32767, which only a value can reach that lies beyond
    // the states.
    void ClickLabel();
    void PressKey(std::int16_t keyAscii);

    // All keys in their order; absent ones mean the default. `Value` comes before `States`, so that the sign
    // is that of the states before. Raises as RecordView.
    void ReadProperties(const Application& application, const PropertyBag& properties);
    [[nodiscard]] PropertyBag WriteProperties(const Application& application) const;

    std::function<void()> Click;                       // a person went on to the next state
    std::function<void(QStringView)> PropertyChanged;  // the name of what was set

  private:
    void Draw();
    void Arrange();
    void MarkChanged(QStringView property) const;

    Label m_square;
    Label m_caption{QStringLiteral("Label1")};
    std::int16_t m_value = 0;
    std::int16_t m_states = 2;
    std::int16_t m_alignment = 0;
    std::int16_t m_backStyle = 1;
};

}  // namespace sheetwright
