#include "ui/list_table_column_dialog.h"

#include "core/application.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

#include <utility>

namespace sheetwright {

namespace {

constexpr int kNameWidth = 260;  // pixels

}  // namespace

ListTableColumnDialog::ListTableColumnDialog(Application& application, const QString& title,
                                             const QString& name, const QString& type,
                                             std::function<QString(const QString&)> refusal, QWidget* parent)
    : QDialog(parent),
      m_application(application),
      m_refusal(std::move(refusal)),
      m_before(name),
      m_txtName(new QLineEdit(name, this)),
      m_cboType(new QComboBox(this)) {
    setObjectName(QStringLiteral("frmColumn"));
    setWindowTitle(title);
    m_txtName->setObjectName(QStringLiteral("txtName"));
    m_txtName->setMinimumWidth(kNameWidth);
    m_txtName->selectAll();
    m_cboType->setObjectName(QStringLiteral("cboType"));
    BuildTypes(type);
    auto* const form = new QFormLayout(this);
    form->addRow(application.Translate(QStringLiteral("&Name:")), m_txtName);
    form->addRow(application.Translate(QStringLiteral("&Type:")), m_cboType);
    form->addRow(MakeButtons());
}

void ListTableColumnDialog::BuildTypes(const QString& type) {
    m_cboType->addItem(m_application.Translate(QStringLiteral("Text")), QStringLiteral("TEXT"));
    m_cboType->addItem(m_application.Translate(QStringLiteral("Number")), QStringLiteral("NUMBER"));
    m_cboType->addItem(m_application.Translate(QStringLiteral("Date")), QStringLiteral("DATE"));
    m_cboType->addItem(m_application.Translate(QStringLiteral("Yes/No")), QStringLiteral("BOOLEAN"));
    m_cboType->setCurrentIndex(m_cboType->findData(type));
}

QWidget* ListTableColumnDialog::MakeButtons() {
    auto* const buttons = new QDialogButtonBox(this);
    QPushButton* const cmdOK =
        buttons->addButton(m_application.Translate(QStringLiteral("OK")), QDialogButtonBox::AcceptRole);
    QPushButton* const cmdCancel =
        buttons->addButton(m_application.Translate(QStringLiteral("Cancel")), QDialogButtonBox::RejectRole);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cmdOK, &QPushButton::clicked, this, &ListTableColumnDialog::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    return buttons;
}

QString ListTableColumnDialog::Name() const {
    const QString name = m_txtName->text();
    return name == m_before ? name : name.trimmed();
}

QString ListTableColumnDialog::Type() const {
    return m_cboType->currentData().toString();
}

void ListTableColumnDialog::cmdOK_Click() {
    const QString refusal = m_refusal(Name());
    if (refusal.isEmpty()) return accept();
    m_application.ui.ShowMessage(refusal, windowTitle(), MessageIcon::Exclamation);
    m_txtName->setFocus(Qt::OtherFocusReason);
    m_txtName->selectAll();
}

}  // namespace sheetwright
