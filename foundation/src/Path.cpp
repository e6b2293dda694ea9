#include <KOR/Path.h>

#include <KOR/Exception.h>
#include <KOR/Strings.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace KOR {

namespace fs = std::filesystem;

namespace {

/// Length of the leading "${Name}", 0 if there is none.
std::size_t placeholderLength(std::string_view path) {
    const std::size_t end = path.starts_with("${") ? path.find('}') : std::string_view::npos;
    return end == std::string_view::npos || end == 2 ? 0 : end + 1;
}

bool hasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' &&
           ((path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z'));
}

bool isDots(std::string_view component) {
    return component == "." || component == "..";
}

/// Position behind the slashes that begin at \p at.
std::size_t behindSlashes(std::string_view path, std::size_t at) {
    return std::min(path.find_first_not_of('/', at), path.size());
}

} // namespace

Path::Path(std::string_view text) : m_text(text) {
    std::replace(m_text.begin(), m_text.end(), '\\', '/');
}

std::size_t Path::rootLength() const {
    if (const std::size_t length = placeholderLength(m_text); length > 0)
        return behindSlashes(m_text, length);
    return isAbsolute() ? behindSlashes(m_text, hasDrive(m_text) ? 2 : 0) : 0;
}

std::pair<std::size_t, std::size_t> Path::lastComponent() const {
    const std::size_t root = rootLength();
    const std::size_t last = m_text.find_last_not_of('/');
    if (last == std::string::npos || last < root)
        return {root, root};
    const std::size_t slash = m_text.find_last_of('/', last);
    return {slash == std::string::npos ? root : std::max(root, slash + 1), last + 1};
}

std::string Path::filename() const {
    const auto [begin, end] = lastComponent();
    std::string name = m_text.substr(begin, end - begin);
    if (name.empty() || end != m_text.size() || isDots(name))
        throw Exception(text("Invalid path: '%1'", m_text), "[Path::filename]");
    return name;
}

Path Path::parentPath() const {
    if (m_text.empty())
        throw Exception(text("Invalid path: '%1'", m_text), "[Path::parentPath]");
    const auto [begin, end] = lastComponent();
    if (begin == end || isDots(std::string_view(m_text).substr(begin, end - begin)))
        throw Exception("No parent possible.", "[Path::parentPath]");
    if (begin == 0)
        return Path(".");
    const std::size_t root = rootLength();
    // A root keeps its slash, any other directory loses it.
    if (begin == root)
        return Path(m_text.substr(0, placeholderLength(m_text) > 0 ? placeholderLength(m_text) : root));
    return Path(m_text.substr(0, m_text.find_last_not_of('/', begin - 1) + 1));
}

std::string Path::extension() const {
    const auto [begin, end] = lastComponent();
    const std::string name = m_text.substr(begin, end - begin);
    const std::size_t dot = name.find_last_of('.');
    return dot == std::string::npos || dot == 0 || isDots(name) ? std::string() : name.substr(dot + 1);
}

Path Path::withoutExtension() const {
    const std::string suffix = extension();
    return suffix.empty() ? *this : Path(m_text.substr(0, lastComponent().second - suffix.size() - 1));
}

bool Path::isAbsolute() const {
    return m_text.starts_with('/') || (hasDrive(m_text) && m_text.size() > 2 && m_text[2] == '/');
}

Path Path::absolutePath(const Path & base) const {
    return m_text.empty() || isAbsolute() || placeholder() ? *this : base / m_text;
}

Path operator/(const Path & directory, std::string_view name) {
    if (directory.empty() || name.empty())
        return directory.empty() ? Path(name) : directory;
    return Path(directory.m_text + (directory.m_text.ends_with('/') ? "" : "/") + std::string(name));
}

Path Path::normalized() const {
    const std::size_t root = rootLength();
    std::vector<std::string_view> kept;
    for (const std::string_view component : split(std::string_view(m_text).substr(root), '/')) {
        if (component.empty() || component == ".")
            continue;
        if (component != ".." || ((kept.empty() || kept.back() == "..") && root == 0))
            kept.push_back(component);
        else if (!kept.empty())
            kept.pop_back();
        else if (placeholderLength(m_text) > 0)
            return *this; // leaves the placeholder's directory: only its value can tell where to
    }
    std::string result = m_text.substr(0, root);
    if (root > 0) { // one slash, or the two of a server; none behind a lone placeholder
        result.resize(result.find_last_not_of('/') + 1);
        if (result.empty() && root == 2)
            result = "//";
        else if (!kept.empty() || placeholderLength(m_text) == 0)
            result += '/';
    }
    for (std::size_t i = 0; i < kept.size(); ++i) {
        result += i > 0 ? "/" : "";
        result += kept[i];
    }
    return Path(result.empty() && !m_text.empty() ? "." : result);
}

std::optional<std::string> Path::placeholder() const {
    const std::size_t length = placeholderLength(m_text);
    return length == 0 ? std::nullopt : std::optional(m_text.substr(2, length - 3));
}

std::set<std::string> Path::usedPlaceholders(std::span<const Path> paths) {
    std::set<std::string> names;
    for (const Path & path : paths)
        if (auto name = path.placeholder())
            names.insert(*std::move(name));
    return names;
}

Path Path::withReplacedPlaceholders(const Placeholders & placeholders) const {
    Path path = *this;
    std::set<std::string> seen;
    while (const auto name = path.placeholder()) {
        const auto found = placeholders.find(*name);
        if (found == placeholders.end() || found->second.empty())
            break;
        if (!seen.insert(*name).second)
            return *this;
        std::string_view rest = std::string_view(path.m_text).substr(placeholderLength(path.m_text));
        const bool hadSlash = rest.starts_with('/');
        rest.remove_prefix(behindSlashes(rest, 0));
        Path directory(found->second);
        if (hadSlash && rest.empty() && !directory.m_text.ends_with('/'))
            directory.m_text += '/';
        path = directory / rest;
    }
    return path;
}

Path Path::withPlaceholder(const Placeholders & placeholders) const {
    if (!isAbsolute())
        return *this;
    const std::string self = normalized().m_text;
    std::size_t deepest = 0;
    std::string result;
    for (const auto & [name, text] : placeholders) {
        std::string directory = Path(text).withReplacedPlaceholders(placeholders).normalized().m_text;
        if (!Path(directory).isAbsolute() || Path(directory).rootLength() == directory.size())
            continue; // everything lies below a root: that says nothing
        const bool isBelow =
            self.starts_with(directory) && (self.size() == directory.size() || self[directory.size()] == '/');
        // Of two names for one directory the later wins: the project's before the installation's.
        if (isBelow && directory.size() >= deepest) {
            deepest = directory.size();
            result = "${" + name + "}" + self.substr(directory.size());
        }
    }
    if (deepest == 0)
        return *this;
    return Path(result + (m_text.ends_with('/') && !result.ends_with('/') ? "/" : ""));
}

const std::string & Path::systemPath() const {
    if (const auto name = placeholder())
        throw Exception(text("Unknown placeholder '%1' in path '%2'.", *name, m_text), "[Path::systemPath]");
    return m_text;
}

bool Path::isFile() const {
    std::error_code error;
    return fs::is_regular_file(m_text, error);
}

bool Path::isDirectory() const {
    std::error_code error;
    return fs::is_directory(m_text, error);
}

void Path::makePath() const {
    constexpr const char * WHERE = "[KOR_Path::makePath]";
    if (m_text.empty() || m_text.find('\0') != std::string::npos || validUtf8Length(m_text) != m_text.size())
        throw Exception(text("Cannot convert directory '%1', from UTF8 to Unicode!", m_text), WHERE);
    std::error_code error;
    fs::create_directories(systemPath(), error);
    if (!isDirectory()) {
        const std::string reason = error ? error.message() : "a file of that name is in the way";
        const std::string problem = text("Cannot create directory '%1': %2", m_text, reason);
        throw Exception(text("%1\nError in CreateDirectoryW().", problem), WHERE);
    }
}

} // namespace KOR
