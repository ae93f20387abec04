// Any bytes are a page of the help and its contents: they are read, and nothing else may come of it.

#include "core/help_html.h"
#include "core/help_page.h"
#include "core/text.h"

#include <cstdint>
#include <cstdlib>
#include <tuple>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString html = sheetwright::DecodeFileText(QByteArrayView(data, static_cast<qsizetype>(size)));
    if (sheetwright::ReadHelpPage(html).sections.empty()) std::abort();
    int deepest = 0;
    for (const sheetwright::HelpEntry& entry :
         sheetwright::ReadHelpContents(html, QStringLiteral("index.html"))) {
        if (entry.title.isEmpty() || entry.depth > deepest) std::abort();
        deepest = entry.depth + 1;
    }
    std::ignore = sheetwright::IsTooDeep(html);
    return 0;
}
