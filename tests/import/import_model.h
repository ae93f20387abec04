#pragma once

// A second import, for comparison: slow, plainly written, on structs of its own. It shares no rule with the
// program; what it finds at the end of a run is what the program must find.

#include "import/import_model_rules.h"

#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace sheetwright {

// A text field or check box of a design.
struct ModelRecord {
    QString name;
    bool isCheck = false;
    int states = 4;  // of a check box
    QString dataSource;
    int line = 0;
    int keyLevel = 0;
    bool newPageOnReoccur = false;
    bool newPageOnChange = false;
    bool newLineOnReoccur = false;
    bool newLineOnChange = false;
    QString list;                     // "@LISTS\<name>,<column>", or ""
    std::optional<QString> constant;  // what its formula sets
    QString copied;                   // the field of its design that its formula copies, or ""
};

struct ModelDesign {
    QString title;
    std::vector<ModelRecord> fields;
    std::vector<ModelRecord> checks;
};

// Values as they stand in the lines of a data page. A page that was never shown has none.
struct ModelPage {
    int design = 1;
    std::vector<std::pair<QString, QString>> values;
    bool operator==(const ModelPage&) const = default;
};

struct ModelForm {
    std::vector<ModelDesign> designs;
    std::vector<ModelPage> pages;
    bool hasLinks = false;
    std::vector<QStringList> links;       // lines of "linkedpages.txt", split at "|"
    std::map<QString, ModelTable> lists;  // by "LISTS\<name>" in upper case
};

struct ModelOutcome {
    std::vector<ModelPage> pages;
    int pageOnScreen = 0;
    int designOnScreen = 0;
    QStringList texts;        // of the fields on screen
    std::vector<int> states;  // of the check boxes on screen
    int columns = 0;          // bound ones; of two runs the larger number
    int records = 0;          // of all runs
    int runs = 0;
    int pagesAdded = 0;
    int runsWithoutKeyLevel = 0;  // in which a level was missing
    std::optional<int> failure;   // number of one that was raised; the model raises none
    bool isEndless = false;       // it added more pages than it may
};

class ImportModel {
  public:
    // Shows page `page`, and gives up when more than `mostPages` are added.
    ImportModel(ModelForm form, int page, int mostPages);

    // Pours the table of the driver in `folder` into the page on screen.
    ModelOutcome Import(const ModelTable& table, const QString& folder);

  private:
    struct Element {
        const ModelRecord* record = nullptr;
        int slot = 0;
    };
    struct Column {
        QString key;  // its name in lower case
        int number = 0;
        std::vector<Element> takers;
    };
    struct Undone {
        int slot = 0;
        QString text;
    };

    [[nodiscard]] const ModelDesign& Shown() const;
    void LoadPage();
    void SavePage();
    void AddPage(int design, int position);
    void SetState(int slot, const QString& text);
    void UpdateFormulas();
    void RecalculateAll();
    [[nodiscard]] QString LastValueOf(int design, const QString& name) const;

    void ImportLinked();
    void Run(bool isLinked);
    void Bind();
    void BindColumn(int number);
    void Take(Column& column, const Element& element, const QString& name);
    [[nodiscard]] QStringList KeyNames();
    void MoveToFront(const QStringList& keys);
    void PourRecord(int row, bool isLinked);
    void PourColumn(const Column& column, const QString& value, bool isLinked);
    [[nodiscard]] bool IsNewPage(const Element& element, const Column& column, const QString& value) const;
    [[nodiscard]] bool IsNewLine(const Element& element, const Column& column, const QString& value) const;
    void BeginPage(bool isLinked);
    void BeginLine();
    void Undo();
    void Write(const Element& element, const Column& column, const QString& value);
    void LookUp(const Element& element);
    void FillFrom(const ModelTable& list, const QString& listName, int row, const Element& element);
    [[nodiscard]] bool HasPrevious(const Column& column) const;

    ModelForm m_form;
    int m_mostPages;
    ModelTable m_table;
    QString m_folder;
    ModelOutcome m_outcome;

    int m_page;
    int m_design = 0;  // on screen; 0 for none
    QStringList m_texts;
    std::vector<int> m_states;

    std::vector<Column> m_columns;
    QStringList m_keys;  // by level; the first is level 1
    std::map<QString, QString> m_previous;
    std::vector<Undone> m_undo;
    int m_line = 0;
    int m_maxLine = 0;
    int m_fieldNumber = 0;
    std::optional<int> m_linkedNext;
};

}  // namespace sheetwright
