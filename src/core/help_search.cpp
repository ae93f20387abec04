#include "core/help_search.h"

#include "core/failure.h"
#include "core/help_page.h"
#include "core/paths.h"

#include <QDir>

#include <algorithm>
#include <tuple>

namespace sheetwright {

namespace {

constexpr qsizetype kMostPages = 2000;
constexpr qsizetype kMostWords = 16;  // of a search
constexpr std::size_t kMostResults = 100;
constexpr QStringView kLinksAnchor = u"see-also";  // links to other pages are not about this one
constexpr qsizetype kExcerptBefore = 40;           // characters before the word that was found
constexpr qsizetype kExcerptLength = 160;
constexpr int kTitlePoints = 1000;
constexpr int kKeywordPoints = 100;
constexpr int kHeadingPoints = 10;
constexpr int kTextPoints = 1;

const QChar kEllipsis(0x2026);

bool IsOfWord(QChar character) {
    return character.isLetterOrNumber() || character.isMark() || character.isSurrogate();
}

struct Stretch {
    qsizetype start = 0;
    qsizetype length = 0;
};

// The next word at or behind `at`; empty at the end of the text.
Stretch NextWord(QStringView text, qsizetype at) {
    while (at < text.size() && !IsOfWord(text[at]))
        ++at;
    qsizetype end = at;
    while (end < text.size() && IsOfWord(text[end]))
        ++end;
    return {at, end - at};
}

QString Plain(QStringView word) {
    QString plain;
    for (const QChar character : word.toString().normalized(QString::NormalizationForm_KD))
        if (!character.isMark()) plain += character;
    return plain.toUpper().toCaseFolded();  // "ß" as "ss"
}

// The words of a text, each between blanks.
QString Spaced(QStringView text) {
    const QStringList words = PlainWords(text);
    return words.isEmpty() ? QString() : u' ' + words.join(u' ') + u' ';
}

bool Has(const QString& spaced, const QString& word) {
    return spaced.contains(u' ' + word);
}

bool HasWhole(const QString& spaced, const QString& word) {
    return spaced.contains(u' ' + word + u' ');
}

bool HasAll(const QString& spaced, const QStringList& words) {
    return std::ranges::all_of(words, [&](const QString& word) { return Has(spaced, word); });
}

qsizetype FirstFound(QStringView text, const QStringList& words) {
    for (Stretch word = NextWord(text, 0); word.length > 0; word = NextWord(text, word.start + word.length)) {
        const QString plain = Plain(text.sliced(word.start, word.length));
        if (std::ranges::any_of(words, [&](const QString& sought) { return plain.startsWith(sought); }))
            return word.start;
    }
    return 0;
}

// Cut between words where there are any.
QString Excerpt(const QString& text, const QStringList& words) {
    qsizetype start = std::max<qsizetype>(FirstFound(text, words) - kExcerptBefore, 0);
    if (start > 0) {
        const qsizetype blank = text.indexOf(u' ', start);
        if (blank >= 0 && blank < start + kExcerptBefore) start = blank + 1;
    }
    QString excerpt = text.mid(start, kExcerptLength);
    if (start + excerpt.size() < text.size()) {
        const qsizetype blank = excerpt.lastIndexOf(u' ');
        if (blank > kExcerptBefore) excerpt.truncate(blank);
        excerpt += u' ' + QString(kEllipsis);
    }
    return start > 0 ? kEllipsis + QStringLiteral(" ") + excerpt : excerpt;
}

}  // namespace

QStringList PlainWords(QStringView text) {
    QStringList words;
    for (Stretch word = NextWord(text, 0); word.length > 0; word = NextWord(text, word.start + word.length))
        if (const QString plain = Plain(text.sliced(word.start, word.length)); !plain.isEmpty())
            words << plain;
    return words;
}

struct HelpSearch::Found {
    const Page* page = nullptr;
    int points = 0;  // none when a word is missing
    int wholeWords = 0;
    bool isByTitle = false;
};

HelpSearch::HelpSearch(const QString& folder) {
    const QStringList files = QDir(folder).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
    for (const QString& file : files.first(std::min(files.size(), kMostPages)))
        if (file.compare(u"index.html", Qt::CaseInsensitive) != 0)
            Ignoring([&] { Add(file, ReadHelpFile(WithTrailingSeparator(folder) + file)); });
}

void HelpSearch::Add(const QString& file, const QString& html) {
    const HelpPage read = ReadHelpPage(html);
    const QString title = read.title.isEmpty() ? file : read.title;
    Page page{file, title, Spaced(title), Spaced(read.keywords), {}};
    for (const HelpSection& section : read.sections)
        if (page.sections.empty() || section.anchor != kLinksAnchor)
            page.sections.push_back({section.anchor, section.heading, section.text, Spaced(section.heading),
                                     Spaced(section.text)});
    m_pages.push_back(std::move(page));
}

std::vector<HelpResult> HelpSearch::Find(const QString& words) const {
    QStringList plain = PlainWords(words);
    plain.removeDuplicates();
    plain = plain.first(std::min(plain.size(), kMostWords));
    std::vector<Found> found;
    for (const Page& page : m_pages)
        if (const Found one = Look(page, plain); one.points > 0) found.push_back(one);
    std::ranges::stable_sort(found, [](const Found& left, const Found& right) {
        return std::tie(right.points, right.wholeWords) < std::tie(left.points, left.wholeWords);
    });
    std::vector<HelpResult> results;
    for (std::size_t at = 0; at < std::min(found.size(), kMostResults); ++at)
        results.push_back(ResultOf(found[at], plain));
    return results;
}

HelpSearch::Found HelpSearch::Look(const Page& page, const QStringList& words) {
    Found found{&page, 0, 0, !words.isEmpty() && HasAll(page.plainTitle, words)};
    for (const QString& word : words) {
        int points = 0;
        bool isWhole = false;
        const auto look = [&](const QString& spaced, int worth) {
            if (points >= worth && isWhole) return;
            if (!Has(spaced, word)) return;
            points = std::max(points, worth);
            isWhole = isWhole || HasWhole(spaced, word);
        };
        look(page.plainTitle, kTitlePoints);
        look(page.plainKeywords, kKeywordPoints);
        for (const Section& section : page.sections) {
            look(section.plainHeading, kHeadingPoints);
            look(section.plainText, kTextPoints);
        }
        if (points == 0) return {};
        found.points += points;
        found.wholeWords += isWhole ? 1 : 0;
    }
    return found;
}

// The one that most of the words are in, best in its heading.
const HelpSearch::Section& HelpSearch::BestSection(const Page& page, const QStringList& words) {
    const auto worth = [&](const Section& section) {
        int present = 0;
        int inHeading = 0;
        for (const QString& word : words) {
            const bool isInHeading = Has(section.plainHeading, word);
            present += isInHeading || Has(section.plainText, word) ? 1 : 0;
            inHeading += HasWhole(section.plainHeading, word) ? 2 : isInHeading ? 1 : 0;
        }
        return std::pair(present, inHeading);
    };
    return *std::ranges::max_element(page.sections, {}, worth);
}

// The excerpt of a heading without a text comes from below it.
HelpResult HelpSearch::ResultOf(const Found& found, const QStringList& words) {
    const Page& page = *found.page;
    const Section* section = found.isByTitle ? &page.sections.front() : &BestSection(page, words);
    const bool isTop = section == &page.sections.front();
    HelpResult result{
        page.file, isTop ? QString() : section->anchor, page.title, isTop ? QString() : section->heading, {}};
    while (section->text.isEmpty() && section != &page.sections.back())
        ++section;
    result.excerpt = Excerpt(section->text, words);
    return result;
}

}  // namespace sheetwright
