#pragma once

// A page with a field of each kind, shown in a window.

#include "fields/editing.h"
#include "form_window_test.h"
#include "support/pixels.h"

namespace sheetwright {

class PageViewTest : public FormWindowTest {
  protected:
    PageViewTest() {
        m_form.Page(S("First"))
            .Field(S("name"), At(100, 100))
            .Field(S("town"), At(100, 200))
            .Field(S("sum"), At(400, 100) + QStringList{S("ReadOnly=True")})
            .Field(S("hidden"), At(400, 200) + QStringList{S("Visible=False")})
            .Field(S("photo"), At(100, 300, 100, 80) + QStringList{S("FieldType=1")})
            .CheckBox(S("agreed"), At(400, 300));
        m_form.Data(1,
                    {S("name=Ada"), S("town=London"), S("sum=7"), S("hidden=x"), S("photo="), S("agreed=0")});
    }

    void OpenForm() { ASSERT_NO_FATAL_FAILURE(Open(m_form)); }
    void LeaveFields() { Unselect(Document()); }

    [[nodiscard]] QImage Grab(double devicePixelRatio = 1) {
        QImage image(View().size() * devicePixelRatio, QImage::Format_RGB32);
        image.setDevicePixelRatio(devicePixelRatio);
        image.fill(Qt::magenta);
        View().render(&image);
        image.setDevicePixelRatio(1);
        return image;
    }
    [[nodiscard]] QColor Highlight() { return View().palette().color(QPalette::Highlight); }
    [[nodiscard]] QString CheckState() { return ThePage().Checks.At(1).control->Value(); }

    FormText m_form;
};

}  // namespace sheetwright
