#include "ui/add_page_dialog.h"

#include "core/application.h"
#include "core/folders.h"
#include "document/document.h"
#include "document/open_dialogs.h"
#include "document/page_merging.h"
#include "ui/event_boundary.h"
#include "ui/pick_list.h"
#include "ui/template_list.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace sheetwright {

namespace {

constexpr int kListWidth = 260;
constexpr int kListHeight = 180;
constexpr int kNumberLength = 7;  // characters

bool IsBesideAPage(Placement mode) {
    return mode == Placement::Before || mode == Placement::After;
}

}  // namespace

frmAddPage::frmAddPage(frmSheetwright& document, QWidget* parent)
    : QDialog(parent),
      m_document(document),
      m_lstDesign(new PickList(this)),
      m_lvNew(new TemplateList(document.application, this)),
      m_optPage(new QButtonGroup(this)) {
    setObjectName(QStringLiteral("frmAddPage"));
    setWindowTitle(document.application.Translate(QStringLiteral("Add Page")));
    auto* const column = new QVBoxLayout(this);
    auto* const lists = new QGridLayout;
    lists->setColumnStretch(0, 1);
    lists->setColumnStretch(1, 1);
    lists->setRowStretch(1, 1);
    column->addLayout(lists, 1);
    BuildDesigns(*lists);
    BuildTemplates(*lists);
    BuildPlaces(*column);
    BuildButtons(*column);
    UpdatePageList();
    m_lvNew->UpdateNewList(TemplateFolder(document.application));
}

void frmAddPage::BuildDesigns(QGridLayout& lists) {
    auto* const label =
        new QLabel(m_document.application.Translate(QStringLiteral("&Design of the new page:")), this);
    label->setBuddy(m_lstDesign);
    m_lstDesign->setObjectName(QStringLiteral("LstDesign"));
    m_lstDesign->setMinimumSize(kListWidth, kListHeight);
    lists.addWidget(label, 0, 0, Qt::AlignBottom);
    lists.addWidget(m_lstDesign, 1, 0, 2, 1);
    connect(m_lstDesign, &PickList::itemDoubleClicked, this, &frmAddPage::cmdAdd_Click);
}

void frmAddPage::BuildTemplates(QGridLayout& lists) {
    const Application& application = m_document.application;
    auto* const heading = new QLabel(application.Translate(QStringLiteral(
                                         "Double Click To Merge In Page(s) From An Existing Form Design")),
                                     this);
    heading->setObjectName(QStringLiteral("lblHeading"));
    heading->setWordWrap(true);
    heading->setBuddy(m_lvNew);
    auto* const cmdBrowse = new QPushButton(application.Translate(QStringLiteral("Bro&wse...")), this);
    cmdBrowse->setObjectName(QStringLiteral("cmdBrowse"));
    cmdBrowse->setAutoDefault(false);
    m_lvNew->setMinimumWidth(kListWidth);
    m_lvNew->Chosen = [this](const QString& path) { GetPages(path); };
    lists.addWidget(heading, 0, 1);
    lists.addWidget(m_lvNew, 1, 1);
    lists.addWidget(cmdBrowse, 2, 1, Qt::AlignRight);
    connect(cmdBrowse, &QPushButton::clicked, this, &frmAddPage::cmdBrowse_Click);
}

void frmAddPage::BuildPlaces(QBoxLayout& column) {
    const Application& application = m_document.application;
    AddPlace(Placement::AtStart, application.Translate(QStringLiteral("At &Start Of Form")));
    AddPlace(Placement::AtEnd, application.Translate(QStringLiteral("At &End Of Form")));
    AddPlace(Placement::Before, application.Translate(QStringLiteral("&Before Page:")));
    AddPlace(Placement::After, application.Translate(QStringLiteral("&After Page:")));
    m_cboPage = new QComboBox(this);
    m_cboPage->setObjectName(QStringLiteral("cboPage"));
    m_cboPage->setAccessibleName(application.Translate(QStringLiteral("Page")));
    m_cboPage->setEditable(true);
    m_cboPage->setCompleter(nullptr);  // which would make "10" of a typed "1"
    m_cboPage->setInsertPolicy(QComboBox::NoInsert);
    m_cboPage->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_cboPage->setMinimumContentsLength(kNumberLength);
    auto* const frame =
        new QGroupBox(application.Translate(QStringLiteral("Select Where To Insert Page")), this);
    auto* const grid = new QGridLayout(frame);
    for (const int row : {0, 1}) {
        grid->addWidget(m_optPage->button(row), row, 0);
        grid->addWidget(m_optPage->button(row + 2), row, 1);
    }
    grid->addWidget(m_cboPage, 0, 2, 2, 1, Qt::AlignVCenter);
    grid->setColumnStretch(3, 1);
    column.addWidget(frame);
    connect(m_optPage, &QButtonGroup::idToggled, this, [this](int mode, bool isSet) {
        if (isSet) optPage_Click(Placement{static_cast<std::int16_t>(mode)});
    });
}

void frmAddPage::AddPlace(Placement mode, const QString& caption) {
    const int number = static_cast<int>(mode);
    auto* const option = new QRadioButton(caption, this);
    option->setObjectName(QStringLiteral("optPage%1").arg(number));
    m_optPage->addButton(option, number);
}

void frmAddPage::BuildButtons(QBoxLayout& column) {
    const Application& application = m_document.application;
    auto* const buttons = new QDialogButtonBox(this);
    QPushButton* const cmdAdd =
        buttons->addButton(application.Translate(QStringLiteral("&Add")), QDialogButtonBox::AcceptRole);
    QPushButton* const cmdCancel =
        buttons->addButton(application.Translate(QStringLiteral("Cancel")), QDialogButtonBox::RejectRole);
    cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    cmdAdd->setDefault(true);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    column.addWidget(buttons);
    connect(cmdAdd, &QPushButton::clicked, this, &frmAddPage::cmdAdd_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmAddPage::UpdatePageList() {
    m_lstDesign->clear();
    for (const auto& design : m_document.memory.PageProps.Entries())
        m_lstDesign->addItem(design.item);
    m_lstDesign->setCurrentRow(m_document.PageNum - 1);
    QStringList numbers;
    for (int number = 1; number <= m_document.Pages; ++number)
        numbers << QString::number(number);
    m_cboPage->clear();
    m_cboPage->addItems(numbers);
    m_optPage->button(static_cast<int>(Placement::AtEnd))->setChecked(true);
    optPage_Click(Placement::AtEnd);
}

// The number is that of the end that was chosen, or the person's.
void frmAddPage::optPage_Click(Placement mode) {
    m_cboPage->setEnabled(IsBesideAPage(mode));
    if (mode == Placement::AtStart) m_cboPage->setCurrentIndex(0);
    if (mode == Placement::AtEnd) m_cboPage->setCurrentIndex(m_cboPage->count() - 1);
    // Tab goes to the option that is set, before one of them had the focus too.
    for (QAbstractButton* const option : m_optPage->buttons())
        option->setFocusPolicy(option->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

Placement frmAddPage::Mode() const {
    return Placement{static_cast<std::int16_t>(m_optPage->checkedId())};
}

std::optional<std::int16_t> frmAddPage::Position() const {
    const int row = m_cboPage->findText(m_cboPage->currentText().trimmed());
    return row < 0 ? std::nullopt : std::optional(static_cast<std::int16_t>(row + 1));
}

void frmAddPage::cmdAdd_Click() {
    if (m_lstDesign->selectedItems().isEmpty()) return m_lvNew->OpenSelected();
    const auto design = static_cast<std::int16_t>(m_lstDesign->currentRow() + 1);
    Run(QStringLiteral("cmdAdd_Click"),
        [&] { return AddChosenPage(m_document, design, Mode(), Position()); });
}

void frmAddPage::cmdBrowse_Click() {
    FileDialog dialog = MergeDialog(m_document.application);
    bool isChosen = false;
    Guarded(m_document, QStringLiteral("cmdBrowse_Click"),
            [&] { isChosen = ChooseToOpen(m_document.application, dialog); });
    if (isChosen) GetPages(dialog.fileName);
}

void frmAddPage::GetPages(const QString& path) {
    Run(QStringLiteral("GetPages"),
        [&] { return sheetwright::GetPages(m_document, path, Mode(), Position()); });
}

void frmAddPage::Run(const QString& name, const std::function<bool()>& step) {
    const std::int16_t before = m_document.Pages;
    bool isDone = false;
    Guarded(m_document, name, [&] { isDone = step(); });
    if (isDone || m_document.Pages != before) return accept();
    if (m_lstDesign->count() == m_document.memory.PageProps.Count()) return;
    UpdatePageList();
    m_lstDesign->setFocus();
}

void ShowAddPage(QWidget* parent, frmSheetwright& document) {
    frmAddPage(document, parent).exec();
}

}  // namespace sheetwright
