#include "document/form_reader.h"

#include "core/application.h"
#include "core/paths.h"
#include "core/text.h"
#include "document/busy_display.h"
#include "document/company_logo.h"
#include "document/document.h"
#include "formula/value_conversion.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace sheetwright {

namespace {

constexpr qsizetype kNameColumn = 5;  // characters before the value of "Name=Field1"
constexpr int kLinesPerUpdate = 20;   // of the design section; its lines cost more than a look at the bar

// Coordinates may be written with "." or with the local decimal separator.
constexpr std::array<QStringView, 7> kNumericKeys{u"Height",  u"Left",   u"Top",     u"Width",
                                                  u"AbsLeft", u"AbsTop", u"FontSize"};

// The lines of a form's text one after the other.
class LineSource {
  public:
    explicit LineSource(const QString& text) : m_rest(text), m_length(text.size()) {}

    [[nodiscard]] bool AtEnd() const { return m_rest.isEmpty(); }
    [[nodiscard]] QStringView Next() { return TakeFormLine(m_rest); }

    [[nodiscard]] qsizetype Position() const { return m_length - m_rest.size(); }
    [[nodiscard]] qsizetype Length() const { return m_length; }

  private:
    QStringView m_rest;
    qsizetype m_length;
};

// The bar for one reading. Looks at it only where the percentage changes.
class ReadingProgress {
  public:
    ReadingProgress(UserInterface& ui, const LineSource& source) : m_bar(ui), m_source(source) {}

    void Update() {
        if (m_source.Position() < m_next) return;
        m_bar.Update(m_source.Position(), m_source.Length());
        const qint64 percent = m_source.Position() * 100 / m_source.Length();
        m_next = ((percent + 1) * m_source.Length() + 99) / 100;
    }
    void Hide() { m_bar.Hide(); }

  private:
    ShownProgress m_bar;
    const LineSource& m_source;
    qint64 m_next = 0;
};

class FormReader {
  public:
    FormReader(frmSheetwright& document, const QString& text)
        : m_document(document),
          m_memory(document.memory),
          m_application(document.application),
          m_text(text),
          m_source(text),
          m_progress(m_application.ui, m_source),
          m_offset(m_memory.DesignPageCount()) {}

    void ReadDesign();
    void ReadData();
    void HideProgress() { m_progress.Hide(); }

  private:
    void DesignLine(QStringView line);
    void CheckVersion(QStringView line);
    void BeginDesignPage(QStringView line);
    void KeyLine(QStringView line);
    void Store(QStringView line);
    void EndRecord();
    void BeginDataPage(QStringView line);
    [[nodiscard]] std::int16_t Number(QStringView text) const {
        return ToInt16(ToNumber(text, m_application.conventions));
    }

    frmSheetwright& m_document;
    MemoryBlock& m_memory;
    Application& m_application;
    const QString& m_text;
    LineSource m_source;
    ReadingProgress m_progress;
    std::int16_t m_offset;
    QString m_name;
    QString m_formula;
};

void FormReader::ReadDesign() {
    for (int count = 1; !m_source.AtEnd(); ++count) {
        const QStringView line = m_source.Next();
        if (line == u"END DESIGN") return;
        if (count % kLinesPerUpdate == 0) m_progress.Update();
        if (!line.isEmpty()) DesignLine(line);
    }
}

void FormReader::DesignLine(QStringView line) {
    if (line.startsWith(u"VERSION")) CheckVersion(line);
    if (IsPageHeader(line)) {
        BeginDesignPage(line);
    } else if (line.contains(u'=')) {
        KeyLine(line);
    } else {
        Store(line);
    }
    if (line.startsWith(u"BEGIN") && !m_formula.isEmpty()) {
        m_name.clear();
        m_formula.clear();
    }
    if (line.startsWith(u"END")) EndRecord();
}

void FormReader::CheckVersion(QStringView line) {
    const Version program = ProgramVersion();
    const QString own = QStringLiteral("%1.%2.").arg(program.major).arg(program.minor);
    if (m_application.ViewerMode || ComparableVersion(line) <= ComparableVersion(own)) return;
    m_application.ui.ShowMessage(
        m_application.Translate(
            QStringLiteral("This form was saved using a newer version and may not function correctly.")),
        m_application.Title, MessageIcon::Exclamation);
}

void FormReader::BeginDesignPage(QStringView line) {
    const std::int16_t number = Number(line.mid(kPageNumberAt));
    // The offset would make a page without a number the last one that is already there.
    m_document.PageNum = number > 0 ? ToInt16(number + m_offset) : number;
    Store(QStringLiteral("BEGIN PAGE %1").arg(m_document.PageNum));
}

void FormReader::KeyLine(QStringView line) {
    const QStringView key = KeyOf(line);
    const auto value = [line] { return DecodeLineBreaks(ValueOf(line)); };
    if (key == u"Title") m_memory.PageProps.Add(value(), QString::number(m_document.PageNum));
    if (key == u"Name") m_name = value();
    if (key == u"Formula") m_formula = value();
    const QChar separator = m_application.conventions.DecimalSeparator;
    const bool isNumeric =
        separator != u'.' && std::find(kNumericKeys.begin(), kNumericKeys.end(), key) != kNumericKeys.end();
    const qsizetype point = isNumeric ? line.indexOf(u'.') : -1;
    if (point < 0) return Store(line);
    Store(line.toString().replace(point, 1, separator));
}

void FormReader::Store(QStringView line) {
    if (m_document.PageNum > 0) m_memory.AppendFormDesign(m_document.PageNum, line, m_text);
}

void FormReader::EndRecord() {
    const bool isOurs = !m_formula.isEmpty() && !m_formula.contains(u"{DRIVERS\\");
    if (isOurs && m_document.PageNum > 0) m_memory.AppendFormulas(m_document.PageNum, m_formula, m_name);
    m_name.clear();
    m_formula.clear();
}

void FormReader::ReadData() {
    m_document.DataPageNum = 0;
    while (!m_source.AtEnd()) {
        const QStringView line = m_source.Next();
        if (line == u"END DATA") return;
        m_progress.Update();
        if (IsPageHeader(line)) BeginDataPage(line);
        if (m_document.DataPageNum > 0 && !line.isEmpty())
            m_memory.AppendFormData(m_document.DataPageNum, line, m_text);
    }
}

void FormReader::BeginDataPage(QStringView line) {
    const qsizetype blank = line.indexOf(u' ', kPageNumberAt);
    if (blank < 0) throw Failure(failure::kInvalidCall);
    m_document.DataPageNum = Number(line.sliced(kPageNumberAt, blank - kPageNumberAt));
    if (!line.sliced(blank).contains(u" DESIGN=")) throw Failure(failure::kTypeMismatch);
}

// The lines of a data page with an empty value for each field and check box of its design.
void AppendEmptyValues(MemoryBlock& memory, std::int16_t number) {
    const PageLines& design = memory.DesignPage(number);
    bool isInside = false;
    for (int position = 1; position <= design.Count(); ++position) {
        const QStringView line = design.Line(position);
        if (line.startsWith(u"BEGIN FIELD") || line.startsWith(u"BEGIN CHECK")) isInside = true;
        if (line.startsWith(u"END")) isInside = false;
        if (isInside && line.startsWith(u"NAME", Qt::CaseInsensitive))
            memory.AppendFormData(number, line.mid(kNameColumn).toString() + u'=');
    }
}

void InitialiseData(frmSheetwright& document) {
    MemoryBlock& memory = document.memory;
    if (memory.DataPageCount() != 0) return;
    document.application.ui.SetStatus(
        document.application.Translate(QStringLiteral("Initialising Form Data...")));
    const int count = memory.DesignPageCount();
    for (int page = 1; page <= count; ++page) {
        const auto number = static_cast<std::int16_t>(page);
        document.DataPageNum = number;
        memory.AppendFormData(number, QStringLiteral("BEGIN PAGE %1 DESIGN=%1").arg(number));
        AppendEmptyValues(memory, number);
        memory.AppendFormData(number, u"END PAGE");
    }
}

QString CaptionOf(const frmSheetwright& document) {
    if (document.Tag.endsWith(u"aft"))
        return u'(' + document.application.Translate(QStringLiteral("Untitled")) + u')';
    return GetFileName(OnDisk(document.Tag));
}

void ReadSections(frmSheetwright& document, const QString& text, bool isMerge) {
    Application& application = document.application;
    FormReader reader(document, text);
    reader.ReadDesign();
    SubstituteCompanyLogo(document);
    application.ui.SetStatus(application.Translate(QStringLiteral("Reading data into memory...")));
    if (!isMerge) reader.ReadData();
    reader.HideProgress();
    if (isMerge) return;
    InitialiseData(document);
    document.Caption = CaptionOf(document);
}

// The bytes of the document's text member; none, after the message, when it can't be opened.
std::optional<QByteArray> BytesOf(const frmSheetwright& document) {
    Application& application = document.application;
    QByteArray bytes;
    if (Ignoring([&] { bytes = ReadWholeFile(document.MyTempDir + GetFileName(document.Tag)); })) {
        application.ui.ShowMessage(application.Translate(QStringLiteral("Error: File Missing")),
                                   application.Title, MessageIcon::Critical);
        return std::nullopt;
    }
    return bytes;
}

// The bytes are gone before anything else is made of the text.
QString Decoded(QByteArray bytes) {
    if (bytes.isEmpty()) throw Failure(failure::kInputPastEnd);
    return DecodeFileText(bytes);
}

void ReadNew(frmSheetwright& document, QByteArray bytes) {
    document.PageNum = 0;
    const QString text = Decoded(std::move(bytes));
    ReadSections(document, text, false);
    document.PageNum = 0;
    document.DataPageNum = 1;
}

// The document that is merged into holds somebody's work: a template that fails half-way leaves it as it was.
void Merge(frmSheetwright& document, QByteArray bytes) {
    const MemoryBlock before = document.memory;
    const std::int16_t pageNum = std::exchange(document.PageNum, std::int16_t{0});
    const std::int16_t dataPageNum = document.DataPageNum;
    const auto restore = [&] {
        document.PageNum = pageNum;
        document.DataPageNum = dataPageNum;
    };
    try {
        const QString text = Decoded(std::move(bytes));
        ReadSections(document, text, true);
    } catch (...) {
        document.memory = before;
        restore();
        throw;
    }
    restore();
}

QString ThreeDigits(const QString& digits) {
    const auto significant =
        std::find_if(digits.begin(), digits.end(), [](QChar digit) { return digit != u'0'; });
    return digits.sliced(significant - digits.begin()).rightJustified(3, u'0');
}

bool IsDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

}  // namespace

QString ComparableVersion(QStringView text) {
    QString major;
    QString digits;
    bool hasMajor = false;
    for (const QChar character : text) {
        if (IsDigit(character)) digits += character;
        if (character != u'.') continue;
        if (hasMajor) return ThreeDigits(major) + ThreeDigits(digits);
        hasMajor = true;
        major = std::exchange(digits, QString());
    }
    return digits;
}

void ReadFormFile(frmSheetwright& document) {
    Application& application = document.application;
    const HourglassPointer pointer(application.ui);
    application.ui.SetStatus(application.Translate(QStringLiteral("Reading template into memory...")));
    const bool isMerge = document.Pages != 0;
    if (!isMerge) document.memory.PageProps.Clear();
    std::optional<QByteArray> bytes = BytesOf(document);
    if (!bytes) return;
    isMerge ? Merge(document, std::move(*bytes)) : ReadNew(document, std::move(*bytes));
    document.Pages = document.memory.DataPageCount();
    application.ui.SetStatus(application.Translate(QStringLiteral("Ready")));
}

}  // namespace sheetwright
