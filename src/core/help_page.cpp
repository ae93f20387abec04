#include "core/help_page.h"

#include "core/failure.h"
#include "core/help_html.h"
#include "core/paths.h"
#include "core/text.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <utility>

namespace sheetwright {

namespace {

constexpr int kDeepestEntry = 8;
constexpr std::size_t kMostEntries = 5000;

// Elements that may stand within a word.
constexpr std::array<QStringView, 14> kInline{u"a", u"abbr",  u"b",    u"big",    u"code", u"em",  u"i",
                                              u"s", u"small", u"span", u"strong", u"sub",  u"sup", u"u"};

bool IsInline(const QString& name) {
    return std::ranges::find(kInline, name) != kInline.end();
}

bool IsHeading(const QString& name) {
    return name.size() == 2 && name[0] == u'h' && name[1] >= u'1' && name[1] <= u'6';
}

bool IsList(const QString& name) {
    return name == u"ul" || name == u"ol";
}

class PageReader {
  public:
    HelpPage Read(QStringView html) {
        HtmlReader reader(html);
        HtmlPiece piece;
        while (reader.Next(piece))
            Take(piece);
        for (HelpSection& section : m_page.sections) {
            section.heading = section.heading.simplified();
            section.text = section.text.simplified();
        }
        m_page.title = m_page.title.simplified();
        if (m_page.title.isEmpty()) m_page.title = m_page.sections.front().heading;
        return std::move(m_page);
    }

  private:
    void Take(const HtmlPiece& piece) {
        switch (piece.kind) {
            case HtmlPiece::Kind::Text:
                *m_to += piece.text;
                break;
            case HtmlPiece::Kind::Start:
                Start(piece);
                break;
            case HtmlPiece::Kind::End:
                if (!IsInline(piece.name)) m_to = &m_page.sections.back().text;
                Separate(piece);
        }
    }

    void Start(const HtmlPiece& piece) {
        Separate(piece);
        if (piece.name == u"meta" &&
            AttributeOf(piece, u"name").compare(u"keywords", Qt::CaseInsensitive) == 0)
            m_page.keywords = AttributeOf(piece, u"content");
        if (piece.name == u"title") m_to = &m_page.title;
        if (IsHeading(piece.name)) StartSection(piece);
    }

    void StartSection(const HtmlPiece& piece) {
        if (!std::exchange(m_hasHeading, true)) m_page.sections.clear();
        m_page.sections.push_back({AttributeOf(piece, u"id"), {}, {}});
        m_to = &m_page.sections.back().heading;
    }

    void Separate(const HtmlPiece& piece) {
        if (!IsInline(piece.name)) *m_to += u' ';
    }

    HelpPage m_page{{}, {}, {HelpSection()}};
    QString* m_to = &m_page.sections.back().text;
    bool m_hasHeading = false;
};

class ContentsReader {
  public:
    explicit ContentsReader(QString file) : m_file(std::move(file)) {}

    std::vector<HelpEntry> Read(QStringView html) {
        HtmlReader reader(html);
        HtmlPiece piece;
        while (m_entries.size() < kMostEntries && reader.Next(piece))
            Take(piece);
        return Tidied();
    }

  private:
    void Take(const HtmlPiece& piece) {
        const bool isStart = piece.kind == HtmlPiece::Kind::Start;
        if (piece.kind == HtmlPiece::Kind::Text) {
            if (m_isInEntry) m_entries.back().title += piece.text;
        } else if (IsList(piece.name)) {
            m_isInEntry = false;
            m_lists = std::max(m_lists + (isStart ? 1 : -1), 0);
        } else if (IsHeading(piece.name)) {
            TakeHeading(piece, isStart);
        } else if (piece.name == u"li") {
            m_isInEntry = isStart && m_lists > 0;
            if (m_isInEntry) m_entries.push_back({{}, {}, (m_isBelowHeading ? 1 : 0) + m_lists - 1});
        } else if (isStart && piece.name == u"a" && m_isInEntry && m_entries.back().target.isEmpty()) {
            m_entries.back().target = AttributeOf(piece, u"href");
        }
    }

    // The heading of level 1 is the title of the help.
    void TakeHeading(const HtmlPiece& piece, bool isStart) {
        m_isInEntry = isStart && piece.name != u"h1";
        if (!m_isInEntry) return;
        m_isBelowHeading = true;
        m_lists = 0;
        const QString anchor = AttributeOf(piece, u"id");
        m_entries.push_back({{}, anchor.isEmpty() ? QString() : m_file + u'#' + anchor, 0});
    }

    [[nodiscard]] std::vector<HelpEntry> Tidied() const {
        std::vector<HelpEntry> entries;
        for (HelpEntry entry : m_entries) {
            entry.title = entry.title.simplified();
            if (entry.title.isEmpty()) continue;
            const int deepest = entries.empty() ? 0 : std::min(entries.back().depth + 1, kDeepestEntry);
            entry.depth = std::min(entry.depth, deepest);
            if (entry.target.startsWith(u'#')) entry.target.prepend(m_file);
            entries.push_back(std::move(entry));
        }
        return entries;
    }

    QString m_file;
    std::vector<HelpEntry> m_entries;
    int m_lists = 0;
    bool m_isInEntry = false;
    bool m_isBelowHeading = false;
};

}  // namespace

bool HelpPage::IsEmpty() const {
    return std::ranges::all_of(sections, [](const HelpSection& section) {
        return section.heading.isEmpty() && section.text.isEmpty();
    });
}

HelpPage ReadHelpPage(QStringView html) {
    return PageReader().Read(html);
}

std::vector<HelpEntry> ReadHelpContents(QStringView html, const QString& file) {
    return ContentsReader(file).Read(html);
}

QString ReadHelpFile(const QString& path) {
    if (QFileInfo(path).size() > kLongestHelpPage) throw Failure(failure::kOutOfMemory);
    return DecodeFileText(ReadWholeFile(path));
}

}  // namespace sheetwright
