// The commands of the frame, and what they look like now.

#include "core/application.h"
#include "core/failure.h"
#include "core/folders.h"
#include "core/paths.h"
#include "document/document.h"
#include "document/document_commands.h"
#include "document/page_moves.h"
#include "fields/editing.h"
#include "fields/navigation.h"
#include "formula/recalculation.h"
#include "ui/form_window.h"
#include "ui/mdi_sheetwright.h"
#include "ui/page_buttons.h"
#include "ui/page_view.h"
#include "ui/save_rules.h"

#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>
#include <QToolButton>

namespace sheetwright {

namespace {

// The mark of a changed form stands behind its name; what looks like the mark in a name is none.
QString MarkedCaption(QString caption) {
    const QString mark = QStringLiteral("[*]");
    return caption.replace(mark, mark + mark) + mark;
}

FileDialog OpenDialog(const Application& application) {
    FileDialog dialog;
    dialog.title = application.Translate(QStringLiteral("Open"));
    dialog.filter =
        application.Translate(QStringLiteral("Tolvane Form Files (*.aff)")) + QStringLiteral("|*.aff|") +
        application.Translate(QStringLiteral("Tolvane Form Templates (*.aft)")) + QStringLiteral("|*.aft");
    dialog.defaultExtension = QStringLiteral("aff");
    dialog.fileName = QStringLiteral("*.aff");
    dialog.initialFolder = FormFolder(application);
    dialog.flags = dialogs::kHideReadOnly | dialogs::kPathMustExist | dialogs::kFileMustExist;
    return dialog;
}

FileDialog SaveDialog(const Application& application) {
    FileDialog dialog;
    dialog.title = application.Translate(QStringLiteral("Save As"));
    dialog.filter =
        application.Translate(QStringLiteral("Tolvane Form Files (*.aff)")) + QStringLiteral("|*.aff");
    dialog.defaultExtension = QStringLiteral("aff");
    dialog.fileName = QStringLiteral("*.aff");
    dialog.initialFolder = FormFolder(application);
    dialog.flags = dialogs::kHideReadOnly | dialogs::kPathMustExist | dialogs::kOverwritePrompt;
    return dialog;
}

bool IsCancelled(Application& application, FileDialog& dialog) {
    const std::optional<Failure> caught = Ignoring([&] { application.ui.ShowOpen(dialog); });
    if (caught && caught->Number() != failure::kCancelled) throw Failure(*caught);
    return caught.has_value();
}

bool EndsIn(const QString& path, const QString& extension) {
    return path.endsWith(extension, Qt::CaseInsensitive);
}

}  // namespace

void mdiSheetwright::OpenTemplate(const QString& path) {
    Run(QStringLiteral("OpenaftFile"), [&] { ReadTemplate(path); });
}

void mdiSheetwright::OpenFromDialogSlot() {
    Run(QStringLiteral("OpenForm"), [&] { ReadForm(); });
}

// Unlike for a form the tick goes even when there is no such file.
void mdiSheetwright::ReadTemplate(const QString& path) {
    m_actions.blank->setChecked(false);
    OpenaftFile(
        m_application, path, [this]() -> frmSheetwright& { return MakeDocument(); },
        [this](frmSheetwright& document) { UnloadDocument(document); });
}

void mdiSheetwright::ReadForm() {
    OpenForm(
        m_application, DialogFileName, [this]() -> frmSheetwright& { return MakeDocument(); },
        [this](frmSheetwright& document) { UnloadDocument(document); });
}

void mdiSheetwright::mnuFileOpen_Click() {
    FileDialog dialog = OpenDialog(m_application);
    if (IsCancelled(m_application, dialog)) return;
    DialogFileName = dialog.fileName;
    if (EndsIn(dialog.fileName, QStringLiteral("aft"))) {
        SetTemplateFolder(m_application, GetFolder(dialog.fileName));
        ReadTemplate(dialog.fileName);
    } else if (EndsIn(dialog.fileName, QStringLiteral("aff"))) {
        SetFormFolder(m_application, GetFolder(dialog.fileName));
        ReadForm();
    }
}

void mdiSheetwright::mnuFileClose_Click() {
    if (FormWindow* const form = Active()) form->parentWidget()->close();
}

void mdiSheetwright::SaveByButton(frmSheetwright& document) {
    if (CanSave(document)) {
        Save(document);
    } else if (CanSaveAs(document)) {
        SaveAs(document);
    }
}

void mdiSheetwright::Save(frmSheetwright& document) {
    mnuFileSave_Click(document);
}

void mdiSheetwright::SaveAs(frmSheetwright& document) {
    FileDialog dialog = SaveDialog(m_application);
    if (IsCancelled(m_application, dialog)) return;
    DialogFileName = dialog.fileName;
    document.Tag = dialog.fileName;
    mnuFileSave_Click(document);
}

void mdiSheetwright::UpdateFormulas(frmSheetwright& document) {
    ÜberupdateFormulas(document, false);
}

void mdiSheetwright::AddPageByMenu(frmSheetwright& document) {
    const std::int16_t before = document.DataPageNum;
    ShowAddPage(document);
    if (document.DataPageNum == before) return;
    SimulateTab(document);
    if (m_application.ReportMode) m_application.ui.TellHost(QStringLiteral("EVENT: PAGECHANGE"));
}

void mdiSheetwright::HighlightBlanks() {
    if (FormWindow* const form = Active()) UpdateColors(form->Document());
}

void mdiSheetwright::GoToPage(int number) {
    Run(QStringLiteral("MoveToPage"), [&] {
        FormWindow* const form = Active();
        if (form != nullptr) MoveToPage(form->Document(), static_cast<std::int16_t>(number));
    });
}

void mdiSheetwright::PopUpEditMenu() {
    if (m_actions.edit->menuAction()->isEnabled() && m_actions.edit->menuAction()->isVisible())
        m_actions.edit->popup(m_page->mapToGlobal(QPoint(0, -m_actions.edit->sizeHint().height())));
}

void mdiSheetwright::Refresh() {
    RefreshCaptions();
    RefreshCommands();
    RefreshZoom();
}

void mdiSheetwright::RefreshCaptions() {
    for (FormWindow* const form : Forms()) {
        const bool isChanged = form->Document().Changed;
        form->setWindowTitle(MarkedCaption(form->Document().Caption));
        // Telling the window what it knows already would wake the program again.
        if (form->isWindowModified() != isChanged) form->setWindowModified(isChanged);
    }
}

void mdiSheetwright::RefreshCommands() {
    FormWindow* const form = Active();
    const frmSheetwright* const document = form == nullptr ? nullptr : &form->Document();
    const bool hasForm = document != nullptr;
    const bool canSave = hasForm && CanSave(*document);
    const bool canSaveAs = hasForm && CanSaveAs(*document);
    m_actions.close->setEnabled(hasForm);
    m_actions.save->setEnabled(canSave);
    m_actions.saveAs->setEnabled(canSaveAs);
    // A form without a name yet is saved by the same key as all others.
    const QKeySequence saveAs(Qt::CTRL | Qt::SHIFT | Qt::Key_S);
    m_actions.saveAs->setShortcuts(canSave || !canSaveAs ? QList<QKeySequence>{saveAs}
                                                         : QList<QKeySequence>{QKeySequence::Save, saveAs});
    m_actions.saveButton->setEnabled(canSave || canSaveAs);
    m_actions.update->setEnabled(hasForm);
    m_actions.edit->menuAction()->setEnabled(hasForm);
    m_actions.addPage->setEnabled(hasForm && !document->MyReadonly);
    m_actions.addPage->setVisible(!m_application.ViewerMode && !(hasForm && document->MyReadonly));
    m_actions.pagePanel->setVisible(hasForm && document->Pages > 0);
    m_pages->SetPages(hasForm ? document->DataPageNum : 0, hasForm ? document->Pages : 0);
    m_page->setVisible(hasForm);
    if (!hasForm) ClearPagePanel();
}

void mdiSheetwright::RefreshZoom() {
    FormWindow* const form = Active();
    for (QAction* const action : m_actions.zooms)
        action->setEnabled(form != nullptr);
    m_zoom->setEnabled(form != nullptr);
    const double zoom = form == nullptr ? 1 : form->View().Zoom();
    m_zoom->setText(ZoomText(zoom));
}

}  // namespace sheetwright
