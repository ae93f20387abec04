#include "import/import_case.h"

#include "support/form_text.h"
#include "support/short_text.h"

#include <algorithm>

namespace sheetwright {

namespace {

// The standard's distributions differ from library to library; these draws do not.
class Draws {
  public:
    explicit Draws(std::uint32_t seed) : m_random(seed) {}  // NOLINT(cert-msc32-c,cert-msc51-cpp)
    [[nodiscard]] int Below(int limit) {
        return static_cast<int>(m_random() % static_cast<std::uint32_t>(limit));
    }
    [[nodiscard]] int Between(int low, int high) { return low + Below(high - low + 1); }
    [[nodiscard]] bool Chance(int percent) { return Below(100) < percent; }
    [[nodiscard]] const QString& One(const QStringList& of) { return of[Below(static_cast<int>(of.size()))]; }

  private:
    std::mt19937 m_random;
};

class CaseDrawing {
  public:
    CaseDrawing(const CaseKind& kind, QString folder, std::uint32_t seed)
        : m_kind(kind), m_folder(std::move(folder)), m_draws(seed) {}

    ImportCase Drawn() {
        DrawTable();
        const int designs = m_draws.Between(1, m_kind.mostDesigns);
        for (int design = 1; design <= designs; ++design)
            m_case.form.designs.push_back(DrawnDesign(design));
        const int pages = m_draws.Between(1, m_kind.mostPages);
        for (int page = 1; page <= pages; ++page)
            m_case.form.pages.push_back(DrawnPage());
        m_case.page = m_draws.Between(1, pages);
        if (m_draws.Chance(m_kind.links)) DrawLinks();
        if (m_kind.lists > 0) m_case.form.lists[S("LISTS\\TOWN")] = TownList();
        return std::move(m_case);
    }

  private:
    static const QStringList& Types() {
        static const QStringList types{S("NUMBER"), S("DATE"), S("BOOLEAN"), S("TEXT")};
        return types;
    }
    void DrawTable() {
        const int columns = m_draws.Between(1, 6);
        for (int column = 0; column < columns; ++column) {
            m_case.table.names << DrawnName(column);
            m_case.table.types << (m_draws.Chance(m_kind.types) ? m_draws.One(Types()) : QString());
        }
        const int rows = m_draws.Chance(10) ? 0 : m_draws.Between(1, m_draws.Chance(20) ? 30 : 8);
        const int blanks = m_draws.Below(60);
        for (int row = 0; row < rows; ++row)
            m_case.table.rows.push_back(DrawnRow(blanks));
    }
    QString DrawnName(int column) {
        static const QStringList odd{S("V(%1)"),    S("x;%1(y)"), S("\"%1"),     S("%1;\"n"),
                                     S("\u00C4%1"), S(" %1 "),    S("(%1;two)"), S("%1)")};
        const QString plain(QChar(u'A' + column));
        if (column > 0 && m_draws.Chance(m_kind.equalNames))
            return m_draws.Chance(50) ? m_case.table.names.last() : m_case.table.names.first().toLower();
        return m_draws.Chance(m_kind.oddSources) ? m_draws.One(odd).arg(plain) : plain;
    }
    QStringList DrawnRow(int blanks) {
        QStringList row;
        const int values =
            static_cast<int>(m_case.table.names.size()) - (m_draws.Chance(15) ? m_draws.Below(3) : 0);
        for (int column = 0; column < std::max(values, 0); ++column)
            row << (m_draws.Chance(blanks) ? QString() : DrawnValue(m_case.table.types[column]));
        if (m_draws.Chance(5)) row << S("beyond") << S("the columns");
        return row;
    }
    QString DrawnValue(const QString& type) {
        static const QStringList texts{S("a"), S("a"),  S("b"), S("c"),
                                       S("B"), S("10"), S("9"), S("x,\"y\"=")};
        static const QStringList numbers{S("1"), S("2"), S("10"), S("-3"), S("1.5"), S("007"), S("x")};
        static const QStringList dates{S("20010203"), S("20010204"), S("19991231"),
                                       S("0"),        S("x"),        S("2001")};
        static const QStringList truths{S("-1"), S("0"), S("1"), S("-1.0"), S("x"), S("3")};
        static const QStringList codes{S("K1"), S("K2"), S("K3"), S("k1"), S("K4")};
        if (type == Types()[0]) return m_draws.One(numbers);
        if (type == Types()[1]) return m_draws.One(dates);
        if (type == Types()[2]) return m_draws.One(truths);
        if (m_kind.lists > 0 && m_draws.Chance(70)) return m_draws.One(codes);
        if (m_kind.mostChecks > 0 && m_draws.Chance(40)) return m_draws.One(truths + numbers);
        return m_draws.One(texts);
    }

    ModelDesign DrawnDesign(int number) {
        ModelDesign design{S("Sheet %1").arg(number), {}, {}};
        const int lines = m_draws.Between(1, m_kind.mostLines);
        if (m_draws.Chance(60)) {
            DrawLines(design, lines);
        } else {
            DrawScattered(design, lines);
        }
        const int checks = m_kind.mostChecks > 0 ? m_draws.Between(0, m_kind.mostChecks) : 0;
        for (int check = 1; check <= checks; ++check)
            design.checks.push_back(DrawnCheck(check, lines));
        return design;
    }
    // One column after the other, each with a field on all lines.
    void DrawLines(ModelDesign& design, int lines) {
        const int columns = m_draws.Between(1, std::max(1, 8 / lines));
        const bool isLineByLine = m_draws.Chance(50);
        std::vector<ModelRecord> takers;
        for (int column = 0; column < columns; ++column)
            takers.push_back(DrawnField());
        for (int at = 0; at < columns * lines; ++at) {
            ModelRecord field = takers[static_cast<std::size_t>(isLineByLine ? at % columns : at / lines)];
            field.line = isLineByLine ? at / columns : at % lines;
            field.name = S("f%1").arg(at + 1);
            if (field.line > 0 && m_draws.Chance(30)) field.keyLevel = 0;
            design.fields.push_back(field);
        }
    }
    void DrawScattered(ModelDesign& design, int lines) {
        const int fields = m_draws.Between(1, 8);
        for (int at = 1; at <= fields; ++at) {
            ModelRecord field = DrawnField();
            field.line = m_draws.Chance(3) ? -1 : m_draws.Below(lines);
            field.name = S("f%1").arg(at);
            if (field.constant && m_draws.Chance(50) && at > 1) {
                field.constant.reset();
                field.copied = S("f1");
                field.dataSource.clear();
            }
            design.fields.push_back(field);
        }
        if (design.fields.front().constant) design.fields.front().constant.reset();
    }
    ModelRecord DrawnField() {
        ModelRecord field;
        field.dataSource = DrawnSource();
        if (m_draws.Chance(m_kind.keyLevels)) field.keyLevel = m_draws.Between(m_draws.Chance(5) ? -1 : 1, 4);
        const int pageTriggers = m_kind.pageTriggers;
        const int lineTriggers = m_kind.lineTriggers;
        field.newPageOnReoccur = m_draws.Chance(pageTriggers / 2);
        field.newPageOnChange = m_draws.Chance(pageTriggers);
        field.newLineOnReoccur = m_draws.Chance(lineTriggers);
        field.newLineOnChange = m_draws.Chance(lineTriggers);
        if (m_draws.Chance(m_kind.lists)) field.list = S("@LISTS\\town,Code");
        if (m_draws.Chance(m_kind.lists))
            field.dataSource += m_draws.Chance(50) ? S(";LISTS\\town,Name") : S(";lists/town,class");
        const bool isTrigger = field.newPageOnReoccur || field.newPageOnChange || field.newLineOnReoccur ||
                               field.newLineOnChange;
        if (!isTrigger && m_draws.Chance(m_kind.formulas)) field.constant = S("set");
        return field;
    }
    ModelRecord DrawnCheck(int number, int lines) {
        ModelRecord check;
        check.name = S("c%1").arg(number);
        check.isCheck = true;
        check.states = m_draws.Between(2, 4);
        check.dataSource = DrawnSource();
        check.line = m_draws.Below(lines);
        return check;
    }

    QString DrawnColumn() {
        return m_draws.Chance(5) ? S("none") : m_draws.One(m_case.table.names) + u',' + m_folder;
    }
    QString DrawnSource() {
        if (m_draws.Chance(7)) return {};
        QString source = DrawnColumn();
        if (m_draws.Chance(15)) source += u';' + DrawnColumn();
        if (m_draws.Chance(3)) source = S("*,") + m_folder;
        if (m_draws.Chance(10)) source = m_draws.Chance(50) ? source.toUpper() : source.toLower();
        if (m_draws.Chance(10)) source = S("A,DRIVERS\\elsewhere;") + source;
        return m_draws.Chance(m_kind.oddSources) ? OddSource(source) : source;
    }
    QString OddSource(const QString& source) {
        static const QStringList around{S(";%1"),       S("%1;"),         S("one;;%1"),    S("\"a;b\";%1"),
                                        S("(a;b);%1"),  S("a(b;c);%1"),   S("a;(b;c);%1"), S("a;\"b\";%1"),
                                        S("a;\"b;%1"),  S("a\";%1"),      S("a(;%1"),      S("\"%1\""),
                                        S("%1;(x;y;z"), S("a\"(\";%1;b"), S("a;;%1"),      S("*;%1")};
        return m_draws.One(around).arg(source);
    }

    ModelPage DrawnPage() {
        static const QStringList texts{S(""), S(""), S("old"), S("a"), S("c")};
        ModelPage page{m_draws.Between(1, static_cast<int>(m_case.form.designs.size())), {}};
        if (m_draws.Chance(50)) return page;
        const bool isPartial = m_kind.formulas == 0 && m_draws.Chance(20);
        const ModelDesign& design = m_case.form.designs[static_cast<std::size_t>(page.design - 1)];
        for (const ModelRecord& field : design.fields)
            if (!isPartial || m_draws.Chance(50)) page.values.emplace_back(field.name, m_draws.One(texts));
        for (const ModelRecord& check : design.checks)
            if (!isPartial || m_draws.Chance(50))
                page.values.emplace_back(check.name, QString::number(m_draws.Below(check.states)));
        return page;
    }
    void DrawLinks() {
        m_case.form.hasLinks = true;
        QStringList titles{S("Nowhere"), S("sheet 1")};
        for (const ModelDesign& design : m_case.form.designs)
            titles << design.title << design.title << design.title;
        for (int line = m_draws.Between(1, 3); line > 0; --line) {
            const QString& first = m_draws.One(titles);
            const QString& second = m_draws.One(titles);
            m_case.form.links.push_back(
                {first, second != first || m_draws.Chance(5) ? second : S("Sheet 2")});
            if (m_draws.Chance(10)) m_case.form.links.back() << S("Sheet 1");
        }
    }

    const CaseKind& m_kind;
    QString m_folder;
    Draws m_draws;
    ImportCase m_case;
};

QString Quoted(QString value) {
    if (!value.contains(u',') && !value.contains(u'"')) return value;
    return u'"' + value.replace(u'"', S("\"\"")) + u'"';
}

QByteArray CsvRow(const QStringList& values) {
    QStringList quoted;
    for (const QString& value : values)
        quoted << Quoted(value);
    const QString row = quoted.join(u',');
    return (row.isEmpty() ? S("\"\"") : row).toUtf8() + "\r\n";
}

QStringList ChangesOf(const ModelRecord& record, const QString& title) {
    QStringList changes{S("MultiRecordIndex=%1").arg(record.line)};
    const auto add = [&](bool isWanted, const QString& line) {
        if (isWanted) changes << line;
    };
    add(!record.dataSource.isEmpty(), S("DataSource=") + record.dataSource);
    add(record.isCheck, S("States=%1").arg(record.states));
    add(record.keyLevel != 0, S("KeyLevel=%1").arg(record.keyLevel));
    add(record.newPageOnReoccur, S("NewPageOnReoccur=True"));
    add(record.newPageOnChange, S("NewPageOnChange=True"));
    add(record.newLineOnReoccur, S("NewLineOnReoccur=True"));
    add(record.newLineOnChange, S("NewLineOnChange=True"));
    add(!record.list.isEmpty(), S("List=") + record.list);
    if (record.constant) changes << S("Formula=SETME(\"%1\")").arg(*record.constant);
    add(!record.copied.isEmpty(), S("Formula=SETME({FIELDS\\%1,%2})").arg(title, record.copied));
    return changes;
}

}  // namespace

ImportCase DrawnCase(const CaseKind& kind, const QString& folder, std::uint32_t seed) {
    return CaseDrawing(kind, folder, seed).Drawn();
}

ModelTable TownList() {
    return {{S("Code"), S("Name"), S("Class")},
            {},
            {{S("K1"), S("Kendal"), S("I")},
             {S("K2"), S("Kirby"), S("II")},
             {S("K2"), S("second"), S("III")},
             {S("k1"), S(""), S("a")}}};
}

FormText TextOf(const ModelForm& form) {
    FormText text;
    for (const ModelDesign& design : form.designs) {
        text.Page(design.title);
        for (const ModelRecord& field : design.fields)
            text.Field(field.name, ChangesOf(field, design.title));
        for (const ModelRecord& check : design.checks)
            text.CheckBox(check.name, ChangesOf(check, design.title));
    }
    for (const ModelPage& page : form.pages) {
        QStringList lines;
        for (const auto& [name, value] : page.values)
            lines << name + u'=' + value;
        text.Data(page.design, lines);
    }
    return text;
}

QByteArray LinksOf(const ModelForm& form) {
    QByteArray lines;
    for (const QStringList& link : form.links)
        lines += link.join(u'|').toUtf8() + "\r\n";
    return lines;
}

QByteArray CsvOf(const ModelTable& table) {
    QByteArray text = CsvRow(table.names);
    for (const QStringList& row : table.rows)
        text += CsvRow(row);
    return text;
}

QByteArray InfOf(const ModelTable& table) {
    QByteArray text;
    for (int column = 0; column < table.names.size(); ++column)
        if (!table.types[column].isEmpty())
            text +=
                '[' + table.names[column].toUtf8() + "]\r\nDataType=" + table.types[column].toUtf8() + "\r\n";
    return text;
}

}  // namespace sheetwright
