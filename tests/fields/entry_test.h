#pragma once

// A field control in a folder of its own, with the events that it tells.

#include "core/folders.h"
#include "core/paths.h"
#include "fields/usr_entry.h"
#include "import/csv_table.h"
#include "print/picture_file.h"
#include "support/short_text.h"
#include "support/test_application.h"

#include <QBuffer>
#include <QImage>

#include <utility>

namespace sheetwright {

class EntryTest : public ApplicationTest {
  protected:
    EntryTest() : m_entry(*m_application, m_pictures) {
        m_application->conventions = ConventionsOf(QLocale::c());
        m_application->CurrentTempDir = Path(S("temporary/"));
        SetListFolder(*m_application, m_folder.path());
        m_entry.FormFolder = [this] { return Path(S("forms/")); };
        m_entry.Today = [] { return QDate(2024, 2, 29); };
        m_entry.Change = [this] { m_events << S("Change"); };
        m_entry.Click = [this] { m_events << S("Click"); };
        m_entry.DblClick = [this] { m_events << S("DblClick"); };
    }

    void WritePicture(const QString& name, int width = 20, int height = 10) const {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::red);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "PNG");
        Write(name, bytes);
    }

    void AddItems(const QStringList& items) {
        for (const QString& item : items)
            m_entry.AddItem(item);
    }
    [[nodiscard]] static QStringList ItemsOf(const ListChild& list) {
        QStringList items;
        for (int index = 0; index < list.ListCount(); ++index)
            items << list.List(index);
        return items;
    }
    QStringList TakeEvents() { return std::exchange(m_events, {}); }

    PictureCache m_pictures;
    usrEntry m_entry;
    QStringList m_events;
};

}  // namespace sheetwright
