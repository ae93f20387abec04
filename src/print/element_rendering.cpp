#include "print/element_rendering.h"

#include "print/device.h"
#include "print/fixed_elements.h"

namespace sheetwright {

namespace {

// Nothing is drawn before the value comes; until then the element waits under its name.
void Keep(const ElementDrawing& element, const QString& key) {
    element.Step([&] { element.bag->Add(key, QStringLiteral("Key")); });
    element.Step([&] { element.form.PrintElements.Add(element.bag, element.bag->At(u"Name")); });
}

void KeepField(const ElementDrawing& element) {
    Keep(element, QStringLiteral("F"));
}

void KeepCheckBox(const ElementDrawing& element) {
    Keep(element, QStringLiteral("C"));
}

struct KindDrawing {
    QStringView kind;
    void (*draw)(const ElementDrawing& element);
};

constexpr KindDrawing kKinds[] = {
    {u"PAGE", ApplyPage},        {u"FRAM", DrawFrameElement},   {u"LINE", DrawLineElement},
    {u"SHAP", DrawShapeElement}, {u"LABE", DrawLabelElement},   {u"FIEL", KeepField},
    {u"CHEC", KeepCheckBox},     {u"PICT", DrawPictureElement},
};

}  // namespace

void PrintControl(FormDrawing& form, Device& device, QStringView kind,
                  const std::shared_ptr<PropertyBag>& bag) {
    if (!RecordView(form.application, *bag).IsPrintable()) return;
    const PrintState& state = form.application.printing;
    if (IsPrinter(state, device)) device.SetBkMode(1);
    for (const KindDrawing& drawing : kKinds)
        if (drawing.kind == kind) drawing.draw({form, device, bag});
    if (IsPrinter(state, device)) device.SetBkMode(1);
}

}  // namespace sheetwright
