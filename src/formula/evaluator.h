#pragma once

// The formula language. `Evaluator` walks the text of an expression directly: there is no tokeniser, no parse
// tree and no cache, and every function re-enters it for each argument it needs. docs/formula-language.md
// tells the language to those who write formulas.

#include "formula/evaluation_context.h"
#include "formula/value.h"

#include <QString>
#include <QStringView>

#include <cstdint>
#include <limits>

namespace sheetwright {

namespace evaluator_limits {
// Characters of an expression.
inline constexpr qsizetype kLength = std::numeric_limits<std::int16_t>::max();
// How deep expressions nest; a formula's statements take one of the levels. Each level costs some kilobytes
// of stack in a sanitized build, far less in a plain one.
inline constexpr int kDepth = 400;
}  // namespace evaluator_limits

// Position (from 1) of the ")" that closes the "(" at `openPosition`, or 0. Quotes are not looked at: a
// parenthesis inside a string counts, unlike in FSplitComma, and forms rely on both. Raises 5 for a negative
// position and 6 when the answer lies beyond 32,767.
[[nodiscard]] std::int16_t FindMyClosing(QStringView expression, std::int16_t openPosition);

// Text of the n-th argument (from 1), or the sentinel "," when there is no n-th argument. No real argument
// can be the sentinel, since a comma at depth 0 outside quotes always separates.
[[nodiscard]] QStringView FSplitComma(QStringView arguments, std::int16_t n);

class Evaluator {
  public:
    explicit Evaluator(EvaluationContext& context) : m_context(context) {}

    // The value of one expression. The argument may be altered: the first "." of a number becomes the
    // system's decimal separator in place. Raises 5 (parentheses that don't close, a reference without a
    // backslash, a lone quote), 6 (an expression beyond 32,767 characters, a number out of range), 7 (a text
    // beyond all measure), 13 (a text where a number or Boolean is needed) and 28 (nested too deep, or more
    // work than any real formula asks for).
    [[nodiscard]] Value Evaluate(QString& expression);
    [[nodiscard]] Value Evaluate(QStringView expression);

    // Runs the statements of a formula, separated by ";" outside quotes and parentheses; results are dropped,
    // only `Me` carries a value out. The first character of every statement but the first moves neither
    // counter.
    void RunStatements(const QString& formula);

    [[nodiscard]] EvaluationContext& Context() { return m_context; }

    // What functions report of themselves. Work is counted in characters gone through, roughly; raises 28
    // when the outermost evaluation has had its share.
    void Charge(qint64 work);
    void NoteSideEffect() { ++m_sideEffects; }
    [[nodiscard]] qint64 SideEffects() const { return m_sideEffects; }

  private:
    class Level;

    [[nodiscard]] Value EvaluateNumber(QStringView expression);
    [[nodiscard]] Value EvaluateUnlessNumber(QStringView expression);
    [[nodiscard]] Value NumberOf(QStringView literal) const;
    [[nodiscard]] Value StringOf(QStringView literal) const;
    [[nodiscard]] Value KeywordOf(QStringView word) const;
    [[nodiscard]] Value Call(QStringView expression, qsizetype open);

    EvaluationContext& m_context;
    int m_depth = 0;
    qint64 m_work = 0;
    qint64 m_sideEffects = 0;
};

}  // namespace sheetwright
