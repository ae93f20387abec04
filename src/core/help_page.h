#pragma once

// A page of the help as data: what it is called, what it is about, and its text by sections; and the table of
// contents, which is a page as well.

#include <QString>
#include <QStringView>

#include <vector>

namespace sheetwright {

inline constexpr qint64 kLongestHelpPage = 1 << 18;  // bytes; showing a table as long as that takes a second

struct HelpSection {
    QString anchor;   // "" where the heading has none, or there is no heading
    QString heading;  // "" for what stands before the first one
    QString text;
};

struct HelpPage {
    QString title;
    QString keywords;
    std::vector<HelpSection> sections;  // at least one

    // Whether there is nothing to be read.
    [[nodiscard]] bool IsEmpty() const;
};

struct HelpEntry {
    QString title;
    QString target;  // a page with its place, "pages.html#adding"; "" for a bare word
    int depth = 0;   // at most one more than that of the entry before
};

// What stands before the first heading leads about the help and is left out, unless it is all there is.
[[nodiscard]] HelpPage ReadHelpPage(QStringView html);

// The entries of the nested lists, below the headings (of level 2 and more) between which the lists stand.
// `file` is the page's own name.
[[nodiscard]] std::vector<HelpEntry> ReadHelpContents(QStringView html, const QString& file);

// The text of the file at `path`. Raises what reading raises, and 7 when it is too long.
[[nodiscard]] QString ReadHelpFile(const QString& path);

}  // namespace sheetwright
