#pragma once

// The fixed elements of a design: frames, lines, shapes, labels and pictures, and the page's own keys. For
// print and preview each statement is a step of its own whose failure is logged; on screen it ends the
// element.

#include "core/application.h"
#include "core/error_log.h"
#include "print/element_rendering.h"

#include <memory>
#include <utility>

namespace sheetwright {

// One element on its way to a surface.
struct ElementDrawing {
    FormDrawing& form;
    Device& device;
    const std::shared_ptr<PropertyBag>& bag;
    bool isOnScreen = false;  // failures travel

    [[nodiscard]] PrintState& State() const { return form.application.printing; }

    template <typename Record>
    [[nodiscard]] Record As() const {
        return Record(form.application, *bag);
    }

    template <typename Statement>
    void Step(Statement&& statement) const {
        if (isOnScreen) {
            std::forward<Statement>(statement)();
            return;
        }
        if (LoggedStep(form.application, QStringLiteral("PrintControl"), QString(),
                       std::forward<Statement>(statement)))
            ++State().lostSteps;
    }
};

// The pen of frames, each statement a step.
void SetFramePen(const ElementDrawing& element);

void ApplyPage(const ElementDrawing& element);
void DrawFrameElement(const ElementDrawing& element);
void DrawLineElement(const ElementDrawing& element);
void DrawShapeElement(const ElementDrawing& element);
void DrawLabelElement(const ElementDrawing& element);
void DrawPictureElement(const ElementDrawing& element);

}  // namespace sheetwright
