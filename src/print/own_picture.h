#pragma once

// A form's own copies of the pictures that its design names. They are what goes into its archive.

#include <QString>

namespace sheetwright {

class PictureCache;

// The copy in `ownFolder` of the picture that a design names. When there is none yet it is made: of the file
// at `named` or, for a bare name, of the one in `besideFolder`. "" when the picture is found nowhere. Both
// folders with a trailing separator. Raises what loading, reading and writing it raise; nothing but a picture
// is copied.
[[nodiscard]] QString OwnPicture(PictureCache& pictures, const QString& named, const QString& ownFolder,
                                 const QString& besideFolder);

}  // namespace sheetwright
