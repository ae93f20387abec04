// Any stationery value is taken, or refused with failure 6; whatever it holds, an image ends with a
// resolution.

#include "core/failure.h"
#include "document/document.h"
#include "print/form_surfaces.h"
#include "print/page_stationery.h"
#include "print/stationery.h"
#include "support/test_application.h"

#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

using namespace sheetwright;

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

struct Form {
    QTemporaryDir folder;
    RecordingUserInterface ui;
    Application application{QStringLiteral("Fuzz"), folder.path(),
                            Settings(folder.filePath(QStringLiteral("settings"))), ui};
    frmSheetwright document{application};

    Form() {
        document.MyTempDir = folder.path() + u'/';
        QImage image(10, 14, QImage::Format_RGB32);
        image.fill(Qt::white);
        Require(image.save(folder.filePath(QStringLiteral("scan.bmp")), "BMP"));
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Form form;
    const QString value =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const std::optional<Failure> caught = Ignoring([&] { LoadPPSettings(form.document, value); });
    Require(!caught || caught->Number() == failure::kOverflow);
    Require(caught || form.document.stationery->imageDPI != 0);
    Require(form.ui.pointer == Pointer::Normal);
    form.ui.pointers.clear();
    form.document.surfaces->picForm.Cls();
    return 0;
}
