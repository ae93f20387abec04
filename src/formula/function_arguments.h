#pragma once

// How functions get at their arguments: cutting the argument text front to back, values as numbers and texts,
// and the two habits that several functions share, evaluating an argument twice and suppressing failures.

#include "core/failure.h"
#include "formula/value.h"

#include <QString>
#include <QStringView>

#include <optional>
#include <utility>

namespace sheetwright {

class Evaluator;
struct Conventions;

// Hands out the arguments one after the other, so that a list of any length is gone through once. An empty
// text has one empty argument.
class ArgumentCutter {
  public:
    explicit ArgumentCutter(QStringView arguments) : m_rest(arguments) {}
    [[nodiscard]] std::optional<QStringView> Next();

  private:
    QStringView m_rest;
    bool m_ended = false;
};

// The same with each argument evaluated as it is asked for.
class ArgumentReader {
  public:
    ArgumentReader(Evaluator& evaluator, QStringView arguments)
        : m_evaluator(evaluator), m_cutter(arguments) {}

    [[nodiscard]] std::optional<Value> Next();
    [[nodiscard]] Value NextOrEmpty();
    [[nodiscard]] double NextNumber();
    [[nodiscard]] QString NextText();

  private:
    Evaluator& m_evaluator;
    ArgumentCutter m_cutter;
};

// An argument that a function evaluates again later. Where nothing had a side effect in between, the second
// evaluation would give the same, and nested functions would otherwise double their work at each level.
class RepeatedArgument {
  public:
    RepeatedArgument(Evaluator& evaluator, QStringView expression);
    [[nodiscard]] const Value& First() const { return m_first; }
    [[nodiscard]] Value Again() const;

  private:
    Evaluator& m_evaluator;
    QStringView m_expression;
    qint64 m_sideEffects;
    Value m_first;
};

[[nodiscard]] const Conventions& ConventionsIn(Evaluator& evaluator);

// A value as number and as text. A number out of range raises 6.
[[nodiscard]] double NumberIn(Evaluator& evaluator, const Value& value);
[[nodiscard]] QString TextIn(Evaluator& evaluator, const Value& value);
// The text with the installation's words for true and false as "-1" and "0"; also without blanks around it.
[[nodiscard]] QString NormalisedText(Evaluator& evaluator, const Value& value);
[[nodiscard]] QString TrimmedNormalisedText(Evaluator& evaluator, const Value& value);
// The text, or its stamp when it is a date.
[[nodiscard]] QString StampedText(Evaluator& evaluator, const QString& text);

// The number itself, a negative zero as zero. Raises 6 for one beyond the range of a Double.
[[nodiscard]] double Finite(double number);

// Runs a step whose failures count as no result, and returns what failed. Only 28 travels on: it is no
// verdict on the formula, and an evaluation that has used up its share must end.
template <typename Step>
std::optional<Failure> Suppressing(Step&& step) {
    std::optional<Failure> caught = Ignoring(std::forward<Step>(step));
    if (caught && caught->Number() == failure::kOutOfStack) throw *caught;
    return caught;
}

// What looking for a file and opening it counts for (Evaluator::Charge).
inline constexpr qint64 kWorkOfOneFile = 10'000;

}  // namespace sheetwright
