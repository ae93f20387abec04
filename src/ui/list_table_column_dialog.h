#pragma once

// The dialog for the name and the type of a column.

#include <QDialog>

#include <functional>

class QComboBox;
class QLineEdit;

namespace sheetwright {

class Application;

class ListTableColumnDialog : public QDialog {
  public:
    // `refusal` tells why a name can't be taken, "" when it can; then the dialog ends.
    ListTableColumnDialog(Application& application, const QString& title, const QString& name,
                          const QString& type, std::function<QString(const QString&)> refusal,
                          QWidget* parent);

    [[nodiscard]] QString Name() const;
    [[nodiscard]] QString Type() const;

  private:
    void BuildTypes(const QString& type);
    [[nodiscard]] QWidget* MakeButtons();
    void cmdOK_Click();

    Application& m_application;
    std::function<QString(const QString&)> m_refusal;
    QString m_before;  // the name as it was, blanks at its ends and all
    QLineEdit* m_txtName;
    QComboBox* m_cboType;
};

}  // namespace sheetwright
