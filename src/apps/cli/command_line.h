#pragma once

// The arguments of a verb, cut into options and operands. Options keep the order in which they were given,
// since for some verbs it is the order of the work.

#include <QString>
#include <QStringList>
#include <QStringView>

#include <exception>
#include <optional>
#include <span>
#include <vector>

namespace sheetwright::cli {

// The command was called in a way that it doesn't understand.
class UsageError : public std::exception {
  public:
    explicit UsageError(QString text) : m_text(std::move(text)) {}
    [[nodiscard]] const QString& Text() const noexcept { return m_text; }

  private:
    QString m_text;
};

struct OptionSyntax {
    QStringView name;  // without the dashes
    bool takesValue = true;
};

struct Option {
    QString name;
    QString value;
};

struct CommandLine {
    std::vector<Option> options;
    QStringList operands;

    [[nodiscard]] bool Has(QStringView name) const { return Value(name).has_value(); }
    // The value of the last option of that name.
    [[nodiscard]] std::optional<QString> Value(QStringView name) const;
};

// Options are `--name`, `--name value` or `--name=value` and may stand anywhere before `--`, behind which all
// are operands. "-" alone and what looks like a negative number are operands too. Raises UsageError for an
// option that `known` lacks, a value missing, or one that isn't wanted.
[[nodiscard]] CommandLine ParseCommandLine(const QStringList& arguments, std::span<const OptionSyntax> known);

// A whole number without sign, 0 to 32,767; none for any other text.
[[nodiscard]] std::optional<int> WholeNumber(QStringView text);

// The number of a page that an option gives. Raises UsageError when it is none.
[[nodiscard]] int PageNumber(QStringView text);

}  // namespace sheetwright::cli
