#include "ui/help_window.h"

#include "core/application.h"
#include "core/failure.h"
#include "core/help_page.h"
#include "core/paths.h"
#include "ui/help_browser.h"
#include "ui/help_find_bar.h"
#include "ui/help_search_panel.h"
#include "ui/line_icons.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

constexpr int kIconSide = 20;  // pixels
constexpr QSize kFirstSize(960, 680);
constexpr QSize kSmallestSize(360, 260);
constexpr int kFirstContents = 290;
constexpr int kSmallestContents = 120;
constexpr int kRowSpacing = 6;
constexpr int kTwipsPerPixel = 15;
constexpr int kTargetRole = Qt::UserRole;

const QString& HomePage() {
    static const QString name = QStringLiteral("index.html");
    return name;
}

QString Section() {
    return QStringLiteral("frmHelp");
}

int Stored(const Application& application, const QString& key, int fallback) {
    bool isNumber = false;
    const int number = application.settings.Read(application.Title, Section(), key).toInt(&isNumber);
    return isNumber ? number : fallback;
}

int StoredPixels(const Application& application, const QString& key, int fallback) {
    return Stored(application, key, fallback * kTwipsPerPixel) / kTwipsPerPixel;
}

void Store(Application& application, const QString& key, int number) {
    application.settings.Write(application.Title, Section(), key, QString::number(number));
}

QString TargetOf(const QTreeWidgetItem& entry) {
    return entry.data(0, kTargetRole).toString();
}

}  // namespace

QString HelpFolder(const Application& application) {
    const QString folder = WithTrailingSeparator(application.InstallFolder + QStringLiteral("help"));
    return FileExists(folder + HomePage()) ? folder : QString();
}

HelpWindow::HelpWindow(Application& application, const QString& folder)
    : m_application(application),
      m_folder(WithTrailingSeparator(folder)),
      m_panes(new QSplitter(this)),
      m_tabs(new QTabWidget(m_panes)),
      m_contents(new QTreeWidget(m_tabs)),
      m_search(new HelpSearchPanel(application, m_folder, m_tabs)) {
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(application.Translate(QStringLiteral("%1 Help"), application.Title));
    setWindowIcon(ProgramIcon(application.ViewerMode));
    // The program ends with its frame.
    setAttribute(Qt::WA_QuitOnClose, false);
    BuildPanes();
    BuildToolBar();
    BuildKeys();
    DrawIcons();
}

HelpWindow::~HelpWindow() {
    if (isVisible()) StoreSize();
}

void HelpWindow::BuildPanes() {
    m_contents->setObjectName(QStringLiteral("treContents"));
    m_contents->setAccessibleName(m_application.Translate(QStringLiteral("Contents")));
    m_contents->setHeaderHidden(true);
    m_contents->setExpandsOnDoubleClick(false);
    m_tabs->setObjectName(QStringLiteral("tabHelp"));
    m_tabs->setDocumentMode(true);
    m_tabs->addTab(m_contents, m_application.Translate(QStringLiteral("&Contents")));
    m_tabs->addTab(m_search, m_application.Translate(QStringLiteral("&Search")));
    auto* const right = new QWidget(m_panes);
    m_browser = new HelpBrowser(m_application, m_folder, right);
    m_browser->setFrameShape(QFrame::NoFrame);
    m_find = new HelpFindBar(m_application, *m_browser, right);
    auto* const column = new QVBoxLayout(right);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_browser, 1);
    column->addWidget(m_find);
    m_tabs->setMinimumWidth(kSmallestContents);
    m_panes->setChildrenCollapsible(false);
    m_panes->setStretchFactor(m_panes->indexOf(right), 1);
    setCentralWidget(m_panes);
    connect(m_contents, &QTreeWidget::itemClicked, this, &HelpWindow::OpenEntry);
    connect(m_contents, &QTreeWidget::itemActivated, this, &HelpWindow::OpenEntry);
    connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpWindow::SelectEntry);
    m_search->Open = [this](const HelpResult& result, const QString& words) {
        m_browser->Open(result.anchor.isEmpty() ? result.file : result.file + u'#' + result.anchor);
        m_browser->Highlight(words);
    };
}

QAction* HelpWindow::Add(const QString& name, const QString& caption, const QList<QKeySequence>& keys,
                         const std::function<void()>& command) {
    auto* const action = new QAction(caption, this);
    action->setObjectName(name);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, command);
    addAction(action);
    if (keys.isEmpty()) return action;
    const QString key = keys.first().toString(QKeySequence::NativeText);
    action->setToolTip(QString(caption).remove(u'&') + QStringLiteral(" (%1)").arg(key));
    return action;
}

void HelpWindow::BuildToolBar() {
    m_actions.back = Add(QStringLiteral("Back"), m_application.Translate(QStringLiteral("Back")),
                         {QKeySequence(Qt::ALT | Qt::Key_Left)}, [this] { m_browser->backward(); });
    m_actions.forward = Add(QStringLiteral("Forward"), m_application.Translate(QStringLiteral("Forward")),
                            {QKeySequence(Qt::ALT | Qt::Key_Right)}, [this] { m_browser->forward(); });
    m_actions.home = Add(QStringLiteral("Home"), m_application.Translate(QStringLiteral("Home")),
                         {QKeySequence(Qt::ALT | Qt::Key_Home)}, [this] { GoHome(); });
    m_actions.zoomIn = Add(QStringLiteral("ZoomIn"), m_application.Translate(QStringLiteral("Zoom &In")),
                           {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
                           [this] { m_browser->SetZoom(m_browser->Zoom() + 1); });
    m_actions.zoomOut =
        Add(QStringLiteral("ZoomOut"), m_application.Translate(QStringLiteral("Zoom &Out")),
            {QKeySequence(Qt::CTRL | Qt::Key_Minus)}, [this] { m_browser->SetZoom(m_browser->Zoom() - 1); });
    m_actions.find = Add(QStringLiteral("Find"), m_application.Translate(QStringLiteral("Find in Page")),
                         {QKeySequence(Qt::CTRL | Qt::Key_F)}, [this] { m_find->Start(); });
    m_toolBar = addToolBar(m_application.Translate(QStringLiteral("Tool Bar")));
    m_toolBar->setObjectName(QStringLiteral("tbHelp"));
    m_toolBar->setMovable(false);
    m_toolBar->setContextMenuPolicy(Qt::PreventContextMenu);
    m_toolBar->setIconSize(QSize(kIconSide, kIconSide));
    m_toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_toolBar->addActions({m_actions.back, m_actions.forward, m_actions.home});
    m_toolBar->addSeparator();
    m_toolBar->addActions({m_actions.zoomOut, m_actions.zoomIn});
    m_toolBar->addSeparator();
    m_toolBar->addAction(m_actions.find);
    for (QAction* const zoom : {m_actions.zoomOut, m_actions.zoomIn})
        static_cast<QToolButton*>(m_toolBar->widgetForAction(zoom))
            ->setToolButtonStyle(Qt::ToolButtonIconOnly);
    m_actions.back->setEnabled(false);
    m_actions.forward->setEnabled(false);
    connect(m_browser, &QTextBrowser::backwardAvailable, m_actions.back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_actions.forward, &QAction::setEnabled);
}

void HelpWindow::BuildKeys() {
    Add(QStringLiteral("ActualSize"), m_application.Translate(QStringLiteral("&Actual Size")),
        {QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] { m_browser->SetZoom(0); });
    Add(QStringLiteral("Contents"), m_application.Translate(QStringLiteral("Contents")),
        {QKeySequence(Qt::Key_F1)}, [this] {
            m_tabs->setCurrentWidget(m_contents);
            m_contents->setFocus(Qt::ShortcutFocusReason);
        });
    Add(QStringLiteral("FindNext"), m_application.Translate(QStringLiteral("Next")),
        {QKeySequence(Qt::Key_F3)}, [this] { m_find->FindNext(); });
    Add(QStringLiteral("FindPrevious"), m_application.Translate(QStringLiteral("Previous")),
        {QKeySequence(Qt::SHIFT | Qt::Key_F3)}, [this] { m_find->FindPrevious(); });
    Add(QStringLiteral("Close"), m_application.Translate(QStringLiteral("Close")),
        {QKeySequence(Qt::Key_Escape)}, [this] { Leave(); });
}

void HelpWindow::DrawIcons() {
    const QColor colour = palette().color(QPalette::ButtonText);
    m_actions.back->setIcon(LineIcon(QStringLiteral("help_back"), colour));
    m_actions.forward->setIcon(LineIcon(QStringLiteral("help_forward"), colour));
    m_actions.home->setIcon(LineIcon(QStringLiteral("help_home"), colour));
    m_actions.zoomIn->setIcon(LineIcon(QStringLiteral("zoom_in"), colour));
    m_actions.zoomOut->setIcon(LineIcon(QStringLiteral("zoom_out"), colour));
    m_actions.find->setIcon(LineIcon(QStringLiteral("find"), colour));
}

void HelpWindow::FillContents() {
    std::vector<HelpEntry> entries;
    Ignoring([&] { entries = ReadHelpContents(ReadHelpFile(m_folder + HomePage()), HomePage()); });
    std::vector<QTreeWidgetItem*> above;  // the last one of each depth
    for (const HelpEntry& entry : entries) {
        above.resize(static_cast<std::size_t>(entry.depth));
        auto* const item =
            above.empty() ? new QTreeWidgetItem(m_contents) : new QTreeWidgetItem(above.back());
        item->setText(0, entry.title);
        item->setData(0, kTargetRole, entry.target);
        item->setSizeHint(0, QSize(0, fontMetrics().height() + kRowSpacing));
        above.push_back(item);
    }
    m_contents->expandToDepth(0);
}

void HelpWindow::OpenEntry(const QTreeWidgetItem* entry) {
    if (const QString target = TargetOf(*entry); !target.isEmpty()) m_browser->Open(target);
}

// The entry of the place that is shown, otherwise the one of its page.
void HelpWindow::SelectEntry() {
    const QString target = m_browser->Target();
    QTreeWidgetItem* found = nullptr;
    for (QTreeWidgetItemIterator entry(m_contents); *entry != nullptr; ++entry) {
        const QString own = TargetOf(**entry);
        if (own == target) {
            found = *entry;
            break;
        }
        if (found == nullptr && own == target.section(u'#', 0, 0)) found = *entry;
    }
    m_contents->setCurrentItem(found);
}

void HelpWindow::GoHome() {
    m_browser->Open(HomePage());
}

// The bar of the page is left first.
void HelpWindow::Leave() {
    if (m_find->isHidden()) {
        close();
    } else {
        m_find->hide();
        m_browser->setFocus(Qt::OtherFocusReason);
    }
}

void HelpWindow::OpenContents() {
    Present();
    GoHome();
    m_tabs->setCurrentWidget(m_contents);
    m_contents->setFocus(Qt::OtherFocusReason);
}

void HelpWindow::OpenSearch(const QString& words) {
    Present();
    if (m_browser->source().isEmpty()) GoHome();
    m_tabs->setCurrentWidget(m_search);
    m_search->Start(words);
}

void HelpWindow::OpenPage(const QString& target) {
    Present();
    m_browser->Open(target);
    m_browser->setFocus(Qt::OtherFocusReason);
}

void HelpWindow::Present() {
    if (!std::exchange(m_wasShown, true)) {
        FillContents();
        RestoreSize();
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void HelpWindow::RestoreSize() {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    const QSize room = screen == nullptr ? kFirstSize : screen->availableSize();
    const QSize wanted(StoredPixels(m_application, QStringLiteral("Width"), kFirstSize.width()),
                       StoredPixels(m_application, QStringLiteral("Height"), kFirstSize.height()));
    resize(wanted.expandedTo(kSmallestSize).boundedTo(room));
    const int contents =
        std::clamp(StoredPixels(m_application, QStringLiteral("Contents"), kFirstContents), kSmallestContents,
                   std::max(width() - kSmallestContents, kSmallestContents));
    m_panes->setSizes({contents, std::max(width() - contents, 1)});
    m_browser->SetZoom(Stored(m_application, QStringLiteral("Zoom"), 0));
}

void HelpWindow::StoreSize() {
    const QSize plain = isMaximized() || isFullScreen() ? normalGeometry().size() : size();
    Store(m_application, QStringLiteral("Width"), plain.width() * kTwipsPerPixel);
    Store(m_application, QStringLiteral("Height"), plain.height() * kTwipsPerPixel);
    Store(m_application, QStringLiteral("Contents"), m_tabs->width() * kTwipsPerPixel);
    Store(m_application, QStringLiteral("Zoom"), m_browser->Zoom());
}

void HelpWindow::closeEvent(QCloseEvent* event) {
    StoreSize();
    QMainWindow::closeEvent(event);
}

void HelpWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_toolBar != nullptr) DrawIcons();
}

}  // namespace sheetwright
