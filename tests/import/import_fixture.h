#pragma once

// A form on screen and the file of a meter that is poured into it.

#include "document/page_on_screen_test.h"
#include "import/import.h"

#include <QDir>

namespace sheetwright {

class ImportTest : public PageOnScreenTest {
  protected:
    ImportTest() { Write(S("DRIVERS/meter/DRIVER.INF"), ""); }

    // The changes to a record that takes a column of the meter, on a line of the page.
    [[nodiscard]] static QStringList Takes(const QString& column, int line = 0,
                                           const QStringList& more = {}) {
        return QStringList{S("DataSource=") + column + S(",DRIVERS\\meter"),
                           S("MultiRecordIndex=%1").arg(line)} +
               more;
    }
    // "Name 1" to "Name n" take the column on lines 0 to n - 1.
    static void Lines(FormText& form, const QString& column, int count, const QStringList& more = {}) {
        for (int line = 0; line < count; ++line)
            form.Field(column + S(" %1").arg(line + 1), Takes(column, line, more));
    }

    QString WriteTable(const QByteArray& bytes, const QByteArray& inf = {}) const {
        if (!inf.isEmpty()) Write(S("DRIVERS/meter/Data/table.inf"), inf);
        return Write(S("DRIVERS/meter/Data/table.csv"), bytes);
    }
    // Shows the form and imports the table into its first page.
    void Pour(FormText& form, const QByteArray& table, const QByteArray& inf = {}) {
        Show(form);
        Forget();
        Import(*m_document, WriteTable(table, inf));
    }

    // The values of a data page, joined by "|". The last page is stored by the recalculation at the end.
    [[nodiscard]] QString ValuesOf(int page) const {
        QStringList values;
        for (const QString& line : Lines(page))
            if (!line.startsWith(u"BEGIN PAGE") && line != u"END PAGE") values << line.section(u'=', 1);
        return values.join(u'|');
    }
    [[nodiscard]] QStringList Pages() const {
        QStringList pages;
        for (int page = 1; page <= m_document->memory.DataPageCount(); ++page)
            pages << ValuesOf(page);
        return pages;
    }
    using PageOnScreenTest::Lines;
};

}  // namespace sheetwright
