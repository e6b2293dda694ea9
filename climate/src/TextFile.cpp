#include "TextFile.h"

#include <CCM/ClimateQuantity.h>

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Strings.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <fstream>

namespace CCM {

namespace {

constexpr std::size_t MAX_FILE_SIZE = std::size_t(1) << 30;
constexpr std::size_t HEAD_SIZE = std::size_t(1) << 18;

/// Windows-1252 0x80 to 0x9F as Unicode; the five free places stand for themselves.
constexpr unsigned int CP1252[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                     0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void appendUtf8(std::string & out, unsigned int code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

/// The characters of KOR::WHITE_SPACE; this runs for every field of a file.
bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace

std::string readText(const std::string & path, bool headerOnly, const char * where) {
    if (!std::ifstream(path, std::ios::binary))
        throw KOR::Exception(KOR::text("Climate data file '%1' does not exist or is not accessible.", path), where);
    try {
        if (!headerOnly)
            return KOR::readFile(path, MAX_FILE_SIZE);
        std::string head = KOR::readFileHead(path, HEAD_SIZE);
        if (head.size() == HEAD_SIZE)
            head.resize(head.find_last_of("\r\n") + 1);
        return head;
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Error reading file '%1'.", path), where);
    }
}

std::string toUtf8(std::string_view text) {
    if (KOR::validUtf8Length(text) == text.size())
        return std::string(text);
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        appendUtf8(out, byte >= 0x80 && byte < 0xA0 ? CP1252[byte - 0x80] : byte);
    }
    return out;
}

std::string excerpt(std::string_view line) {
    constexpr std::size_t MAX_LENGTH = 200;
    if (line.size() <= MAX_LENGTH)
        return toUtf8(line);
    const std::string_view begin = line.substr(0, MAX_LENGTH);
    const std::size_t valid = KOR::validUtf8Length(begin); // the cut may go through a character of up to four bytes
    return toUtf8(valid + 4 > MAX_LENGTH ? begin.substr(0, valid) : begin) + "...";
}

LineReader::LineReader(std::string_view text) : m_text(text) {
    if (m_text.starts_with("\xEF\xBB\xBF"))
        m_text.remove_prefix(3);
}

bool LineReader::next(std::string_view & line) {
    if (m_position >= m_text.size())
        return false;
    ++m_number;
    // Each kind of line end is searched for once only, else a text with only one kind would be scanned again and again.
    if (m_nextReturn == UNKNOWN || m_nextReturn < m_position)
        m_nextReturn = std::min(m_text.find('\r', m_position), m_text.size());
    if (m_nextFeed == UNKNOWN || m_nextFeed < m_position)
        m_nextFeed = std::min(m_text.find('\n', m_position), m_text.size());
    const std::size_t end = std::min(m_nextReturn, m_nextFeed);
    line = m_text.substr(m_position, end - m_position);
    m_position = end + 1;
    if (end < m_text.size() && m_text[end] == '\r' && m_position < m_text.size() && m_text[m_position] == '\n')
        ++m_position;
    return true;
}

bool LineReader::nextNonEmpty(std::string_view & line) {
    while (next(line))
        if (!withoutBlanks(line).empty())
            return true;
    return false;
}

void splitFields(std::string_view line, std::vector<std::string_view> & fields, std::size_t maxFields) {
    fields.clear();
    const bool hasQuotes = line.find('"') != std::string_view::npos;
    std::size_t start = 0;
    while (fields.size() < maxFields) {
        std::size_t search = start;
        if (hasQuotes) {
            const std::size_t first = line.find_first_not_of(" \t", start);
            if (first != std::string_view::npos && line[first] == '"') {
                search = first + 1;
                // A doubled quote is part of the text.
                while ((search = line.find('"', search)) != std::string_view::npos && search + 1 < line.size() &&
                       line[search + 1] == '"')
                    search += 2;
                if (search == std::string_view::npos)
                    search = start; // never closed: an ordinary character
            }
        }
        const std::size_t end = line.find(',', search);
        std::string_view field = withoutBlanks(line.substr(start, end == std::string_view::npos ? end : end - start));
        if (hasQuotes && field.size() > 1 && field.front() == '"' && field.back() == '"')
            field = field.substr(1, field.size() - 2);
        fields.push_back(field);
        if (end == std::string_view::npos)
            return;
        start = end + 1;
    }
}

void splitAtCommas(std::string_view line, std::vector<std::string_view> & fields, std::size_t maxFields) {
    constexpr std::uint64_t ONES = 0x0101010101010101;
    constexpr std::uint64_t LOW_BITS = 0x7F * ONES;
    fields.resize(maxFields);
    const char * const text = line.data();
    std::size_t count = 0;
    std::size_t start = 0;
    const auto take = [&](std::size_t end) {
        fields[count++] = std::string_view(text + start, end - start);
        start = end + 1;
        return count < maxFields;
    };
    std::size_t at = 0;
    for (; at + 8 <= line.size(); at += 8) { // eight characters at once
        std::uint64_t word = 0;
        std::memcpy(&word, text + at, 8);
        word ^= ONES * ','; // commas are now zero
        // The top bit of each byte that is zero, exactly: the addition cannot carry from byte to byte.
        std::uint64_t commas = ~(((word & LOW_BITS) + LOW_BITS) | word | LOW_BITS);
        for (; commas != 0; commas &= commas - 1)
            if (!take(at + static_cast<std::size_t>(std::countr_zero(commas)) / 8))
                return;
    }
    for (; at < line.size(); ++at)
        if (text[at] == ',' && !take(at))
            return;
    take(line.size());
    fields.resize(count);
}

std::string unquoted(std::string_view field) {
    return KOR::replaced(toUtf8(field), "\"\"", "\"");
}

double numberOrMissing(std::string_view field) {
    static constexpr double POWERS_OF_TEN[] = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6, 1e7,
                                               1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
    constexpr std::size_t MAX_EXACT = 15; // digits that a double holds exactly, so that one division rounds rightly
    field = withoutBlanks(field);
    const bool isNegative = !field.empty() && field[0] == '-';
    std::string_view digits = field.substr(isNegative ? 1 : 0);
    std::int64_t whole = 0;
    std::size_t point = std::string_view::npos;
    std::size_t i = 0;
    for (; i < digits.size() && i <= MAX_EXACT; ++i) {
        const auto digit = static_cast<unsigned char>(digits[i] - '0');
        if (digit <= 9)
            whole = whole * 10 + digit;
        else if (digits[i] == '.' && point == std::string_view::npos)
            point = i;
        else
            break;
    }
    const bool hasPoint = point != std::string_view::npos;
    const std::size_t decimals = hasPoint ? digits.size() - point - 1 : 0;
    const std::size_t count = digits.size() - (hasPoint ? 1 : 0);
    if (i == digits.size() && count > 0 && count <= MAX_EXACT && decimals < MAX_EXACT) {
        const double value = static_cast<double>(whole) / POWERS_OF_TEN[decimals];
        return isNegative ? -value : value;
    }
    return KOR::parseDouble(field).value_or(MISSING);
}

} // namespace CCM
