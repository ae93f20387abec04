#pragma once

// A form as it was before an import, for a person who stops it.

#include "core/keyed_collection.h"
#include "document/element_array.h"
#include "document/memory_block.h"
#include "formula/value.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace sheetwright {

class frmSheetwright;

// What the import raises inside itself when a person stops it.
class ImportStopped {};

class FormSnapshot {
  public:
    // Costs one pass over the form's lines; their texts are shared. `document` lives longer.
    explicit FormSnapshot(frmSheetwright& document);
    FormSnapshot(const FormSnapshot&) = delete;
    FormSnapshot& operator=(const FormSnapshot&) = delete;
    ~FormSnapshot() = default;

    // A file made since, which goes with what else was made. "" for none.
    void NoteFile(const QString& path) { m_files << path; }

    // All is as it was: the lines, the page on screen with what wasn't stored yet, the field that was being
    // edited and what was typed into it, the undo point. Nothing is being imported. Once at most.
    void Restore();

  private:
    // The field that was entered. For a text field also what the editor held.
    struct Edit {
        ElementRef element;
        QString text;
        qsizetype selectionStart = 0;
        qsizetype selectionLength = 0;
        std::int32_t listRow = 0;  // 0 for none
    };

    void KeepPage();
    void RestoreNumbers();
    void RestorePage();
    void RestoreEdit() const;

    frmSheetwright& m_document;
    MemoryBlock m_memory;
    KeyedCollection<QString> m_formVars;
    QStringList m_files;
    QString m_status;

    std::int16_t m_dataPageNum;
    std::int16_t m_mePage;
    Value m_me;
    std::int16_t m_currentRecord;
    bool m_isChanged;
    bool m_isPageChanged;
    bool m_isUndoEnabled;

    std::vector<QString> m_texts;  // of the elements, in record order
    std::vector<QString> m_checks;
    std::vector<QString> m_pictures;
    Edit m_edit;
    int m_horizontal;  // of the scroll bars
    int m_vertical;
};

}  // namespace sheetwright
