#include "print/text_wrapping.h"

#include "print/device.h"

#include <QChar>

#include <algorithm>
#include <utility>

namespace sheetwright {

namespace {

// Units of the first character of a text: two for a surrogate pair.
qsizetype FirstCharacter(QStringView text) {
    const bool isPair = text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate();
    return isPair ? 2 : std::min<qsizetype>(text.size(), 1);
}

// The step back from `position` over one character.
qsizetype PreviousCharacter(QStringView text, qsizetype position) {
    const bool isPair =
        position > 1 && text[position - 1].isLowSurrogate() && text[position - 2].isHighSurrogate();
    return position - (isPair ? 2 : 1);
}

class Wrapper {
  public:
    Wrapper(const Measurer& measurer, QStringView text, double width)
        : m_measurer(measurer), m_text(text), m_width(width), m_hyphenWidth(measurer.TextWidth(u"-")) {
        m_out.reserve(text.size() + text.size() / 16);
    }

    QString Run() {
        qsizetype start = 0;
        for (;;) {
            const qsizetype end = m_text.indexOf(u"\r\n", start);
            if (end < 0) break;
            AddParagraph(m_text.sliced(start, end - start), true);
            m_out += u"\r\n";
            start = end + 2;
        }
        // The rest behind the last break counts as a single character only when it is the whole text.
        AddParagraph(m_text.sliced(start), start == 0);
        return std::move(m_out);
    }

  private:
    // `mayBeSingle`: whether a paragraph of one character counts as such before its first break.
    void AddParagraph(QStringView rest, bool mayBeSingle) {
        while (!rest.isEmpty()) {
            const qsizetype fitting = m_measurer.Fitting(rest, m_width);
            if (m_width >= 0 && fitting >= rest.size()) break;
            if (!BreakAtBlank(rest, fitting)) BreakInWord(rest, mayBeSingle);
            mayBeSingle = true;
        }
        m_out += rest;
    }

    bool BreakAtBlank(QStringView& rest, qsizetype fitting) {
        if (m_width < 0) return false;
        const qsizetype blank = rest.lastIndexOf(u' ', fitting);
        if (blank < 0) return false;
        AddLine(rest.first(blank), {});
        rest = rest.sliced(blank + 1);
        return true;
    }

    // Where not even the first character fits beside a hyphen, the lines already built are lost.
    void BreakInWord(QStringView& rest, bool mayBeSingle) {
        const qsizetype first = FirstCharacter(rest);
        const bool isSingle = mayBeSingle && rest.size() == first;
        const bool hyphenFits = m_hyphenWidth <= m_width;
        const qsizetype fitting = isSingle || !hyphenFits ? 0 : FittingWithHyphen(rest);
        if (fitting == 0) {
            m_out.resize(0);
            if (isSingle || hyphenFits) m_out += rest.first(first);
            rest = {};
            return;
        }
        AddLine(rest.first(fitting), u"-");
        rest = rest.sliced(fitting);
    }

    // The sum of two widths may differ from the width of both in the last place, or by how the hyphen joins.
    qsizetype FittingWithHyphen(QStringView rest) const {
        qsizetype fitting =
            std::min(m_measurer.Fitting(rest, m_width - m_hyphenWidth), PreviousCharacter(rest, rest.size()));
        while (fitting > 0 && m_measurer.TextWidth(rest.first(fitting).toString() + u'-') > m_width)
            fitting = PreviousCharacter(rest, fitting);
        return fitting;
    }

    void AddLine(QStringView line, QStringView hyphen) {
        m_out += line;
        m_out += hyphen;
        m_out += u"\r\n";
    }

    const Measurer& m_measurer;
    QStringView m_text;
    double m_width;
    double m_hyphenWidth;
    QString m_out;
};

}  // namespace

QString WrappedText(const Measurer& measurer, const QString& text, double width) {
    return Wrapper(measurer, text, width).Run();
}

}  // namespace sheetwright
