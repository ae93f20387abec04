#include "print/font_face.h"

#include <algorithm>

namespace sheetwright {

namespace {

constexpr qsizetype kLongestRun = 256;
constexpr qsizetype kFirstMeasured = 32;  // units of a run
constexpr std::size_t kMostSizes = 64;
constexpr qsizetype kMostRuns = 2048;

// In pixels: the least letter spacing there is. Texts that are spaced get no ligatures.
constexpr double kNoLigatures = 1.0 / 64;

// From the top of a line of signs to their baseline, for a size of 1. Signs of a real symbol font stand
// higher than their namesakes in a font for text; here the tick stands in the middle of a check box, on paper
// as on a screen with a printer installed, where texts stand 45 twips higher.
constexpr double kSymbolAscent = 0.75;

QFont ReferenceFont(const QStringList& families, bool bold, bool italic) {
    QFont font;
    font.setFamilies(families);
    font.setPixelSize(FontFace::kReferencePixels);
    font.setBold(bold);
    font.setItalic(italic);
    font.setKerning(false);
    font.setLetterSpacing(QFont::AbsoluteSpacing, kNoLigatures);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

bool IsShownAsBlank(QChar character) {
    const QChar::Category category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

// Whether the character always looks alike and stands by itself, whatever its neighbours.
bool IsPlain(QChar character) {
    if (character.isSurrogate() || character.isMark() || character.category() == QChar::Other_Format) {
        return false;
    }
    switch (character.script()) {
        case QChar::Script_Unknown:
        case QChar::Script_Common:
        case QChar::Script_Latin:
        case QChar::Script_Greek:
        case QChar::Script_Cyrillic:
        case QChar::Script_Armenian:
        case QChar::Script_Georgian:
        case QChar::Script_Han:
        case QChar::Script_Hiragana:
        case QChar::Script_Katakana:
        case QChar::Script_Bopomofo:
            return true;
        case QChar::Script_Hangul:
            return character >= u'\uAC00' && character <= u'\uD7A3';
        default:
            return false;
    }
}

// `end`, or one less where it would part the halves of a surrogate pair.
qsizetype BetweenCharacters(QStringView text, qsizetype end) {
    const bool parts =
        end > 0 && end < text.size() && text[end - 1].isHighSurrogate() && text[end].isLowSurrogate();
    return parts ? end - 1 : end;
}

}  // namespace

FontFace::FontFace(const QStringList& families, bool bold, bool italic, SymbolSet symbols)
    : m_reference(ReferenceFont(families, bold, italic)),
      m_metrics(m_reference),
      m_glyphs(QRawFont::fromFont(m_reference)),
      m_symbols(symbols),
      m_ascent(symbols == SymbolSet::None ? m_metrics.ascent() : kReferencePixels * kSymbolAscent),
      m_lineHeight(m_metrics.ascent() + m_metrics.descent()),
      m_underline(m_metrics.underlinePos()),
      m_strikethru(-m_metrics.strikeOutPos()),
      m_lineThickness(m_metrics.lineWidth()) {
    m_glyphs.setPixelSize(kReferencePixels);
}

FontFace::Character FontFace::Measured(char16_t unit) const {
    QChar shown = unit;
    if (m_symbols != SymbolSet::None) shown = SymbolNamesake(m_symbols, shown);
    if (IsShownAsBlank(shown)) shown = u' ';
    if (!IsPlain(shown)) return {kNeedsRun, 0};
    quint32 glyph = 0;
    int count = 1;
    if (!m_glyphs.glyphIndexesForChars(&shown, 1, &glyph, &count)) glyph = 0;
    const double advance = std::max(0.0, m_metrics.horizontalAdvance(QString(shown)) - kNoLigatures);
    return {static_cast<float>(advance), glyph};
}

const FontFace::Character& FontFace::Load(char16_t unit) const {
    std::unique_ptr<CharacterPage>& page = m_pages[unit >> 8U];
    if (!page) {
        page = std::make_unique<CharacterPage>();
        page->fill({kUnknown, 0});
    }
    return (*page)[unit & 0xFFU] = Measured(unit);
}

double FontFace::RunWidth(QStringView run) const {
    const QString text = run.toString();
    const auto known = m_runs.constFind(text);
    if (known != m_runs.constEnd()) return *known;
    if (m_runs.size() >= kMostRuns) m_runs.clear();
    return *m_runs.insert(text, std::max(0.0, m_metrics.horizontalAdvance(text)));
}

qsizetype FontFace::RunEnd(QStringView text, qsizetype start) const {
    const qsizetype limit = std::min(text.size(), start + kLongestRun);
    qsizetype end = start + 1;
    while (end < limit && CharacterOf(text[end].unicode()).advance < 0)
        ++end;
    return BetweenCharacters(text, end);
}

double FontFace::Width(QStringView text) const {
    double width = 0;
    for (qsizetype i = 0; i < text.size();) {
        const float advance = CharacterOf(text[i].unicode()).advance;
        if (advance >= 0) {
            width += static_cast<double>(advance);
            ++i;
            continue;
        }
        const qsizetype end = RunEnd(text, i);
        width += RunWidth(text.sliced(i, end - i));
        i = end;
    }
    return width;
}

// Measured from the front on: of a long run mostly a few characters fill the line.
FontFace::RunPart FontFace::FittingInRun(QStringView run, double before, double scale, double width) const {
    const auto fit = [&](double runWidth) { return (before + runWidth) * scale <= width; };
    qsizetype fits = 0;
    qsizetype tooLong = run.size() + 1;
    for (qsizetype end = kFirstMeasured; tooLong > run.size(); end *= 2) {
        const qsizetype measured = end < run.size() ? BetweenCharacters(run, end) : run.size();
        const double used = RunWidth(run.first(measured));
        if (fit(used) && measured == run.size()) return {measured, used};
        (fit(used) ? fits : tooLong) = measured;
    }
    while (tooLong - fits > 1) {
        // Half a pair is never measured: it may be wider than both halves.
        qsizetype middle = BetweenCharacters(run, fits + (tooLong - fits) / 2);
        if (middle == fits) middle += 2;
        if (middle >= tooLong) break;
        (fit(RunWidth(run.first(middle))) ? fits : tooLong) = middle;
    }
    return {fits, 0};
}

qsizetype FontFace::Fitting(QStringView text, double scale, double width) const {
    double used = 0;
    qsizetype i = 0;
    while (i < text.size()) {
        const float advance = CharacterOf(text[i].unicode()).advance;
        const bool isRun = advance < 0;
        const qsizetype end = isRun ? RunEnd(text, i) : i + 1;
        const RunPart part = isRun ? FittingInRun(text.sliced(i, end - i), used, scale, width)
                                   : RunPart{1, static_cast<double>(advance)};
        const double after = used + part.width;
        if (i + part.size < end || !(after * scale <= width)) {
            return used * scale <= width ? i + (isRun ? part.size : 0) : 0;
        }
        used = after;
        i = end;
    }
    return 0 <= width ? i : 0;
}

QString FontFace::Shown(const QString& text) const {
    const auto changes = [this](QChar c) { return m_symbols != SymbolSet::None || IsShownAsBlank(c); };
    if (std::none_of(text.begin(), text.end(), changes)) return text;
    QString shown = text;
    for (QChar& character : shown) {
        if (m_symbols != SymbolSet::None) character = SymbolNamesake(m_symbols, character);
        if (IsShownAsBlank(character)) character = u' ';
    }
    return shown;
}

const QRawFont& FontFace::Sized(double pixels) const {
    const auto found = m_sized.find(pixels);
    if (found != m_sized.end()) return found->second;
    if (m_sized.size() >= kMostSizes) m_sized.clear();
    QFont hinted = m_reference;
    hinted.setHintingPreference(QFont::PreferVerticalHinting);
    QRawFont font = QRawFont::fromFont(hinted);
    font.setPixelSize(pixels);
    return m_sized.emplace(pixels, std::move(font)).first->second;
}

std::optional<QGlyphRun> FontFace::Glyphs(const QString& text, double pixels) const {
    QList<quint32> glyphs;
    QList<QPointF> positions;
    glyphs.reserve(text.size());
    positions.reserve(text.size());
    double x = 0;
    for (const QChar unit : text) {
        const Character& character = CharacterOf(unit.unicode());
        if (character.advance < 0 || character.glyph == 0) return std::nullopt;
        glyphs.append(character.glyph);
        positions.append(QPointF(x * pixels / kReferencePixels, 0));
        x += static_cast<double>(character.advance);
    }
    QGlyphRun run;
    run.setRawFont(Sized(pixels));
    run.setGlyphIndexes(glyphs);
    run.setPositions(positions);
    return run;
}

}  // namespace sheetwright
