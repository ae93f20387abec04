#pragma once

// A document with a picture surface and a printer to draw it on. No printer is installed until a test says
// so.

#include "core/paths.h"
#include "core/text.h"
#include "document/document.h"
#include "print/element_rendering.h"
#include "print/fonts.h"
#include "print/form_surfaces.h"
#include "print/picture_surface.h"
#include "support/fixed_metrics.h"
#include "support/form_text.h"
#include "support/item_text.h"
#include "support/recording_printer.h"
#include "support/test_application.h"

#include <QBuffer>
#include <QImage>
#include <QStringList>

#include <memory>

namespace sheetwright {

class PrintingTest : public ApplicationTest {
  protected:
    PrintingTest()
        : m_document(*m_application),
          m_formFolder(Path(QStringLiteral("forms/"))),
          m_surface(FontsOf(*m_application), 12000, 17000),
          m_printer(m_metrics),
          m_printers(m_printer) {
        m_application->conventions = ConventionsOf(QLocale::c());
        m_document.MyTempDir = Path(QStringLiteral("temporary/"));
        m_document.Tag = m_formFolder + QStringLiteral("form.aff");
    }

    void InstallPrinter() { m_application->printing.printers = &m_printers; }
    void InstallNoPrinter() {
        m_printers.count = 0;
        InstallPrinter();
    }

    // A picture of that many pixels, in the folder of that name.
    void WritePicture(const QString& name, int width, int height) const {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::red);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "PNG");
        Write(name, bytes);
    }

    [[nodiscard]] static std::shared_ptr<PropertyBag> BagOf(const QStringList& lines) {
        auto bag = std::make_shared<PropertyBag>();
        for (const QString& line : lines)
            bag->Add(ValueOf(line).toString(), KeyOf(line).toString());
        return bag;
    }

    [[nodiscard]] FormDrawing Form() {
        return {*m_application, *m_document.surfaces, m_document.PrintElements, m_document.MyTempDir,
                m_formFolder};
    }

    // What an element leaves on the picture surface, and on the printer's last page.
    QStringList Drawn(QStringView kind, const QStringList& lines) {
        m_surface.Cls();
        FormDrawing form = Form();
        PrintControl(form, m_surface, kind, BagOf(lines));
        return TextsOf(m_surface.Recorded());
    }
    QStringList Printed(QStringView kind, const QStringList& lines) {
        FormDrawing form = Form();
        PrintControl(form, m_printer, kind, BagOf(lines));
        return LastPage();
    }
    [[nodiscard]] QStringList LastPage() const {
        return m_printer.documents.empty() ? QStringList() : TextsOf(m_printer.documents.back().recording);
    }

    // Sub, error and details of each row of the error log.
    [[nodiscard]] QStringList LogRows() const {
        QStringList rows;
        for (const QStringList& row : ErrorRows())
            rows << row.value(3) + u'|' + row.value(4) + u'|' + row.value(5);
        return rows;
    }

    // An extent without fractions.
    [[nodiscard]] static QStringList PlaceAt(int left, int top, int width, int height) {
        return {QStringLiteral("AbsLeft=%1").arg(left), QStringLiteral("AbsTop=%1").arg(top),
                QStringLiteral("Width=%1").arg(width), QStringLiteral("Height=%1").arg(height)};
    }
    [[nodiscard]] static QStringList Font(const QStringList& changes = {}) {
        return FormText::Changed({QStringLiteral("FontName=Arial"), QStringLiteral("FontSize=10"),
                                  QStringLiteral("FontBold=False"), QStringLiteral("FontItalic=False"),
                                  QStringLiteral("FontStrikethru=False"),
                                  QStringLiteral("FontUnderline=False"), QStringLiteral("ForeColor=255")},
                                 changes);
    }

    // The four lines of a box, with a pen of `pen` twips.
    [[nodiscard]] static QStringList BoxLines(double x1, double y1, double x2, double y2, double pen = 15) {
        const auto line = [&](double fromX, double fromY, double toX, double toY) {
            return QStringLiteral("line ") + item_text::Pair(fromX, fromY) + u' ' +
                   item_text::Pair(toX, toY) + QStringLiteral(" pen ") + item_text::Number(pen) +
                   QStringLiteral("/0/0x000000");
        };
        return {line(x1, y1, x2, y1), line(x2, y1, x2, y2), line(x2, y2, x1, y2), line(x1, y2, x1, y1)};
    }

    frmSheetwright m_document;
    QString m_formFolder;
    PictureSurface m_surface;
    FixedMetrics m_metrics;
    RecordingPrinter m_printer;
    RecordingPrinters m_printers;
};

}  // namespace sheetwright
