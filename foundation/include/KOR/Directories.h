#pragma once

#include <KOR/Path.h>

/// Where the program and the user keep their things.
namespace KOR::directories {

/// Name of the user data directory and of the files in it.
inline constexpr const char * APPLICATION_NAME = "Hygrion6";

/// The directory of the running executable: the installation directory, which holds DB_materials and its like.
/// Links to the executable are followed. Throws "Cannot find the directory of the program." ("[directories::install]").
Path install();

/// "$XDG_DATA_HOME/Hygrion6", or "~/.local/share/Hygrion6" where the variable is not set to an absolute path.
/// It need not exist. Throws "Cannot find the home directory of the user." ("[directories::userData]").
Path userData();

/// The built-in placeholders, and those of the climate databases; \p projectFile may be relative or empty (then there is no
/// "Project Directory"). What cannot be found is left out.
Path::Placeholders placeholders(const Path & projectFile);

} // namespace KOR::directories
