#include "ui/about_box.h"

#include "core/application.h"
#include "ui/line_icons.h"
#include "ui/version_text.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace sheetwright {

namespace {

constexpr int kEmblemSide = 64;  // pixels
constexpr int kMargin = 18;
constexpr double kNameScale = 1.4;

QLabel* Line(QWidget* parent, const char* name, const QString& text) {
    auto* const label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

void MakeHeading(QLabel& label) {
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * kNameScale);
    font.setBold(true);
    label.setFont(font);
}

}  // namespace

AboutBox::AboutBox(const Application& application, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("AboutBox"));
    setWindowTitle(application.Translate(QStringLiteral("About %1"), application.Title));
    auto* const column = new QVBoxLayout(this);
    auto* const row = new QHBoxLayout;
    row->setSpacing(kMargin);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kMargin);
    column->addLayout(row);
    BuildEmblem(*row, application.ViewerMode);
    BuildTexts(*row, application);
    BuildButton(*column, application);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void AboutBox::BuildEmblem(QBoxLayout& row, bool isViewer) {
    auto* const emblem = new QLabel(this);
    emblem->setObjectName(QStringLiteral("imgEmblem"));
    const QSize size(kEmblemSide, kEmblemSide);
    emblem->setPixmap(ProgramIcon(isViewer).pixmap(size, devicePixelRatioF()));
    row.addWidget(emblem, 0, Qt::AlignTop);
}

void AboutBox::BuildTexts(QBoxLayout& row, const Application& application) {
    auto* const lines = new QVBoxLayout;
    QLabel* const name = Line(this, "lblTitle", application.Title);
    MakeHeading(*name);
    lines->addWidget(name);
    lines->addWidget(Line(this, "lblVersion", VersionText(application)));
    lines->addWidget(Line(this, "lblLicence",
                          application.Translate(QStringLiteral("Free software under the MIT License"))));
    lines->addWidget(
        Line(this, "lblQt",
             application.Translate(QStringLiteral("Runs on Qt %1"), QString::fromLatin1(qVersion()))));
    row.addLayout(lines, 1);
}

void AboutBox::BuildButton(QBoxLayout& column, const Application& application) {
    auto* const buttons = new QDialogButtonBox(this);
    QPushButton* const cmdOK =
        buttons->addButton(application.Translate(QStringLiteral("OK")), QDialogButtonBox::AcceptRole);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);
    cmdOK->setFocus();
    column.addWidget(buttons);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

void ShowAbout(QWidget* parent, const Application& application) {
    AboutBox(application, parent).exec();
}

}  // namespace sheetwright
