#pragma once

#include <compare>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace KOR {

/// A file or directory path: UTF-8 text with forward slashes (back slashes are turned), otherwise kept as written.
///
/// A path may begin with a placeholder: a name in "${" and "}", as in "${Project Directory}/materials/brick.m6".
/// A placeholder without a directory stays in the path; it fails with its name when the path is used.
class Path {
public:
    /// Directories by placeholder name. A directory may begin with another placeholder.
    using Placeholders = std::map<std::string, std::string>;

    static constexpr const char * PROJECT_DIRECTORY = "Project Directory"; ///< built in: where the project file is
    static constexpr const char * INSTALL_DIRECTORY = "Install Directory"; ///< built in: where the executables are
    static constexpr const char * CLIMATE_DATABASE = "Climate Database";
    static constexpr const char * USER_CLIMATE_DATABASE = "User Climate Database";

    Path() = default;
    explicit Path(std::string_view text);

    const std::string & str() const { return m_text; }
    bool empty() const { return m_text.empty(); }

    /// The last component. Throws "Invalid path: '%1'" ("[Path::filename]") if there is none that names a file:
    /// an empty path, one that ends in a slash, "." or "..", a root or a lone placeholder.
    std::string filename() const;
    /// Without the last component and the slash before it; "." for a lone name. Trailing slashes do not count.
    /// Throws ("[Path::parentPath]") "Invalid path: '%1'" for an empty path and "No parent possible." for a root, a
    /// lone placeholder, "." and "..".
    Path parentPath() const;
    /// What follows the last dot of the last component, without the dot; empty for "name", ".name" and "name.".
    std::string extension() const;
    /// The path without the extension and its dot.
    Path withoutExtension() const;

    /// True for "/a", "//server/a" and "C:/a"; a path with a placeholder is not absolute.
    bool isAbsolute() const;
    /// Relative paths are taken from \p base; absolute ones and those with a placeholder stay.
    Path absolutePath(const Path & base) const;
    /// Without "." and ".." and doubled slashes, as far as the text alone can tell.
    Path normalized() const;
    /// Adds a component.
    friend Path operator/(const Path & directory, std::string_view name);

    /// The name of the leading placeholder.
    std::optional<std::string> placeholder() const;
    /// The names of all placeholders that the paths use.
    static std::set<std::string> usedPlaceholders(std::span<const Path> paths);
    /// The leading placeholder replaced by its directory, again and again until an absolute or plain path stands there.
    /// A placeholder that is not in the map, or that leads back to itself, stays.
    Path withReplacedPlaceholders(const Placeholders & placeholders) const;
    /// The reverse: a path in or below one of the directories begins with the placeholder of the deepest of them.
    /// Paths that have a placeholder, are relative or lie elsewhere stay as they are.
    Path withPlaceholder(const Placeholders & placeholders) const;

    /// The text for the operating system. Throws "Unknown placeholder '%1' in path '%2'." ("[Path::systemPath]").
    const std::string & systemPath() const;
    bool isFile() const;      ///< an existing regular file
    bool isDirectory() const; ///< an existing directory

    /// Creates the directory with all missing parents; an existing one is left alone. Throws ("[KOR_Path::makePath]")
    /// when the text is not UTF-8 or the system refuses, and as systemPath().
    void makePath() const;

    friend auto operator<=>(const Path &, const Path &) = default;

private:
    /// Position behind the part that has no parent: "/", "C:/", "//", "${Name}/", with all its slashes; 0 if there is none.
    std::size_t rootLength() const;
    /// Position of the last component, trailing slashes ignored, and its end.
    std::pair<std::size_t, std::size_t> lastComponent() const;

    std::string m_text;
};

} // namespace KOR
