#include "ui/frame_status_bar.h"

#include "core/application.h"
#include "ui/status_panel.h"

#include <QAction>
#include <QMenu>
#include <QToolButton>

namespace sheetwright {

namespace {

constexpr int kMargin = 4;
constexpr double kPercent = 100;
constexpr int kZooms[] = {50, 75, 100, 125, 150, 200, 400};

QString ZoomText(double zoom) {
    return QStringLiteral("%1\u00A0%").arg(qRound(zoom * kPercent));
}

// Takes no focus: the field being edited keeps it.
QToolButton* PanelButton(const QString& name, QWidget* parent) {
    auto* const button = new QToolButton(parent);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

}  // namespace

FrameStatusBar::FrameStatusBar(const Application& application, QWidget* parent)
    : QStatusBar(parent),
      m_status(new StatusPanel(this)),
      m_page(PanelButton(QStringLiteral("Page"), this)),
      m_zoom(PanelButton(QStringLiteral("Zoom"), this)) {
    connect(m_page, &QToolButton::clicked, this, [this] {
        if (PageClicked) PageClicked();
    });
    BuildZoomBox(application);
    setStyleSheet(QStringLiteral("QStatusBar::item { border: none; }"));
    setContentsMargins(kMargin, 0, 0, 0);
    addWidget(m_status, 1);
    addPermanentWidget(m_page);
    addPermanentWidget(m_zoom);
}

// In the text of a button an "&" would underline what follows.
void FrameStatusBar::SetPageText(const QString& text) {
    m_pageText = text;
    m_page->setText(QString(text).replace(u'&', QStringLiteral("&&")));
}

void FrameStatusBar::Refresh(bool hasForm, double zoom) {
    m_page->setVisible(hasForm);
    m_zoom->setEnabled(hasForm);
    for (QAction* const action : m_zoom->menu()->actions())
        action->setEnabled(hasForm);
    m_zoom->setText(ZoomText(zoom));
}

void FrameStatusBar::PopUp(QMenu& menu) const {
    menu.popup(m_page->mapToGlobal(QPoint(0, -menu.sizeHint().height())));
}

void FrameStatusBar::mouseDoubleClickEvent(QMouseEvent* event) {
    QStatusBar::mouseDoubleClickEvent(event);
    if (DoubleClicked) DoubleClicked();
}

void FrameStatusBar::AddZoom(QMenu& menu, const QString& name, const QString& text,
                             const std::function<void()>& choose) {
    QAction* const action = menu.addAction(text);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, choose);
}

void FrameStatusBar::BuildZoomBox(const Application& application) {
    m_zoom->setAccessibleName(application.Translate(QStringLiteral("Zoom")));
    m_zoom->setToolTip(m_zoom->accessibleName());
    m_zoom->setPopupMode(QToolButton::InstantPopup);
    m_zoom->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    auto* const menu = new QMenu(m_zoom);
    for (const int percent : kZooms)
        AddZoom(*menu, QStringLiteral("Zoom%1").arg(percent), ZoomText(percent / kPercent), [this, percent] {
            if (ZoomChosen) ZoomChosen(percent / kPercent);
        });
    menu->addSeparator();
    AddZoom(*menu, QStringLiteral("ZoomFitWidth"), application.Translate(QStringLiteral("Fit &Width")),
            [this] {
                if (FitWidthChosen) FitWidthChosen();
            });
    m_zoom->setMenu(menu);
}

}  // namespace sheetwright
