#include <KOR/Directories.h>

#include <KOR/Exception.h>

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace KOR::directories {

namespace fs = std::filesystem;

Path install() {
    std::error_code error;
    const fs::path executable = fs::read_symlink("/proc/self/exe", error);
    if (error || !executable.has_parent_path())
        throw Exception("Cannot find the directory of the program.", "[directories::install]");
    return Path(executable.parent_path().string());
}

Path userData() {
    // Relative values are to be ignored, says the XDG base directory specification.
    if (const char * data = std::getenv("XDG_DATA_HOME"); data && Path(data).isAbsolute())
        return Path(data) / APPLICATION_NAME;
    const char * home = std::getenv("HOME");
    if (!home || !*home) {
        const passwd * entry = ::getpwuid(::getuid());
        home = entry ? entry->pw_dir : nullptr;
    }
    if (!home || !*home)
        throw Exception("Cannot find the home directory of the user.", "[directories::userData]");
    return Path(home) / ".local/share" / APPLICATION_NAME;
}

Path::Placeholders placeholders(const Path & projectFile) {
    Path::Placeholders found;
    if (!projectFile.empty()) {
        std::error_code error;
        const fs::path absolute = fs::absolute(projectFile.str(), error);
        if (!error)
            found[Path::PROJECT_DIRECTORY] = Path(absolute.string()).normalized().parentPath().str();
    }
    const auto add = [&found](const char * name, auto && directory) {
        try {
            found[name] = directory().str();
        } catch (const Exception &) {
            // A placeholder without directory stays in the path and fails with its name when the path is used.
        }
    };
    add(Path::INSTALL_DIRECTORY, install);
    add(Path::CLIMATE_DATABASE, [] { return install() / "DB_climate"; });
    add(Path::USER_CLIMATE_DATABASE, [] { return userData() / "DB_climate"; });
    return found;
}

} // namespace KOR::directories
