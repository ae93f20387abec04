#pragma once

// The text of a form for tests, record by record. Every record has all the keys that it needs; a test names
// only what it changes: "Width=5" replaces or adds a key, "-Width" leaves it out.

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace sheetwright {

class FormText {
  public:
    FormText& Page(const QString& title, const QStringList& changes = {}) {
        EndPage();
        m_isPageOpen = true;
        m_tabIndex = 0;
        m_design << QStringLiteral("BEGIN PAGE %1").arg(++m_pages)
                 << Changed({QStringLiteral("Title=") + title, QStringLiteral("Orientation=1"),
                             QStringLiteral("PaperSize=9")},
                            changes);
        return *this;
    }

    FormText& Field(const QString& name, const QStringList& changes = {}) {
        const QStringList own{QStringLiteral("Name=") + name,
                              QStringLiteral("FieldType=0"),
                              QStringLiteral("WordWrap=False"),
                              QStringLiteral("Alignment=0"),
                              QStringLiteral("ReadOnly=False"),
                              QStringLiteral("BorderStyle=0"),
                              NextTabIndex()};
        return Record(QStringLiteral("FIELD"), Changed(own + Extent() + Font(), changes));
    }

    FormText& Formula(const QString& name, const QString& formula) {
        return Field(name, {QStringLiteral("Formula=") + formula});
    }

    FormText& CheckBox(const QString& name, const QStringList& changes = {}) {
        const QStringList own{QStringLiteral("Name=") + name, QStringLiteral("Style=0"),
                              QStringLiteral("Caption=tick"), QStringLiteral("States=4"), NextTabIndex()};
        return Record(QStringLiteral("CHECK"), Changed(own + Extent() + Font(), changes));
    }

    FormText& PictureField(const QString& name) { return Field(name, {QStringLiteral("FieldType=1")}); }

    FormText& Picture(const QString& file) {
        return Record(
            QStringLiteral("PICTURE"),
            QStringList{QStringLiteral("BorderStyle=0"), QStringLiteral("Picture=") + file} + Extent());
    }

    FormText& Record(const QString& word, const QStringList& lines) {
        m_design << QStringLiteral("BEGIN ") + word << lines << QStringLiteral("END ") + word;
        return *this;
    }

    // A line of the design section as it stands.
    FormText& Line(const QString& line) {
        m_design << line;
        return *this;
    }

    FormText& Data(int design, const QStringList& lines) {
        m_data << QStringLiteral("BEGIN PAGE %1 DESIGN=%2").arg(++m_dataPages).arg(design) << lines
               << QStringLiteral("END PAGE");
        return *this;
    }

    // A line of the data section as it stands.
    FormText& DataLine(const QString& line) {
        m_data << line;
        return *this;
    }

    [[nodiscard]] QString Text() {
        EndPage();
        const QStringList all = QStringList{QStringLiteral("VERSION 1.0.0"), QStringLiteral("BEGIN DESIGN")} +
                                m_design +
                                QStringList{QStringLiteral("END DESIGN"), QStringLiteral("BEGIN DATA")} +
                                m_data + QStringList{QStringLiteral("END DATA"), QString()};
        return all.join(QStringLiteral("\r\n"));
    }
    [[nodiscard]] QByteArray Bytes() { return Text().toUtf8(); }

    [[nodiscard]] static QStringList Extent() {
        return {QStringLiteral("AbsLeft=1440"), QStringLiteral("AbsTop=720.5"), QStringLiteral("Width=2000"),
                QStringLiteral("Height=300")};
    }
    [[nodiscard]] static QStringList Font() {
        return {QStringLiteral("FontName=Arial"),       QStringLiteral("FontSize=8.25"),
                QStringLiteral("FontBold=False"),       QStringLiteral("FontItalic=False"),
                QStringLiteral("FontStrikethru=False"), QStringLiteral("FontUnderline=True"),
                QStringLiteral("ForeColor=0")};
    }

    [[nodiscard]] static QStringList Changed(QStringList lines, const QStringList& changes) {
        for (const QString& change : changes) {
            const bool isRemoval = change.startsWith(u'-');
            const QString key = isRemoval ? change.sliced(1) : change.section(u'=', 0, 0);
            const qsizetype at = [&] {
                for (qsizetype index = 0; index < lines.size(); ++index)
                    if (lines[index].startsWith(key + u'=')) return index;
                return qsizetype{-1};
            }();
            if (isRemoval) {
                if (at >= 0) lines.removeAt(at);
            } else if (at >= 0) {
                lines[at] = change;
            } else {
                lines << change;
            }
        }
        return lines;
    }

  private:
    void EndPage() {
        if (m_isPageOpen) m_design << QStringLiteral("END PAGE");
        m_isPageOpen = false;
    }
    QString NextTabIndex() { return QStringLiteral("TabIdx=%1").arg(++m_tabIndex); }

    QStringList m_design;
    QStringList m_data;
    int m_pages = 0;
    int m_dataPages = 0;
    int m_tabIndex = 0;
    bool m_isPageOpen = false;
};

}  // namespace sheetwright
