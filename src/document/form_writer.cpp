#include "document/form_writer.h"

#include "core/application.h"
#include "core/atomic_file.h"
#include "core/paths.h"
#include "core/text.h"
#include "document/busy_display.h"
#include "document/document.h"
#include "document/form_archive.h"
#include "formula/recalculation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace sheetwright {

namespace {

// Indentation is for people, and a form needs three levels of it. Values that merely begin like the start of
// a record must not make the text grow with the square of their number.
constexpr int kDeepestIndent = 64;

// The text of a form as it grows.
class FormText {
  public:
    explicit FormText(ShownProgress& progress) : m_progress(progress) {}

    void Line(QStringView line) { m_text.append(line).append(u"\r\n"); }

    // Lines of the pages 1 to `count`, indented from depth 1. Empty lines are skipped.
    template <typename PageOf>
    void Pages(int count, const PageOf& pageOf) {
        m_indent = 1;
        for (int number = 1; number <= count; ++number) {
            const PageLines& page = pageOf(number);
            for (int position = 1; position <= page.Count(); ++position)
                PageLine(page.Line(position));
            m_progress.Update(number, count);
        }
    }

    [[nodiscard]] const QString& Text() const { return m_text; }

  private:
    void PageLine(QStringView line) {
        if (line.isEmpty()) return;
        if (line.startsWith(u"END")) --m_indent;
        m_text.resize(m_text.size() + std::clamp(m_indent, 0, kDeepestIndent), u'\t');
        const bool hasBreak = line.contains(u'\r') || line.contains(u'\n');
        hasBreak ? Line(EncodeLineBreaks(line)) : Line(line);
        if (line.startsWith(u"BEGIN")) ++m_indent;
    }

    ShownProgress& m_progress;
    QString m_text;
    int m_indent = 1;
};

QString TextOf(const frmSheetwright& document, ShownProgress& progress) {
    const Application& application = document.application;
    const MemoryBlock& memory = document.memory;
    const Version version = ProgramVersion();
    FormText text(progress);
    text.Line(QStringLiteral("VERSION %1.%2.%3").arg(version.major).arg(version.minor).arg(version.revision));
    text.Line(u"BEGIN DESIGN");
    text.Pages(memory.DesignPageCount(),
               [&](int number) -> const PageLines& { return memory.DesignPage(number); });
    text.Line(u"END DESIGN");
    application.ui.SetStatus(application.Translate(QStringLiteral("Writing data to disk...")));
    text.Line(u"BEGIN DATA");
    text.Pages(memory.DataPageCount(),
               [&](int number) -> const PageLines& { return memory.DataPage(number); });
    text.Line(u"END DATA");
    return text.Text();
}

void DeleteTextMembers(const QString& folder) {
    const QDir dir(OnDisk(folder));
    for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden))
        if (IsTextMemberName(name)) QFile::remove(dir.filePath(name));
}

// A path in the folder that is no file of the form: those may bear any name.
QString UnusedPath(const QString& folder) {
    QString path = folder + QStringLiteral("form-text");
    for (QFileInfo info(path); info.exists() || info.isSymLink(); info.setFile(path))
        path += u'_';
    return path;
}

void WriteNewFile(const QString& path, const QByteArray& bytes) {
    const NewFile file(path);
    file.Write(bytes);
    file.Flush();
}

// The new text is whole on the disk, under a name that is no text member's, before the old one goes.
void ReplaceTextMember(const frmSheetwright& document, const QByteArray& bytes) {
    if (document.MyTempDir.isEmpty()) throw Failure(failure::kPathNotFound);
    const QString beside = UnusedPath(OnDisk(document.MyTempDir));
    try {
        WriteNewFile(beside, bytes);
        DeleteTextMembers(document.MyTempDir);
        ReplaceFile(beside, document.MyTempDir + GetFileName(document.Tag));
    } catch (const Failure&) {
        QFile::remove(beside);
        throw;
    }
}

}  // namespace

void WriteFormFile(frmSheetwright& document, Recalculate recalculate) {
    Application& application = document.application;
    const HourglassPointer pointer(application.ui);
    if (recalculate == Recalculate::Yes) ÜberupdateFormulas(document, false);
    application.ui.SetStatus(application.Translate(QStringLiteral("Writing template to disk...")));
    ShownProgress progress(application.ui);
    ReplaceTextMember(document, EncodeFileText(TextOf(document, progress)));
    progress.Hide();
    application.ui.SetStatus(application.Translate(QStringLiteral("Ready")));
    document.Changed = false;
    document.PageChanged = false;
    document.DoSaveAsOnly = false;
}

bool SaveForm(frmSheetwright& document, Recalculate recalculate) {
    Application& application = document.application;
    bool wasChanged = false;
    const bool wasSaveAsOnly = document.DoSaveAsOnly;
    bool isSaved = false;
    const std::optional<Failure> failed = Catching([&] {
        application.CurrentTempDir = document.MyTempDir;
        SavePage(document);
        wasChanged = document.Changed || document.PageChanged;  // now also by what was being typed
        WriteFormFile(document, recalculate);
        isSaved = ZipForm(application, document.Tag, document.MyTempDir);
    });
    application.ui.SetPointer(Pointer::Normal);
    if (isSaved) {
        document.Caption = GetFileName(OnDisk(document.Tag));
        return true;
    }
    document.Changed |= wasChanged;
    document.DoSaveAsOnly |= wasSaveAsOnly;
    RecoverFromFailedPass(document);
    if (failed)
        application.ui.ShowMessage(failed->Text(),
                                   application.Translate(QStringLiteral("Unable to save file")),
                                   MessageIcon::Critical);
    return false;
}

}  // namespace sheetwright
