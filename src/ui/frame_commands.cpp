#include "ui/frame_commands.h"

#include "document/document.h"
#include "document/page_moves.h"
#include "document/pages.h"
#include "document/undo.h"
#include "fields/editing.h"
#include "formula/recalculation.h"
#include "ui/form_area.h"
#include "ui/form_window.h"
#include "ui/goto_dialog.h"
#include "ui/help_window.h"
#include "ui/mdi_sheetwright.h"
#include "ui/page_view.h"
#include "ui/tiling.h"

#include <array>

namespace sheetwright {

FrameCommands::FrameCommands(Application& application, mdiSheetwright& frame)
    : m_application(application), m_frame(frame), m_recent(LoadRecentFiles(application)) {}

FrameCommands::~FrameCommands() = default;

void FrameCommands::WithForm(const std::function<void(frmSheetwright&)>& step) {
    if (FormWindow* const form = m_frame.Active()) step(form->Document());
}

void FrameCommands::WithView(const std::function<void(PageView&)>& step) {
    if (FormWindow* const form = m_frame.Active()) step(form->View());
}

void FrameCommands::mnuEditUndo_Click() {
    WithForm([](frmSheetwright& document) { sheetwright::mnuEditUndo_Click(document); });
}

void FrameCommands::mnuEditRevert_Click() {
    WithForm([](frmSheetwright& document) { sheetwright::mnuEditRevert_Click(document); });
}

void FrameCommands::MnuEditUpdate_Click() {
    WithForm([](frmSheetwright& document) { ÜberupdateFormulas(document, false); });
}

void FrameCommands::mnuEditSetUndo_Click() {
    WithForm([](frmSheetwright& document) { SetUndo(document); });
}

void FrameCommands::mnuPageAdd_Click() {
    WithForm([](frmSheetwright& document) { sheetwright::mnuPageAdd_Click(document); });
}

void FrameCommands::mnuPageRemove_Click() {
    WithForm([](frmSheetwright& document) { sheetwright::mnuPageRemove_Click(document); });
}

void FrameCommands::mnuPageGoto_Click() {
    WithForm([this](frmSheetwright& document) {
        sheetwright::mnuPageGoto_Click(&document, m_gotoOpen,
                                       [this](frmSheetwright& shown) { ShowGoto(&m_frame, shown); });
    });
}

void FrameCommands::cmd_firstpage_Click() {
    WithForm(FirstPage);
}

void FrameCommands::cmd_prevpage_Click() {
    WithForm(PrevPage);
}

void FrameCommands::cmd_nextpage_Click() {
    WithForm(NextPage);
}

void FrameCommands::cmd_lastpage_Click() {
    WithForm(LastPage);
}

void FrameCommands::UpdateColours() {
    WithForm(UpdateColors);
}

void FrameCommands::mnuViewZoomIn_Click() {
    WithView([](PageView& view) { view.ZoomIn(); });
}

void FrameCommands::mnuViewZoomOut_Click() {
    WithView([](PageView& view) { view.ZoomOut(); });
}

void FrameCommands::mnuViewActualSize_Click() {
    WithView([](PageView& view) { view.ResetZoom(); });
}

void FrameCommands::mnuViewFitWidth_Click() {
    WithView([](PageView& view) { view.FitWidth(); });
}

void FrameCommands::SetZoom(double zoom) {
    WithView([zoom](PageView& view) { view.SetZoom(zoom); });
}

void FrameCommands::mnuWindowArrange_Click(int index) {
    static constexpr std::array kArrangements{Cascade, TileHorizontally, TileVertically, ArrangeIcons};
    kArrangements.at(static_cast<std::size_t>(index))(m_frame.Area());
}

}  // namespace sheetwright
