#include "ui/goto_dialog.h"

#include "core/application.h"
#include "document/document.h"
#include "document/page_moves.h"
#include "document/pages.h"
#include "ui/event_boundary.h"
#include "ui/pick_list.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace sheetwright {

namespace {

constexpr QSize kSmallestList(320, 240);

}  // namespace

frmGoto::frmGoto(frmSheetwright& document, QWidget* parent)
    : QDialog(parent), m_document(document), m_lstPages(new PickList(this)) {
    setObjectName(QStringLiteral("frmGoto"));
    setWindowTitle(document.application.Translate(QStringLiteral("Goto Page")));
    m_lstPages->setObjectName(QStringLiteral("lstPages"));
    m_lstPages->setAccessibleName(windowTitle());
    m_lstPages->setMinimumSize(kSmallestList);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_lstPages);
    column->addWidget(MakeButtons());
    connect(m_lstPages, &PickList::itemDoubleClicked, this, &frmGoto::cmdGoto_Click);
    RefreshPageList();
}

QWidget* frmGoto::MakeButtons() {
    const Application& application = m_document.application;
    auto* const buttons = new QDialogButtonBox(this);
    QPushButton* const cmdGoto =
        buttons->addButton(application.Translate(QStringLiteral("&Goto")), QDialogButtonBox::AcceptRole);
    QPushButton* const cmdCancel =
        buttons->addButton(application.Translate(QStringLiteral("Cancel")), QDialogButtonBox::RejectRole);
    cmdGoto->setObjectName(QStringLiteral("cmdGoto"));
    cmdGoto->setDefault(true);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cmdGoto, &QPushButton::clicked, this, &frmGoto::cmdGoto_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    return buttons;
}

void frmGoto::RefreshPageList() {
    m_lstPages->clear();
    m_lstPages->addItems(PageListTexts(m_document));
    m_lstPages->setCurrentRow(m_document.DataPageNum - 1);
    m_lstPages->scrollToItem(m_lstPages->currentItem(), QAbstractItemView::PositionAtCenter);
}

void frmGoto::cmdGoto_Click() {
    const auto number = static_cast<std::int16_t>(m_lstPages->currentRow() + 1);
    if (Guarded(m_document, QStringLiteral("cmdGoto_Click"), [&] { MoveToPage(m_document, number); }))
        accept();
}

void ShowGoto(QWidget* parent, frmSheetwright& document) {
    frmGoto(document, parent).exec();
}

}  // namespace sheetwright
