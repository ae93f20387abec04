#include "formula/formula_scan.h"

namespace sheetwright {

namespace {

// Pairs parentheses as they are met.
class Pairing {
  public:
    explicit Pairing(std::vector<int>& closing) : m_closing(closing) {}
    void Meet(QChar character, int at) {
        if (character == u'(') m_open.push_back(at);
        if (character != u')' || m_open.empty()) return;
        m_closing[static_cast<std::size_t>(m_open.back())] = at;
        m_open.pop_back();
    }

  private:
    std::vector<int>& m_closing;
    std::vector<int> m_open;
};

}  // namespace

std::vector<QStringView> StatementsOf(QStringView formula) {
    std::vector<QStringView> statements;
    int depth = 0;
    bool isQuoted = false;
    for (qsizetype at = 0; at < formula.size(); ++at) {
        const QChar character = formula[at];
        if (character == u'"') isQuoted = !isQuoted;
        if (isQuoted) continue;
        if (character == u'(') ++depth;
        if (character == u')') --depth;
        if (character != u';' || depth != 0) continue;
        statements.push_back(formula.first(at));
        formula = formula.sliced(at + 1);
        at = 0;
    }
    statements.push_back(formula);
    return statements;
}

FormulaScan::FormulaScan(QStringView formula)
    : m_closing(static_cast<std::size_t>(formula.size()), -1), m_outside(m_closing) {
    Pairing all(m_closing);
    Pairing outside(m_outside);
    bool isQuoted = false;
    int braces = 0;
    for (qsizetype at = 0; at < formula.size(); ++at) {
        const QChar character = formula[at];
        if (character == u'"') isQuoted = !isQuoted;
        all.Meet(character, static_cast<int>(at));
        if (isQuoted) continue;
        outside.Meet(character, static_cast<int>(at));
        if (character == u'{') ++braces;
        if (character == u'}') --braces;
        if (character.isSpace() && braces <= 0 && m_firstBlank < 0) m_firstBlank = at;
    }
    m_quotesBalance = !isQuoted;
}

}  // namespace sheetwright
