#pragma once

// The search in the help: all pages are read once, and a search looks only at what is in memory. Case and
// accents don't count, and a word is found by its beginning.

#include <QString>
#include <QStringList>

#include <vector>

namespace sheetwright {

struct HelpResult {
    QString file;     // the page's name in the folder
    QString anchor;   // of the section that the words are about; "" for the top of the page
    QString title;    // of the page
    QString heading;  // of that section; "" at the top
    QString excerpt;  // of its text, around a word that was found
};

class HelpSearch {
  public:
    // Reads each page "*.html" of `folder` but the contents, which name everything. A page that can't be read
    // is left out.
    explicit HelpSearch(const QString& folder);

    // Pages that have all of the words, best first: those with a word in their title, then among their
    // keywords, in a heading, in the text. None when `words` has no letter or digit.
    [[nodiscard]] std::vector<HelpResult> Find(const QString& words) const;

  private:
    // Texts are kept as their words in plain form, each between blanks.
    struct Section {
        QString anchor;
        QString heading;
        QString text;
        QString plainHeading;
        QString plainText;
    };
    struct Page {
        QString file;
        QString title;
        QString plainTitle;
        QString plainKeywords;
        std::vector<Section> sections;
    };
    struct Found;

    void Add(const QString& file, const QString& html);
    [[nodiscard]] static Found Look(const Page& page, const QStringList& words);
    [[nodiscard]] static const Section& BestSection(const Page& page, const QStringList& words);
    [[nodiscard]] static HelpResult ResultOf(const Found& found, const QStringList& words);

    std::vector<Page> m_pages;
};

// The words of a text: small letters without accents.
[[nodiscard]] QStringList PlainWords(QStringView text);

}  // namespace sheetwright
