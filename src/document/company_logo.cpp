#include "document/company_logo.h"

#include "core/application.h"
#include "core/paths.h"
#include "core/text.h"
#include "document/document.h"
#include "formula/value_conversion.h"

#include <array>
#include <cmath>
#include <optional>
#include <vector>

namespace sheetwright {

namespace {

struct LogoSettings {
    std::int32_t left;
    std::int32_t top;
    std::int32_t height;
    std::int32_t width;
    bool stretch;
};

// Where a picture record stood before, in twips: on the page, and relative to its container.
struct Place {
    std::int32_t absLeft = 0;
    std::int32_t absTop = 0;
    std::int32_t left = 0;
    std::int32_t top = 0;
};

// The lines of a record in its page, "BEGIN PICTURE" and "END PICTURE" included.
struct Record {
    int first;
    int last;
};

QString DesignToolSetting(const Application& application, const QString& key, const QString& fallback) {
    return application.settings.Read(QStringLiteral("Tolvane Quillon Form Designer"),
                                     QStringLiteral("frmPrefs"), key, fallback);
}

std::int32_t Whole(const Application& application, QStringView text) {
    return ToInt32(ToNumber(text, application.conventions));
}

LogoSettings ReadLogoSettings(const Application& application) {
    const QString zero = QStringLiteral("0");
    const auto number = [&](const QString& key) {
        return Whole(application, DesignToolSetting(application, key, zero));
    };
    return {number(QStringLiteral("LogoLeft")), number(QStringLiteral("LogoTop")),
            number(QStringLiteral("LogoHeight")), number(QStringLiteral("LogoWidth")),
            DesignToolSetting(application, QStringLiteral("LogoStretch"), zero) == u"1"};
}

// The lower-cased key, of a line without "=" the line itself; "" for a value of several lines.
QString LogoKey(QStringView line) {
    if (line.contains(u'\n')) return {};
    return (line.contains(u'=') ? KeyOf(line) : line).toString().toLower();
}

// A coordinate as it stands in the form; a fraction of a twip is dropped.
std::int32_t Cut(const Application& application, QStringView text) {
    return ToInt32(std::trunc(ToNumber(text, application.conventions)));
}

Place PlaceOf(const Application& application, const PageLines& page, Record record) {
    Place place;
    const std::array<std::pair<QStringView, std::int32_t*>, 4> members{{{u"absleft", &place.absLeft},
                                                                        {u"abstop", &place.absTop},
                                                                        {u"left", &place.left},
                                                                        {u"top", &place.top}}};
    for (int position = record.first; position <= record.last; ++position) {
        const QString key = LogoKey(page.Line(position));
        for (const auto& [name, member] : members)
            if (key == name) *member = Cut(application, ValueOf(page.Line(position)));
    }
    return place;
}

// The container's own offset stays; the logo moves by what the user set. Each step must fit 32 bits.
std::int32_t Moved(std::int32_t absolute, std::int32_t old, std::int32_t wanted) {
    const std::int32_t distance = ToInt32(static_cast<double>(old) - wanted);
    return ToInt32(static_cast<double>(absolute) - distance);
}

using NewLine = QString (*)(const Place& place, const LogoSettings& logo);

struct Rewriting {
    QStringView key;
    NewLine line;
};

constexpr std::array kRewritings{
    Rewriting{u"picture",
              [](const Place&, const LogoSettings&) { return QStringLiteral("Picture=newcompanylogo.bmp"); }},
    Rewriting{u"absleft",
              [](const Place& place, const LogoSettings& logo) {
                  return QStringLiteral("AbsLeft=%1").arg(Moved(place.absLeft, place.left, logo.left));
              }},
    Rewriting{u"abstop",
              [](const Place& place, const LogoSettings& logo) {
                  return QStringLiteral("AbsTop=%1").arg(Moved(place.absTop, place.top, logo.top));
              }},
    Rewriting{u"left", [](const Place&,
                          const LogoSettings& logo) { return QStringLiteral("Left=%1").arg(logo.left); }},
    Rewriting{u"top",
              [](const Place&, const LogoSettings& logo) { return QStringLiteral("Top=%1").arg(logo.top); }},
    Rewriting{u"stretch",
              [](const Place&, const LogoSettings& logo) {
                  return logo.stretch ? QStringLiteral("Stretch=True") : QStringLiteral("Stretch=False");
              }},
    Rewriting{
        u"height",
        [](const Place&, const LogoSettings& logo) { return QStringLiteral("Height=%1").arg(logo.height); }},
    Rewriting{u"width", [](const Place&,
                           const LogoSettings& logo) { return QStringLiteral("Width=%1").arg(logo.width); }},
};

void RewriteRecord(frmSheetwright& document, int pageNumber, Record record, const LogoSettings& logo) {
    const PageLines& page = document.memory.DesignPage(pageNumber);
    const Place place = PlaceOf(document.application, page, record);
    for (int position = record.first; position <= record.last; ++position) {
        const QString key = LogoKey(page.Line(position));
        for (const Rewriting& rewriting : kRewritings)
            if (key == rewriting.key)
                document.memory.ReplaceDesignLine(pageNumber, position, rewriting.line(place, logo));
    }
}

// The records of a page that are reserved for the logo.
std::vector<Record> LogoRecords(const PageLines& page) {
    std::vector<Record> records;
    int first = 0;  // of the open picture record, 0 while none is open
    bool isLogo = false;
    for (int position = 1; position <= page.Count(); ++position) {
        const QStringView line = page.Line(position);
        if (line == u"BEGIN PICTURE") {
            first = position;
            isLogo = false;
        } else if (line == u"END PICTURE") {
            if (first != 0 && isLogo) records.push_back({first, position});
            first = 0;
        } else if (first != 0 && line.contains(u"=companylogo.bmp")) {
            isLogo = true;
        }
    }
    return records;
}

}  // namespace

void SubstituteCompanyLogo(frmSheetwright& document) {
    const Application& application = document.application;
    const QString file = DesignToolSetting(application, QStringLiteral("CompanyLogo"), QString());
    if (file.isEmpty()) return;
    std::optional<LogoSettings> logo;
    for (int page = 1; page <= document.memory.DesignPageCount(); ++page) {
        for (const Record record : LogoRecords(document.memory.DesignPage(page))) {
            if (!logo) logo = ReadLogoSettings(application);
            RewriteRecord(document, page, record, *logo);
        }
    }
    if (logo)
        WriteFileAtomically(document.MyTempDir + QStringLiteral("newcompanylogo.bmp"), ReadWholeFile(file));
}

}  // namespace sheetwright
