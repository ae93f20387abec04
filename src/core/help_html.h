#pragma once

// Reads HTML of the simple kind that the help is written in. Whatever a file holds is read as far as it makes
// sense: nothing fails, and the time grows with the length alone.

#include <QString>
#include <QStringView>

namespace sheetwright {

struct HtmlPiece {
    enum class Kind { Text, Start, End };

    Kind kind = Kind::Text;
    QString name;            // of an element, in lower case
    QStringView attributes;  // of a start, as they are written
    QString text;            // with its entities resolved
};

class HtmlReader {
  public:
    // `html` lives as long as the reader.
    explicit HtmlReader(QStringView html) : m_rest(html) {}

    // False at the end. Comments, style sheets and scripts are left out.
    bool Next(HtmlPiece& piece);

  private:
    void TakeText(HtmlPiece& piece);
    bool TakeMarkup(HtmlPiece& piece);
    void TakeElement(HtmlPiece& piece, qsizetype end);
    void SkipTo(QStringView mark);
    void SkipContentOf(const QString& name);
    [[nodiscard]] qsizetype EndOfMarkup() const;

    QStringView m_rest;
};

// "" for an attribute that is not there.
[[nodiscard]] QString AttributeOf(const HtmlPiece& piece, QStringView attribute);

// Whether elements lie within one another deeper than any page for people; laying that out may take ages.
[[nodiscard]] bool IsTooDeep(QStringView html);

}  // namespace sheetwright
