#include "print/own_picture.h"

#include "core/paths.h"
#include "print/picture_file.h"

namespace sheetwright {

namespace {

QString NamedFile(const QString& named, const QString& besideFolder) {
    if (FileExists(named)) return named;
    if (!GetFolder(named).isEmpty()) return {};
    const QString beside = besideFolder + named;
    return FileExists(beside) ? beside : QString();
}

// A form from elsewhere may name any file of this machine.
void CopyPicture(PictureCache& pictures, const QString& from, const QString& to) {
    (void)pictures.Load(from);
    WriteFileAtomically(to, ReadWholeFile(from));
}

}  // namespace

QString OwnPicture(PictureCache& pictures, const QString& named, const QString& ownFolder,
                   const QString& besideFolder) {
    QString own = ownFolder + GetFileName(named);
    if (FileExists(own)) return own;
    const QString original = NamedFile(named, besideFolder);
    if (original.isEmpty()) return {};
    CopyPicture(pictures, original, own);
    return own;
}

}  // namespace sheetwright
