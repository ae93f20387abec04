#include "core/application.h"
#include "core/contained_name.h"
#include "core/error_log.h"
#include "core/failure.h"
#include "core/folders.h"
#include "formula/evaluator.h"
#include "formula/function_arguments.h"
#include "formula/function_families.h"
#include "formula/value_conversion.h"
#include "import/csv_cache.h"
#include "import/csv_table.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace sheetwright {

namespace {

struct KeyPair {
    QString field;
    QString value;
};

struct KeyColumn {
    const CsvColumn& column;
    const QString& value;
};

// Reading one record counts for this much, roughly.
constexpr qint64 kWorkOfOneRecord = 10;

std::shared_ptr<CsvTable> Opened(const EvaluationContext& context, const QString& name, const QString& path) {
    if (!IsContainedName(name)) throw Failure(failure::kBadFileName);
    if (context.Lists != nullptr) return context.Lists->Open(path);
    return CsvCache().Open(path);
}

// The list; none when it can't be opened. That is logged, and the log's own failure is of no interest.
std::shared_ptr<CsvTable> OpenListOrLog(Evaluator& evaluator, const QString& name) {
    const QString path = ListFolder(evaluator.Context().application) + QStringLiteral("Lists\\") + name;
    evaluator.Charge(kWorkOfOneFile);
    std::shared_ptr<CsvTable> list;
    const std::optional<Failure> caught =
        Suppressing([&] { list = Opened(evaluator.Context(), name, path); });
    if (list) evaluator.Charge(kWorkOfOneRecord * list->RecordCount());
    if (!caught) return list;
    evaluator.NoteSideEffect();
    Ignoring([&] {
        LogError(evaluator.Context().application, QStringLiteral("FListLookup"),
                 QStringLiteral("Error loading list: ") + path, caught->Number());
    });
    return nullptr;
}

// Pairs of field and value up to the first of which both are "", or to the end.
std::vector<KeyPair> ReadKeyPairs(ArgumentReader& reader) {
    std::vector<KeyPair> pairs;
    while (true) {
        QString field = reader.NextText();
        QString value = reader.NextText();
        if (field.isEmpty() && value.isEmpty()) return pairs;
        pairs.push_back({std::move(field), std::move(value)});
    }
}

std::vector<KeyColumn> KeyColumnsOf(CsvTable& list, const std::vector<KeyPair>& pairs) {
    std::vector<KeyColumn> columns;
    columns.reserve(pairs.size());
    for (const KeyPair& pair : pairs)
        columns.push_back({list.Columns().At(pair.field), pair.value});
    return columns;
}

// Positions on the first record that has all key values. A key field that is no column raises 5.
bool FindRecord(CsvTable& list, const std::vector<KeyPair>& pairs, const Application& application) {
    list.MoveFirst();
    if (list.AtEnd()) return false;
    const TruthWords words = application.TranslatedTruthWords();
    const std::vector<KeyColumn> keys = KeyColumnsOf(list, pairs);
    const auto matches = [&](const KeyColumn& key) {
        return FieldDisplayText(key.column, application.conventions, words) == key.value;
    };
    while (!list.AtEnd() && !std::all_of(keys.begin(), keys.end(), matches))
        list.MoveNext();
    return !list.AtEnd();
}

}  // namespace

Value FListLookup(Evaluator& evaluator, QStringView arguments) {
    const Application& application = evaluator.Context().application;
    ArgumentReader reader(evaluator, arguments);
    const QString name = reader.NextText();
    const QString returnField = reader.NextText();
    const QString otherwise = reader.NextText();

    const std::shared_ptr<CsvTable> list = OpenListOrLog(evaluator, name);
    if (list == nullptr) return otherwise;
    const std::vector<KeyPair> pairs = ReadKeyPairs(reader);
    return FindRecord(*list, pairs, application) ? list->Columns().At(returnField).Value() : otherwise;
}

}  // namespace sheetwright
