// Where the working copies live.
#pragma once

#include <QString>
#include <string>

// The executable's folder where it can be written, else a sub-folder of that name, made here, in the user's
// own data folder. With its trailing separator.
std::u16string programFolder(const QString& executableFolder, const QString& subFolder);
