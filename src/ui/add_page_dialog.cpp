#include "ui/add_page_dialog.h"

#include "core/application.h"
#include "document/document.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace sheetwright {

AddPageDialog::AddPageDialog(const frmSheetwright& document, QWidget* parent)
    : QDialog(parent), m_lstDesign(new QListWidget(this)) {
    const Application& application = document.application;
    setObjectName(QStringLiteral("frmAddPage"));
    setWindowTitle(application.Translate(QStringLiteral("Add Page")));
    auto* const label = new QLabel(application.Translate(QStringLiteral("&Design of the new page:")), this);
    label->setBuddy(m_lstDesign);
    m_lstDesign->setObjectName(QStringLiteral("LstDesign"));

    auto* const buttons = new QDialogButtonBox(this);
    m_cmdAdd =
        buttons->addButton(application.Translate(QStringLiteral("&Add")), QDialogButtonBox::AcceptRole);
    m_cmdAdd->setObjectName(QStringLiteral("cmdAdd"));
    buttons->addButton(application.Translate(QStringLiteral("Cancel")), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("cmdCancel"));

    auto* const column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(m_lstDesign);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_lstDesign, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    FillDesigns(document);
}

std::int16_t AddPageDialog::Design() const {
    return static_cast<std::int16_t>(m_lstDesign->currentRow() + 1);
}

void AddPageDialog::FillDesigns(const frmSheetwright& document) {
    const KeyedCollection<QString>& titles = document.memory.PageProps;
    for (int design = 1; design <= titles.Count(); ++design)
        m_lstDesign->addItem(titles.At(design));
    m_lstDesign->setCurrentRow(document.PageNum - 1);
    connect(m_lstDesign, &QListWidget::currentRowChanged, this,
            [this](int row) { m_cmdAdd->setEnabled(row >= 0); });
    m_cmdAdd->setEnabled(m_lstDesign->currentRow() >= 0);
}

}  // namespace sheetwright
