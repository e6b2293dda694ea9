#pragma once

#include <concepts>
#include <string>
#include <string_view>

class TiXmlElement;

namespace KOR {

/// A named switch. Without a name it is not set.
class Flag {
public:
    Flag() = default;
    /// Only for bool itself: a text would become true, whatever it says.
    Flag(std::string name, std::same_as<bool> auto state) : m_name(std::move(name)), m_state(state) {}

    /// Sets name and state; "1", "yes", "true" and "0", "no", "false" are read without regard to case.
    /// Throws "Invalid value '%2' for flag '%1'!" ("[Flag::set]"); the flag stays as it was.
    void set(std::string name, std::string_view text);
    void set(std::string name, std::same_as<bool> auto state) { *this = Flag(std::move(name), state); }

    const std::string & name() const { return m_name; }
    bool isEnabled() const { return m_state; }
    bool empty() const { return m_name.empty(); }

    /// Reads a "KOR:Flag" element; throws with the element's line.
    void readXML(const TiXmlElement & element);
    /// Appends \<KOR:Flag name=\>true|false\</KOR:Flag\>.
    void writeXML(TiXmlElement & parent) const;
    bool operator==(const Flag &) const = default;

private:
    std::string m_name;
    bool m_state = false;
};

} // namespace KOR
