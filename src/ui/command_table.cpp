#include "ui/command_table.h"

#include "core/application.h"
#include "document/recent_files.h"
#include "ui/frame_commands.h"

namespace sheetwright {

namespace {

using Rows = std::vector<CommandRow>;

CommandRow Divider(const QString& name) {
    return {.name = name};
}

// Shown and named when there are such files.
CommandRow RecentEntry(std::size_t index) {
    return {.name = QStringLiteral("mnuFileRecent%1").arg(index),
            .caption = QStringLiteral("&%1").arg(index + 1),
            .command = [index](FrameCommands& commands) { commands.mnuFileRecent_Click(index); },
            .isVisible = false};
}

Rows FileEntries(const Application& application) {
    Rows rows{
        {.name = QStringLiteral("mnuFileNew"),
         .caption = application.Translate(QStringLiteral("&New...")),
         .command = &FrameCommands::mnuFileNew_Click,
         .shortcuts = {QKeySequence::New}},
        {.name = QStringLiteral("mnuFileOpen"),
         .caption = application.Translate(QStringLiteral("&Open...")),
         .command = &FrameCommands::mnuFileOpen_Click,
         .shortcuts = {QKeySequence::Open}},
        {.name = QStringLiteral("mnuFileClose"),
         .caption = application.Translate(QStringLiteral("&Close")),
         .rule = CommandRule::Form,
         .command = &FrameCommands::mnuFileClose_Click,
         .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::CTRL | Qt::Key_F4)}},
        Divider(QStringLiteral("mnuFileDiv1")),
        {.name = QStringLiteral("mnuFileSave"),
         .caption = application.Translate(QStringLiteral("&Save")),
         .rule = CommandRule::Save,
         .command = &FrameCommands::mnuFileSave_Click,
         .shortcuts = {QKeySequence::Save}},
        {.name = QStringLiteral("mnuFileSaveAs"),
         .caption = application.Translate(QStringLiteral("Save &As...")),
         .rule = CommandRule::SaveAs,
         .command = &FrameCommands::mnuFileSaveAs_Click,
         .shortcuts = {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)}},
        Divider(QStringLiteral("mnuFileDiv2")),
        {.name = QStringLiteral("mnuFilePreview"),
         .caption = application.Translate(QStringLiteral("Print Pre&view")),
         .rule = CommandRule::Never},
        {.name = QStringLiteral("mnuFilePrint"),
         .caption = application.Translate(QStringLiteral("&Print...")),
         .rule = CommandRule::Print,
         .command = &FrameCommands::mnuFilePrint_Click,
         .shortcuts = {QKeySequence::Print}},
        Divider(QStringLiteral("mnuFileDiv3")),
    };
    for (std::size_t index = 0; index < RecentFiles::kCount; ++index)
        rows.push_back(RecentEntry(index));
    rows.push_back(Divider(QStringLiteral("mnuFileDiv4")));
    rows.push_back({.name = QStringLiteral("mnuFileExit"),
                    .caption = application.Translate(QStringLiteral("E&xit")),
                    .command = &FrameCommands::mnuFileExit_Click,
                    .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_Q)}});
    return rows;
}

// Revert and Set Undo Point are there for the program itself.
Rows UndoEntries(const Application& application) {
    return {
        {.name = QStringLiteral("mnuEditUndo"),
         .caption = application.Translate(QStringLiteral("&Undo")),
         .rule = CommandRule::Undo,
         .command = &FrameCommands::mnuEditUndo_Click},
        {.name = QStringLiteral("mnuEditRevert"),
         .caption = application.Translate(QStringLiteral("Re&vert")),
         .rule = CommandRule::Edit,
         .command = &FrameCommands::mnuEditRevert_Click,
         .isVisible = false},
        {.name = QStringLiteral("MnuEditUpdate"),
         .caption = application.Translate(QStringLiteral("Update &Formulas")),
         .rule = CommandRule::Edit,
         .command = &FrameCommands::MnuEditUpdate_Click,
         .shortcuts = {QKeySequence(Qt::Key_F9)}},
        {.name = QStringLiteral("mnuEditSetUndo"),
         .caption = application.Translate(QStringLiteral("&Set Undo Point")),
         .rule = CommandRule::Edit,
         .command = &FrameCommands::mnuEditSetUndo_Click,
         .isVisible = false},
        Divider(QStringLiteral("mnuEditDiv")),
    };
}

Rows PageEntries(const Application& application) {
    return {
        {.name = QStringLiteral("mnuPageAdd"),
         .caption = application.Translate(QStringLiteral("&Add Page...")),
         .rule = CommandRule::Pages,
         .command = &FrameCommands::mnuPageAdd_Click},
        {.name = QStringLiteral("mnuPageRemove"),
         .caption = application.Translate(QStringLiteral("Re&move Page")),
         .rule = CommandRule::Pages,
         .command = &FrameCommands::mnuPageRemove_Click},
        {.name = QStringLiteral("mnuPageGoto"),
         .caption = application.Translate(QStringLiteral("&Goto Page...")),
         .rule = CommandRule::Form,
         .command = &FrameCommands::mnuPageGoto_Click,
         .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_G)}},
        Divider(QStringLiteral("mnuEditDiv2")),
    };
}

Rows BulkEntries(const Application& application) {
    return {
        {.name = QStringLiteral("mnuEditImport"),
         .caption = application.Translate(QStringLiteral("&Import From Download Manager")),
         .rule = CommandRule::Pages,
         .isMenu = true},
        Divider(QStringLiteral("mnuEditDiv3")),
        {.name = QStringLiteral("mnuEditReplace"),
         .caption = application.Translate(QStringLiteral("&Replace...")),
         .rule = CommandRule::Never,
         .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_H)}},
        {.name = QStringLiteral("mnuEditFill"),
         .caption = application.Translate(QStringLiteral("Column &Fill")),
         .rule = CommandRule::Never},
        {.name = QStringLiteral("mnuEditlists"),
         .caption = application.Translate(QStringLiteral("Lists...")),
         .command = &FrameCommands::mnuEditlists_Click},
    };
}

Rows EditEntries(const Application& application) {
    Rows rows = UndoEntries(application);
    for (const Rows& more : {PageEntries(application), BulkEntries(application)})
        rows.insert(rows.end(), more.begin(), more.end());
    return rows;
}

Rows OptionsEntries(const Application& application) {
    return {
        {.name = QStringLiteral("mnuOptionsSelected"),
         .caption = application.Translate(QStringLiteral("&Highlight Selected Field")),
         .command = &FrameCommands::UpdateColours,
         .isCheckable = true},
        {.name = QStringLiteral("mnuOptionsBlank"),
         .caption = application.Translate(QStringLiteral("Highlight &Blank Fields")),
         .command = &FrameCommands::UpdateColours,
         .isCheckable = true},
        Divider(QStringLiteral("mnuOptionsDiv")),
        {.name = QStringLiteral("mnuOptionsPrefs"),
         .caption = application.Translate(QStringLiteral("&Preferences...")),
         .rule = CommandRule::Never},
    };
}

Rows ViewEntries(const Application& application) {
    return {
        {.name = QStringLiteral("mnuViewZoomIn"),
         .caption = application.Translate(QStringLiteral("Zoom &In")),
         .rule = CommandRule::Form,
         .command = &FrameCommands::mnuViewZoomIn_Click,
         .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)}},
        {.name = QStringLiteral("mnuViewZoomOut"),
         .caption = application.Translate(QStringLiteral("Zoom &Out")),
         .rule = CommandRule::Form,
         .command = &FrameCommands::mnuViewZoomOut_Click,
         .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_Minus)}},
        Divider(QStringLiteral("mnuViewDiv")),
        {.name = QStringLiteral("mnuViewActualSize"),
         .caption = application.Translate(QStringLiteral("&Actual Size")),
         .rule = CommandRule::Form,
         .command = &FrameCommands::mnuViewActualSize_Click,
         .shortcuts = {QKeySequence(Qt::CTRL | Qt::Key_0)}},
        {.name = QStringLiteral("mnuViewFitWidth"),
         .caption = application.Translate(QStringLiteral("Fit &Width")),
         .rule = CommandRule::Form,
         .command = &FrameCommands::mnuViewFitWidth_Click,
         .shortcuts = {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_0)}},
    };
}

CommandRow Arrangement(int index, const QString& caption) {
    return {.name = QStringLiteral("mnuWindowArrange%1").arg(index),
            .caption = caption,
            .command = [index](FrameCommands& commands) { commands.mnuWindowArrange_Click(index); }};
}

Rows WindowEntries(const Application& application) {
    return {Arrangement(0, application.Translate(QStringLiteral("&Cascade"))),
            Arrangement(1, application.Translate(QStringLiteral("Tile &Horizontally"))),
            Arrangement(2, application.Translate(QStringLiteral("&Tile Vertically"))),
            Arrangement(3, application.Translate(QStringLiteral("&Arrange Icons")))};
}

Rows HelpEntries(const Application& application) {
    return {
        {.name = QStringLiteral("mnuHelpContents"),
         .caption = application.Translate(QStringLiteral("&Contents")),
         .command = &FrameCommands::mnuHelpContents_Click,
         .shortcuts = {QKeySequence(Qt::Key_F1)}},
        {.name = QStringLiteral("mnuHelpSearch"),
         .caption = application.Translate(QStringLiteral("&Search For Help On...")),
         .command = &FrameCommands::mnuHelpSearch_Click},
        {.name = QStringLiteral("MnuHelpTutor"),
         .caption = application.Translate(QStringLiteral("&Quillon Tutor")),
         .command = &FrameCommands::MnuHelpTutor_Click},
        Divider(QStringLiteral("mnuHelpDiv")),
        {.name = QStringLiteral("mnuHelpAbout"),
         .caption = application.Translate(QStringLiteral("&About")),
         .command = &FrameCommands::mnuHelpAbout_Click},
    };
}

Rows DriverEntries(const Application& application) {
    return {{.name = QStringLiteral("mnuDriverDownload"),
             .caption = application.Translate(QStringLiteral("Download...")),
             .command = &FrameCommands::mnuDriverDownload_Click},
            {.name = QStringLiteral("mnuDriverImport"),
             .caption = application.Translate(QStringLiteral("Import...")),
             .rule = CommandRule::Pages,
             .command = &FrameCommands::mnuDriverImport_Click},
            {.name = QStringLiteral("mnuDriverEdit"),
             .caption = application.Translate(QStringLiteral("Edit...")),
             .command = &FrameCommands::mnuDriverEdit_Click}};
}

}  // namespace

std::vector<MenuRow> MenuTree(const Application& application) {
    return {
        {QStringLiteral("mnuFile"), application.Translate(QStringLiteral("&File")), FileEntries(application)},
        {QStringLiteral("mnuPage"), application.Translate(QStringLiteral("&Edit")), EditEntries(application)},
        {QStringLiteral("mnuOptions"), application.Translate(QStringLiteral("&Options")),
         OptionsEntries(application)},
        {QStringLiteral("mnuView"), application.Translate(QStringLiteral("&View")), ViewEntries(application)},
        {QStringLiteral("mnuWindow"), application.Translate(QStringLiteral("&Window")),
         WindowEntries(application)},
        {QStringLiteral("MnuHelp"), application.Translate(QStringLiteral("&Help")), HelpEntries(application)},
        {QStringLiteral("mnuDriverPopup"), QString(), DriverEntries(application)},
    };
}

std::vector<ButtonRow> ToolBarButtons() {
    return {
        {QStringLiteral("New"), QStringLiteral("new"), QStringLiteral("mnuFileNew"),
         &FrameCommands::mnuFileNew_Click},
        {QStringLiteral("Open"), QStringLiteral("open"), QStringLiteral("mnuFileOpen"),
         &FrameCommands::mnuFileOpen_Click},
        {QStringLiteral("Save"), QStringLiteral("save"), QStringLiteral("mnuFileSave"),
         &FrameCommands::tbToolBar_Save},
        {QStringLiteral("Print"), QStringLiteral("print"), QStringLiteral("mnuFilePrint"),
         &FrameCommands::mnuFilePrint_Click, true},
        {QStringLiteral("Formulas"), QStringLiteral("formulas"), QStringLiteral("MnuEditUpdate"),
         &FrameCommands::MnuEditUpdate_Click, true},
        {QStringLiteral("AddPage"), QStringLiteral("add_page"), QStringLiteral("mnuPageAdd"),
         &FrameCommands::mnuPageAdd_Click},
    };
}

}  // namespace sheetwright
