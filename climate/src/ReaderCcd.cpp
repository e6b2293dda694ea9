#include <CCM/ClimateDataLoader.h>

#include "TextFile.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Strings.h>
#include <KOR/UnitList.h>

#include <algorithm>
#include <cmath>
#include <fstream>

namespace CCM {

namespace {

constexpr const char * WHERE = "[ClimateDataLoader::readCCDFile]";
constexpr std::string_view BLANKS = " \t\r";
constexpr std::string_view QUANTITY_KEYWORD = "QUANTITY";

/// What can be wrong with a file; the numbers are the reader's error codes.
enum ccd_error_t { CCD_OK, CCD_CANNOT_OPEN, CCD_BAD_HEADER, CCD_BAD_TIME, CCD_BAD_LINE };

std::string errorText(int code, std::size_t line, const std::string & path) {
    switch (code) {
    case CCD_CANNOT_OPEN:
        return KOR::text("Cannot open file '%1'.", path);
    case CCD_BAD_HEADER:
        return KOR::text("Bad header format in line %1", line);
    case CCD_BAD_TIME: // the missing parenthesis is part of the text
        return KOR::text("Invalid time point (non monotonic increasing or duplicate time point in line %1", line);
    case CCD_BAD_LINE:
        return KOR::text("Invalid format of line %1", line);
    default:
        return KOR::text("Unknown error in line %1\n(CCM developers should add error text here!)", line);
    }
}

[[noreturn]] void fail(int code, std::size_t line, const std::string & path) {
    throw KOR::Exception(KOR::text("#%1: %2", line, errorText(code, line, path)), WHERE);
}

/// "QUANTITY : Temperature C", and without its first word "Temperature : C".
void readHeader(std::string_view line, CCDFile & file) {
    const std::size_t colon = line.find(':');
    const auto right =
        colon == std::string_view::npos ? std::vector<std::string_view>() : KOR::words(line.substr(colon + 1), BLANKS);
    if (right.size() == 1 && !KOR::trimmed(line.substr(0, colon)).empty()) {
        file.quantity = toUtf8(KOR::trimmed(line.substr(0, colon)));
        file.unit = toUtf8(right.front());
        return;
    }
    const ClimateDataLoader::HeaderLine header = ClimateDataLoader::valueFromParaString(line);
    file.quantity = KOR::lowered(header.keyword) == KOR::lowered(QUANTITY_KEYWORD) ? header.value : header.keyword;
    file.unit = header.unit;
}

/// "day hh:mm:ss value". \return an error code
ccd_error_t readRecord(std::string_view line, CCDFile & file, std::string & buffer) {
    buffer = line;
    std::replace(buffer.begin(), buffer.end(), ':', ' ');
    const auto words = KOR::words(buffer, BLANKS);
    if (words.size() != 5)
        return CCD_BAD_LINE;
    const auto day = KOR::parseInteger<std::uint32_t>(words[0]);
    const auto hour = KOR::parseInteger<std::uint32_t>(words[1]);
    const auto minute = KOR::parseInteger<std::uint32_t>(words[2]);
    const auto second = KOR::parseDouble(words[3]);
    const auto value = KOR::parseDouble(words[4]);
    if (!day || !hour || *hour > 24 || !minute || *minute > 60 || !second || *second < 0 || *second > 60 || !value)
        return CCD_BAD_LINE;
    const double time = *day * 86400.0 + *hour * 3600.0 + *minute * 60.0 + *second;
    if (!file.timePoints.empty() && time <= file.timePoints.back())
        return CCD_BAD_TIME;
    file.timePoints.push_back(time);
    file.values.push_back(*value);
    return CCD_OK;
}

std::string twoDigits(unsigned int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string timeText(double seconds) {
    const double days = std::floor(seconds / 86400);
    double rest = seconds - days * 86400;
    const auto hour = static_cast<unsigned int>(rest / 3600);
    rest -= hour * 3600.0;
    const auto minute = static_cast<unsigned int>(rest / 60);
    rest -= minute * 60.0;
    return KOR::toString(static_cast<long long>(days)) + ' ' + twoDigits(hour) + ':' + twoDigits(minute) + ':' +
           (rest < 10 ? "0" : "") + KOR::toString(rest);
}

} // namespace

ClimateDataLoader::HeaderLine ClimateDataLoader::valueFromParaString(std::string_view line) {
    const std::size_t colon = line.find(':');
    const std::string_view keyword = KOR::trimmed(line.substr(0, colon));
    const auto words =
        colon == std::string_view::npos ? std::vector<std::string_view>() : KOR::words(line.substr(colon + 1), BLANKS);
    if (keyword.empty() || words.size() != 2) {
        constexpr const char * ID = "[CCM::ClimateDataLoader::valueFromParaString]";
        const KOR::Exception cause(
            KOR::text("Invalid header line '%1', expected format <keyword> : <value> <unit>.", excerpt(line)), ID);
        throw KOR::Exception(cause, "Invalid header.\n", ID);
    }
    return {toUtf8(keyword), toUtf8(words[0]), toUtf8(words[1])};
}

CCDFile ClimateDataLoader::readCCDFile(const std::string & path) {
    if (!std::ifstream(path))
        fail(CCD_CANNOT_OPEN, 0, path);
    return parseCCD(readText(path, false, WHERE));
}

CCDFile ClimateDataLoader::parseCCD(std::string_view text) {
    CCDFile file;
    LineReader lines(text);
    std::string_view line;
    std::string buffer;
    bool hasHeader = false;
    while (lines.nextNonEmpty(line)) {
        line = KOR::trimmed(line);
        if (line.front() == '#') {
            file.comment += (file.comment.empty() ? "" : "\n") + toUtf8(KOR::trimmed(line.substr(1)));
        } else if (!hasHeader) {
            try {
                readHeader(line, file);
            } catch (const KOR::Exception & ex) {
                throw KOR::Exception(
                    ex, KOR::text("#%1: %2", lines.number(), errorText(CCD_BAD_HEADER, lines.number(), "")), WHERE);
            }
            hasHeader = true;
        } else if (const ccd_error_t error = readRecord(line, file, buffer)) {
            fail(error, lines.number(), "");
        }
    }
    if (!hasHeader)
        fail(CCD_BAD_HEADER, lines.number() + 1, "");
    return file;
}

void ClimateDataLoader::writeCCDFile(const std::string & path, const CCDFile & file) {
    std::string out;
    for (const std::string_view line : KOR::split(file.comment, '\n'))
        if (!line.empty())
            out += "# " + std::string(line) + '\n';
    out += std::string(QUANTITY_KEYWORD) + " : " + file.quantity + ' ' + file.unit + '\n';
    for (std::size_t i = 0; i < file.timePoints.size(); ++i)
        out += timeText(file.timePoints[i]) + ' ' + KOR::toString(file.values.at(i)) + '\n';
    try {
        KOR::writeFile(path, out);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Error writing climate data file '%1'.", path),
                             "[ClimateDataLoader::writeCCDFile]");
    }
}

CCDFile ClimateDataLoader::quantityAsCCD(quantity_t quantity) const {
    const ClimateQuantity & properties = CLIMATE_QUANTITIES[quantity];
    CCDFile file{std::string(properties.keyword), std::string(properties.unit), {}, {}, {}};
    file.comment = m_city + (m_country.empty() ? "" : ", " + m_country) + (m_source.empty() ? "" : "\n" + m_source);
    if (!m_splines[quantity].empty()) {
        file.timePoints = m_splines[quantity].x();
        file.values = m_splines[quantity].y();
        return file;
    }
    for (std::size_t i = 0; i < m_data[quantity].size(); ++i) {
        if (isMissing(m_data[quantity][i]))
            continue;
        file.timePoints.push_back(timeOf(quantity, i));
        file.values.push_back(m_data[quantity][i]);
    }
    return file;
}

void ClimateDataLoader::setQuantity(const CCDFile & file) {
    constexpr const char * SET = "[ClimateDataLoader::setQuantity]";
    const auto quantity = quantityByKeyword(file.quantity);
    if (!quantity)
        throw KOR::Exception(KOR::text("Unknown climate quantity '%1'.", file.quantity), SET);
    std::vector<double> values = file.values;
    try {
        const KOR::Unit own(CLIMATE_QUANTITIES[*quantity].unit);
        for (double & value : values)
            if (!isMissing(value))
                KOR::UnitList::instance().convert(KOR::Unit(file.unit), own, value);
        bool isAnnualData = isAnnual() && values.size() == HOURS_OF_YEAR;
        for (std::size_t i = 0; isAnnualData && i < values.size(); ++i)
            isAnnualData = file.timePoints[i] == annualTime(*quantity, i);
        m_splines[*quantity].clear();
        m_data[*quantity].clear();
        if (isAnnualData)
            m_data[*quantity] = std::move(values);
        else
            m_splines[*quantity].setValues(file.timePoints, values);
    } catch (const KOR::Exception & ex) {
        throw KOR::Exception(ex, KOR::text("Error in the values of climate quantity '%1'.", file.quantity), SET);
    }
    checkValues();
}

} // namespace CCM
