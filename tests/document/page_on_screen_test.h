#pragma once

// A form on screen, in a window and a frame that record what they are told.

#include "core/paths.h"
#include "document/document.h"
#include "document/form_reader.h"
#include "document/page.h"
#include "document/page_data.h"
#include "print/form_surfaces.h"
#include "support/form_text.h"
#include "support/item_text.h"
#include "support/page_text.h"
#include "support/page_window.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <QBuffer>
#include <QImage>

#include <memory>

namespace sheetwright {

class PageOnScreenTest : public ApplicationTest {
  protected:
    explicit PageOnScreenTest(const QString& title = S("Tolvane Quillon Sheetwright"))
        : ApplicationTest(title) {
        Write(S("papersizes.csv"),
              "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT,NAME\r\n"
              "9,1,11906,16838,A4\r\n9,2,16838,11906,A4\r\n11,1,8391,11906,A5\r\n");
        m_application->LoadPaperTable();
        m_application->conventions = ConventionsOf(QLocale::c());
        m_application->mainWindow = &m_mainWindow;
    }

    // Reads the form into a new document, which has its window and no page yet.
    frmSheetwright& Read(FormText& form) {
        m_document = std::make_unique<frmSheetwright>(*m_application);
        m_document->Tag = Path(S("forms/")) + S("form.aff");
        m_document->MyTempDir = Path(S("temporary/"));
        m_application->CurrentTempDir = m_document->MyTempDir;
        Write(S("temporary/form.aff"), form.Bytes());
        ReadFormFile(*m_document);
        m_document->window = &m_window;
        UsePageOnScreen(*m_document);
        return *m_document;
    }
    // Then shows its first page.
    frmSheetwright& Show(FormText& form) {
        Read(form);
        Forget();
        LoadPage(*m_document);
        return *m_document;
    }
    void Turn(std::int16_t number) {
        SavePage(*m_document);
        m_document->DataPageNum = number;
        LoadPage(*m_document);
    }
    void Forget() {
        m_ui.statuses.clear();
        m_ui.pointers.clear();
        m_ui.progress.clear();
        m_window.calls.clear();
        m_mainWindow.calls.clear();
    }

    void WritePicture(const QString& name, int width, int height) const {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::red);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "PNG");
        Write(name, bytes);
    }

    [[nodiscard]] Page& ThePage() const { return *m_document->page; }
    [[nodiscard]] QString TextAt(int number) const { return ThePage().Entries.At(number).text; }
    [[nodiscard]] QStringList Texts() const {
        QStringList texts;
        for (const TextElement& element : ThePage().Entries)
            texts << element.text;
        return texts;
    }
    [[nodiscard]] usrEntry& Check(int number) const { return *ThePage().Checks.At(number).control; }
    [[nodiscard]] usrEntry& Bitmap(int number) const { return *ThePage().Bitmaps.At(number).control; }
    [[nodiscard]] QStringList Lines(int page) const { return TextsOf(m_document->memory.DataPage(page)); }
    [[nodiscard]] QStringList Painted() const { return TextsOf(m_document->surfaces->picForm.Recorded()); }

    // Sub, error and details of each row of the error log.
    [[nodiscard]] QStringList LogRows() const {
        QStringList rows;
        for (const QStringList& row : ErrorRows())
            rows << row.value(3) + u'|' + row.value(4) + u'|' + row.value(5);
        return rows;
    }
    // A row that building left for a line of the design.
    [[nodiscard]] QString DesignRow(const QString& error, const QString& line) const {
        return S("LoadDesignPage|") + error + u'|' + m_document->Tag + u' ' + line;
    }
    [[nodiscard]] QString PageRow(const QString& error) const {
        return S("LoadPage|") + error + u'|' + m_document->Tag;
    }
    [[nodiscard]] ShownMessage Exclamation(const QString& text) const {
        return {text, m_application->Title, MessageIcon::Exclamation, MessageButtons::Ok};
    }
    [[nodiscard]] ShownMessage DesignMessage() const {
        return Exclamation(S("One or more errors occured loading the form design."));
    }
    [[nodiscard]] ShownMessage FormMessage() const {
        return Exclamation(S("One or more errors occured loading the form."));
    }

    RecordingWindow m_window;
    RecordingMainWindow m_mainWindow;
    std::unique_ptr<frmSheetwright> m_document;
};

}  // namespace sheetwright
