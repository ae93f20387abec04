#include "formula/function_arguments.h"

#include "core/application.h"
#include "core/text.h"
#include "formula/evaluator.h"
#include "formula/value_conversion.h"

#include <cmath>

namespace sheetwright {

std::optional<QStringView> ArgumentCutter::Next() {
    if (m_ended) return std::nullopt;
    int parentheses = 0;
    int braces = 0;
    bool quoted = false;
    for (qsizetype index = 0; index < m_rest.size(); ++index) {
        const char16_t character = m_rest[index].unicode();
        if (character == u'"') quoted = !quoted;
        if (quoted) continue;
        parentheses += (character == u'(') - (character == u')');
        braces += (character == u'{') - (character == u'}');
        if (character == u',' && parentheses == 0 && braces == 0)
            return std::exchange(m_rest, m_rest.sliced(index + 1)).first(index);
    }
    m_ended = true;
    return m_rest;
}

std::optional<Value> ArgumentReader::Next() {
    const std::optional<QStringView> expression = m_cutter.Next();
    if (!expression) return std::nullopt;
    return m_evaluator.Evaluate(*expression);
}

Value ArgumentReader::NextOrEmpty() {
    const std::optional<QStringView> expression = m_cutter.Next();
    return expression ? m_evaluator.Evaluate(*expression) : Value();
}

double ArgumentReader::NextNumber() {
    return NumberIn(m_evaluator, NextOrEmpty());
}

QString ArgumentReader::NextText() {
    return TextIn(m_evaluator, NextOrEmpty());
}

RepeatedArgument::RepeatedArgument(Evaluator& evaluator, QStringView expression)
    : m_evaluator(evaluator),
      m_expression(expression),
      m_sideEffects(evaluator.SideEffects()),
      m_first(evaluator.Evaluate(expression)) {}

Value RepeatedArgument::Again() const {
    return m_evaluator.SideEffects() == m_sideEffects ? m_first : m_evaluator.Evaluate(m_expression);
}

const Conventions& ConventionsIn(Evaluator& evaluator) {
    return evaluator.Context().application.conventions;
}

double NumberIn(Evaluator& evaluator, const Value& value) {
    if (const double* number = std::get_if<double>(&value)) return *number;
    if (const QString* text = std::get_if<QString>(&value)) evaluator.Charge(text->size());
    return Finite(ToNumber(value, ConventionsIn(evaluator)));
}

QString TextIn(Evaluator& evaluator, const Value& value) {
    const QString* text = std::get_if<QString>(&value);
    if (text == nullptr) return TextOf(value, ConventionsIn(evaluator));
    evaluator.Charge(text->size());
    return *text;
}

namespace {

QString WithTruthAsNumber(const TruthWords& words, QString text) {
    if (text == words.TrueWord) return QStringLiteral("-1");
    if (text == words.FalseWord) return QStringLiteral("0");
    return text;
}

}  // namespace

QString NormalisedText(Evaluator& evaluator, const Value& value) {
    return WithTruthAsNumber(evaluator.Context().words, TextIn(evaluator, value));
}

QString TrimmedNormalisedText(Evaluator& evaluator, const Value& value) {
    const QString text = TextIn(evaluator, value);
    return WithTruthAsNumber(evaluator.Context().words, TrimBlanks(text).toString());
}

QString StampedText(Evaluator& evaluator, const QString& text) {
    const Conventions& conventions = ConventionsIn(evaluator);
    return IsDateText(text, conventions) ? DateToStamp(text, conventions) : text;
}

double Finite(double number) {
    if (!std::isfinite(number)) throw Failure(failure::kOverflow);
    return number + 0.0;
}

}  // namespace sheetwright
