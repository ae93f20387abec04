// Values that others leave beside the form, in the document's working folder.

#include "core/keyed_collection.h"
#include "core/paths.h"
#include "core/text.h"
#include "formula/evaluator.h"
#include "formula/function_arguments.h"
#include "formula/function_families.h"

namespace sheetwright {

namespace {

// The text of a file in the working folder, "" when it is not there.
QString WorkingFile(Evaluator& evaluator, const QString& name) {
    evaluator.Charge(kWorkOfOneFile);
    const QString path = evaluator.Context().MyTempDir + name;
    if (!FileExists(path)) return QString();
    const QByteArray bytes = ReadWholeFile(path);
    evaluator.Charge(bytes.size());
    return DecodeFileText(bytes);
}

// Takes the text before the first "=" off `rest`, all of it when there is none.
QStringView TakeField(QStringView& rest) {
    const qsizetype end = rest.indexOf(u'=');
    const QStringView field = end < 0 ? rest : rest.first(end);
    rest = end < 0 ? QStringView() : rest.sliced(end + 1);
    return field;
}

void StoreVariable(KeyedCollection<QString>& variables, QStringView line) {
    const QString key = TakeField(line).toString().toUpper();
    const QString value = TakeField(line).toString();
    if (variables.Contains(key)) {
        variables.At(QStringView(key)) = value;
    } else {
        variables.Add(value, key);
    }
}

void LoadVariables(Evaluator& evaluator) {
    const QString text = WorkingFile(evaluator, QStringLiteral("FormVars.txt"));
    for (const QStringView line : SplitLines(text))
        StoreVariable(evaluator.Context().FormVars, line);
}

}  // namespace

// The verdict of an outside validator. One that can't be read is none.
Value FValidationPassed(Evaluator& evaluator, QStringView) {
    bool passed = false;
    Suppressing([&] {
        const QString text = WorkingFile(evaluator, QStringLiteral("Validation.Status"));
        QStringView rest = text;
        passed = TakeLine(rest).toString().toLower() == QStringLiteral("passed");
    });
    return passed;
}

Value FVar(Evaluator& evaluator, QStringView arguments) {
    const EvaluationContext& context = evaluator.Context();
    if (context.FormVars.IsEmpty()) LoadVariables(evaluator);
    const QString name = TextIn(evaluator, evaluator.Evaluate(arguments)).toUpper();
    const QString* value = context.FormVars.Find(name);
    return value == nullptr ? Value() : Value(*value);
}

}  // namespace sheetwright
