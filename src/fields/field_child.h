#pragma once

// What all children of a field control have: the one a view shows is the one that is visible.

#include "document/design_records.h"
#include "print/font_spec.h"
#include "print/recording.h"

#include <QString>

#include <cstdint>

namespace sheetwright {

// Colours with the top bit set name one of the system's; a view asks the desktop for it.
namespace system_colour {
inline constexpr Colour kWindow = 0x80000005;
inline constexpr Colour kWindowText = 0x80000008;
inline constexpr Colour kButtonFace = 0x8000000F;
inline constexpr Colour kButtonText = 0x80000012;
}  // namespace system_colour

// The styles of a field; each is the tab index of the child that shows it.
namespace field_type {
inline constexpr std::uint8_t kText = 0;
inline constexpr std::uint8_t kCombo = 1;
inline constexpr std::uint8_t kDropdown = 2;
inline constexpr std::uint8_t kCheckBox = 3;
inline constexpr std::uint8_t kNone = 4;
inline constexpr std::uint8_t kDate = 5;
inline constexpr std::uint8_t kPicture = 6;
}  // namespace field_type

struct ChildLook {
    FontSpec font{QStringLiteral("Arial")};
    Colour foreColor = system_colour::kWindowText;
    Colour backColor = system_colour::kWindow;
    std::int16_t borderStyle = 1;  // 0 none, 1 fixed single
    bool isEnabled = true;
};

class FieldChild {
  public:
    explicit FieldChild(int tabIndex) : TabIndex(tabIndex) {}
    FieldChild(const FieldChild&) = delete;
    FieldChild& operator=(const FieldChild&) = delete;
    virtual ~FieldChild() = default;

    const int TabIndex;
    bool Visible = false;
    Extent Place;  // in twips within the control
    ChildLook Look;
};

}  // namespace sheetwright
