// Any text can be checked: the check ends, raises nothing, and says where each finding is.

#include "core/text.h"
#include "document/form_check.h"

#include <cstdint>
#include <cstdlib>

using namespace sheetwright;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text =
        DecodeFileText(QByteArrayView(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    const Conventions conventions = ConventionsOf(QLocale::c());
    const FormCheckSetting setting{conventions,
                                   {},
                                   [](const QString& name) { return name.isEmpty(); },
                                   [](int code, int orientation) { return code == orientation; }};
    CheckForm(text, setting, [](const Finding& finding) {
        if (finding.page.isEmpty() || finding.text.isEmpty()) std::abort();
    });
    return 0;
}
