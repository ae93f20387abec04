#pragma once

// Cuts the lines of a design page into its records, as steps in the order of the lines, so that a design that
// is walked for many pages is cut once.

#include "document/design_records.h"
#include "document/text_pool.h"

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace sheetwright {

class PageLines;

// One line of a design. Only what a line begins with tells a record's begin and end.
struct DesignLine {
    enum class Type { Empty, Begin, End, Key };
    Type type = Type::Empty;
    QStringView kind;   // of Begin and End: the four letters of the record's word
    QStringView key;    // of Key: before the first "="; "" without one
    QStringView value;  // of Key: behind the first "="; "" without one
};
[[nodiscard]] DesignLine CutDesignLine(QStringView line);

struct DesignStep {
    enum class Action {
        Open,      // a record of `kind` begins, its keys come in `bag`
        PageKeys,  // the page's own keys are complete: the first element opens inside them
        Close,     // a record ends: its end decides its kind; never "PAGE"
        LateKey,   // `key` and `value` are added to `bag` after its record has ended
        EqualKey,  // a key that the record has already: 457
    };
    Action action;
    int line;  // from 1
    QString kind;
    std::shared_ptr<PropertyBag> bag;
    QString key;
    QString value;
};

class DesignWalk {
  public:
    explicit DesignWalk(const PageLines& design);

    [[nodiscard]] const std::vector<DesignStep>& Steps() const { return m_steps; }

    // Takes out of every bag what was added to it since: a walk begins with bags as if they were new.
    void Rewind();

    // Whether any record has a key of that name in its lines.
    [[nodiscard]] bool BringsKey(QStringView key) const;

  private:
    struct Bag {
        std::shared_ptr<PropertyBag> keys = std::make_shared<PropertyBag>();
        int count = 0;         // of keys that came with the lines
        bool isInUse = false;  // a step has handed it out
    };

    void Take(const DesignLine& line, int number);
    void Begin(QStringView kind, int line);
    void End(QStringView kind, int line);
    void AddKey(QStringView key, QStringView value, int line);

    std::vector<DesignStep> m_steps;
    std::vector<Bag> m_bags{1};  // the last one is the current one
    QString m_kind;
    TextPool m_texts;
};

}  // namespace sheetwright
