#pragma once

// What a formula's text is made of: its statements, its quotes, and which parentheses belong together. One
// pass over the text answers for every nested expression.

#include <QStringView>

#include <vector>

namespace sheetwright {

// The statements of a formula, cut as a recalculation cuts them: the first character behind a ";" is not
// looked at, so a statement that begins with a quote or parenthesis runs on.
[[nodiscard]] std::vector<QStringView> StatementsOf(QStringView formula);

class FormulaScan {
  public:
    explicit FormulaScan(QStringView formula);

    [[nodiscard]] bool QuotesBalance() const { return m_quotesBalance; }
    // Index of the first white space outside strings and references; -1 for none.
    [[nodiscard]] qsizetype FirstBlank() const { return m_firstBlank; }

    // Index of the ")" that the evaluator takes for the one closing the "(" at `open`, -1 for none; and of
    // the one that does close it when strings are left out.
    [[nodiscard]] qsizetype Closing(qsizetype open) const { return m_closing[Index(open)]; }
    [[nodiscard]] qsizetype ClosingOutsideStrings(qsizetype open) const { return m_outside[Index(open)]; }

  private:
    [[nodiscard]] static std::size_t Index(qsizetype at) { return static_cast<std::size_t>(at); }

    std::vector<int> m_closing;
    std::vector<int> m_outside;
    qsizetype m_firstBlank = -1;
    bool m_quotesBalance = true;
};

}  // namespace sheetwright
