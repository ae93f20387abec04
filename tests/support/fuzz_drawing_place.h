#pragma once

// Where fuzz targets draw: fonts, a paper table, and a picture beside the form.

#include "support/fuzz_workplace.h"

#include <QFile>
#include <QGuiApplication>
#include <QImage>

namespace sheetwright {

// Fonts need one, and it must outlive them.
inline QGuiApplication& FuzzGuiApplication() {
    static int count = 1;
    static char name[] = "fuzz";
    static char* names[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(count, names);
    return application;
}

class FuzzDrawingPlace : public FuzzWorkplace {
  public:
    FuzzDrawingPlace() {
        QImage image(3, 2, QImage::Format_RGB32);
        image.fill(Qt::blue);
        Require(image.save(Folder() + QStringLiteral("logo.png")));
        WriteFile(QStringLiteral("papersizes.csv"),
                  "PAPERSIZE,ORIENTATION,WIDTH,HEIGHT\r\n9,1,11906,16838\r\n9,2,16838,11906\r\n");
        TheApplication().LoadPaperTable();
    }

    void ForgetLog() { QFile::remove(TheApplication().LogFolder + QStringLiteral("errors.csv")); }
};

}  // namespace sheetwright
