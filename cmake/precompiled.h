// What nearly every source of the engine includes.
#include <QByteArray>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>
