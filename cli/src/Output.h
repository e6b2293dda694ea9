#pragma once

#include <KOR/Exception.h>

#include <nlohmann/json_fwd.hpp>

#include <exception>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace CMD {

/// Somebody stopped the command, which left everything in order.
class Interrupted : public KOR::Exception {
    using Exception::Exception;
};

/// Where a command puts its results: as text for a reader or as one JSON document for a program, never both.
class Output {
public:
    Output(std::ostream & out, std::ostream & err, bool isJson) : m_out(out), m_err(err), m_isJson(isJson) {}

    bool isJson() const { return m_isJson; }
    std::ostream & text() { return m_out; }
    /// Writes the document, indented, numbers with all their digits.
    void json(const nlohmann::ordered_json & document);

    /// A note to the user that is no result; goes to the error stream.
    std::ostream & notes() { return m_err; }
    /// Reports a fault (outermost message first) and lets the command go on; the program will end with 1.
    void fail(const std::exception & fault);
    bool hasFailed() const { return m_hasFailed; }

    /// Writes a table atomically, but never over one of the files it was made of.
    /// Throws "Cannot write '%1'." above the cause ("[Output::writeTable]").
    static void writeTable(const std::string & path, std::string_view table, const std::vector<std::string> & sources);

private:
    std::ostream & m_out;
    std::ostream & m_err;
    bool m_isJson;
    bool m_hasFailed = false;
};

} // namespace CMD
