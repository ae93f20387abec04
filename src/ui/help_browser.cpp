#include "ui/help_browser.h"

#include "core/application.h"
#include "core/failure.h"
#include "core/help_html.h"
#include "core/help_page.h"
#include "core/help_search.h"
#include "core/paths.h"

#include <QDesktopServices>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextCursor>
#include <QUrl>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace sheetwright {

namespace {

constexpr qreal kMargin = 14;  // pixels
constexpr int kSmallest = -4;
constexpr int kLargest = 10;
constexpr double kZoomStep = 1.1;
constexpr qsizetype kMostHighlights = 500;
constexpr int kDarkest = 128;

bool IsDark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < kDarkest;
}

QString FolderPath(const QString& folder) {
    const QString canonical = QFileInfo(OnDisk(folder)).canonicalFilePath();
    return (canonical.isEmpty() ? QDir::cleanPath(QDir(OnDisk(folder)).absolutePath()) : canonical) + u'/';
}

bool IsOfTheWeb(const QUrl& url) {
    return url.scheme() == u"http" || url.scheme() == u"https" || url.scheme() == u"mailto";
}

bool IsPage(const QString& path) {
    return path.endsWith(u".html", Qt::CaseInsensitive) || path.endsWith(u".htm", Qt::CaseInsensitive);
}

QByteArray Bytes(const QString& path) {
    QByteArray bytes;
    if (!path.isEmpty()) Ignoring([&] { bytes = ReadWholeFile(path); });
    return bytes;
}

}  // namespace

HelpBrowser::HelpBrowser(const Application& application, const QString& folder, QWidget* parent)
    : QTextBrowser(parent),
      OpenOutside([](const QUrl& url) { QDesktopServices::openUrl(url); }),
      m_application(application),
      m_folder(FolderPath(folder)),
      m_isDark(IsDark(palette())) {
    setObjectName(QStringLiteral("txtHelp"));
    setAccessibleName(application.Translate(QStringLiteral("Help page")));
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    document()->setDocumentMargin(kMargin);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::Follow);
    // `source` still tells the page before when this is told.
    connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& url) { m_shown = url; });
}

void HelpBrowser::Open(const QString& target) {
    QUrl url = QUrl::fromLocalFile(m_folder + target.section(u'#', 0, 0));
    if (const QString place = target.section(u'#', 1); !place.isEmpty()) url.setFragment(place);
    setSource(url);
}

QString HelpBrowser::Target() const {
    const QString path = m_shown.toLocalFile();
    if (!path.startsWith(m_folder)) return {};
    const QString place = m_shown.fragment();
    return path.sliced(m_folder.size()) + (place.isEmpty() ? QString() : u'#' + place);
}

void HelpBrowser::Follow(const QUrl& url) {
    if (IsOfTheWeb(url)) {
        OpenOutside(url);
    } else {
        setSource(url);
    }
}

void HelpBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType) {
    setExtraSelections({});
    QTextBrowser::doSetSource(url, QTextDocument::HtmlResource);
}

void HelpBrowser::Highlight(const QString& words) {
    QList<ExtraSelection> places;
    for (const QString& word : PlainWords(words)) {
        const QRegularExpression beginning(
            QStringLiteral("\\b") + QRegularExpression::escape(word),
            QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
        QTextCursor cursor = document()->find(beginning);
        for (; !cursor.isNull() && places.size() < kMostHighlights;
             cursor = document()->find(beginning, cursor)) {
            ExtraSelection place;
            place.cursor = cursor;
            place.format.setBackground(m_isDark ? QColor(0x6b, 0x5a, 0x10) : QColor(0xff, 0xee, 0x99));
            places << place;
        }
    }
    setExtraSelections(places);
}

void HelpBrowser::SetZoom(int steps) {
    m_zoom = std::clamp(steps, kSmallest, kLargest);
    QFont letters = parentWidget() == nullptr ? QFont() : parentWidget()->font();
    letters.setPointSizeF(QFontInfo(letters).pointSizeF() * std::pow(kZoomStep, m_zoom));
    const QTextCursor top = cursorForPosition(QPoint());
    setFont(letters);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(top).top());
}

void HelpBrowser::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) return QTextBrowser::wheelEvent(event);
    if (const int turned = event->angleDelta().y(); turned != 0) SetZoom(m_zoom + (turned > 0 ? 1 : -1));
    event->accept();
}

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && IsDark(palette()) != m_isDark) ShowInNewColours();
}

void HelpBrowser::ShowInNewColours() {
    m_isDark = !m_isDark;
    if (source().isEmpty()) return;
    const int place = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(place);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    if (type == QTextDocument::HtmlResource) m_page = name;
    const QUrl url = m_page.resolved(name);
    switch (type) {
        case QTextDocument::HtmlResource:
            return PageText(url);
        case QTextDocument::StyleSheetResource:
            return StyleSheet(url);
        default:
            return Bytes(PathOf(url));
    }
}

// Also for a file that is not there.
bool HelpBrowser::IsInFolder(const QString& path) const {
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return QDir::cleanPath(path).startsWith(m_folder) &&
           (canonical.isEmpty() || canonical.startsWith(m_folder));
}

// "" for what does not lie in the folder.
QString HelpBrowser::PathOf(const QUrl& url) const {
    const QString path = url.isLocalFile() ? url.toLocalFile() : QString();
    return !path.isEmpty() && IsInFolder(path) ? path : QString();
}

QString HelpBrowser::PageText(const QUrl& url) const {
    const QString path = PathOf(url);
    if (path.isEmpty() || !IsPage(path))
        return MessagePage(m_application.Translate(QStringLiteral("\"%1\" is no page of the help."),
                                                   url.toDisplayString(QUrl::RemoveFragment)));
    const QString name = path.sliced(m_folder.size());
    if (!FileExists(path))
        return MessagePage(
            m_application.Translate(QStringLiteral("The page \"%1\" of the help is missing."), name));
    QString text;
    const bool isRead = !Ignoring([&] { text = ReadHelpFile(path); });
    if (!isRead || IsTooDeep(text))
        return MessagePage(
            m_application.Translate(QStringLiteral("The page \"%1\" of the help can't be shown."), name));
    if (ReadHelpPage(text).IsEmpty() && !text.contains(QStringLiteral("<img")))
        return MessagePage(
            m_application.Translate(QStringLiteral("The page \"%1\" of the help is empty."), name));
    return text;
}

QString HelpBrowser::StyleSheet(const QUrl& url) const {
    const QString styles = QString::fromUtf8(Bytes(PathOf(url)));
    return m_isDark ? InDarkColours(styles) : styles;
}

QString HelpBrowser::MessagePage(const QString& message) const {
    return QStringLiteral(
               "<html><head><link rel=\"stylesheet\" type=\"text/css\" href=\"%1help.css\"></head>"
               "<body><h1>%2</h1><p>%3</p><p><a href=\"%1index.html\">%4</a></p></body></html>")
        .arg(QString::fromLatin1(QUrl::fromLocalFile(m_folder).toEncoded()).toHtmlEscaped(),
             m_application.Translate(QStringLiteral("Help")).toHtmlEscaped(), message.toHtmlEscaped(),
             m_application.Translate(QStringLiteral("Contents")).toHtmlEscaped());
}

QString InDarkColours(const QString& styleSheet) {
    static const QRegularExpression colour(QStringLiteral("#[0-9A-Fa-f]{6}\\b"));
    QString styles;
    qsizetype end = 0;
    for (const QRegularExpressionMatch& match : colour.globalMatch(styleSheet)) {
        float hue = 0;
        float saturation = 0;
        float lightness = 0;
        QColor(match.captured()).getHslF(&hue, &saturation, &lightness);
        styles += QStringView(styleSheet).sliced(end, match.capturedStart() - end);
        styles += QColor::fromHslF(std::max(hue, 0.0F), saturation, 1 - lightness).name();
        end = match.capturedEnd();
    }
    styles += QStringView(styleSheet).sliced(end);
    return styles;
}

}  // namespace sheetwright
