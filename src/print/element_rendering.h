#pragma once

// How each element of a design and each value of a page looks: the elements of a design at once, fields and
// check boxes when their value comes.

#include "core/keyed_collection.h"
#include "document/design_records.h"
#include "print/font_spec.h"
#include "print/recording.h"
#include "print/text_box.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <optional>

namespace sheetwright {

class Application;
class Device;
class Measurer;
struct FormSurfaces;
struct PrintState;

// What drawing needs of a form.
struct FormDrawing {
    Application& application;
    FormSurfaces& surfaces;
    KeyedCollection<std::shared_ptr<PropertyBag>>& PrintElements;  // fields and check boxes by name
    const QString& MyTempDir;                                      // where the form's pictures lie
    const QString& FormFolder;  // where the form itself lies, with trailing separator: pictures named without
                                // a folder are looked for there, too
};

// Draws one element of `kind` (four letters); fields and check boxes are added to `PrintElements` instead,
// with the key "Key". An element whose "Printable" is false is left out. Whatever fails is logged and the
// next step goes on: one bad property costs at most one step.
void PrintControl(FormDrawing& form, Device& device, QStringView kind,
                  const std::shared_ptr<PropertyBag>& bag);

// What drawing a field's text needs of its record, read once for all pages of a job.
struct FieldLook {
    double borderStyle = 0;
    Extent place;
    std::int16_t alignment = 0;
    FontSpec font;
    Colour colour = 0;
    TextBox box;
};
// None for a picture field, and when anything is missing or bad: then drawing must fail where it comes to it.
[[nodiscard]] std::optional<FieldLook> LookOf(const Application& application, const PropertyBag& bag);
void DrawField(FormDrawing& form, Device& device, const FieldLook& look, const QString& value);

// Draw the value of a field or check box. Raise 5 for a missing property, 6 for a place past 16 bits, 380 for
// a size that can't be, 11 for a picture in a box without height, 481 and 53 to 76 for a picture file that
// can't be shown.
void DrawField(FormDrawing& form, Device& device, const PropertyBag& bag, const QString& value);
void DrawCheckBox(FormDrawing& form, Device& device, const PropertyBag& bag, const QString& value);

// What drawing a check box needs of it when it stands on screen.
struct CheckLook {
    Extent place;
    bool isBoxOnTheRight = false;
    QString caption;
    FontSpec font;
    Colour colour = 0;
};
// In the state `value`, just as above, but lets no messages run. Raises as DrawTextBox.
void DrawCheckBox(Application& application, Device& device, Measurer& measurer, const CheckLook& look,
                  double value);

// The border of a field: `style` 1 a box, 2 a rule, any other none.
void DrawFieldBorder(const PrintState& state, Device& device, double style, const Extent& place);

}  // namespace sheetwright
